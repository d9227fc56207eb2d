// The Import/Export page: settings carried to another computer in a file.
#include "ui/pages/import_export/import_export_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK ImportExportPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kImportExportSlot, .Section = TEXT("Import/Export")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
