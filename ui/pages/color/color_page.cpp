// The Color page: colour preference and image adjustments.
#include "ui/pages/color/color_page.h"

#include "ui/common/language.h"

constinit const Page kColorPage = {.Slot = kColorSlot, .Section = kColorSection};
