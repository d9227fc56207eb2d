// Track bars: the range, what keys and the mouse do and what the parent hears of it.
#include "window_test.h"

#include <commctrl.h>

namespace {

class TrackBarTest : public test::WindowTest {
  protected:
    // A track bar from 10 to 60, standing at `position`.
    void Make(DWORD style, int position) {
        const bool isVertical = (style & TBS_VERT) != 0;
        Control(TRACKBAR_CLASSW, TEXT(""), style, 100, 10, 10, isVertical ? 30 : 200,
                isVertical ? 200 : 30);
        Send(TBM_SETRANGE, TRUE, MAKELPARAM(10, 60));
        Send(TBM_SETPOS, TRUE, position);
        test::HandlePosted();
        test::Told();
    }
    int Position() { return static_cast<int>(Send(TBM_GETPOS)); }
    RECT Thumb() {
        RECT thumb = {};
        Send(TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
        return thumb;
    }
};

// What was told but for painting; what is said twice in a row counts once.
std::string ToldOnce() {
    std::string result;
    std::string last;
    const std::string told = test::Told();
    for (size_t start = 0; start < told.size();) {
        const size_t end = std::min(told.find("; ", start), told.size());
        const std::string note = told.substr(start, end - start);
        if (note != "notify 100 -12" && note != last) {
            result += (result.empty() ? "" : "; ") + note;
            last = note;
        }
        start = end + 2;
    }
    return result;
}

TEST_F(TrackBarTest, KeepsARangeAPositionWithinItAndTheSizesOfItsSteps) {
    Control(TRACKBAR_CLASSW, TEXT(""), TBS_AUTOTICKS, 100, 10, 10, 200, 30);
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        LRESULT expected;
    } steps[] = {
        {WM_GETDLGCODE, 0, 0, DLGC_WANTARROWS},
        {TBM_GETRANGEMAX, 0, 0, 100},
        {TBM_SETRANGE, TRUE, MAKELPARAM(10, 60), 0},
        {TBM_GETPOS, 0, 0, 10},
        {TBM_SETPOS, TRUE, 300, 0},
        {TBM_GETPOS, 0, 0, 60},
        {TBM_SETPOS, TRUE, -5, 0},
        {TBM_GETPOS, 0, 0, 10},
        {TBM_SETPAGESIZE, 0, 20, 10},
        {TBM_SETPAGESIZE, 0, -1, 20},
        {TBM_SETPAGESIZE, 0, 7, 10},
        {TBM_SETRANGE, TRUE, MAKELPARAM(20, 60), 0},
        {TBM_GETRANGEMIN, 0, 0, 20},
        {TBM_GETPOS, 0, 0, 20},
        {TBM_SETTICFREQ, 10, 0, 0},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(Send(step.message, step.wParam, step.lParam), step.expected)
            << std::hex << step.message << " " << step.lParam;
    }
    EXPECT_EQ(test::Told(), "") << "the program's own doing is not told";
}

TEST_F(TrackBarTest, KeysMoveItAndTellThatOnlyWhereItCanMove) {
    const struct {
        int from;
        int key;
        int to;
        const char* told;
    } cases[] = {
        {30, VK_LEFT, 29, "scroll 0 0; scroll 8 0"},
        {30, VK_UP, 29, "scroll 0 0; scroll 8 0"},
        {30, VK_RIGHT, 31, "scroll 1 0; scroll 8 0"},
        {30, VK_DOWN, 31, "scroll 1 0; scroll 8 0"},
        {30, VK_PRIOR, 20, "scroll 2 0; scroll 8 0"},
        {12, VK_PRIOR, 10, "scroll 2 0; scroll 8 0"},
        {30, VK_NEXT, 40, "scroll 3 0; scroll 8 0"},
        {30, VK_HOME, 10, "scroll 6 0; scroll 8 0"},
        {30, VK_END, 60, "scroll 7 0; scroll 8 0"},
        {10, VK_LEFT, 10, "scroll 8 0"},
        {10, VK_PRIOR, 10, "scroll 8 0"},
        {60, VK_DOWN, 60, "scroll 8 0"},
        {60, VK_NEXT, 60, "scroll 8 0"},
        {30, VK_SPACE, 30, ""},
    };
    for (const char direction : {'h', 'v'}) {
        Make(direction == 'h' ? TBS_HORZ : TBS_VERT, 30);
        for (const auto& test : cases) {
            Send(TBM_SETPOS, TRUE, test.from);
            test::Press(control_, test.key);
            std::string expected = test.told;
            for (size_t at = 0; (at = expected.find("scroll", at)) != std::string::npos; at += 7) {
                expected.insert(at, 1, direction);
            }
            EXPECT_EQ(test::Told(), expected) << test.from << " key " << test.key;
            EXPECT_EQ(Position(), test.to) << test.from << " key " << test.key;
        }
        DestroyWindow(control_);
    }
}

TEST_F(TrackBarTest, AClickBesideTheThumbMovesItByAPage) {
    Make(TBS_HORZ, 30);
    const RECT thumb = Thumb();
    const LPARAM right = MAKELPARAM(thumb.right + 20, thumb.top + 8);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, right);
    EXPECT_EQ(ToldOnce(), "hscroll 3 0");
    EXPECT_EQ(Position(), 40);
    EXPECT_EQ(GetFocus(), control_);
    EXPECT_EQ(GetCapture(), control_);
    Send(WM_LBUTTONUP, 0, right);
    EXPECT_EQ(ToldOnce(), "hscroll 8 0; notify 100 -16");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(TrackBarTest, DraggingTheThumbTellsEveryPositionAndTheLast) {
    Make(TBS_HORZ, 30);
    Send(TBM_SETPOS, TRUE, 10);
    const int start = Thumb().left;
    Send(TBM_SETPOS, TRUE, 60);
    const int travel = Thumb().left - start;
    Send(TBM_SETPOS, TRUE, 35);
    const RECT thumb = Thumb();
    EXPECT_NEAR(thumb.left, start + travel / 2, 1);
    const LPARAM grip = MAKELPARAM((thumb.left + thumb.right) / 2, thumb.top + 8);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, grip);
    Send(WM_MOUSEMOVE, MK_LBUTTON, grip);
    EXPECT_EQ(ToldOnce(), "");
    const LPARAM further = MAKELPARAM(LOWORD(grip) + travel / 5, HIWORD(grip) + 300);
    Send(WM_MOUSEMOVE, MK_LBUTTON, further);
    Send(WM_MOUSEMOVE, MK_LBUTTON, further);
    EXPECT_EQ(ToldOnce(), "hscroll 5 45");
    Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(900, 10));
    EXPECT_EQ(ToldOnce(), "hscroll 5 60");
    Send(WM_LBUTTONUP, 0, MAKELPARAM(900, 10));
    EXPECT_EQ(ToldOnce(), "hscroll 4 60; hscroll 8 0; notify 100 -16");
    Send(WM_MOUSEMOVE, 0, grip);
    EXPECT_EQ(Position(), 60);
}

}  // namespace
