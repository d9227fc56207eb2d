// Track bars.
#include "controls/common_control.h"

#include <algorithm>

namespace {

using host::common::PointOf;

// Where things lie: "along" is the direction of the movement, "across" the other one, counted from
// the edge of the window.
constexpr int kThumbWidth = 11;
constexpr int kThumbLength = 21;
constexpr int kThumbAcross = 2;
constexpr int kChannelEnd = 8;  ///< from the ends of the window to those of the channel
constexpr int kChannelThickness = 4;
constexpr int kChannelAcross = 9;
constexpr int kTickLength = 3;

struct Key {
    WPARAM key;
    WORD code;
};
constexpr Key kKeys[] = {
    {VK_LEFT, TB_LINEUP},  {VK_UP, TB_LINEUP},     {VK_RIGHT, TB_LINEDOWN}, {VK_DOWN, TB_LINEDOWN},
    {VK_PRIOR, TB_PAGEUP}, {VK_NEXT, TB_PAGEDOWN}, {VK_HOME, TB_TOP},       {VK_END, TB_BOTTOM},
};

const Key* FindKey(WPARAM key) {
    const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                     [key](const Key& k) { return k.key == key; });
    return found == std::end(kKeys) ? nullptr : found;
}

class TrackBar : public host::common::Control {
  public:
    explicit TrackBar(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    enum class Tracking { kNone, kPage, kThumb };

    void Paint(HDC context) override;
    bool Owns(UINT message) const override { return IsInRange(message, WM_USER); }
    void DrawTicks(HDC context) const;
    void DrawThumb(HDC context) const;
    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam);

    void SetRange(int minimum, int maximum, bool redraw);
    bool MoveTo(int position);
    void SpreadTicks();
    void Step(WORD code);
    void Tell(WORD code, int position = 0) const;
    void ButtonDown(POINT point);
    void Drag(POINT point);
    void ButtonUp();
    void EndTracking();

    bool Has(DWORD style) const { return (Style() & style) != 0; }
    bool Vertical() const { return Has(TBS_VERT); }
    int PageSize() const { return pageSize_ >= 0 ? pageSize_ : std::max(1, (max_ - min_) / 5); }
    int Along(POINT point) const { return Vertical() ? point.y : point.x; }
    RECT Turned(int along, int across, int alongEnd, int acrossEnd) const;
    int ChannelLength() const { return std::max<int>(0, AlongSize() - 2 * kChannelEnd); }
    int AlongSize() const { return Vertical() ? Client().bottom : Client().right; }
    int ThumbTravel() const { return std::max(0, ChannelLength() - kThumbWidth); }
    int ThumbAlong(int position) const;
    RECT Thumb() const;
    RECT Channel() const;

    int min_ = 0;
    int max_ = 100;
    int position_ = 0;
    int pageSize_ = -1;  ///< negative: a fifth of the range
    int tickFrequency_ = 1;
    std::vector<int> ticks_;  ///< but those at the ends
    Tracking tracking_ = Tracking::kNone;
    int grip_ = 0;  ///< where the dragged thumb is held, from its beginning
};

RECT TrackBar::Turned(int along, int across, int alongEnd, int acrossEnd) const {
    return Vertical() ? RECT{across, along, acrossEnd, alongEnd}
                      : RECT{along, across, alongEnd, acrossEnd};
}

int TrackBar::ThumbAlong(int position) const {
    const int range = max_ - min_;
    return kChannelEnd + (range <= 0 ? 0
                                     : static_cast<int>(static_cast<long long>(ThumbTravel()) *
                                                        (position - min_) / range));
}

RECT TrackBar::Thumb() const {
    const int along = ThumbAlong(position_);
    return Turned(along, kThumbAcross, along + kThumbWidth, kThumbAcross + kThumbLength);
}

RECT TrackBar::Channel() const {
    return Turned(kChannelEnd, kChannelAcross, kChannelEnd + ChannelLength(),
                  kChannelAcross + kChannelThickness);
}

LRESULT TrackBar::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        host::common::CheckStyle("track bar", Style(), TBS_AUTOTICKS | TBS_VERT);
        SpreadTicks();
        return 0;
    }
    if (message == WM_GETDLGCODE) {
        return DLGC_WANTARROWS;
    }
    if (Owns(message)) {
        return HandleOwn(message, wParam, lParam);
    }
    return HandleInput(message, wParam, lParam) ? 0 : Control::Handle(message, wParam, lParam);
}

LRESULT TrackBar::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
    const int value = static_cast<int>(lParam);
    switch (message) {
        case TBM_GETPOS:
            return position_;
        case TBM_GETRANGEMIN:
            return min_;
        case TBM_GETRANGEMAX:
            return max_;
        case TBM_SETPOS:
            MoveTo(value);
            return 0;
        case TBM_SETRANGE:
            SetRange(static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam)),
                     wParam != 0);
            return 0;
        case TBM_SETPAGESIZE: {
            const int previous = PageSize();
            pageSize_ = value;
            return previous;
        }
        case TBM_SETTICFREQ:
            tickFrequency_ = static_cast<int>(wParam);
            SpreadTicks();
            Redraw();
            return 0;
        case TBM_GETTHUMBRECT:
            *reinterpret_cast<RECT*>(lParam) = Thumb();
            return 0;
    }
    return Control::Handle(message, wParam, lParam);
}

bool TrackBar::HandleInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if (const Key* key = FindKey(wParam)) {
                Step(key->code);
                return true;
            }
            return false;
        case WM_KEYUP:
            if (FindKey(wParam) != nullptr) {
                Tell(TB_ENDTRACK);
                return true;
            }
            return false;
        case WM_LBUTTONDOWN:
            ButtonDown(PointOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            Drag(PointOf(lParam));
            return true;
        case WM_LBUTTONUP:
            ButtonUp();
            return true;
        case WM_CAPTURECHANGED:
            EndTracking();
            return true;
    }
    return false;
}

void TrackBar::SetRange(int minimum, int maximum, bool redraw) {
    min_ = minimum;
    max_ = maximum;
    MoveTo(position_);
    SpreadTicks();
    if (redraw) {
        Redraw();
    }
}

// Goes to a position, or as near as the range lets it. False when it is there already.
bool TrackBar::MoveTo(int position) {
    const int reached = std::max(min_, std::min(position, max_));
    if (reached == position_) {
        return false;
    }
    position_ = reached;
    Redraw();
    return true;
}

void TrackBar::SpreadTicks() {
    if (!Has(TBS_AUTOTICKS) || tickFrequency_ <= 0) {
        return;
    }
    ticks_.clear();
    for (long long at = static_cast<long long>(min_) + tickFrequency_; at < max_;
         at += tickFrequency_) {
        ticks_.push_back(static_cast<int>(at));
    }
}

void TrackBar::Tell(WORD code, int position) const {
    SendMessageW(GetParent(window_), Vertical() ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(window_));
}

// What a key or a click beside the thumb does; the program hears only of a movement.
void TrackBar::Step(WORD code) {
    const struct {
        WORD code;
        long long target;
    } kTargets[] = {
        {TB_LINEUP, static_cast<long long>(position_) - 1},
        {TB_LINEDOWN, static_cast<long long>(position_) + 1},
        {TB_PAGEUP, static_cast<long long>(position_) - PageSize()},
        {TB_PAGEDOWN, static_cast<long long>(position_) + PageSize()},
        {TB_TOP, min_},
        {TB_BOTTOM, max_},
    };
    for (const auto& row : kTargets) {
        if (row.code == code &&
            MoveTo(static_cast<int>(std::clamp<long long>(row.target, INT32_MIN, INT32_MAX)))) {
            Tell(code);
            return;
        }
    }
}

void TrackBar::ButtonDown(POINT point) {
    SetFocus(window_);
    SetCapture(window_);
    const RECT thumb = Thumb();
    if (PtInRect(&thumb, point)) {
        tracking_ = Tracking::kThumb;
        grip_ = Along(point) - ThumbAlong(position_);
        return;
    }
    tracking_ = Tracking::kPage;
    Step(Along(point) < ThumbAlong(position_) ? TB_PAGEUP : TB_PAGEDOWN);
}

void TrackBar::Drag(POINT point) {
    if (tracking_ != Tracking::kThumb || ThumbTravel() == 0) {
        return;
    }
    const long long moved = std::clamp(Along(point) - grip_ - kChannelEnd, 0, ThumbTravel());
    const long long range = static_cast<long long>(max_) - min_;
    if (MoveTo(
            static_cast<int>(min_ + (2 * moved * range + ThumbTravel()) / (2 * ThumbTravel())))) {
        Tell(TB_THUMBTRACK, position_);
        UpdateWindow(window_);
    }
}

void TrackBar::ButtonUp() {
    if (tracking_ == Tracking::kNone) {
        return;
    }
    if (tracking_ == Tracking::kThumb) {
        Tell(TB_THUMBPOSITION, position_);
    }
    EndTracking();
    ReleaseCapture();
    Notify(NM_RELEASEDCAPTURE);
}

void TrackBar::EndTracking() {
    if (std::exchange(tracking_, Tracking::kNone) != Tracking::kNone) {
        Tell(TB_ENDTRACK);
        Redraw();
    }
}

void TrackBar::Paint(HDC context) {
    NotifyPainting(context);
    const RECT client = Client();
    const HBRUSH brush = Background(context, WM_CTLCOLORSTATIC);
    FillRect(context, &client, brush != nullptr ? brush : GetSysColorBrush(COLOR_BTNFACE));
    RECT channel = Channel();
    DrawEdge(context, &channel, EDGE_SUNKEN, BF_RECT | BF_MIDDLE);
    DrawTicks(context);
    DrawThumb(context);
    if (HasFocus()) {
        DrawFocusRect(context, &client);
    }
}

void TrackBar::DrawTicks(HDC context) const {
    const auto draw = [&](int position, int length) {
        const int along = ThumbAlong(position) + kThumbWidth / 2;
        const int across = kThumbAcross + kThumbLength + 2;
        const RECT tick = Turned(along, across, along + 1, across + length);
        FillRect(context, &tick, GetSysColorBrush(COLOR_BTNTEXT));
    };
    for (const int tick : ticks_) {
        draw(tick, kTickLength);
    }
    draw(min_, kTickLength + 1);
    draw(max_, kTickLength + 1);
}

// The thumb points towards its ticks; light comes from the top left.
void TrackBar::DrawThumb(HDC context) const {
    const auto draw = [&](int along, int from, int to, int color) {
        const RECT part = Turned(along, from, along + 1, to);
        FillRect(context, &part, GetSysColorBrush(color));
    };
    constexpr int kMiddle = kThumbWidth / 2;
    for (int i = 0; i < kThumbWidth; ++i) {
        const int along = ThumbAlong(position_) + i;
        const int tip = kThumbAcross + kThumbLength - std::abs(i - kMiddle);
        const int outline = i <= kMiddle ? COLOR_BTNHIGHLIGHT : COLOR_3DDKSHADOW;
        const bool isSide = i == 0 || i + 1 == kThumbWidth;
        draw(along, kThumbAcross, tip, isSide ? outline : COLOR_BTNFACE);
        draw(along, kThumbAcross, kThumbAcross + 1, COLOR_BTNHIGHLIGHT);
        draw(along, tip - 1, tip, outline);
    }
}

}  // namespace

namespace host {

void RegisterTrackBar() {
    common::Register(TRACKBAR_CLASSW, common::Procedure<TrackBar>, CS_HREDRAW | CS_VREDRAW);
}

}  // namespace host
