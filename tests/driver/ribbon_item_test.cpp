// The letters of the Device Options page's ribbon list, each in its panel's colour.
#include "ui/pages/device_options/ribbon_item.h"
#include "ui/common/pictures.h"
#include "window_test.h"

namespace test {
namespace {

class RibbonItemTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        list_ = Control(TEXT("ComboBox"), TEXT(""),
                        CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS);
    }
    /// Draws the item with that text and gives the colour at the left and, behind the last letter,
    /// at the right of every letter's cell, then of the rest.
    std::vector<COLORREF> Draw(const WCHAR* text, UINT action, UINT state) {
        SendMessageW(list_, CB_RESETCONTENT, 0, 0);
        SendMessageW(list_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        HDC screen = GetDC(nullptr);
        const MemoryCanvas canvas(screen, 200, 40);
        ReleaseDC(nullptr, screen);
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_COMBOBOX;
        item.itemAction = action;
        item.itemState = state;
        item.hwndItem = list_;
        item.hDC = canvas.get();
        item.rcItem = {5, 4, 180, 34};
        SetTextColor(item.hDC, RGB(9, 8, 7));
        SetBkColor(item.hDC, RGB(6, 5, 4));
        DrawRibbonItem(item);
        EXPECT_EQ(GetTextColor(item.hDC), RGB(9, 8, 7));
        EXPECT_EQ(GetBkColor(item.hDC), RGB(6, 5, 4));
        std::vector<COLORREF> colors;
        int x = item.rcItem.left;
        for (const WCHAR* letter = text; *letter != 0; ++letter) {
            SIZE extent = {};
            GetTextExtentPoint32W(item.hDC, letter, 1, &extent);
            colors.push_back(GetPixel(item.hDC, x, item.rcItem.top));
            x += extent.cx;
            EXPECT_EQ(GetPixel(item.hDC, x - 1, item.rcItem.bottom - 1), colors.back());
        }
        colors.push_back(GetPixel(item.hDC, x, item.rcItem.top));
        return colors;
    }

    HWND list_ = nullptr;
};

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kYellow = RGB(255, 255, 0);
constexpr COLORREF kMagenta = RGB(255, 0, 255);
constexpr COLORREF kCyan = RGB(0, 255, 255);
constexpr COLORREF kGold = RGB(255, 223, 0);

TEST_F(RibbonItemTest, LettersHaveThePanelsColours) {
    using Colors = std::vector<COLORREF>;
    EXPECT_EQ(
        Draw(TEXT("1/2 YMCKO"), ODA_DRAWENTIRE, 0),
        (Colors{kWhite, kWhite, kWhite, kWhite, kYellow, kMagenta, kCyan, kBlack, kWhite, kWhite}));
    EXPECT_EQ(Draw(TEXT("FB"), ODA_SELECT, ODS_FOCUS),
              (Colors{RGB(208, 255, 255), RGB(128, 128, 128), kWhite}));
    EXPECT_EQ(Draw(TEXT("Gold"), ODA_DRAWENTIRE, 0), (Colors{kGold, kGold, kGold, kGold, kWhite}));
    EXPECT_EQ(Draw(TEXT("Golden"), ODA_DRAWENTIRE, 0).front(), kWhite);
    EXPECT_EQ(Draw(TEXT("Silver"), ODA_DRAWENTIRE, 0).front(), RGB(230, 232, 250));
}

TEST_F(RibbonItemTest, TheFocusIsSeenBehindTheLetters) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_EQ(Draw(TEXT("K"), ODA_DRAWENTIRE, ODS_FOCUS).back(), highlight);
    EXPECT_EQ(Draw(TEXT("K"), ODA_FOCUS, ODS_FOCUS).back(), highlight);
    EXPECT_EQ(Draw(TEXT("K"), ODA_FOCUS, 0).back(), kWhite);
    EXPECT_EQ(Draw(TEXT("K"), ODA_SELECT, ODS_FOCUS | ODS_SELECTED).back(), kWhite);
    EXPECT_EQ(Draw(TEXT(""), ODA_DRAWENTIRE, ODS_FOCUS).back(), highlight);
}

}  // namespace
}  // namespace test
