// The Lamination page: the laminator's film and parameters.
#include "ui/pages/lamination/lamination_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK LaminationPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kLaminationSlot, .Section = TEXT("Lamination")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
