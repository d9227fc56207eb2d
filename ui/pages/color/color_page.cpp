// The Color page: colour preference and image adjustments.
#include "ui/pages/color/color_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK ColorPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kColorSlot, .Section = TEXT("Color")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
