// The Magnetic Encoding page: magnetic stripe encoding.
#include "ui/pages/magnetic/magnetic_encoding_page.h"

#include "ui/common/language.h"

constinit const Page kMagneticEncodingPage = {.Slot = kMagneticEncodingSlot,
                                              .Section = kMagneticEncodingSection};
