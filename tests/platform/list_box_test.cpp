// List boxes: items, selection, scrolling, and what the parent hears of the user's choice.
#include "window_test.h"

namespace {

constexpr const WCHAR* kFruits[] = {
    TEXT("apple"), TEXT("Banana"), TEXT("blueberry"), TEXT("cherry"), TEXT("date"),
    TEXT("elder"), TEXT("fig"),    TEXT("grape"),     TEXT("hazel"),  TEXT("ivy")};

class ListBoxTest : public test::WindowTest {
  protected:
    void Make(DWORD style, bool filled = true, DWORD extendedStyle = 0) {
        Control(TEXT("ListBox"), TEXT(""), style, 100, 10, 10, 120, 100, extendedStyle);
        for (const WCHAR* fruit : kFruits) {
            if (filled) {
                Add(fruit);
            }
        }
        test::HandlePosted();
        test::Told();
    }
    LRESULT Add(const WCHAR* text) { return SendText(LB_ADDSTRING, 0, text); }
    std::string Item(int index) {
        WCHAR text[100] = {};
        Send(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
        return test::Narrow(text);
    }
    std::string Items() {
        std::string items;
        for (int i = 0; i < Send(LB_GETCOUNT); ++i) {
            items += Item(i) + " ";
        }
        return items;
    }
    // The mouse at the middle of the row-th item shown.
    void Mouse(UINT message, int row) {
        const LRESULT y = Send(LB_GETITEMHEIGHT) * row + 3;
        Send(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(5, y));
    }
};

TEST_F(ListBoxTest, WaitsWithPaintingWhileItIsHeld) {
    Make(0, false);
    UpdateWindow(control_);
    Send(WM_SETREDRAW, FALSE);
    Add(TEXT("apple"));
    EXPECT_FALSE(GetUpdateRect(control_, nullptr, FALSE));
    Send(WM_SETREDRAW, TRUE);
    EXPECT_TRUE(GetUpdateRect(control_, nullptr, FALSE));
}

TEST_F(ListBoxTest, KeepsItemsInOrderWithTheirData) {
    Make(0, false);
    EXPECT_EQ(Add(TEXT("Apple")), 0);
    EXPECT_EQ(Add(TEXT("banana")), 1);
    EXPECT_EQ(Add(TEXT("pear")), 2);
    EXPECT_EQ(SendText(LB_INSERTSTRING, -1, TEXT("aaa")), 3);
    EXPECT_EQ(SendText(LB_INSERTSTRING, 1, TEXT("zzz")), 1);
    EXPECT_EQ(SendText(LB_INSERTSTRING, 9, TEXT("x")), LB_ERR);
    EXPECT_EQ(Items(), "Apple zzz banana pear aaa ");
    const struct {
        UINT message;
        int index;
        LPARAM lParam;
        LRESULT expected;
    } steps[] = {
        {LB_GETTEXTLEN, 0, 0, 5},        {LB_GETTEXTLEN, 9, 0, LB_ERR},
        {LB_GETTEXT, 9, 0, LB_ERR},      {LB_GETITEMDATA, 0, 0, 0},
        {LB_SETITEMDATA, 9, 7, LB_ERR},  {LB_GETITEMDATA, 9, 0, LB_ERR},
        {LB_GETITEMDATA, -1, 0, LB_ERR}, {LB_GETCURSEL, 0, 0, LB_ERR},
        {LB_SETCURSEL, 2, 0, 2},         {LB_DELETESTRING, 0, 0, 4},  // before the selection
        {LB_GETCURSEL, 0, 0, 1},         {LB_DELETESTRING, 1, 0, 3},  // the selection
        {LB_GETCURSEL, 0, 0, LB_ERR},    {LB_DELETESTRING, 9, 0, LB_ERR},
        {LB_SETCURSEL, 0, 0, 0},         {LB_SETCURSEL, -1, 0, LB_ERR},
        {LB_GETCURSEL, 0, 0, LB_ERR},    {LB_SETITEMHEIGHT, 0, 22, 0},
        {LB_GETITEMHEIGHT, 0, 0, 22},    {LB_RESETCONTENT, 0, 0, 0},
        {LB_GETCOUNT, 0, 0, 0},
    };
    for (size_t i = 0; i < std::size(steps); ++i) {
        EXPECT_EQ(Send(steps[i].message, static_cast<WPARAM>(steps[i].index), steps[i].lParam),
                  steps[i].expected)
            << i;
    }
    EXPECT_EQ(test::Told(), "");
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(ListBoxTest, TellsOfKeysAndClicksAndOfNothingTheProgramDoes) {
    constexpr struct {
        int key;
        int selection;
        int top;
    } kKeys[] = {
        {VK_DOWN, 0, 0}, {VK_DOWN, 1, 0}, {VK_UP, 0, 0},    {VK_END, 9, 4},   {VK_HOME, 0, 0},
        {VK_NEXT, 5, 0}, {VK_NEXT, 9, 4}, {VK_PRIOR, 4, 4}, {VK_RIGHT, 5, 4}, {VK_LEFT, 4, 4},
    };
    for (const DWORD style : {DWORD{LBS_NOTIFY}, DWORD{0}}) {
        Make(style | WS_VSCROLL);
        const std::string changed = style != 0 ? "command 100 1h" : "";
        SetFocus(control_);
        test::Told();
        for (const auto& row : kKeys) {
            test::Press(control_, row.key);
            EXPECT_EQ(test::Told(), changed) << row.key;
            EXPECT_EQ(Send(LB_GETCURSEL), row.selection) << row.key;
            EXPECT_EQ(Send(LB_GETTOPINDEX), row.top) << row.key;
        }
        test::Type(control_, "b");
        EXPECT_EQ(test::Told(), changed);
        EXPECT_EQ(Send(LB_GETCURSEL), 1);
        test::Type(control_, "z\x1b");
        test::Press(control_, VK_RETURN);
        Send(LB_SETCURSEL, 3);
        EXPECT_EQ(test::Told(), "");
        Send(LB_SETTOPINDEX, 0);
        Mouse(WM_LBUTTONDOWN, 1);
        EXPECT_EQ(GetCapture(), control_);
        Mouse(WM_MOUSEMOVE, 2);
        EXPECT_EQ(test::Told(), "");
        Mouse(WM_LBUTTONUP, 2);
        EXPECT_EQ(test::Told(), changed);
        EXPECT_EQ(Send(LB_GETCURSEL), 2);
        EXPECT_EQ(GetCapture(), nullptr);
        Mouse(WM_LBUTTONDBLCLK, 3);
        EXPECT_EQ(test::Told(), style != 0 ? "command 100 2h" : "");
        Mouse(WM_LBUTTONUP, 3);
        test::Told();
        DestroyWindow(control_);
    }
}

TEST_F(ListBoxTest, TellsOfTheFocus) {
    Make(LBS_NOTIFY);
    SetFocus(control_);
    EXPECT_EQ(test::Told(), "command 100 4h");
    SetFocus(parent_);
    EXPECT_EQ(test::Told(), "command 100 5h");
}

TEST_F(ListBoxTest, ShowsWholeItemsAndABarWhereTheyDoNotFit) {
    const struct {
        DWORD style;
        DWORD extendedStyle;
        int height;
        int width;     // of the client area when empty
        int narrowed;  // and when there is too much in it
    } rows[] = {
        {0, 0, 96, 120, 120},
        {WS_BORDER, 0, 98, 118, 118},
        {LBS_NOINTEGRALHEIGHT, 0, 100, 120, 120},
        {WS_VSCROLL, WS_EX_CLIENTEDGE, 100, 116, 99},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.style);
        Make(row.style, false, row.extendedStyle);
        RECT client = {};
        RECT window = {};
        GetClientRect(control_, &client);
        GetWindowRect(control_, &window);
        EXPECT_EQ(window.bottom - window.top, row.height);
        EXPECT_EQ(client.right, row.width);
        for (const WCHAR* fruit : kFruits) {
            Add(fruit);
        }
        Send(LB_SETTOPINDEX, 2);
        GetClientRect(control_, &client);
        EXPECT_EQ(client.right, row.narrowed);
        SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
        if ((row.style & WS_VSCROLL) != 0) {
            EXPECT_TRUE(GetScrollInfo(control_, SB_VERT, &info));
            EXPECT_EQ(info.nMax, 9);
            EXPECT_EQ(info.nPage, 6u);
            EXPECT_EQ(info.nPos, 2);
        }
    }
}

TEST_F(ListBoxTest, ScrollsByItsBar) {
    Make(WS_VSCROLL);
    constexpr struct {
        UINT message;
        WPARAM wParam;
        int top;
    } kSteps[] = {
        {WM_VSCROLL, SB_LINEDOWN, 1}, {WM_VSCROLL, SB_PAGEDOWN, 4}, {WM_VSCROLL, SB_TOP, 0},
        {WM_VSCROLL, SB_BOTTOM, 4},   {WM_VSCROLL, SB_LINEUP, 3},
    };
    for (const auto& step : kSteps) {
        Send(step.message, step.wParam);
        EXPECT_EQ(Send(LB_GETTOPINDEX), step.top) << step.wParam;
    }
    // The arrow at the end of the bar in its frame.
    RECT window = {};
    GetWindowRect(control_, &window);
    Send(LB_SETTOPINDEX, 0);
    const LPARAM arrow = MAKELPARAM(window.right - 8, window.bottom - 8);
    EXPECT_EQ(Send(WM_NCHITTEST, 0, arrow), HTVSCROLL);
}

}  // namespace
