// Scroll bars: their numbers, and what the parent hears of the mouse and of keys.
#include "window_test.h"

namespace {

class ScrollBarTest : public test::WindowTest {
  protected:
    // A bar of 100 pixels with arrows of 17; the thumb is where it is told to be.
    void Make(DWORD style = SBS_VERT, int length = 100) {
        const bool isVertical = (style & SBS_VERT) != 0;
        bar_ = Control(TEXT("ScrollBar"), TEXT(""), style, 100, 10, 10, isVertical ? 17 : length,
                       isVertical ? length : 17);
    }
    // Sets the members that the mask names, and gives what SetScrollInfo gives.
    int Set(UINT mask, int minimum, int maximum, UINT page, int position) {
        const SCROLLINFO info = {sizeof(info), mask, minimum, maximum, page, position, 0};
        return SetScrollInfo(bar_, SB_CTL, &info, TRUE);
    }
    SCROLLINFO Info() {
        SCROLLINFO info = {sizeof(info), SIF_ALL, -1, -1, 9999, -1, -1};
        EXPECT_TRUE(GetScrollInfo(bar_, SB_CTL, &info));
        return info;
    }
    // The button goes down at the first point, the mouse over the others, and up at the last. The
    // messages are posted, since a bar that is held may run a loop of its own.
    std::string Drag(std::initializer_list<POINT> points) {
        UINT message = WM_LBUTTONDOWN;
        for (const POINT& point : points) {
            PostMessageW(bar_, std::exchange(message, WM_MOUSEMOVE), MK_LBUTTON,
                         MAKELPARAM(point.x, point.y));
        }
        const POINT last = *(points.end() - 1);
        PostMessageW(bar_, WM_LBUTTONUP, 0, MAKELPARAM(last.x, last.y));
        test::HandlePosted();
        return test::Told();
    }

    HWND bar_ = nullptr;
};

TEST_F(ScrollBarTest, KeepsItsPositionWithinWhatThePageLeavesOfTheRange) {
    Make();
    const struct {
        UINT mask;
        int minimum, maximum;
        UINT page;
        int position;
        int expectedMaximum;
        UINT expectedPage;
        int expectedPosition;
    } steps[] = {
        {SIF_RANGE, 0, 100, 0, 0, 100, 0, 0},    {SIF_POS, 0, 0, 0, 50, 100, 0, 50},
        {SIF_PAGE, 0, 0, 10, 0, 100, 10, 50},    {SIF_POS, 0, 0, 0, 100, 100, 10, 91},
        {SIF_POS, 0, 0, 0, -5, 100, 10, 0},      {SIF_PAGE, 0, 0, 200, 0, 100, 101, 0},
        {SIF_PAGE, 0, 0, 0, 0, 100, 0, 0},       {SIF_PAGE | SIF_RANGE, 0, 3, 1, 0, 3, 1, 0},
        {SIF_POS, 0, 0, 0, 7, 3, 1, 3},          {SIF_ALL, 0, 100, 10, 30, 100, 10, 30},
        {SIF_TRACKPOS, 0, 0, 0, 0, 100, 10, 30},
    };
    for (size_t i = 0; i < std::size(steps); ++i) {
        SCOPED_TRACE(i);
        const auto& step = steps[i];
        EXPECT_EQ(Set(step.mask, step.minimum, step.maximum, step.page, step.position),
                  step.expectedPosition);
        const SCROLLINFO info = Info();
        EXPECT_EQ(info.nMax, step.expectedMaximum);
        EXPECT_EQ(info.nPage, step.expectedPage);
        EXPECT_EQ(info.nPos, step.expectedPosition);
        EXPECT_EQ(info.nTrackPos, step.expectedPosition);
    }
    EXPECT_EQ(test::Told(), "");
}

TEST_F(ScrollBarTest, AnswersTheCallsForOneNumber) {
    Make();
    Set(SIF_ALL, 0, 100, 10, 30);
    EXPECT_EQ(SetScrollPos(bar_, SB_CTL, 95, TRUE), 30);
    EXPECT_EQ(GetScrollPos(bar_, SB_CTL), 91);
    EXPECT_TRUE(SetScrollRange(bar_, SB_CTL, 5, 60, TRUE));
    EXPECT_EQ(Info().nMin, 5);
    EXPECT_EQ(Info().nMax, 60);
    EXPECT_EQ(GetScrollPos(bar_, SB_CTL), 51);
    SCROLLINFO onlyPosition = {sizeof(onlyPosition), SIF_POS, 1, 2, 3, 4, 5};
    GetScrollInfo(bar_, SB_CTL, &onlyPosition);
    EXPECT_EQ(onlyPosition.nMax, 2);
    EXPECT_EQ(onlyPosition.nPos, 51);
    EXPECT_EQ(SendMessageW(bar_, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
}

TEST_F(ScrollBarTest, TellsOfThePartHeldAndNeverMovesItself) {
    Make();
    Set(SIF_ALL, 0, 100, 10, 30);
    const struct {
        std::initializer_list<POINT> points;
        const char* told;
    } rows[] = {
        {{{8, 5}}, "vscroll 0 0; vscroll 8 0"},
        {{{8, 95}, {8, 50}}, "vscroll 1 0; vscroll 8 0"},
        {{{8, 20}}, "vscroll 2 0; vscroll 8 0"},
        {{{8, 80}}, "vscroll 3 0; vscroll 8 0"},
        {{{8, 40}}, "vscroll 5 30; vscroll 4 30; vscroll 8 0"},
        {{{8, 40}, {8, 46}, {8, 46}, {8, 95}},
         "vscroll 5 30; vscroll 5 39; vscroll 5 91; vscroll 4 91; vscroll 8 0"},
        {{{8, 40}, {8, 46}, {300, 46}},
         "vscroll 5 30; vscroll 5 39; vscroll 5 30; vscroll 4 30; vscroll 8 0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Drag(row.points), row.told);
        EXPECT_EQ(Info().nPos, 30);
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_NE(GetFocus(), bar_);
    }
}

TEST_F(ScrollBarTest, TakesTheFocusAtAClickOnlyAsATabStop) {
    Make(SBS_VERT | WS_TABSTOP);
    EXPECT_EQ(Drag({{8, 5}}), "vscroll 0 0; vscroll 8 0");
    EXPECT_EQ(GetFocus(), bar_);
}

TEST_F(ScrollBarTest, IsTwoArrowsWhenThereIsNoRoomForMore) {
    Make(SBS_VERT, 20);
    Set(SIF_RANGE, 0, 100, 0, 0);
    for (const int y : {0, 7}) {
        EXPECT_EQ(Drag({{8, y}}), "vscroll 0 0; vscroll 8 0") << y;
    }
    for (const int y : {12, 19}) {
        EXPECT_EQ(Drag({{8, y}}), "vscroll 1 0; vscroll 8 0") << y;
    }
}

TEST_F(ScrollBarTest, TakesTheKeysOfBothDirections) {
    constexpr struct {
        int key;
        int code;
    } kKeys[] = {{VK_UP, 0},    {VK_LEFT, 0}, {VK_DOWN, 1}, {VK_RIGHT, 1},
                 {VK_PRIOR, 2}, {VK_NEXT, 3}, {VK_HOME, 6}, {VK_END, 7}};
    for (const DWORD style : {DWORD{SBS_VERT}, DWORD{SBS_HORZ}}) {
        Make(style);
        for (const auto& row : kKeys) {
            SendMessageW(bar_, WM_KEYDOWN, static_cast<WPARAM>(row.key), 1);
            EXPECT_EQ(test::Told(), (style == SBS_VERT ? "vscroll " : "hscroll ") +
                                        std::to_string(row.code) + " 0");
        }
        SendMessageW(bar_, WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_EQ(test::Told(), "");
    }
}

}  // namespace
