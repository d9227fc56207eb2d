// The Magnetic Encoding page: magnetic stripe encoding.
#pragma once

#include "ui/common/page.h"

extern const Page kMagneticEncodingPage;
