// The keys of dialogs: what a message loop gives IsDialogMessageW before it dispatches.
#include "dialogs/navigation.h"

#include <algorithm>

namespace {

LRESULT CodeOf(HWND control, MSG* message = nullptr) {
    return control == nullptr
               ? 0
               : SendMessageW(control, WM_GETDLGCODE, message == nullptr ? 0 : message->wParam,
                              reinterpret_cast<LPARAM>(message));
}

void MoveByTab(HWND dialog, bool back) {
    HWND next = GetNextDlgTabItem(dialog, GetFocus(), back);
    if (next != GetFocus()) {
        host::FocusControl(dialog, next);
    }
}

bool IsAutomaticRadio(HWND control) {
    return (CodeOf(control) & DLGC_RADIOBUTTON) != 0 &&
           (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
}

// The focus alone clicks a radio button already; it is to be clicked once.
void FocusAndClick(HWND dialog, HWND control) {
    const bool isRadio = (CodeOf(control) & DLGC_RADIOBUTTON) != 0;
    if (isRadio) {
        SendMessageW(control, BM_SETDONTCLICK, TRUE, 0);
    }
    host::FocusControl(dialog, control);
    if (isRadio) {
        SendMessageW(control, BM_SETDONTCLICK, FALSE, 0);
    }
    SendMessageW(control, BM_CLICK, 0, 0);
}

// An automatic radio button is checked by the arrow that reaches it.
void MoveInGroup(HWND dialog, bool back) {
    HWND next = GetNextDlgGroupItem(dialog, GetFocus(), back);
    if (next == nullptr || next == GetFocus()) {
        return;
    }
    if (IsAutomaticRadio(next)) {
        FocusAndClick(dialog, next);
    } else {
        host::FocusControl(dialog, next);
    }
}

// As if the button were clicked; there need not be one, but one that is disabled stays quiet.
void Press(HWND dialog, int id) {
    HWND button = GetDlgItem(dialog, id);
    if (button != nullptr && !IsWindowEnabled(button)) {
        MessageBeep(0);
        return;
    }
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

void PressDefault(HWND dialog) {
    HWND focus = GetFocus();
    if ((CodeOf(focus) & DLGC_DEFPUSHBUTTON) != 0) {
        Press(GetParent(focus), GetDlgCtrlID(focus));  // a page's own or the dialog's
    } else {
        const LRESULT asked = SendMessageW(dialog, DM_GETDEFID, 0, 0);
        Press(dialog, HIWORD(asked) == DC_HASDEFID ? LOWORD(asked) : IDOK);
    }
}

// True when the key was the dialog's own.
bool TakeKey(HWND dialog, MSG* message) {
    const LRESULT code = CodeOf(message->hwnd, message);
    if ((code & DLGC_WANTMESSAGE) != 0) {
        return false;
    }
    switch (message->wParam) {
        case VK_TAB:
            if ((code & DLGC_WANTTAB) != 0) {
                return false;
            }
            MoveByTab(dialog, GetKeyState(VK_SHIFT) < 0);
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            if ((code & DLGC_WANTARROWS) != 0) {
                return false;
            }
            MoveInGroup(dialog, message->wParam == VK_LEFT || message->wParam == VK_UP);
            return true;
        case VK_RETURN:
            PressDefault(dialog);
            return true;
        case VK_ESCAPE:
            Press(dialog, IDCANCEL);
            return true;
        default:
            return false;
    }
}

// The letter after the first single '&' of a text, or 0.
WCHAR MnemonicOf(HWND control) {
    WCHAR text[256] = {};
    GetWindowTextW(control, text, 256);
    for (const WCHAR* c = text; *c != 0; ++c) {
        if (c[0] == '&' && c[1] != '&') {
            return c[1];
        }
        c += c[0] == '&' ? 1 : 0;
    }
    return 0;
}

bool Bears(HWND control, WCHAR letter) {
    const LRESULT code = CodeOf(control);
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    const bool isLabel = (code & DLGC_STATIC) != 0 && (code & DLGC_BUTTON) == 0;
    if ((code & DLGC_WANTCHARS) != 0 || !IsWindowVisible(control) || !IsWindowEnabled(control) ||
        (isLabel && (style & SS_NOPREFIX) != 0)) {
        return false;
    }
    const WCHAR mnemonic = MnemonicOf(control);
    return mnemonic != 0 && host::SameText({mnemonic}, {letter});
}

// The next control that bears the letter gets the focus and, when it is a button and no other bears
// the letter too, is clicked.
bool TakeMnemonic(HWND dialog, HWND from, WCHAR letter) {
    std::vector<HWND> order = host::ControlsInOrder(dialog);
    const auto self = std::find(order.begin(), order.end(), from);
    if (self != order.end()) {
        std::rotate(order.begin(), self + 1, order.end());
    }
    std::erase_if(order, [&](HWND control) { return !Bears(control, letter); });
    if (order.empty()) {
        return false;
    }
    HWND control = order.front();
    const LRESULT code = CodeOf(control);
    if ((code & DLGC_STATIC) != 0) {
        host::FocusControl(dialog, GetNextDlgTabItem(dialog, control, FALSE));
    } else if ((code & DLGC_BUTTON) != 0 && order.size() == 1) {
        FocusAndClick(dialog, control);
    } else {
        host::FocusControl(dialog, control);
    }
    return true;
}

// A letter alone is enough where the focus has no use for it.
bool TakeLetter(HWND dialog, MSG* message) {
    if (message->message == WM_CHAR) {
        const LRESULT code = CodeOf(message->hwnd, message);
        if ((code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) != 0 || message->wParam <= ' ') {
            return false;
        }
    }
    return TakeMnemonic(dialog, message->hwnd, static_cast<WCHAR>(message->wParam));
}

bool Take(HWND dialog, MSG* message) {
    switch (message->message) {
        case WM_KEYDOWN:
            return TakeKey(dialog, message);
        case WM_CHAR:
        case WM_SYSCHAR:
            return TakeLetter(dialog, message);
        case WM_LBUTTONDOWN:
            // The control is about to take the focus.
            if (message->hwnd != dialog) {
                host::EmphasizeDefault(dialog, message->hwnd);
            }
            return false;
        default:
            return false;
    }
}

}  // namespace

BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message) {
    if (message->hwnd != dialog && !IsChild(dialog, message->hwnd)) {
        return FALSE;
    }
    if (!Take(dialog, message)) {
        TranslateMessage(message);
        DispatchMessageW(message);
    }
    return TRUE;
}
