// The Import/Export page: settings carried to another computer in a file.
#include "ui/pages/import_export/import_export_page.h"

#include "ui/common/language.h"

constinit const Page kImportExportPage = {.Slot = kImportExportSlot,
                                          .Section = kImportExportSection};
