// The Printing Area page: which printing areas the overcoat and resin panels use.
#include "ui/pages/print_area/printing_area_page.h"

#include "ui/common/language.h"

constinit const Page kPrintingAreaPage = {.Slot = kPrintingAreaSlot,
                                          .Section = kPrintingAreaSection};
