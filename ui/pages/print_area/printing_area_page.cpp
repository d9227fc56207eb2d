// The Printing Area page: which printing areas the overcoat and resin panels use.
#include "ui/pages/print_area/printing_area_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK PrintingAreaPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kPrintingAreaSlot, .Section = TEXT("PrintingArea")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
