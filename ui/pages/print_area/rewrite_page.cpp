// The Rewrite page: rewritable cards: their energies and their erase job.
#include "ui/pages/print_area/rewrite_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK RewritePageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {
        .Slot = kRewriteSlot, .Section = TEXT("Rewritable"), .OffersHelp = false};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
