// Menus: items by position and by command, submenus, separators.
#include "window_test.h"

namespace {

std::string TextAt(HMENU menu, UINT item, UINT flags) {
    WCHAR text[40] = {};
    GetMenuStringW(menu, item, text, 40, flags);
    return test::Narrow(text);
}

class MenusTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        bar_ = CreateMenu();
        file_ = CreatePopupMenu();
        AppendMenuW(file_, MF_STRING, 11, TEXT("Open"));
        AppendMenuW(file_, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(file_, MF_STRING | MF_GRAYED, 12, TEXT("Save"));
        AppendMenuW(bar_, MF_POPUP, reinterpret_cast<UINT_PTR>(file_), TEXT("File"));
        AppendMenuW(bar_, MF_STRING | MF_CHECKED, 20, TEXT("Help"));
    }
    void TearDown() override {
        DestroyMenu(bar_);
        EXPECT_EQ(GetMenuItemCount(file_), -1);
        WindowTest::TearDown();
    }
    HMENU bar_ = nullptr;
    HMENU file_ = nullptr;
};

TEST_F(MenusTest, ItemsAreFoundByPositionAndByCommandFurtherDown) {
    EXPECT_EQ(GetMenuItemCount(bar_), 2);
    EXPECT_EQ(GetSubMenu(bar_, 0), file_);
    EXPECT_EQ(GetSubMenu(bar_, 1), nullptr);
    EXPECT_EQ(GetMenuItemID(bar_, 0), 0xFFFFFFFFu);
    EXPECT_EQ(GetMenuItemID(bar_, 1), 20u);
    EXPECT_EQ(TextAt(bar_, 0, MF_BYPOSITION), "File");
    EXPECT_EQ(TextAt(bar_, 12, MF_BYCOMMAND), "Save");
    EXPECT_EQ(GetMenuStringW(bar_, 12, nullptr, 0, MF_BYCOMMAND), 4);
    EXPECT_EQ(TextAt(bar_, 99, MF_BYCOMMAND), "");
    EXPECT_EQ(TextAt(file_, 1, MF_BYPOSITION), "") << "a separator";
    EXPECT_EQ(GetMenuState(file_, 1, MF_BYPOSITION), UINT{MF_SEPARATOR | MF_GRAYED | MF_DISABLED});
    EXPECT_EQ(GetMenuState(bar_, 0, MF_BYPOSITION), 0x310u) << "with the items of what it opens";
    EXPECT_EQ(GetMenuState(bar_, 20, MF_BYCOMMAND), UINT{MF_CHECKED});
    EXPECT_EQ(GetMenuState(bar_, 99, MF_BYCOMMAND), 0xFFFFFFFFu);
}

TEST_F(MenusTest, AnItemThatIsModifiedKeepsItsSubmenu) {
    EXPECT_TRUE(ModifyMenuW(bar_, 0, MF_BYPOSITION | MF_STRING, 0, TEXT("Datei")));
    EXPECT_EQ(TextAt(bar_, 0, MF_BYPOSITION), "Datei");
    EXPECT_EQ(GetSubMenu(bar_, 0), file_);
    EXPECT_TRUE(ModifyMenuW(bar_, 12, MF_BYCOMMAND | MF_STRING, 13, TEXT("Sichern")));
    EXPECT_EQ(TextAt(file_, 2, MF_BYPOSITION), "Sichern");
    EXPECT_EQ(GetMenuItemID(file_, 2), 13u);
    EXPECT_EQ(GetMenuState(file_, 2, MF_BYPOSITION), 0u);
    EXPECT_FALSE(ModifyMenuW(bar_, 12, MF_BYCOMMAND | MF_STRING, 12, TEXT("Gone")));
}

TEST_F(MenusTest, AMenuGoesWithItsWindow) {
    const HWND window =
        CreateWindowExW(0, TEXT("KpdTestParent"), nullptr, WS_POPUP | WS_CAPTION, 0, 0, 200, 100,
                        nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window, nullptr);
    const HMENU menu = CreateMenu();
    AppendMenuW(menu, MF_STRING, 1, TEXT("One"));
    RECT before, after;
    GetClientRect(window, &before);
    EXPECT_TRUE(SetMenu(window, menu));
    EXPECT_EQ(GetMenu(window), menu);
    GetClientRect(window, &after);
    EXPECT_EQ(after.bottom, before.bottom - GetSystemMetrics(SM_CYMENU));
    DestroyWindow(window);
    EXPECT_EQ(GetMenuItemCount(menu), -1);
}

}  // namespace
