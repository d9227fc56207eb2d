// Tooltips: a window that keeps the texts of tools. Nobody moves a mouse over the windows here, so
// that it never comes to show one.
#include "controls/common_control.h"

#include <algorithm>

namespace {

using host::WideString;

struct Tool {
    HWND window;
    UINT_PTR id;
    UINT flags;
    WideString text;
};

class Tooltip : public host::common::Control {
  public:
    explicit Tooltip(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC) override {}
    bool Owns(UINT message) const override { return IsInRange(message, WM_USER); }
    LRESULT Create();
    LRESULT Add(const TOOLINFOW& info);
    LRESULT Describe(TOOLINFOW& info) const;
    LRESULT GetText(const TOOLINFOW& info, int room) const;
    const Tool* Find(const TOOLINFOW& info) const;

    std::vector<Tool> tools_;
    int maxWidth_ = -1;
};

LRESULT Tooltip::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return Create();
        case TTM_SETMAXTIPWIDTH:
            return std::exchange(maxWidth_, static_cast<int>(lParam));
        case TTM_GETMAXTIPWIDTH:
            return maxWidth_;
        case TTM_GETTOOLCOUNT:
            return static_cast<LRESULT>(tools_.size());
        case TTM_ADDTOOLW:
            return Add(*reinterpret_cast<const TOOLINFOW*>(lParam));
        case TTM_GETTOOLINFOW:
            return Describe(*reinterpret_cast<TOOLINFOW*>(lParam));
        case TTM_GETTEXTW:
            return GetText(*reinterpret_cast<const TOOLINFOW*>(lParam), static_cast<int>(wParam));
    }
    return Control::Handle(message, wParam, lParam);
}

LRESULT Tooltip::Create() {
    host::common::CheckStyle("tooltip", Style(), TTS_ALWAYSTIP | TTS_NOPREFIX);
    const DWORD style = WS_POPUP | WS_BORDER | WS_CLIPSIBLINGS;
    SetWindowLongPtrW(window_, GWL_STYLE,
                      static_cast<LONG>(style | (Style() & (TTS_ALWAYSTIP | TTS_NOPREFIX))));
    SetWindowLongPtrW(window_, GWL_EXSTYLE,
                      GetWindowLongPtrW(window_, GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
    font_ = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    return 0;
}

LRESULT Tooltip::Add(const TOOLINFOW& info) {
    if (info.cbSize != TTTOOLINFOW_V2_SIZE || info.uFlags != (TTF_IDISHWND | TTF_SUBCLASS) ||
        IS_INTRESOURCE(info.lpszText)) {
        host::Unsupported("tooltip tool of %u bytes with flags %#x", info.cbSize, info.uFlags);
    }
    tools_.push_back({info.hwnd, info.uId, info.uFlags, info.lpszText});
    return TRUE;
}

const Tool* Tooltip::Find(const TOOLINFOW& info) const {
    const auto found = std::find_if(tools_.begin(), tools_.end(), [&](const Tool& tool) {
        return tool.window == info.hwnd && tool.id == info.uId;
    });
    return found == tools_.end() ? nullptr : &*found;
}

LRESULT Tooltip::Describe(TOOLINFOW& info) const {
    const Tool* tool = Find(info);
    if (tool == nullptr) {
        return FALSE;
    }
    if (info.lpszText != nullptr) {
        host::Unsupported("TTM_GETTOOLINFOW with room for the text");
    }
    info.uFlags = tool->flags;
    return TRUE;
}

LRESULT Tooltip::GetText(const TOOLINFOW& info, int room) const {
    if (const Tool* tool = Find(info); tool != nullptr) {
        host::common::CopyText(tool->text, info.lpszText, room);
    }
    return 0;
}

}  // namespace

namespace host {

void RegisterTooltip() {
    common::Register(TOOLTIPS_CLASSW, common::Procedure<Tooltip>, CS_SAVEBITS);
}

}  // namespace host
