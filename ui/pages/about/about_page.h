// The About page: the versions of driver and firmware.
#pragma once

#include "ui/common/page.h"

extern const Page kAboutPage;
