// Scroll bars: the control, and the bars in the frames of other controls.
#include "controls/scroll_bar.h"

#include "controls/common_control.h"

#include <algorithm>

namespace host {
namespace {

using common::PointOf;

constexpr UINT_PTR kRepeatTimer = 0x5C01;
constexpr UINT kFirstRepeat = 200;
constexpr UINT kNextRepeat = 50;
constexpr int kSmallestThumb = 8;
constexpr const WCHAR* kBarProperty = TEXT("KpdFrameBar");

int Scale(int number, int numerator, int denominator) {
    return denominator <= 0
               ? 0
               : static_cast<int>((2LL * number * numerator + denominator) / (2LL * denominator));
}

// The colour of the system is that of the arrows; mixed with light it sets them off.
void FillShaft(HDC context, const RECT& rect, HBRUSH brush) {
    FillRect(context, &rect, brush);
    if (brush != GetSysColorBrush(COLOR_SCROLLBAR)) {
        return;
    }
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left + ((rect.left + y) & 1); x < rect.right; x += 2) {
            SetPixel(context, x, y, light);
        }
    }
}

}  // namespace

bool ScrollNumbers::Set(const SCROLLINFO& info) {
    const bool sized =
        info.cbSize == sizeof(info) || info.cbSize == sizeof(info) - sizeof(info.nTrackPos);
    if (!sized || (info.fMask & ~UINT{SIF_ALL}) != 0) {
        return false;
    }
    if ((info.fMask & SIF_RANGE) != 0) {
        const bool valid =
            info.nMin <= info.nMax && static_cast<long long>(info.nMax) - info.nMin < INT32_MAX;
        minimum_ = valid ? info.nMin : 0;
        maximum_ = valid ? info.nMax : 0;
    }
    if ((info.fMask & SIF_PAGE) != 0) {
        page_ = static_cast<int>(std::min(info.nPage, UINT{INT32_MAX}));
    }
    if ((info.fMask & SIF_POS) != 0) {
        position_ = info.nPos;
    }
    page_ = std::min(page_, maximum_ - minimum_ + 1);
    position_ = std::max(minimum_, std::min(position_, Last()));
    return true;
}

bool ScrollNumbers::Get(SCROLLINFO& info, int trackPosition) const {
    const bool sized =
        info.cbSize == sizeof(info) || info.cbSize == sizeof(info) - sizeof(info.nTrackPos);
    if (!sized) {
        return false;
    }
    if ((info.fMask & SIF_RANGE) != 0) {
        info.nMin = minimum_;
        info.nMax = maximum_;
    }
    if ((info.fMask & SIF_PAGE) != 0) {
        info.nPage = static_cast<UINT>(page_);
    }
    if ((info.fMask & SIF_POS) != 0) {
        info.nPos = position_;
    }
    if ((info.fMask & SIF_TRACKPOS) != 0 && info.cbSize == sizeof(info)) {
        info.nTrackPos = trackPosition;
    }
    return true;
}

// ---- The parts and the mouse ------------------------------------------------------------------

ScrollTrack::Layout ScrollTrack::Measure() const {
    Layout layout = {};
    layout.length = isVertical_ ? place_.bottom - place_.top : place_.right - place_.left;
    const int arrow = GetSystemMetrics(isVertical_ ? SM_CYVSCROLL : SM_CXHSCROLL);
    // A bar that is too short for more is two arrows that share it.
    layout.arrow = std::min(arrow, layout.length / 2);
    layout.lastArrow =
        layout.length - (layout.arrow < arrow ? layout.length - layout.arrow : arrow);
    const int shaft = layout.lastArrow - layout.arrow;
    const int pages = numbers.Maximum() - numbers.Minimum() + 1;
    const int size = numbers.Page() > 0
                         ? std::max(kSmallestThumb, Scale(shaft, numbers.Page(), pages))
                         : GetSystemMetrics(isVertical_ ? SM_CYVTHUMB : SM_CXHTHUMB);
    layout.thumb = layout.arrow;
    if (numbers.CanMove() && size <= shaft) {
        const int moved = held_ == Part::kThumb ? tracked_ : numbers.Position();
        layout.thumbSize = size;
        layout.thumb +=
            Scale(shaft - size, moved - numbers.Minimum(), numbers.Last() - numbers.Minimum());
    }
    return layout;
}

RECT ScrollTrack::Stretch(int from, int to) const {
    return isVertical_ ? RECT{place_.left, place_.top + from, place_.right, place_.top + to}
                       : RECT{place_.left + from, place_.top, place_.left + to, place_.bottom};
}

ScrollTrack::Part ScrollTrack::PartAt(POINT point) const {
    if (!PtInRect(&place_, point)) {
        return Part::kNone;
    }
    const Layout layout = Measure();
    const int along = Along(point);
    if (along < layout.arrow) {
        return Part::kLineUp;
    }
    if (along >= layout.lastArrow) {
        return Part::kLineDown;
    }
    if (along < layout.thumb) {
        return Part::kPageUp;
    }
    return along < layout.thumb + layout.thumbSize ? Part::kThumb : Part::kPageDown;
}

void ScrollTrack::Draw(HDC context, HBRUSH shaft, bool isEnabled) const {
    const Layout layout = Measure();
    const auto arrow = [&](int from, int to, UINT kind, Part part) {
        RECT rect = Stretch(from, to);
        const bool pushed = held_ == part && isOver_;
        DrawFrameControl(context, &rect, DFC_SCROLL,
                         kind | (isEnabled ? 0u : UINT{DFCS_INACTIVE}) |
                             (pushed ? DFCS_PUSHED | DFCS_FLAT : 0u));
    };
    arrow(0, layout.arrow, isVertical_ ? DFCS_SCROLLUP : DFCS_SCROLLLEFT, Part::kLineUp);
    arrow(layout.lastArrow, layout.length, isVertical_ ? DFCS_SCROLLDOWN : DFCS_SCROLLRIGHT,
          Part::kLineDown);
    const RECT between = Stretch(layout.arrow, layout.lastArrow);
    FillShaft(context, between, shaft);
    if (layout.thumbSize > 0 && isEnabled) {
        RECT thumb = Stretch(layout.thumb, layout.thumb + layout.thumbSize);
        DrawEdge(context, &thumb, EDGE_RAISED, BF_RECT | BF_MIDDLE);
    }
}

void ScrollTrack::Step(Part part) {
    static constexpr struct {
        Part part;
        WORD code;
    } kCodes[] = {{Part::kLineUp, SB_LINEUP},
                  {Part::kLineDown, SB_LINEDOWN},
                  {Part::kPageUp, SB_PAGEUP},
                  {Part::kPageDown, SB_PAGEDOWN}};
    for (const auto& row : kCodes) {
        if (row.part == part) {
            owner_.tell(row.code, 0);
        }
    }
}

void ScrollTrack::Press(POINT point) {
    const Part part = PartAt(point);
    if (part == Part::kNone) {
        return;
    }
    SetCapture(owner_.window);
    last_ = point;
    isOver_ = true;
    if (part == Part::kThumb) {
        grip_ = Along(point) - Measure().thumb;
        tracked_ = numbers.Position();
        held_ = part;
        owner_.tell(SB_THUMBTRACK, tracked_);
        return;
    }
    held_ = part;
    SetTimer(owner_.window, kRepeatTimer, kFirstRepeat, nullptr);
    owner_.redraw();
    Step(part);
}

void ScrollTrack::Drag(POINT point) {
    const Layout layout = Measure();
    // Far away from the bar the thumb goes back where it came from.
    RECT near = place_;
    const int across = isVertical_ ? place_.right - place_.left : place_.bottom - place_.top;
    InflateRect(&near, isVertical_ ? 8 * across : 2 * across,
                isVertical_ ? 2 * across : 8 * across);
    const int travel = layout.lastArrow - layout.arrow - layout.thumbSize;
    int position = numbers.Position();
    if (PtInRect(&near, point) && travel > 0) {
        const int moved = std::clamp(Along(point) - grip_ - layout.arrow, 0, travel);
        position = numbers.Minimum() + Scale(moved, numbers.Last() - numbers.Minimum(), travel);
    }
    if (position != tracked_) {
        tracked_ = position;
        owner_.redraw();
        owner_.tell(SB_THUMBTRACK, position);
    }
}

void ScrollTrack::Release() {
    const Part part = std::exchange(held_, Part::kNone);
    if (part == Part::kNone) {
        return;
    }
    const HWND window = owner_.window;
    KillTimer(window, kRepeatTimer);
    if (GetCapture() == window) {
        ReleaseCapture();
    }
    owner_.redraw();
    if (part == Part::kThumb) {
        owner_.tell(SB_THUMBPOSITION, tracked_);
        if (!IsWindow(window)) {
            return;
        }
    }
    owner_.tell(SB_ENDSCROLL, 0);
}

bool ScrollTrack::Follow(UINT message, WPARAM wParam, POINT point) {
    if (held_ == Part::kNone) {
        return false;
    }
    switch (message) {
        case WM_MOUSEMOVE:
            last_ = point;
            if (held_ == Part::kThumb) {
                Drag(point);
            } else if (isOver_ != (PartAt(point) == held_)) {
                isOver_ = !isOver_;
                owner_.redraw();
            }
            return true;
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
            Release();
            return true;
        case WM_TIMER:
            if (wParam != kRepeatTimer) {
                return false;
            }
            SetTimer(owner_.window, kRepeatTimer, kNextRepeat, nullptr);
            if (PartAt(last_) == held_) {
                Step(held_);
            }
            return true;
    }
    return false;
}

// ---- Bars in frames ---------------------------------------------------------------------------

FrameBar::FrameBar(HWND window, std::function<void(WORD code, int position)> tell)
    : track({window, std::move(tell), [this] { Draw(); }}, true), window_(window) {
    SetPropW(window, kBarProperty, this);
}

FrameBar::~FrameBar() {
    RemovePropW(window_, kBarProperty);
}

FrameBar* FrameBar::Of(HWND window) {
    return static_cast<FrameBar*>(GetPropW(window, kBarProperty));
}

bool FrameBar::Set(const SCROLLINFO& info, bool redraw) {
    if (!track.numbers.Set(info)) {
        return false;
    }
    if (isEnabled_) {
        Show(track.numbers.CanMove());
        if (redraw) {
            Draw();
        }
    }
    return true;
}

bool FrameBar::IsShown() const {
    return (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VSCROLL) != 0;
}

void FrameBar::Show(bool show) {
    if (show == IsShown()) {
        return;
    }
    const LONG style = GetWindowLongW(window_, GWL_STYLE);
    SetWindowLongW(window_, GWL_STYLE, show ? style | WS_VSCROLL : style & ~WS_VSCROLL);
    SetWindowPos(window_, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void FrameBar::Draw() const {
    if (!IsShown() || !IsWindowVisible(window_)) {
        return;
    }
    if (HDC context = GetWindowDC(window_)) {
        DrawInto(context);
        ReleaseDC(window_, context);
    }
}

void FrameBar::DrawInto(HDC context) const {
    ScrollTrack drawn = track;
    drawn.Place(frame_);
    drawn.Draw(context, GetSysColorBrush(COLOR_SCROLLBAR),
               IsWindowEnabled(window_) && track.numbers.CanMove());
}

bool FrameBar::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    *result = 0;
    switch (message) {
        case WM_NCCALCSIZE: {
            auto* rect = reinterpret_cast<RECT*>(lParam);
            const RECT window = *rect;
            *result = DefWindowProcW(window_, message, wParam, lParam);
            if (IsShown()) {
                const LONG left =
                    std::max<LONG>(rect->left, rect->right - GetSystemMetrics(SM_CXVSCROLL));
                frame_ = {left, rect->top, rect->right, rect->bottom};
                OffsetRect(&frame_, -window.left, -window.top);
                // Points of the mouse are counted from the client area.
                RECT place = {left, rect->top, rect->right, rect->bottom};
                OffsetRect(&place, -rect->left, -rect->top);
                track.Place(place);
                rect->right = left;
            }
            return true;
        }
        case WM_NCPAINT:
            *result = DefWindowProcW(window_, message, wParam, lParam);
            Draw();
            return true;
        case WM_NCHITTEST: {
            POINT point = PointOf(lParam);
            ScreenToClient(window_, &point);
            if (IsShown() && PtInRect(&track.Place(), point)) {
                *result = HTVSCROLL;
                return true;
            }
            return false;
        }
        case WM_NCLBUTTONDOWN:
            if (wParam == HTVSCROLL) {
                POINT point = PointOf(lParam);
                ScreenToClient(window_, &point);
                track.Press(point);
                return true;
            }
            return false;
    }
    return track.Follow(message, wParam, PointOf(lParam));
}

// ---- The control ------------------------------------------------------------------------------

namespace {

constexpr struct {
    WPARAM key;
    WORD code;
} kKeys[] = {
    {VK_LEFT, SB_LINEUP},  {VK_UP, SB_LINEUP},     {VK_RIGHT, SB_LINEDOWN}, {VK_DOWN, SB_LINEDOWN},
    {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN}, {VK_HOME, SB_TOP},       {VK_END, SB_BOTTOM},
};

constexpr UINT kFirstMessage = 0xE0;  // of a scroll bar's own
constexpr UINT kLastMessage = 0xEF;

class ScrollBar : public common::Control {
  public:
    explicit ScrollBar(HWND window)
        : Control(window),
          track_({window, [this](WORD code, int position) { Tell(code, position); },
                  [this] { Redraw(); }},
                 (GetWindowLongPtrW(window, GWL_STYLE) & SBS_VERT) != 0) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Paint(HDC context) override;
    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT SetInfo(const SCROLLINFO& info, bool redraw);
    void Tell(WORD code, int position) const;
    bool TellKey(WPARAM key, bool down) const;
    void Press(POINT point);

    ScrollTrack track_;
};

LRESULT ScrollBar::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= kFirstMessage && message <= kLastMessage) {
        return HandleOwn(message, wParam, lParam);
    }
    if (track_.Follow(message, wParam, PointOf(lParam))) {
        return 0;
    }
    switch (message) {
        case WM_CREATE:
            common::CheckStyle("scroll bar", Style(), SBS_VERT);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_KEYDOWN:
        case WM_KEYUP:
            if (TellKey(wParam, message == WM_KEYDOWN)) {
                return 0;
            }
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            Press(PointOf(lParam));
            return 0;
        case WM_SIZE:
            track_.Place(Client());
            Redraw();
            return 0;
    }
    return Control::Handle(message, wParam, lParam);
}

LRESULT ScrollBar::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    ScrollNumbers& numbers = track_.numbers;
    switch (message) {
        case SBM_SETSCROLLINFO:
            return SetInfo(*reinterpret_cast<const SCROLLINFO*>(lParam), wParam != 0);
        case SBM_GETSCROLLINFO:
            return numbers.Get(*reinterpret_cast<SCROLLINFO*>(lParam), track_.TrackPosition());
    }
    Unsupported("message %#x to a scroll bar", message);
}

// Gives the position as it then is.
LRESULT ScrollBar::SetInfo(const SCROLLINFO& info, bool redraw) {
    if (!track_.numbers.Set(info)) {
        return 0;
    }
    if (redraw) {
        Redraw();
    }
    return track_.numbers.Position();
}

void ScrollBar::Tell(WORD code, int position) const {
    const bool isVertical = (Style() & SBS_VERT) != 0;
    SendMessageW(GetParent(window_), isVertical ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(window_));
}

bool ScrollBar::TellKey(WPARAM key, bool down) const {
    for (const auto& row : kKeys) {
        if (row.key == key) {
            Tell(down ? row.code : WORD{SB_ENDSCROLL}, 0);
            return true;
        }
    }
    return false;
}

void ScrollBar::Press(POINT point) {
    const HWND window = window_;
    if ((Style() & WS_TABSTOP) != 0) {
        SetFocus(window);
    }
    if (!IsWindow(window)) {
        return;
    }
    if (IsWindowEnabled(window_)) {
        track_.Press(point);
    }
}

void ScrollBar::Paint(HDC context) {
    const LRESULT brush =
        SendMessageW(GetParent(window_), WM_CTLCOLORSCROLLBAR, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(window_));
    track_.Draw(context,
                brush != 0 ? reinterpret_cast<HBRUSH>(brush) : GetSysColorBrush(COLOR_SCROLLBAR),
                IsWindowEnabled(window_) != FALSE);
}

// What the functions for one number or two make of the information as a whole.
int SetPart(HWND window, int bar, const SCROLLINFO& info, BOOL redraw) {
    return SetScrollInfo(window, bar, &info, redraw);
}

}  // namespace

void RegisterScrollBar() {
    common::Register(TEXT("ScrollBar"), common::Procedure<ScrollBar>, CS_DBLCLKS | CS_PARENTDC);
}

}  // namespace host

int WINAPI SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw) {
    if (bar == SB_CTL) {
        return static_cast<int>(SendMessageW(window, SBM_SETSCROLLINFO, redraw != FALSE,
                                             reinterpret_cast<LPARAM>(info)));
    }
    host::FrameBar* frame = host::FrameBar::Of(window);
    if (bar != SB_VERT || frame == nullptr) {
        host::Unsupported("SetScrollInfo of a window without a bar %d", bar);
    }
    return frame->Set(*info, redraw != FALSE) ? frame->track.numbers.Position() : 0;
}

BOOL WINAPI GetScrollInfo(HWND window, int bar, SCROLLINFO* info) {
    if (bar == SB_CTL) {
        return static_cast<BOOL>(
            SendMessageW(window, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info)));
    }
    const host::FrameBar* frame = bar == SB_VERT ? host::FrameBar::Of(window) : nullptr;
    if (frame == nullptr || !frame->IsEnabled()) {
        return host::Fail(ERROR_NO_SCROLLBARS);
    }
    return frame->track.numbers.Get(*info, frame->track.TrackPosition());
}

int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw) {
    const int previous = GetScrollPos(window, bar);
    host::SetPart(window, bar, {sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, position, 0}, redraw);
    return previous;
}

int WINAPI GetScrollPos(HWND window, int bar) {
    SCROLLINFO info = {sizeof(info), SIF_POS, 0, 0, 0, 0, 0};
    return GetScrollInfo(window, bar, &info) ? info.nPos : 0;
}

BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw) {
    host::SetPart(window, bar, {sizeof(SCROLLINFO), SIF_RANGE, minimum, maximum, 0, 0, 0}, redraw);
    return TRUE;
}
