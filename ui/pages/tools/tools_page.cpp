// The Tools page: the printer's maintenance functions.
#include "ui/pages/tools/tools_page.h"

#include "ui/common/language.h"

constinit const Page kToolsPage = {.Slot = kToolsSlot, .Section = kToolsSection};
