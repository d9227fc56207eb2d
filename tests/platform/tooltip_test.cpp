// Tooltips: their tools and texts, and when a tip is shown.
#include "window_test.h"

#include <commctrl.h>

namespace {

class TooltipTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_WIN95_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
        bar_ = Control(TRACKBAR_CLASSW, TEXT(""), 0, 100, 10, 10, 100, 30);
        tip_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                               CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent_, nullptr,
                               GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(tip_, nullptr);
        test::Told();
    }

    // A tool of the parent's; without a rectangle it is the bar.
    TOOLINFOW Tool(const WCHAR* text, const RECT* rect = nullptr) {
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.uFlags = rect == nullptr ? TTF_IDISHWND | TTF_SUBCLASS : TTF_SUBCLASS;
        tool.hwnd = parent_;
        tool.uId = rect == nullptr ? reinterpret_cast<UINT_PTR>(bar_) : 5;
        tool.rect = rect == nullptr ? RECT{} : *rect;
        tool.lpszText = const_cast<WCHAR*>(text);
        tool.lParam = 7;
        return tool;
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(tip_, message, wParam, lParam);
    }
    LRESULT Send(UINT message, const TOOLINFOW& tool, WPARAM wParam = 0) {
        return Send(message, wParam, reinterpret_cast<LPARAM>(&tool));
    }
    std::string TextOf(TOOLINFOW tool) {
        WCHAR text[80] = {};
        tool.lpszText = text;
        Send(TTM_GETTEXTW, tool, 80);
        return test::Narrow(text);
    }
    // Moves the mouse to a point of the window and waits for the tip; true when it is shown.
    bool ShownOver(HWND window, int x, int y) {
#ifdef _WIN32  // which looks where the mouse really is when the time has come
        POINT place = {x, y};
        ClientToScreen(window, &place);
        SetCursorPos(place.x, place.y);
        test::HandlePosted();
#endif
        SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
        bool hasTimeout = false;
        SetTimer(parent_, 77, 250, nullptr);
        MSG message;
        while (!hasTimeout && !IsWindowVisible(tip_) && GetMessageW(&message, nullptr, 0, 0)) {
            hasTimeout = message.hwnd == parent_ && message.message == WM_TIMER;
            DispatchMessageW(&message);
        }
        KillTimer(parent_, 77);
        return IsWindowVisible(tip_) != FALSE;
    }

    HWND bar_ = nullptr;
    HWND tip_ = nullptr;
};

TEST_F(TooltipTest, ToolsAreFoundByTheirWindowAndIdentifier) {
    const RECT place = {120, 100, 300, 150};
    TOOLINFOW bar = Tool(TEXT("Of the bar"));
    TOOLINFOW area = Tool(TEXT("Of the area"), &place);
    EXPECT_TRUE(Send(TTM_ADDTOOLW, bar));
    EXPECT_TRUE(Send(TTM_ADDTOOLW, area));
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 2);
    EXPECT_EQ(TextOf(bar) + ", " + TextOf(area), "Of the bar, Of the area");
    WCHAR text[80] = {};
    TOOLINFOW found = {};
    found.cbSize = TTTOOLINFOW_V2_SIZE;
    found.lpszText = text;
    EXPECT_TRUE(Send(TTM_ENUMTOOLSW, found, 0));
    EXPECT_EQ(found.hwnd, parent_);
    EXPECT_EQ(found.uId, bar.uId);
    EXPECT_EQ(found.uFlags, bar.uFlags);
    EXPECT_EQ(test::Narrow(text), "Of the bar");
    EXPECT_FALSE(Send(TTM_ENUMTOOLSW, found, 2));
    area.rect.left = 0;
    Send(TTM_NEWTOOLRECTW, area);
    found = area;
    found.lpszText = nullptr;
    found.rect = {};
    EXPECT_TRUE(Send(TTM_GETTOOLINFOW, found));
    EXPECT_TRUE(EqualRect(&found.rect, &area.rect));
    EXPECT_EQ(found.lParam, 7);
    EXPECT_EQ(found.lpszText, nullptr);
    bar.lpszText = const_cast<WCHAR*>(TEXT("Changed"));
    Send(TTM_UPDATETIPTEXTW, bar);
    EXPECT_EQ(TextOf(bar) + ", " + TextOf(area), "Changed, Of the area");
    Send(TTM_DELTOOLW, bar);
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 1);
    EXPECT_FALSE(Send(TTM_GETTOOLINFOW, bar));
    EXPECT_EQ(TextOf(area), "Of the area");
    EXPECT_EQ(Send(TTM_GETMAXTIPWIDTH), -1);
    EXPECT_EQ(Send(TTM_SETMAXTIPWIDTH, 0, 150), -1);
    EXPECT_EQ(Send(TTM_GETMAXTIPWIDTH), 150);
}

TEST_F(TooltipTest, AWatchedWindowOutlivesItsToolAndTheTooltip) {
    const TOOLINFOW bar = Tool(TEXT("Tip"));
    Send(TTM_SETDELAYTIME, TTDT_INITIAL, 10);
    Send(TTM_ADDTOOLW, bar);
    Send(TTM_DELTOOLW, bar);
    EXPECT_FALSE(ShownOver(bar_, 40, 10));
    Send(TTM_ADDTOOLW, bar);
    DestroyWindow(tip_);
    SendMessageW(bar_, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    test::Told();
    test::Press(bar_, VK_RIGHT);
    EXPECT_EQ(test::Told(), "hscroll 1 0; hscroll 8 0");
}

TEST_F(TooltipTest, AWatchedWindowMayGoFirst) {
    Send(TTM_ADDTOOLW, Tool(TEXT("Tip")));
    DestroyWindow(bar_);
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 1);
    DestroyWindow(tip_);
}

TEST_F(TooltipTest, TheTipIsShownWhereTheMouseRestsUntilItDoesSomething) {
    const RECT place = {120, 100, 300, 150};
    const TOOLINFOW tool = Tool(TEXT("Of the bar"));
    Send(TTM_ADDTOOLW, tool);
    Send(TTM_ADDTOOLW, Tool(TEXT("Of the area"), &place));
    Send(TTM_SETDELAYTIME, TTDT_INITIAL, 10);
    EXPECT_FALSE(ShownOver(parent_, 20, 200));
    EXPECT_TRUE(ShownOver(parent_, 200, 120));
    EXPECT_EQ(test::TextOf(tip_), "Of the area");
    Send(TTM_POP);
    EXPECT_FALSE(IsWindowVisible(tip_));
    EXPECT_TRUE(ShownOver(bar_, 40, 10));
    EXPECT_EQ(test::TextOf(tip_), "Of the bar");
    RECT small = {};
    GetWindowRect(tip_, &small);
    SendMessageW(bar_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 10));
    EXPECT_FALSE(IsWindowVisible(tip_));
    SendMessageW(bar_, WM_LBUTTONUP, 0, MAKELPARAM(40, 10));
    Send(TTM_ACTIVATE, FALSE);
    EXPECT_FALSE(ShownOver(bar_, 45, 12));
    Send(TTM_ACTIVATE, TRUE);

    // A long text is broken at the width that was set.
    TOOLINFOW longTool = tool;
    longTool.lpszText = const_cast<WCHAR*>(
        TEXT("A rather long text that does not fit into one line\r\nand has a break of its own"));
    Send(TTM_UPDATETIPTEXTW, longTool);
    Send(TTM_SETMAXTIPWIDTH, 0, 150);
    EXPECT_TRUE(ShownOver(bar_, 50, 14));
    RECT large = {};
    GetWindowRect(tip_, &large);
    EXPECT_LE(large.right - large.left, 150 + 10);
    EXPECT_GT(large.bottom - large.top, 3 * (small.bottom - small.top) / 2);
}

}  // namespace
