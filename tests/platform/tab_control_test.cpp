// Tab controls: their items, the selection and who hears of it, and where the tabs lie.
#include "window_test.h"

#include <commctrl.h>

namespace {

class TabControlTest : public test::WindowTest {
  protected:
    void Make(DWORD style, int width, std::initializer_list<const char*> titles) {
        Control(WC_TABCONTROLW, TEXT(""), style, 100, 10, 10, width, 150);
        Send(WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)));
        for (const char* title : titles) {
            Insert(Send(TCM_GETITEMCOUNT), title);
        }
    }
    LRESULT Insert(LRESULT at, const char* title) {
        test::WideString text = test::Wide(title);
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = text.data();
        item.lParam = title[0];
        return Send(TCM_INSERTITEMW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&item));
    }
    RECT RectOf(int index) {
        RECT rect = {};
        EXPECT_TRUE(
            Send(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect)));
        return rect;
    }
    void Click(int x, int y) {
        Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        Send(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    void Click(int index) { Click(RectOf(index).left + 5, RectOf(index).top + 5); }
};

TEST_F(TabControlTest, ItemsKeepTheirTextAndParameter) {
    Make(0, 300, {});
    EXPECT_EQ(Send(TCM_GETCURSEL), -1);
    EXPECT_EQ(Insert(0, "One"), 0);
    EXPECT_EQ(Insert(99, "Second page"), 1);
    EXPECT_EQ(Insert(0, "Zero"), 0);
    EXPECT_EQ(Insert(-1, "None"), -1);
    EXPECT_EQ(Send(TCM_GETITEMCOUNT), 3);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    WCHAR text[5] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = text;
    item.cchTextMax = 5;
    EXPECT_TRUE(Send(TCM_GETITEMW, 2, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(test::Narrow(item.pszText), "Seco");
    EXPECT_EQ(item.lParam, 'S');
    EXPECT_FALSE(Send(TCM_GETITEMW, 3, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(test::Told(), "");
}

TEST_F(TabControlTest, TheProgramsOwnSelectingTellsNothing) {
    Make(0, 300, {"a", "b"});
    const struct {
        UINT message;
        int parameter;
        LRESULT result;
        LRESULT selected;
    } steps[] = {
        {TCM_GETITEMCOUNT, 0, 2, 0}, {TCM_SETCURSEL, 1, 0, 1},  {TCM_SETCURSEL, 77, -1, 1},
        {TCM_SETCURSEL, -1, 1, -1},  {TCM_SETCURSEL, 1, -1, 1},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(Send(step.message, static_cast<WPARAM>(step.parameter)), step.result);
        EXPECT_EQ(Send(TCM_GETCURSEL), step.selected) << step.parameter;
    }
    EXPECT_EQ(test::Told(), "");
}

TEST_F(TabControlTest, ClicksAndArrowKeysTellBeforeAndAfter) {
    Make(0, 300, {"First", "Second", "Third"});
    const std::string changed = "notify 100 -552; notify 100 -551";
    Click(1);
    EXPECT_EQ(test::Told(), changed + "; notify 100 -2");
    EXPECT_EQ(Send(TCM_GETCURSEL), 1);
    Click(1);
    EXPECT_EQ(test::Told(), "notify 100 -2");
    EXPECT_EQ(GetFocus(), control_);
    Click(100, 100);
    EXPECT_EQ(test::Told(), "notify 100 -2");
    const struct {
        int key;
        LRESULT selected;
    } keys[] = {{VK_RIGHT, 2}, {VK_RIGHT, 2}, {VK_LEFT, 1}, {VK_LEFT, 0}, {VK_LEFT, 0}};
    LRESULT before = 1;
    for (const auto& [key, selected] : keys) {
        test::Press(control_, key);
        EXPECT_EQ(test::Told(), "notify 100 -550" + (selected == before ? "" : "; " + changed));
        EXPECT_EQ(Send(TCM_GETCURSEL), selected);
        before = selected;
    }
}

// A parent that does not let go of the first tab.
LRESULT CALLBACK RefusingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (message == WM_NOTIFY) {
        test::Note(message, wParam, lParam);
        return header->code == static_cast<UINT>(TCN_SELCHANGING);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(TabControlTest, TheParentMayRefuseToLeaveATab) {
    Make(0, 300, {"First", "Second"});
    SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RefusingProcedure));
    Click(1);
    EXPECT_EQ(test::Told(), "notify 100 -552; notify 100 -2");
    EXPECT_EQ(Send(TCM_GETCURSEL), 0);
}

TEST_F(TabControlTest, TabsFollowEachOtherAboveTheDisplayArea) {
    Make(0, 300, {"One", "A longer title"});
    EXPECT_EQ(RectOf(0).right, RectOf(1).left);
    EXPECT_LT(RectOf(0).right - RectOf(0).left, RectOf(1).right - RectOf(1).left);
    EXPECT_EQ(Send(TCM_GETROWCOUNT), 1);
    const RECT whole = {0, 0, 300, 150};
    RECT inside = whole;
    Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    EXPECT_EQ(inside.left, 4);
    EXPECT_EQ(inside.right, 296);
    EXPECT_EQ(inside.bottom, 146);
    EXPECT_EQ(inside.top, RectOf(0).bottom + 2);
    Send(TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&inside));
    EXPECT_TRUE(EqualRect(&inside, &whole));
}

// Pages whose titles do not fit a row are spread over several; the rows are filled from side to
// side, and the selected one lies next to the display area.
TEST_F(TabControlTest, TheRowOfTheSelectedTabIsTheLowest) {
    Make(TCS_MULTILINE, 300,
         {"A page with title", "A page with title", "A page with title", "A page with title",
          "A page with title", "A page with title", "A page with title", "A page with title"});
    const LRESULT rows = Send(TCM_GETROWCOUNT);
    ASSERT_GE(rows, 3);
    RECT inside = {0, 0, 300, 150};
    Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    for (const int selected : {0, 7, 3, 4}) {
        Send(TCM_SETCURSEL, static_cast<WPARAM>(selected));
        EXPECT_EQ(RectOf(selected).bottom + 2, inside.top) << selected;
        EXPECT_EQ(RectOf(7).right, 298);
        EXPECT_EQ(RectOf(0).left, 2);
    }
    MoveWindow(control_, 10, 10, 600, 150, TRUE);
    EXPECT_LT(Send(TCM_GETROWCOUNT), rows);
}

// The selected tab stands out of its row and covers the feet of the row above.
TEST_F(TabControlTest, NoTabCoversATextOfAnother) {
    const auto blackPixels = [&](int index) {
        RECT area = RectOf(index);
        InflateRect(&area, -4, 2);
        const HDC context = GetDC(control_);
        int count = 0;
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                count += GetPixel(context, x, y) == 0 ? 1 : 0;
            }
        }
        ReleaseDC(control_, context);
        return count;
    };
    Make(TCS_MULTILINE, 220, {"Energy gjpq", "Energy gjpq", "Energy gjpq", "Energy gjpq"});
    ASSERT_EQ(Send(TCM_GETROWCOUNT), 2);
    for (const int selected : {0, 3}) {
        Send(TCM_SETCURSEL, static_cast<WPARAM>(selected));
        test::HandlePosted();
        EXPECT_GT(blackPixels(0), 40);
        for (int tab = 1; tab < 4; ++tab) {
            EXPECT_EQ(blackPixels(tab), blackPixels(0)) << tab << " of " << selected;
        }
    }
}

// A dialog's controls can lie upon the display area.
TEST_F(TabControlTest, SelectingAndTheFocusLeaveTheDisplayArea) {
    Make(0, 300, {"One", "Two", "Three"});
    test::HandlePosted();
    const POINT place = {150, RectOf(0).bottom + 6};
    const HDC context = GetDC(control_);
    PatBlt(context, place.x, place.y, 20, 20, WHITENESS);
    Click(2);
    test::HandlePosted();
    Click(2);
    EXPECT_EQ(GetFocus(), control_);
    test::HandlePosted();
    Send(TCM_SETCURSEL, 0);
    SetFocus(parent_);
    test::HandlePosted();
    EXPECT_EQ(GetPixel(context, place.x, place.y), COLORREF{0xFFFFFF});
    ReleaseDC(control_, context);
}

}  // namespace
