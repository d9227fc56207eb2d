// Walks a dialog's windows and replaces their texts.
#include "ui/common/localize.h"

#include "core/text.h"
#include "ui/common/language.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr int kControlTextLength = 512;

// Combo and list boxes have the same messages under different numbers.
struct ItemMessages {
    UINT Count;
    UINT Selection;
    UINT TextLength;
    UINT Text;
    UINT Data;
    UINT Remove;
    UINT Insert;
    UINT SetData;
    UINT Select;
};

constexpr ItemMessages kComboBox = {
    CB_GETCOUNT,     CB_GETCURSEL,    CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETITEMDATA,
    CB_DELETESTRING, CB_INSERTSTRING, CB_SETITEMDATA,  CB_SETCURSEL,
};
constexpr ItemMessages kListBox = {
    LB_GETCOUNT,     LB_GETCURSEL,    LB_GETTEXTLEN,  LB_GETTEXT,   LB_GETITEMDATA,
    LB_DELETESTRING, LB_INSERTSTRING, LB_SETITEMDATA, LB_SETCURSEL,
};
constexpr LRESULT kItemError = CB_ERR;
static_assert(CB_ERR == LB_ERR);

void LocalizeItem(HWND box, const ItemMessages& messages, WPARAM position) {
    const LRESULT length = SendMessageW(box, messages.TextLength, position, 0);
    if (length == kItemError || length >= kControlTextLength) {
        return;
    }
    WCHAR text[kControlTextLength] = {};
    SendMessageW(box, messages.Text, position, reinterpret_cast<LPARAM>(text));
    const LRESULT data = SendMessageW(box, messages.Data, position, 0);
    WCHAR translated[kTextLength];
    LookupString(text, translated);
    if (TextEquals(text, translated)) {
        return;
    }
    SendMessageW(box, messages.Remove, position, 0);
    SendMessageW(box, messages.Insert, position, reinterpret_cast<LPARAM>(translated));
    if (data != kItemError) {
        SendMessageW(box, messages.SetData, position, data);
    }
}

int LocalizeItems(HWND box, const ItemMessages& messages) {
    const LRESULT count = SendMessageW(box, messages.Count, 0, 0);
    if (count == kItemError || count == 0) {
        return 0;
    }
    const LRESULT selection = SendMessageW(box, messages.Selection, 0, 0);
    SendMessageW(box, WM_SETREDRAW, FALSE, 0);  // the box has it for its list
    for (LRESULT position = 0; position < count; ++position) {
        LocalizeItem(box, messages, static_cast<WPARAM>(position));
    }
    SendMessageW(box, WM_SETREDRAW, TRUE, 0);
    const LRESULT restored = SendMessageW(box, messages.Select, static_cast<WPARAM>(selection), 0);
    return restored != kItemError;
}

void LocalizeListView(HWND listView, int count) {
    for (int item = 0; item < count; ++item) {
        WCHAR text[kControlTextLength] = {};
        LVITEMW column = {};
        column.pszText = text;
        column.cchTextMax = kControlTextLength;
        SendMessageW(listView, LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&column));
        WCHAR translated[kTextLength];
        LookupString(text, translated);
        column.pszText = translated;
        column.cchTextMax = static_cast<int>(WideView(translated).size()) + 1;
        SendMessageW(listView, LVM_SETITEMTEXTW, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&column));
    }
}

void LocalizeText(HWND window) {
    WCHAR text[kControlTextLength] = {};
    if (GetWindowTextW(window, text, kControlTextLength) == 0) {
        return;
    }
    WCHAR translated[kTextLength];
    LookupString(text, translated);
    if (!TextEquals(text, translated)) {  // an edit control would tell of a change
        SetWindowTextW(window, translated);
    }
}

void LocalizeControl(HWND control) {
    if (SendMessageW(control, CB_GETCOUNT, 0, 0) != 0) {
        if (LocalizeComboBox(control) == 0) {
            LocalizeListBox(control);
        }
    } else if (const LRESULT count = SendMessageW(control, LVM_GETITEMCOUNT, 0, 0); count != 0) {
        LocalizeListView(control, static_cast<int>(count));
    } else {
        LocalizeText(control);
    }
}

bool IsAmong(std::span<const TextField> fields, HWND control) {
    return !fields.empty() &&
           std::any_of(fields.begin(), fields.end(),
                       [id = GetDlgCtrlID(control)](const auto& row) { return row.Control == id; });
}

}  // namespace

int LocalizeDialog(HWND dialog, std::span<const TextField> typed) {
    LocalizeText(dialog);
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (!IsAmong(typed, control)) {
            LocalizeControl(control);
        }
    }
    if (HMENU menu = GetMenu(dialog); menu != nullptr) {
        LocalizeMenu(menu, dialog);
    }
    return 0;
}

int LocalizeComboBox(HWND comboBox) {
    return LocalizeItems(comboBox, kComboBox);
}

int LocalizeListBox(HWND listBox) {
    return LocalizeItems(listBox, kListBox);
}

int LocalizeMenu(HMENU menu, HWND owner) {
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        WCHAR text[kControlTextLength] = {};
        GetMenuStringW(menu, static_cast<UINT>(position), text, kControlTextLength, MF_BYPOSITION);
        HMENU submenu = GetSubMenu(menu, position);
        if (text[0] != 0) {
            WCHAR translated[kTextLength];
            LookupString(text, translated);
            // Named again, an item's submenu stays with it.
            const UINT_PTR item = submenu != nullptr ? reinterpret_cast<UINT_PTR>(submenu)
                                                     : GetMenuItemID(menu, position);
            ModifyMenuW(menu, static_cast<UINT>(position),
                        MF_BYPOSITION | MF_STRING | (submenu != nullptr ? MF_POPUP : 0u), item,
                        translated);
        }
        DrawMenuBar(owner);
        if (submenu != nullptr) {
            LocalizeMenu(submenu, owner);
        }
    }
    return 0;
}
