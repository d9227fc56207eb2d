// The About page: the versions of driver and firmware.
#include "ui/pages/about/about_page.h"

#include "ui/common/language.h"

constinit const Page kAboutPage = {
    .Slot = kAboutSlot, .Section = kAboutSection, .ReportsAccepted = false};
