// The skeleton of a page.
#include "ui/common/page.h"

#include "core/message.h"
#include "ui/common/help.h"
#include "ui/common/language.h"
#include "ui/common/localize.h"

#include <prsht.h>

#include <type_traits>

namespace {

// Calls a hook if the page has it.
template <typename... Arguments>
bool Call(void (*hook)(HWND, DriverContext&, Arguments...), HWND dialog, DriverContext& context,
          std::type_identity_t<Arguments>... arguments) {
    if (hook == nullptr) {
        return false;
    }
    hook(dialog, context, arguments...);
    return true;
}

// The same with the page's section set for the texts that it looks up.
template <typename... Arguments>
bool CallInSection(const Page& page, void (*hook)(HWND, DriverContext&, Arguments...), HWND dialog,
                   DriverContext& context, std::type_identity_t<Arguments>... arguments) {
    if (hook != nullptr) {
        SetSection(page.Section);
    }
    return Call(hook, dialog, context, arguments...);
}

// ---- Filling ----------------------------------------------------------------------------------

// While it lives, what the page's controls tell is not passed on.
class Filling {
  public:
    Filling(const Page& page, DriverContext& context)
        : pages_(context.PagesBeingFilled), bit_(1u << page.Slot) {
        pages_ |= bit_;
    }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;
    ~Filling() { pages_ &= ~bit_; }

    static bool Is(const Page& page, const DriverContext& context) {
        return (context.PagesBeingFilled & (1u << page.Slot)) != 0;
    }

  private:
    DWORD& pages_;
    const DWORD bit_;
};

void Translate(const Page& page, HWND dialog) {
    for (const WCHAR* section : {page.SharedSection, page.Section}) {
        if (section != nullptr) {
            SetSection(section);
            LocalizeDialog(dialog, page.TextFields);
        }
    }
}

void OpenPage(const Page& page, HWND dialog, const PROPSHEETPAGEW& record) {
    SetWindowLongPtrW(dialog, DWLP_USER, record.lParam);
    DriverContext& context = *PageContext(dialog);
    context.PageWindows[page.Slot] = dialog;
    const Filling filling(page, context);
    CallInSection(page, page.Fill, dialog, context);
    CallInSection(page, page.Open, dialog, context);
    for (const NumericField& field : page.Fields) {
        SubclassNumericField(GetDlgItem(dialog, field.Control), field);
    }
    for (const TextField& field : page.TextFields) {
        SubclassTextField(GetDlgItem(dialog, field.Control), field);
    }
    Translate(page, dialog);
    CallInSection(page, page.Complete, dialog, context);
    if (!page.Tips.empty()) {
        CreateSharedTooltip(dialog);
        AddTips(dialog, page.Tips);
    }
}

void ClosePage(const Page& page, HWND dialog, DriverContext& context) {
    Call(page.Close, dialog, context);
    context.PageWindows[page.Slot] = nullptr;
    if (page.DropsTooltip) {
        DestroySharedTooltip();
    }
}

// ---- The sheet's notifications ----------------------------------------------------------------

void ReportAccepted(const DriverContext& context, PageSlot slot) {
    context.ComPropSheet(context.ComPropSheetHandle, CPSFUNC_SET_RESULT,
                         reinterpret_cast<LPARAM>(context.PageHandles[slot]), CPSUI_OK);
}

// A message belongs to no window, so the sheet can be used behind it. It does not end there: the
// page that shows the message goes on with its record afterwards.
bool Refuses(const NMHDR& notification) {
    const bool ends =
        notification.code == UINT{PSN_KILLACTIVE} || notification.code == UINT{PSN_QUERYCANCEL};
    return ends && IsMessageShown();
}

void AnswerNotification(const Page& page, HWND dialog, DriverContext& context,
                        const NMHDR& notification) {
    switch (notification.code) {
        case PSN_SETACTIVE:
            CallInSection(page, page.Activate, dialog, context);
            break;
        case PSN_APPLY:
            CallInSection(page, page.Apply, dialog, context);
            if (page.ReportsAccepted) {
                ReportAccepted(context, page.Slot);
            }
            CallInSection(page, page.Applied, dialog, context);
            break;
        case PSN_HELP:
            if (page.OffersHelp) {
                OpenHelpFile(context.WorkingDevMode.Private.ModelCode);
            }
            break;
        default:
            if (!Filling::Is(page, context)) {
                Call(page.Notify, dialog, context, notification);
            }
    }
}

// ---- Painting ---------------------------------------------------------------------------------

void PaintPage(const Page& page, HWND dialog, DriverContext& context) {
    if (page.Paint == nullptr) {
        return;
    }
    PAINTSTRUCT paint;
    if (HDC target = BeginPaint(dialog, &paint)) {
        page.Paint(dialog, context, target, paint.rcPaint);
    }
    EndPaint(dialog, &paint);
}

// ---- What the user and the companions do --------------------------------------------------------

bool PassOn(const Page& page, HWND dialog, DriverContext& context, UINT message, WPARAM wParam,
            LPARAM lParam) {
    HWND control = reinterpret_cast<HWND>(lParam);
    switch (message) {
        case WM_COMMAND:
            return Call(page.Command, dialog, context, LOWORD(wParam), HIWORD(wParam));
        case WM_HSCROLL:
            return Call(page.ScrollHorizontally, dialog, context, control, LOWORD(wParam));
        case WM_VSCROLL:
            return Call(page.ScrollVertically, dialog, context, control, LOWORD(wParam));
        case WM_COPYDATA:
            if (lParam != 0) {
                CallInSection(page, page.TakeAnswer, dialog, context,
                              *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
            }
            return false;
        case WM_HELP:
            return Call(page.Help, dialog, context);
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
            Call(page.Mouse, dialog, context, message, POINT{LOWORD(lParam), HIWORD(lParam)});
            return false;
        default:
            return false;
    }
}

}  // namespace

INT_PTR RunPage(const Page& page, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        OpenPage(page, dialog, *reinterpret_cast<const PROPSHEETPAGEW*>(lParam));
        return FALSE;
    }
    DriverContext* context = PageContext(dialog);
    if (context == nullptr) {
        return FALSE;
    }
    switch (message) {
        case WM_NOTIFY:
            if (Refuses(*reinterpret_cast<const NMHDR*>(lParam))) {
                SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
                return TRUE;
            }
            AnswerNotification(page, dialog, *context, *reinterpret_cast<const NMHDR*>(lParam));
            return FALSE;
        case WM_PAINT:
            PaintPage(page, dialog, *context);
            return FALSE;
        case WM_DRAWITEM:
            return Call(page.DrawItem, dialog, *context,
                        *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        case WM_DESTROY:
            ClosePage(page, dialog, *context);
            return FALSE;
        default:
            return !Filling::Is(page, *context) &&
                   PassOn(page, dialog, *context, message, wParam, lParam);
    }
}

void FillPage(const Page& page, DriverContext& context) {
    HWND dialog = context.PageWindows[page.Slot];
    const Filling filling(page, context);
    CallInSection(page, page.Fill, dialog, context);
    if (dialog != nullptr) {
        Translate(page, dialog);
    }
}

DriverContext* PageContext(HWND dialog) {
    return reinterpret_cast<DriverContext*>(GetWindowLongPtrW(dialog, DWLP_USER));
}
