// The Tools page: the printer's maintenance functions.
#include "ui/pages/tools/tools_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK ToolsPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kToolsSlot, .Section = TEXT("Tools")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
