// The Magnetic Encoding page: magnetic stripe encoding.
#include "ui/pages/magnetic/magnetic_encoding_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK MagneticEncodingPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kMagneticEncodingSlot,
                                   .Section = TEXT("MagneticEncoding")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
