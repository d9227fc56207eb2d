// The About page: the versions of driver and firmware, the logo, and the picture that leads to the
// web site.
#pragma once

#include "ui/common/page.h"

extern const Page kAboutPage;
