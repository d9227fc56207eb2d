// Tooltips: one window that shows the text of the tool under the mouse, a moment after the mouse
// came to rest there.
#include "controls/common_control.h"

#include <algorithm>

namespace {

using host::WideString;
using host::common::PointOf;

constexpr LRESULT kHitsNothing = -1;  ///< the window lets the mouse through
constexpr UINT_PTR kShowTimer = 1;
constexpr UINT_PTR kHideTimer = 2;
constexpr int kMargin = 2;       ///< around the text, within the border
constexpr int kBelowMouse = 19;  ///< where the text starts, clear of the mouse's arrow
constexpr UINT kKnownFlags = TTF_IDISHWND | TTF_SUBCLASS | TTF_TRANSPARENT;

struct Tool {
    UINT flags;
    HWND window;
    UINT_PTR id;
    RECT rect;
    LPARAM param;
    WideString text;
    bool asksForText;

    bool IsWindow() const { return (flags & TTF_IDISHWND) != 0; }
    /// The window whose mouse messages count.
    HWND Watched() const { return IsWindow() ? reinterpret_cast<HWND>(id) : window; }
};

// ---- Watching the mouse over other windows ----------------------------------------------------

constexpr WCHAR kWatchName[] = TEXT("TooltipWatch");

// What a watched window keeps: its own procedure, and who watches.
struct Watch {
    WNDPROC procedure;
    std::vector<HWND> tooltips;
};

LRESULT CALLBACK WatchProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

WNDPROC ProcedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void EndWatch(HWND window, Watch* watch) {
    if (ProcedureOf(window) == WatchProcedure) {
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(watch->procedure));
    }
    RemovePropW(window, kWatchName);
    delete watch;
}

LRESULT CALLBACK WatchProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* watch = static_cast<Watch*>(GetPropW(window, kWatchName));
    if (watch == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message >= WM_MOUSEMOVE && message <= WM_RBUTTONUP) {
        MSG event = {};
        event.hwnd = window;
        event.message = message;
        event.wParam = wParam;
        event.lParam = lParam;
        for (HWND tooltip : std::vector<HWND>(watch->tooltips)) {
            SendMessageW(tooltip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&event));
        }
        watch = static_cast<Watch*>(GetPropW(window, kWatchName));
    }
    const WNDPROC procedure = watch == nullptr ? ProcedureOf(window) : watch->procedure;
    if (message == WM_NCDESTROY && watch != nullptr) {
        EndWatch(window, watch);
    }
    return CallWindowProcW(procedure, window, message, wParam, lParam);
}

void AddWatch(HWND window, HWND tooltip) {
    if (!IsWindow(window)) {
        return;
    }
    auto* watch = static_cast<Watch*>(GetPropW(window, kWatchName));
    if (watch == nullptr) {
        watch = new Watch{ProcedureOf(window), {}};
        SetPropW(window, kWatchName, watch);
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchProcedure));
    }
    watch->tooltips.push_back(tooltip);
}

void RemoveWatch(HWND window, HWND tooltip) {
    auto* watch = static_cast<Watch*>(GetPropW(window, kWatchName));
    if (watch == nullptr) {
        return;
    }
    const auto found = std::find(watch->tooltips.begin(), watch->tooltips.end(), tooltip);
    if (found != watch->tooltips.end()) {
        watch->tooltips.erase(found);
    }
    // A window that was subclassed once more since then goes on calling us.
    if (watch->tooltips.empty() && ProcedureOf(window) == WatchProcedure) {
        EndWatch(window, watch);
    }
}

// ---- The control ------------------------------------------------------------------------------

class Tooltip : public host::common::Control {
  public:
    explicit Tooltip(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    bool Owns(UINT message) const override { return IsInRange(message, WM_USER); }
    LRESULT Create();
    void Destroy();
    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleTools(UINT message, WPARAM wParam, LPARAM lParam);

    BOOL Add(const TOOLINFOW& info);
    void Delete(const TOOLINFOW& info);
    void Update(Tool& tool, const TOOLINFOW& info) const;
    void Describe(const Tool& tool, TOOLINFOW& info) const;
    WideString TextOf(const Tool& tool) const;
    int IndexOf(const TOOLINFOW& info) const;
    int Under(HWND window, POINT point) const;
    void SetDelay(WPARAM which, int milliseconds);

    void Relay(const MSG& event);
    void Show();
    void Hide();
    bool MayShow(const Tool& tool) const;
    SIZE Extent(const WideString& text) const;
    UINT TextFormat() const;
    LRESULT NotifyTool(const Tool& tool, UINT code) const;

    std::vector<Tool> tools_;
    int current_ = -1;  ///< the tool under the mouse, shown or about to be
    POINT mouse_ = {};  ///< on the screen
    WideString shown_;
    bool active_ = true;
    int maxWidth_ = -1;
    UINT initialDelay_ = 500;
    UINT showTime_ = 5000;
};

// A tool by its window and identifier, as a program names it.
bool Matches(const Tool& tool, const TOOLINFOW& info) {
    return tool.window == info.hwnd && tool.id == info.uId;
}

LRESULT Tooltip::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return Create();
        case WM_DESTROY:
            Destroy();
            return 0;
        case WM_NCHITTEST:
            return kHitsNothing;
        case WM_TIMER:
            if (wParam == kShowTimer) {
                Show();
            } else {
                Hide();
            }
            return 0;
    }
    if (Owns(message)) {
        return HandleOwn(message, wParam, lParam);
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

void Tooltip::Destroy() {
    Hide();
    for (const Tool& tool : tools_) {
        if ((tool.flags & TTF_SUBCLASS) != 0) {
            RemoveWatch(tool.Watched(), window_);
        }
    }
    tools_.clear();
}

LRESULT Tooltip::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case TTM_ACTIVATE:
            active_ = wParam != 0;
            if (!active_) {
                Hide();
            }
            return 0;
        case TTM_SETDELAYTIME:
            SetDelay(wParam, static_cast<SHORT>(LOWORD(lParam)));
            return 0;
        case TTM_RELAYEVENT:
            Relay(*reinterpret_cast<const MSG*>(lParam));
            return 0;
        case TTM_POP:
            Hide();
            return 0;
        case TTM_SETMAXTIPWIDTH:
            return std::exchange(maxWidth_, static_cast<int>(lParam));
        case TTM_GETMAXTIPWIDTH:
            return maxWidth_;
        case TTM_GETTOOLCOUNT:
            return static_cast<LRESULT>(tools_.size());
    }
    return HandleTools(message, wParam, lParam);
}

LRESULT Tooltip::HandleTools(UINT message, WPARAM wParam, LPARAM lParam) {
    auto* info = reinterpret_cast<TOOLINFOW*>(lParam);
    if (message == TTM_ADDTOOLW) {
        return Add(*info);
    }
    if (message == TTM_DELTOOLW) {
        Delete(*info);
        return 0;
    }
    if (message == TTM_ENUMTOOLSW) {
        if (wParam >= tools_.size()) {
            return FALSE;
        }
        Describe(tools_[wParam], *info);
        return TRUE;
    }
    const bool isKnown = message == TTM_NEWTOOLRECTW || message == TTM_GETTOOLINFOW ||
                         message == TTM_SETTOOLINFOW || message == TTM_UPDATETIPTEXTW ||
                         message == TTM_GETTEXTW;
    if (!isKnown) {
        return Control::Handle(message, wParam, lParam);
    }
    const int index = IndexOf(*info);
    if (index < 0) {
        return FALSE;
    }
    Tool& tool = tools_[static_cast<size_t>(index)];
    switch (message) {
        case TTM_NEWTOOLRECTW:
            tool.rect = info->rect;
            return 0;
        case TTM_GETTOOLINFOW:
            Describe(tool, *info);
            return TRUE;
        case TTM_GETTEXTW:
            host::common::CopyText(TextOf(tool), info->lpszText,
                                   wParam == 0 ? 80 : static_cast<int>(wParam));
            return 0;
        case TTM_SETTOOLINFOW:
            tool.param = info->lParam;
            tool.rect = info->rect;
            break;
    }
    Update(tool, *info);
    if (index == current_ && IsWindowVisible(window_)) {
        Show();
    }
    return 0;
}

BOOL Tooltip::Add(const TOOLINFOW& info) {
    if (info.cbSize < TTTOOLINFOW_V1_SIZE || info.cbSize > sizeof(TOOLINFOW)) {
        return FALSE;
    }
    if ((info.uFlags & ~kKnownFlags) != 0) {
        host::Unsupported("tooltip tool with flags %#x", info.uFlags & ~kKnownFlags);
    }
    const LPARAM param = info.cbSize >= TTTOOLINFOW_V2_SIZE ? info.lParam : 0;
    Tool tool = {info.uFlags, info.hwnd, info.uId, info.rect, param, {}, false};
    Update(tool, info);
    if ((tool.flags & TTF_SUBCLASS) != 0) {
        AddWatch(tool.Watched(), window_);
    }
    tools_.push_back(std::move(tool));
    return TRUE;
}

void Tooltip::Delete(const TOOLINFOW& info) {
    const int index = IndexOf(info);
    if (index < 0) {
        return;
    }
    if (index == current_) {
        Hide();
    } else if (index < current_) {
        --current_;
    }
    const Tool tool = tools_[static_cast<size_t>(index)];
    tools_.erase(tools_.begin() + index);
    if ((tool.flags & TTF_SUBCLASS) != 0) {
        RemoveWatch(tool.Watched(), window_);
    }
}

void Tooltip::Update(Tool& tool, const TOOLINFOW& info) const {
    tool.asksForText = info.lpszText == LPSTR_TEXTCALLBACKW;
    if (!tool.asksForText && info.lpszText != nullptr && IS_INTRESOURCE(info.lpszText)) {
        host::Unsupported("tooltip text from a resource");
    }
    tool.text = tool.asksForText || info.lpszText == nullptr ? WideString() : info.lpszText;
}

void Tooltip::Describe(const Tool& tool, TOOLINFOW& info) const {
    info.uFlags = tool.flags;
    info.hwnd = tool.window;
    info.uId = tool.id;
    info.rect = tool.rect;
    info.hinst = nullptr;
    if (info.cbSize >= TTTOOLINFOW_V2_SIZE) {
        info.lParam = tool.param;
    }
    if (info.lpszText != nullptr) {  // the room is the caller's guess, as on the platform
        host::common::CopyText(tool.text, info.lpszText, INT32_MAX);
    }
}

WideString Tooltip::TextOf(const Tool& tool) const {
    if (!tool.asksForText) {
        return tool.text;
    }
    NMTTDISPINFOW request = {};
    request.hdr = {window_, tool.id, TTN_GETDISPINFOW};
    request.lpszText = request.szText;
    request.uFlags = tool.flags;
    request.lParam = tool.param;
    SendMessageW(tool.window, WM_NOTIFY, tool.id, reinterpret_cast<LPARAM>(&request));
    return request.lpszText == nullptr ? WideString() : request.lpszText;
}

int Tooltip::IndexOf(const TOOLINFOW& info) const {
    const auto found = std::find_if(tools_.begin(), tools_.end(),
                                    [&](const Tool& tool) { return Matches(tool, info); });
    return found == tools_.end() ? -1 : static_cast<int>(found - tools_.begin());
}

int Tooltip::Under(HWND window, POINT point) const {
    const auto found = std::find_if(tools_.begin(), tools_.end(), [&](const Tool& tool) {
        return tool.Watched() == window && (tool.IsWindow() || PtInRect(&tool.rect, point));
    });
    return found == tools_.end() ? -1 : static_cast<int>(found - tools_.begin());
}

// "Automatic" derives all of the times from the initial delay; how soon the next tip follows one
// that is shown does not matter here.
void Tooltip::SetDelay(WPARAM which, int milliseconds) {
    const UINT given = milliseconds < 0 ? 500 : static_cast<UINT>(milliseconds);
    switch (which) {
        case TTDT_AUTOMATIC:
            initialDelay_ = given;
            showTime_ = 10 * given;
            return;
        case TTDT_RESHOW:
            return;
        case TTDT_AUTOPOP:
            showTime_ = milliseconds < 0 ? 5000 : given;
            return;
        case TTDT_INITIAL:
            initialDelay_ = given;
            return;
    }
    host::Unsupported("tooltip delay %u", static_cast<unsigned>(which));
}

void Tooltip::Relay(const MSG& event) {
    if (event.message != WM_MOUSEMOVE) {
        if (event.message > WM_MOUSEMOVE && event.message <= WM_RBUTTONUP) {
            Hide();
        }
        return;
    }
    POINT point = PointOf(event.lParam);
    const int tool = Under(event.hwnd, point);
    ClientToScreen(event.hwnd, &point);
    mouse_ = point;
    if (tool == current_ && IsWindowVisible(window_)) {
        return;
    }
    Hide();
    current_ = tool;
    if (tool >= 0 && active_) {
        SetTimer(window_, kShowTimer, initialDelay_, nullptr);
    }
}

// Without TTS_ALWAYSTIP a tip is shown over the active window only.
bool Tooltip::MayShow(const Tool& tool) const {
    const HWND root = GetAncestor(tool.window, GA_ROOT);
    return active_ && ((Style() & TTS_ALWAYSTIP) != 0 || root == GetActiveWindow());
}

void Tooltip::Show() {
    KillTimer(window_, kShowTimer);
    if (current_ < 0) {
        return;
    }
    const Tool tool = tools_[static_cast<size_t>(current_)];
    shown_ = MayShow(tool) ? TextOf(tool) : WideString();
    if (shown_.empty()) {
        return;
    }
    SetWindowTextW(window_, shown_.c_str());
    const SIZE text = Extent(shown_);
    const int width = text.cx + 2 * (kMargin + GetSystemMetrics(SM_CXBORDER));
    const int height = text.cy + 2 * (kMargin + GetSystemMetrics(SM_CYBORDER));
    const int x = std::clamp<int>(mouse_.x, 0, std::max(0, GetSystemMetrics(SM_CXSCREEN) - width));
    int y = mouse_.y + kBelowMouse;
    if (y + height > GetSystemMetrics(SM_CYSCREEN)) {
        y = mouse_.y - height;
    }
    const bool isPlaced = NotifyTool(tool, TTN_SHOW) != FALSE;
    SetWindowPos(window_, HWND_TOPMOST, x, y, width, height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW | (isPlaced ? SWP_NOMOVE : 0u));
    Redraw();
    SetTimer(window_, kHideTimer, showTime_, nullptr);
}

void Tooltip::Hide() {
    KillTimer(window_, kShowTimer);
    KillTimer(window_, kHideTimer);
    const int tool = current_;
    if (IsWindowVisible(window_)) {
        if (tool >= 0) {
            const Tool shown = tools_[static_cast<size_t>(tool)];
            NotifyTool(shown, TTN_POP);
        }
        ShowWindow(window_, SW_HIDE);
    }
    current_ = -1;
}

LRESULT Tooltip::NotifyTool(const Tool& tool, UINT code) const {
    NMHDR header = {window_, tool.id, code};
    return SendMessageW(tool.window, WM_NOTIFY, tool.id, reinterpret_cast<LPARAM>(&header));
}

// Lines are broken only when a width is set.
UINT Tooltip::TextFormat() const {
    return (maxWidth_ < 0 ? DT_SINGLELINE : DT_WORDBREAK) |
           ((Style() & TTS_NOPREFIX) != 0 ? DT_NOPREFIX : 0u);
}

SIZE Tooltip::Extent(const WideString& text) const {
    HDC context = GetDC(window_);
    const HGDIOBJ previous = SelectObject(context, font_);
    RECT rect = {0, 0, maxWidth_ < 0 ? GetSystemMetrics(SM_CXSCREEN) : maxWidth_, 0};
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &rect,
              TextFormat() | DT_CALCRECT);
    SelectObject(context, previous);
    ReleaseDC(window_, context);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

void Tooltip::Paint(HDC context) {
    RECT client = Client();
    FillRect(context, &client, GetSysColorBrush(COLOR_INFOBK));
    SetTextColor(context, GetSysColor(COLOR_INFOTEXT));
    InflateRect(&client, -kMargin, -kMargin);
    DrawTextW(context, shown_.c_str(), static_cast<int>(shown_.size()), &client, TextFormat());
}

}  // namespace

namespace host {

void RegisterTooltip() {
    common::Register(TOOLTIPS_CLASSW, common::Procedure<Tooltip>, CS_SAVEBITS);
}

}  // namespace host
