// What a scroll bar is made of, for the scroll bar control and for the bars in the frames of other
// controls: the numbers behind it, its parts, and what happens when the mouse holds one of them.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

namespace host {

/// The range, page and position of a bar. The position stays within what the page leaves of the
/// range.
class ScrollNumbers {
  public:
    /// Takes over what the mask names. False when the structure is not one.
    bool Set(const SCROLLINFO& info);
    bool Get(SCROLLINFO& info, int trackPosition) const;
    int Minimum() const { return minimum_; }
    int Maximum() const { return maximum_; }
    int Page() const { return page_; }
    int Position() const { return position_; }
    int Last() const { return maximum_ - (page_ > 1 ? page_ - 1 : 0); }
    bool CanMove() const { return Last() > minimum_; }

  private:
    int minimum_ = 0;
    int maximum_ = 0;
    int page_ = 0;
    int position_ = 0;
};

/// A bar at a place of a window, which it captures the mouse for while a part is held.
class ScrollTrack {
  public:
    /// What the window is to do: hear of a step (SB_..., with a position for the thumb), and draw
    /// the bar again.
    struct Owner {
        HWND window;
        std::function<void(WORD code, int position)> tell;
        std::function<void()> redraw;
    };
    ScrollTrack(Owner owner, bool isVertical) : owner_(std::move(owner)), isVertical_(isVertical) {}

    /// Where it is, in the coordinates of the points of the mouse and of the drawing.
    void Place(const RECT& place) { place_ = place; }
    const RECT& Place() const { return place_; }
    void Draw(HDC context, HBRUSH shaft, bool isEnabled) const;

    void Press(POINT point);
    /// Mouse and timer messages and the loss of the capture while a part is held; false when the
    /// message is not for the bar.
    bool Follow(UINT message, WPARAM wParam, POINT point);
    int TrackPosition() const { return held_ == Part::kThumb ? tracked_ : numbers.Position(); }

    ScrollNumbers numbers;

  private:
    enum class Part { kNone, kLineUp, kLineDown, kPageUp, kPageDown, kThumb };

    struct Layout {  // along the bar, from its beginning
        int length;
        int arrow;      // where the first arrow ends
        int lastArrow;  // where the last one begins
        int thumb;
        int thumbSize;  // 0: there is none
    };
    Layout Measure() const;
    int Along(POINT point) const {
        return isVertical_ ? point.y - place_.top : point.x - place_.left;
    }
    RECT Stretch(int from, int to) const;
    Part PartAt(POINT point) const;
    void Step(Part part);
    void Drag(POINT point);
    void Release();

    Owner owner_;
    bool isVertical_;
    RECT place_ = {};
    Part held_ = Part::kNone;
    bool isOver_ = false;  // the mouse is over the held part
    int grip_ = 0;         // where the thumb is held, from its beginning
    int tracked_ = 0;
    POINT last_ = {};
};

/// The vertical bar in the frame of a control: shown and hidden with what there is to scroll.
/// GetScrollInfo and its like find it by its window.
class FrameBar {
  public:
    FrameBar(HWND window, std::function<void(WORD code, int position)> tell);
    ~FrameBar();
    FrameBar(const FrameBar&) = delete;
    FrameBar& operator=(const FrameBar&) = delete;
    static FrameBar* Of(HWND window);

    /// The window's style asks for a bar. Without it nothing is ever shown.
    void Enable() { isEnabled_ = true; }
    bool Set(const SCROLLINFO& info, bool redraw);
    bool IsEnabled() const { return isEnabled_; }

    /// Handles the messages of the frame and those of the mouse while it holds a part of the bar.
    /// False when the message goes on to the control; `result` is set otherwise.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    ScrollTrack track;

  private:
    bool IsShown() const;
    void Show(bool show);
    void Draw() const;
    void DrawInto(HDC context) const;

    HWND window_;
    bool isEnabled_ = false;
    mutable RECT frame_ = {};  // the bar in the window's rectangle
};

}  // namespace host
