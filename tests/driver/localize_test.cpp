// Translation in place of every kind of control, and of menus.
#include "ui/common/localize.h"

#include "ui/common/language.h"
#include "window_test.h"

#include <commctrl.h>

namespace test {
namespace {

class LocalizeTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        InitLanguageFile();
        WriteWideText(
            LanguageFilePath,
            TEXT("[Page]\r\nParent=Eltern\r\nRibbon=Band\r\nDisable=Aus\r\nText only=Nur Text\r\n")
                    TEXT("First=Erstes\r\nOther=Anderes\r\n") +
                Wide("Long=" + std::string(400, 'l') + "\r\n"));
        SetSection(TEXT("Page"));
    }
    void TearDown() override {
        std::filesystem::remove(DiskPath(LanguageFilePath));
        WindowTest::TearDown();
    }

    HWND Items(const WCHAR* className, DWORD style, UINT add, UINT setData,
               std::initializer_list<const WCHAR*> texts) {
        HWND box = Control(className, TEXT(""), style, 100, 10, 10, 120, 100);
        ULONG_PTR data = 40;
        for (const WCHAR* text : texts) {
            const LRESULT at = SendMessageW(box, add, 0, reinterpret_cast<LPARAM>(text));
            SendMessageW(box, setData, static_cast<WPARAM>(at), static_cast<LPARAM>(data++));
        }
        return box;
    }

    /// "text=data" of every item, and the selection.
    static std::string ItemsOf(HWND box, bool combo) {
        std::string list;
        const LRESULT count = SendMessageW(box, combo ? CB_GETCOUNT : LB_GETCOUNT, 0, 0);
        for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
            WCHAR text[600] = {};
            SendMessageW(box, combo ? CB_GETLBTEXT : LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
            list +=
                Narrow(text) + "=" +
                std::to_string(SendMessageW(box, combo ? CB_GETITEMDATA : LB_GETITEMDATA, i, 0)) +
                " ";
        }
        return list + std::to_string(SendMessageW(box, combo ? CB_GETCURSEL : LB_GETCURSEL, 0, 0));
    }
};

TEST_F(LocalizeTest, TextsOfEveryControl) {
    HWND label = Control(TEXT("Static"), TEXT("Ribbon"), 0, 1);
    HWND button = Control(TEXT("Button"), TEXT("Disable"), BS_AUTOCHECKBOX, 2);
    HWND edit = Control(TEXT("Edit"), TEXT("Text only"), 0, 3);
    HWND unknown = Control(TEXT("Static"), TEXT("Unknown"), 0, 4);
    HWND empty = Control(TEXT("Static"), TEXT(""), 0, 5);
    HWND longText = Control(TEXT("Static"), TEXT("Long"), 0, 6);
    HWND group = Control(TEXT("Button"), TEXT("First"), BS_GROUPBOX, 7);
    HWND nested = CreateWindowExW(0, TEXT("Static"), TEXT("Other"), WS_CHILD, 0, 0, 9, 9, group,
                                  nullptr, nullptr, nullptr);
    EXPECT_EQ(LocalizeDialog(parent_), 0);
    EXPECT_EQ(TextOf(parent_), "Eltern");
    EXPECT_EQ(TextOf(label), "Band");
    EXPECT_EQ(TextOf(button), "Aus");
    EXPECT_EQ(TextOf(edit), "Nur Text");
    EXPECT_EQ(TextOf(unknown), "Unknown");
    EXPECT_EQ(TextOf(empty), "");
    EXPECT_EQ(TextOf(longText), std::string(259, 'l'));
    EXPECT_EQ(TextOf(group), "Erstes");
    EXPECT_EQ(TextOf(nested), "Other");  // direct children only
}

TEST_F(LocalizeTest, ATextThatNobodyTranslatedIsNotSetAgain) {
    HWND edit = Control(TEXT("Edit"), TEXT("Track  "), 0, 3);
    Told();
    EXPECT_EQ(LocalizeDialog(parent_), 0);
    EXPECT_EQ(TextOf(edit), "Track  ");
    EXPECT_EQ(Told(), "");
}

TEST_F(LocalizeTest, ComboBoxKeepsOrderDataAndSelection) {
    HWND box = Items(TEXT("ComboBox"), CBS_DROPDOWNLIST, CB_ADDSTRING, CB_SETITEMDATA,
                     {TEXT("Disable"), TEXT("Unknown"), TEXT("Text only")});
    SendMessageW(box, CB_SETCURSEL, 2, 0);
    LocalizeDialog(parent_);
    EXPECT_EQ(ItemsOf(box, true), "Aus=40 Unknown=41 Nur Text=42 2");
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(LocalizeComboBox(box), 1);
    SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(LocalizeComboBox(box), 0);
    LocalizeDialog(parent_);  // offered to the list box's messages, which it does not know
    EXPECT_EQ(ItemsOf(box, true), "Aus=40 Unknown=41 Nur Text=42 -1");
    SendMessageW(box, CB_RESETCONTENT, 0, 0);
    EXPECT_EQ(LocalizeComboBox(box), 0);
}

TEST_F(LocalizeTest, AnItemLongerThanAnyKeyStays) {
    const WideString longest = Wide(std::string(511, 'x'));
    const WideString tooLong = Wide(std::string(512, 'y'));
    const WideString muchTooLong = Wide(std::string(2000, 'z'));
    HWND box = Items(TEXT("ComboBox"), CBS_DROPDOWNLIST, CB_ADDSTRING, CB_SETITEMDATA,
                     {longest.c_str(), tooLong.c_str(), muchTooLong.c_str(), TEXT("Disable")});
    LocalizeComboBox(box);
    WPARAM item = 0;
    for (const int length : {259, 512, 2000, 3}) {
        EXPECT_EQ(SendMessageW(box, CB_GETLBTEXTLEN, item++, 0), length);
    }
}

TEST_F(LocalizeTest, ListBox) {
    HWND box = Items(TEXT("ListBox"), LBS_HASSTRINGS, LB_ADDSTRING, LB_SETITEMDATA,
                     {TEXT("Disable"), TEXT("Text only")});
    EXPECT_EQ(LocalizeListBox(box), 0);
    SendMessageW(box, LB_SETCURSEL, 1, 0);
    EXPECT_EQ(LocalizeListBox(box), 1);
    EXPECT_EQ(ItemsOf(box, false), "Aus=40 Nur Text=41 1");
}

TEST_F(LocalizeTest, ListViewsFirstColumn) {
    HWND list = Control(WC_LISTVIEWW, TEXT("Ribbon"), LVS_REPORT, 100, 10, 10, 200, 100);
    const auto insertColumn = [&](int index, const WCHAR* text) {
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = 80;
        column.pszText = const_cast<WCHAR*>(text);
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&column));
    };
    const auto textAt = [&](int item, int column) {
        WCHAR text[300] = {};
        LVITEMW query = {};
        query.iSubItem = column;
        query.pszText = text;
        query.cchTextMax = 300;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&query));
        return Narrow(text);
    };
    insertColumn(0, TEXT("A"));
    insertColumn(1, TEXT("B"));
    const WCHAR* rows[] = {TEXT("First"), TEXT("Other")};
    for (int i = 0; i < 2; ++i) {
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = i;
        item.pszText = const_cast<WCHAR*>(rows[i]);
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        item.iSubItem = 1;
        SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(i),
                     reinterpret_cast<LPARAM>(&item));
    }
    LocalizeDialog(parent_);
    EXPECT_EQ(textAt(0, 0), "Erstes");
    EXPECT_EQ(textAt(1, 0), "Anderes");
    EXPECT_EQ(textAt(0, 1), "First");
    EXPECT_EQ(TextOf(list), "Ribbon");
}

TEST_F(LocalizeTest, MenuAndItsSubmenus) {
    HMENU bar = CreateMenu();
    HMENU popup = CreatePopupMenu();
    AppendMenuW(popup, MF_STRING, 11, TEXT("First"));
    AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(popup, MF_STRING, 12, TEXT("Unknown"));
    AppendMenuW(bar, MF_STRING, 10, TEXT("Disable"));
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), TEXT("Other"));
    SetMenu(parent_, bar);
    LocalizeDialog(parent_);
    const auto textOf = [](HMENU menu, UINT position) {
        WCHAR text[100] = {};
        GetMenuStringW(menu, position, text, 100, MF_BYPOSITION);
        return Narrow(text);
    };
    EXPECT_EQ(textOf(bar, 0), "Aus");
    EXPECT_EQ(GetMenuItemID(bar, 0), 10u);
    EXPECT_EQ(textOf(bar, 1), "Anderes");
    ASSERT_EQ(GetSubMenu(bar, 1), popup);
    EXPECT_EQ(textOf(popup, 0), "Erstes");
    EXPECT_EQ(GetMenuItemID(popup, 0), 11u);
    EXPECT_NE(GetMenuState(popup, 1, MF_BYPOSITION) & MF_SEPARATOR, 0u);
    EXPECT_EQ(textOf(popup, 2), "Unknown");
    EXPECT_EQ(LocalizeMenu(nullptr, parent_), 0);
}

}  // namespace
}  // namespace test
