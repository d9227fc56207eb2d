// Taking the focus away from the program's windows and giving it back.
#include "dialogs/absence.h"

namespace host {

Absence::Absence(HWND owner, bool ofAll) : active_(GetActiveWindow()) {
    HWND top = IsWindow(owner) ? GetAncestor(owner, GA_ROOT) : nullptr;
    Disable(top);
    if (ofAll) {
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM absence) -> BOOL {
                reinterpret_cast<Absence*>(absence)->Disable(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(this));
    }
    box_ = CreateWindowExW(WS_EX_DLGMODALFRAME, TEXT("#32770"), nullptr, WS_POPUP, 0, 0, 0, 0, top,
                           nullptr, nullptr, nullptr);
    if (box_ != nullptr) {
        SetActiveWindow(box_);
    }
}

void Absence::Disable(HWND top) {
    if (top != nullptr && IsWindowEnabled(top)) {
        disabled_.push_back(top);
        EnableWindow(top, FALSE);
    }
}

Absence::~Absence() {
    for (HWND window : disabled_) {
        EnableWindow(window, TRUE);  // first, so that it can become active again
    }
    DestroyWindow(box_);
    if (IsWindow(active_)) {
        SetActiveWindow(active_);
    }
}

}  // namespace host
