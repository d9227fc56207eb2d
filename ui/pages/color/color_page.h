// The Color page: colour preference and image adjustments.
#pragma once

#include "ui/common/page.h"

extern const Page kColorPage;
