// The skeleton of a page.
#include "ui/common/page.h"

#include "ui/common/help.h"
#include "ui/common/language.h"
#include "ui/common/localize.h"

#include <prsht.h>

namespace {

void OpenPage(const Page& page, HWND dialog, const PROPSHEETPAGEW& record) {
    SetWindowLongPtrW(dialog, DWLP_USER, record.lParam);
    if (page.Open != nullptr) {
        page.Open(dialog, *PageContext(dialog));
    }
    SetSection(page.Section);
    LocalizeDialog(dialog);
    if (!page.Tips.empty()) {
        CreateSharedTooltip(dialog);
        AddTips(dialog, page.Tips);
    }
}

void ReportAccepted(const DriverContext& context, PageSlot slot) {
    context.ComPropSheet(context.ComPropSheetHandle, CPSFUNC_SET_RESULT,
                         reinterpret_cast<LPARAM>(context.PageHandles[slot]), CPSUI_OK);
}

void AnswerSheet(const Page& page, const DriverContext& context, UINT notification) {
    if (notification == PSN_APPLY && page.ReportsAccepted) {
        ReportAccepted(context, page.Slot);
    } else if (notification == PSN_HELP && page.OffersHelp) {
        OpenHelpFile(context.WorkingDevMode.Private.ModelCode);
    }
}

}  // namespace

INT_PTR RunPage(const Page& page, HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            OpenPage(page, dialog, *reinterpret_cast<const PROPSHEETPAGEW*>(lParam));
            break;
        case WM_NOTIFY:
            if (const DriverContext* context = PageContext(dialog); context != nullptr) {
                AnswerSheet(page, *context, reinterpret_cast<const NMHDR*>(lParam)->code);
            }
            break;
        case WM_DESTROY:
            if (page.DropsTooltip) {
                DestroySharedTooltip();
            }
            break;
    }
    return FALSE;
}

DriverContext* PageContext(HWND dialog) {
    return reinterpret_cast<DriverContext*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

void TellSheetChanged(HWND dialog) {
    SendMessageW(GetParent(dialog), PSM_CHANGED, reinterpret_cast<WPARAM>(dialog), 0);
}
