// A dialog's controls by identifier.
#include "host_state.h"

#include <strsafe.h>

namespace {

constexpr int kNumberLength = 64;

std::vector<HWND> ControlsOf(HWND parent) {
    std::vector<HWND> controls;
    for (HWND control = GetWindow(parent, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        controls.push_back(control);
    }
    return controls;
}

}  // namespace

HWND WINAPI GetDlgItem(HWND dialog, int id) {
    for (HWND control : ControlsOf(dialog)) {
        if (GetDlgCtrlID(control) == id) {
            return control;
        }
    }
    if (IsWindow(dialog)) {
        SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    }
    return nullptr;
}

int WINAPI GetDlgCtrlID(HWND window) {
    return static_cast<int>(GetWindowLongPtrW(window, GWLP_ID));
}

BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text) {
    return SetWindowTextW(GetDlgItem(dialog, id), text);
}

UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int length) {
    if (length > 0) {
        text[0] = 0;
    }
    return static_cast<UINT>(GetWindowTextW(GetDlgItem(dialog, id), text, length));
}

BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned) {
    WCHAR text[kNumberLength];
    StringCchPrintfW(text, kNumberLength, isSigned ? TEXT("%d") : TEXT("%u"), value);
    return SetDlgItemTextW(dialog, id, text);
}

LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam,
                                   LPARAM lParam) {
    HWND control = GetDlgItem(dialog, id);
    return control == nullptr ? 0 : SendMessageW(control, message, wParam, lParam);
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT state) {
    HWND control = GetDlgItem(dialog, id);
    if (control == nullptr) {
        return FALSE;
    }
    SendMessageW(control, BM_SETCHECK, state, 0);
    return TRUE;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int checked) {
    for (HWND control : ControlsOf(dialog)) {
        const int id = GetDlgCtrlID(control);
        const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
        if (id >= first && id <= last && (code & DLGC_RADIOBUTTON) != 0) {
            SendMessageW(control, BM_SETCHECK, id == checked ? BST_CHECKED : BST_UNCHECKED, 0);
        }
    }
    return TRUE;
}
