// Tooltips: their tools and texts.
#include "window_test.h"

#include <commctrl.h>

namespace {

class TooltipTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        bar_ = Control(TRACKBAR_CLASSW, TEXT(""), 0, 100, 10, 10, 100, 30);
        control_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP,
                                   CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                   parent_, nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(control_, nullptr);
        test::Told();
    }

    TOOLINFOW Tool(HWND control, const WCHAR* text) {
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = parent_;
        tool.uId = reinterpret_cast<UINT_PTR>(control);
        tool.lpszText = const_cast<WCHAR*>(text);
        return tool;
    }
    using WindowTest::Send;
    LRESULT Send(UINT message, const TOOLINFOW& tool, WPARAM wParam = 0) {
        return Send(message, wParam, reinterpret_cast<LPARAM>(&tool));
    }
    std::string TextOf(HWND control) {
        WCHAR text[80] = {};
        Send(TTM_GETTEXTW, Tool(control, text), 80);
        return test::Narrow(text);
    }

    HWND bar_ = nullptr;
};

TEST_F(TooltipTest, ToolsAreFoundByTheirWindowAndIdentifier) {
    EXPECT_TRUE(Send(TTM_ADDTOOLW, Tool(bar_, TEXT("Of the bar"))));
    EXPECT_TRUE(Send(TTM_ADDTOOLW, Tool(parent_, TEXT("Of the whole"))));
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 2);
    EXPECT_EQ(TextOf(bar_) + ", " + TextOf(parent_), "Of the bar, Of the whole");
    EXPECT_EQ(TextOf(control_), "");
    TOOLINFOW found = Tool(bar_, nullptr);
    found.uFlags = 0;
    EXPECT_TRUE(Send(TTM_GETTOOLINFOW, found));
    EXPECT_EQ(found.uFlags, UINT{TTF_IDISHWND | TTF_SUBCLASS});
    EXPECT_FALSE(Send(TTM_GETTOOLINFOW, Tool(control_, nullptr)));
    EXPECT_EQ(Send(TTM_GETMAXTIPWIDTH), -1);
    EXPECT_EQ(Send(TTM_SETMAXTIPWIDTH, 0, 150), -1);
    EXPECT_EQ(Send(TTM_GETMAXTIPWIDTH), 150);
    DestroyWindow(bar_);
    EXPECT_EQ(Send(TTM_GETTOOLCOUNT), 2);
}

}  // namespace
