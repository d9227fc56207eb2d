// The shared tooltip window.
#include "ui/common/tooltip.h"

#include "ui/common/language.h"
#include "ui/common/module.h"

#include <commctrl.h>

namespace {

constexpr LPARAM kTipWidth = 300;  // pixels, then it wraps

HWND tooltip;

// A sheet that is gone has taken a window that it owned with it.
bool HasTooltip() {
    return tooltip != nullptr && IsWindow(tooltip);
}

}  // namespace

void CreateSharedTooltip(HWND dialog) {
    if (HasTooltip()) {
        return;
    }
    tooltip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, ModuleHandle, nullptr);
    if (tooltip != nullptr) {
        SetWindowPos(tooltip, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
        SendMessageW(tooltip, TTM_SETMAXTIPWIDTH, 0, kTipWidth);
    }
}

void AddTips(HWND dialog, std::span<const Tip> tips) {
    if (!HasTooltip()) {
        return;
    }
    for (const Tip& tip : tips) {
        HWND control = GetDlgItem(dialog, tip.Control);
        if (control == nullptr) {
            continue;
        }
        WCHAR text[kTextLength];
        LookupString(tip.Key, text);
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;  // as every version of the library takes it
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = dialog;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = text;
        SendMessageW(tooltip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void DestroySharedTooltip() {
    if (HasTooltip()) {
        DestroyWindow(tooltip);
    }
    tooltip = nullptr;
}
