// Short names for what pages do to their controls.
#include "ui/common/controls.h"

#include "ui/common/language.h"

#include <commctrl.h>
#include <prsht.h>
#include <strsafe.h>

namespace {

void Fill(HWND list, std::span<const WCHAR* const> texts, bool translated) {
    SendMessageW(list, CB_RESETCONTENT, 0, 0);
    for (const WCHAR* text : texts) {
        WCHAR translation[kTextLength];
        if (translated) {
            LookupString(text, translation);
        }
        const LRESULT at = SendMessageW(list, CB_ADDSTRING, 0,
                                        reinterpret_cast<LPARAM>(translated ? translation : text));
        SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(at), at);
    }
}

}  // namespace

// Each of these asks the window system only for what changes something.

void ShowControl(HWND dialog, int control, bool shown) {
    HWND window = GetDlgItem(dialog, control);
    if (((GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0) != shown) {
        ShowWindow(window, shown ? SW_SHOW : SW_HIDE);
    }
}

void EnableControl(HWND dialog, int control, bool enabled) {
    HWND window = GetDlgItem(dialog, control);
    if ((IsWindowEnabled(window) != 0) != enabled) {
        EnableWindow(window, enabled);
    }
}

void CheckControl(HWND dialog, int control, bool checked) {
    CheckDlgButton(dialog, control, checked ? BST_CHECKED : BST_UNCHECKED);
}

int SelectedItem(HWND dialog, int comboBox) {
    return static_cast<int>(SendDlgItemMessageW(dialog, comboBox, CB_GETCURSEL, 0, 0));
}

void SelectItem(HWND dialog, int comboBox, int index) {
    SendDlgItemMessageW(dialog, comboBox, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void FillList(HWND dialog, int comboBox, std::span<const WCHAR* const> texts) {
    Fill(GetDlgItem(dialog, comboBox), texts, false);
}

void FillTranslatedList(HWND dialog, int comboBox, std::span<const WCHAR* const> texts) {
    Fill(GetDlgItem(dialog, comboBox), texts, true);
}

bool ItemText(HWND dialog, int comboBox, int index, std::span<WCHAR> text) {
    HWND list = GetDlgItem(dialog, comboBox);
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, item, 0);
    if (length == CB_ERR || static_cast<size_t>(length) >= text.size()) {
        return false;
    }
    return SendMessageW(list, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data())) != CB_ERR;
}

void AddTab(HWND dialog, int tabs, const WCHAR* text) {
    HWND control = GetDlgItem(dialog, tabs);
    const LRESULT index = SendMessageW(control, TCM_GETITEMCOUNT, 0, 0);
    WCHAR shown[kTextLength];
    StringCchCopyW(shown, kTextLength, text);
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = shown;
    item.lParam = index;
    SendMessageW(control, TCM_INSERTITEMW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
    if (index == 0) {
        SendMessageW(control, TCM_SETCURSEL, 0, 0);
    }
}

void AddTranslatedTab(HWND dialog, int tabs, const WCHAR* key) {
    WCHAR text[kTextLength];
    LookupString(key, text);
    AddTab(dialog, tabs, text);
}

int SelectedTab(HWND dialog, int tabs) {
    return static_cast<int>(SendDlgItemMessageW(dialog, tabs, TCM_GETCURSEL, 0, 0));
}

void CenterOnScreen(HWND dialog) {
    RECT area;
    GetWindowRect(dialog, &area);
    const int left = (GetSystemMetrics(SM_CXSCREEN) - (area.right - area.left)) / 2;
    const int top = (GetSystemMetrics(SM_CYSCREEN) - (area.bottom - area.top)) / 2;
    SetWindowPos(dialog, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void TellSheetChanged(HWND dialog) {
    SendMessageW(GetParent(dialog), PSM_CHANGED, reinterpret_cast<WPARAM>(dialog), 0);
}

RECT ControlArea(HWND dialog, int control) {
    RECT page = {};
    RECT area = {};
    GetWindowRect(dialog, &page);
    if (GetWindowRect(GetDlgItem(dialog, control), &area)) {
        OffsetRect(&area, -page.left, -page.top);
    }
    return area;
}
