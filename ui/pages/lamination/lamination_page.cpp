// The Lamination page: the laminator's film and parameters.
#include "ui/pages/lamination/lamination_page.h"

#include "ui/common/language.h"

constinit const Page kLaminationPage = {.Slot = kLaminationSlot, .Section = kLaminationSection};
