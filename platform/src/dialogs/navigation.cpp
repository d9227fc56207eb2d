// The order in which keys reach a dialog's controls, and what the dialog manager does beside moving
// the focus.
#include "dialogs/navigation.h"

#include <algorithm>

namespace {

LONG StyleOf(HWND window) {
    return GetWindowLongW(window, GWL_STYLE);
}

bool IsShownAndEnabled(HWND control) {
    return (StyleOf(control) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

std::vector<HWND> SiblingsIn(HWND parent) {
    std::vector<HWND> controls;
    for (HWND control = GetWindow(parent, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        controls.push_back(control);
    }
    return controls;
}

void Collect(HWND parent, std::vector<HWND>& order) {
    for (HWND control : SiblingsIn(parent)) {
        if ((GetWindowLongW(control, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) == 0) {
            order.push_back(control);
        } else if (IsShownAndEnabled(control)) {
            Collect(control, order);
        }
    }
}

LRESULT CodeOf(HWND control) {
    return control == nullptr ? 0 : SendMessageW(control, WM_GETDLGCODE, 0, 0);
}

bool IsPushButton(HWND control) {
    return (CodeOf(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

HWND DefaultButton(HWND dialog) {
    const LRESULT asked = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    return HIWORD(asked) == DC_HASDEFID ? GetDlgItem(dialog, LOWORD(asked)) : nullptr;
}

}  // namespace

namespace host {

std::vector<HWND> ControlsInOrder(HWND dialog) {
    std::vector<HWND> order;
    Collect(dialog, order);
    return order;
}

void EmphasizeDefault(HWND dialog, HWND focus) {
    const bool onButton = IsChild(dialog, focus) && IsPushButton(focus);
    HWND button = onButton ? focus : DefaultButton(dialog);
    for (HWND control : ControlsInOrder(dialog)) {
        if (control != button && (CodeOf(control) & DLGC_DEFPUSHBUTTON) != 0) {
            SendMessageW(control, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        }
    }
    if ((CodeOf(button) & DLGC_UNDEFPUSHBUTTON) != 0) {
        SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

void FocusControl(HWND dialog, HWND control) {
    if (control == nullptr) {
        return;
    }
    if ((CodeOf(control) & DLGC_HASSETSEL) != 0) {
        SendMessageW(control, EM_SETSEL, 0, -1);
    }
    SetFocus(control);
    if (IsWindow(dialog)) {
        EmphasizeDefault(dialog, GetFocus());
    }
}

}  // namespace host

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    std::vector<HWND> order = host::ControlsInOrder(dialog);
    if (order.empty()) {
        return nullptr;
    }
    if (previous) {
        std::reverse(order.begin(), order.end());
    }
    // From a part of a control (a combo box's edit control) on, it goes on after the whole.
    auto self = std::find_if(order.begin(), order.end(), [&](HWND candidate) {
        return candidate == control || (control != nullptr && IsChild(candidate, control));
    });
    if (self != order.end()) {
        std::rotate(order.begin(), self + 1, order.end());
    }
    for (HWND candidate : order) {
        if (IsShownAndEnabled(candidate) && (StyleOf(candidate) & WS_TABSTOP) != 0) {
            return candidate;
        }
    }
    return control;
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    std::vector<HWND> all = SiblingsIn(control == nullptr ? dialog : GetParent(control));
    const auto self = std::find(all.begin(), all.end(), control);
    if (self == all.end()) {
        return all.empty() ? nullptr : all.front();
    }
    const auto startsGroup = [](HWND window) { return (StyleOf(window) & WS_GROUP) != 0; };
    auto first = self;
    while (first != all.begin() && !startsGroup(*first)) {
        --first;
    }
    const auto last = std::find_if(self + 1, all.end(), startsGroup);
    std::vector<HWND> group(first, last);
    if (previous) {
        std::reverse(group.begin(), group.end());
    }
    std::rotate(group.begin(), std::find(group.begin(), group.end(), control) + 1, group.end());
    const auto next = std::find_if(group.begin(), group.end(), IsShownAndEnabled);
    return next == group.end() ? control : *next;
}
