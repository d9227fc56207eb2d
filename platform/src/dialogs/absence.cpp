// Taking the focus away from the program's windows and giving it back.
#include "dialogs/absence.h"

namespace host {

Absence::Absence(HWND owner) : active_(GetActiveWindow()) {
    HWND top = IsWindow(owner) ? GetAncestor(owner, GA_ROOT) : nullptr;
    if (top != nullptr && IsWindowEnabled(top)) {
        disabled_ = top;
        EnableWindow(top, FALSE);
    }
    box_ = CreateWindowExW(WS_EX_DLGMODALFRAME, TEXT("#32770"), nullptr, WS_POPUP, 0, 0, 0, 0, top,
                           nullptr, nullptr, nullptr);
    if (box_ != nullptr) {
        SetActiveWindow(box_);
    }
}

Absence::~Absence() {
    if (disabled_ != nullptr) {
        EnableWindow(disabled_, TRUE);  // first, so that it can become active again
    }
    DestroyWindow(box_);
    if (IsWindow(active_)) {
        SetActiveWindow(active_);
    }
}

}  // namespace host
