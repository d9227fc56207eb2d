// The About page: the versions of driver and firmware.
#include "ui/pages/about/about_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK AboutPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {
        .Slot = kAboutSlot, .Section = TEXT("About"), .ReportsAccepted = false};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
