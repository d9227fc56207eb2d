// List views: columns, items and their texts.
#include "window_test.h"

#include <commctrl.h>

namespace {

class ListViewTest : public test::WindowTest {
  protected:
    // With two columns.
    void Make() {
        Control(WC_LISTVIEWW, TEXT(""), LVS_REPORT, 100, 10, 10, 200, 100);
        for (int i = 0; i < 2; ++i) {
            LVCOLUMNW column = {};
            column.mask = LVCF_TEXT | LVCF_WIDTH;
            column.pszText = const_cast<WCHAR*>(TEXT("Head"));
            column.cx = 80;
            EXPECT_EQ(Send(LVM_INSERTCOLUMNW, 9, reinterpret_cast<LPARAM>(&column)), i);
        }
    }
    LRESULT Insert(int at, const char* title) {
        test::WideString text = test::Wide(title);
        LVITEMW item = {};
        item.mask = LVIF_TEXT;
        item.iItem = at;
        item.pszText = text.data();
        return Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    LRESULT SetText(int index, int column, const char* title) {
        test::WideString text = test::Wide(title);
        LVITEMW item = {};
        item.iSubItem = column;
        item.pszText = text.data();
        return Send(LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
    std::string Text(int index, int column, int room = 40) {
        WCHAR text[40] = {};
        LVITEMW item = {};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = room;
        const LRESULT length =
            Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ(test::Narrow(text).size(), static_cast<size_t>(length));
        return test::Narrow(text);
    }
};

TEST_F(ListViewTest, ItemsKeepTheirTexts) {
    Make();
    EXPECT_EQ(Insert(0, "c"), 0);
    EXPECT_EQ(test::Told(), "notify 100 -102");
    EXPECT_EQ(Insert(0, "b"), 0);
    EXPECT_EQ(Insert(99, "d"), 2);
    EXPECT_EQ(Send(LVM_GETITEMCOUNT), 3);
    test::Told();
    EXPECT_TRUE(SetText(1, 1, "c2"));
    EXPECT_EQ(test::Told(), "");
    EXPECT_TRUE(SetText(1, 0, "changed"));
    EXPECT_EQ(test::Told(), "notify 100 -100; notify 100 -101");
    EXPECT_FALSE(SetText(3, 0, "none"));
    EXPECT_FALSE(SetText(1, 2, "none"));
    EXPECT_EQ(Text(0, 0) + " " + Text(1, 0) + " " + Text(1, 1) + " " + Text(2, 0),
              "b changed c2 d");
    EXPECT_EQ(Text(1, 0, 4), "cha") << "cut to the room there is";
    EXPECT_EQ(Text(2, 1) + Text(3, 0), "");
}

}  // namespace
