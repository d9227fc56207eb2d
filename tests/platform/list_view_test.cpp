// List views: columns, items and their texts, the selection.
#include "window_test.h"

#include <commctrl.h>

namespace {

class ListViewTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
    }

    // A list with two columns; every item has the texts "x" and "x2".
    void Make(DWORD style, std::initializer_list<const char*> items) {
        list_ = Control(WC_LISTVIEWW, TEXT(""), style, 100, 10, 10, 200, 100);
        for (int i = 0; i < 2; ++i) {
            LVCOLUMNW column = {};
            column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
            column.pszText = const_cast<WCHAR*>(TEXT("Head"));
            column.cx = 80;
            column.iSubItem = i;
            EXPECT_EQ(Send(LVM_INSERTCOLUMNW, 9, reinterpret_cast<LPARAM>(&column)), i);
        }
        for (const char* item : items) {
            const LRESULT at = Insert(99, item);
            SetText(at, 1, item + std::string("2"));
        }
        test::Told();
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(list_, message, wParam, lParam);
    }
    LRESULT Insert(int at, const char* title) {
        test::WideString text = test::Wide(title);
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = at;
        item.pszText = text.data();
        item.lParam = title[0];
        return Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    LRESULT SetText(LRESULT index, int column, const std::string& title) {
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
    LRESULT SetState(int index, UINT state, UINT mask) {
        LVITEMW item = {};
        item.state = state;
        item.stateMask = mask;
        return Send(LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
    // The items' states, one digit each.
    std::string States() {
        std::string states;
        for (int i = 0; i < Send(LVM_GETITEMCOUNT); ++i) {
            states += std::to_string(
                Send(LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_FOCUSED | LVIS_SELECTED));
        }
        return states;
    }

    HWND list_ = nullptr;
};

TEST_F(ListViewTest, ItemsKeepTheirTextsAndParameter) {
    Make(LVS_REPORT, {"b", "c"});
    EXPECT_EQ(Insert(0, "a"), 0);
    EXPECT_EQ(test::Told(), "notify 100 -102");
    EXPECT_EQ(Insert(-1, "none"), -1);
    EXPECT_EQ(Send(LVM_GETITEMCOUNT), 3);
    EXPECT_EQ(Text(1, 0) + Text(2, 0) + Text(2, 1), "bcc2");
    EXPECT_TRUE(SetText(1, 0, "changed"));
    EXPECT_FALSE(SetText(3, 0, "none"));
    EXPECT_EQ(Text(1, 0) + Text(1, 1), "changedb2");
    EXPECT_EQ(Text(1, 0, 4), "cha") << "cut to the room there is";
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = 2;
    EXPECT_TRUE(Send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(item.lParam, 'c');
    item.lParam = 42;
    EXPECT_TRUE(Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(Text(2, 0), "c");
    item.iItem = 3;
    EXPECT_FALSE(Send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_FALSE(Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    test::Told();
    EXPECT_TRUE(Send(LVM_DELETEITEM, 0));
    EXPECT_FALSE(Send(LVM_DELETEITEM, 2));
    EXPECT_NE(test::Told().find("notify 100 -103"), std::string::npos);
    EXPECT_TRUE(Send(LVM_DELETEALLITEMS));
    EXPECT_EQ(Send(LVM_GETITEMCOUNT), 0);
    Insert(0, "last");
    test::Told();
    DestroyWindow(list_);
    EXPECT_EQ(test::Told(), "notify 100 -104; notify 100 -103") << "for what the program keeps";
}

TEST_F(ListViewTest, SortedItemsFindTheirPlace) {
    Make(LVS_REPORT | LVS_SORTASCENDING, {"m", "c"});
    EXPECT_EQ(Insert(0, "x"), 2);
    EXPECT_EQ(Insert(99, "F"), 1);
    EXPECT_EQ(Text(0, 0) + Text(1, 0) + Text(2, 0) + Text(3, 0), "cFmx");
}

TEST_F(ListViewTest, TheSelectionIsOneOrSeveralTheFocusAlwaysOne) {
    constexpr UINT kBoth = LVIS_FOCUSED | LVIS_SELECTED;
    const struct {
        DWORD style;
        int index;
        UINT state;
        LRESULT result;
        const char* states;
    } steps[] = {
        {0, 1, kBoth, TRUE, "030"},
        {0, 2, kBoth, TRUE, "023"},
        {0, 9, kBoth, FALSE, "023"},
        {0, -1, LVIS_SELECTED, TRUE, "223"},
        {LVS_SINGLESEL, 1, kBoth, TRUE, "030"},
        {LVS_SINGLESEL, 2, kBoth, TRUE, "003"},
        {LVS_SINGLESEL, -1, LVIS_SELECTED, FALSE, "003"},
    };
    DWORD made = ~0u;
    for (const auto& step : steps) {
        if (step.style != made) {
            made = step.style;
            Make(LVS_REPORT | made, {"a", "b", "c"});
        }
        EXPECT_EQ(SetState(step.index, step.state, step.state), step.result);
        EXPECT_EQ(States(), step.states);
    }
    EXPECT_EQ(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 2);
    EXPECT_EQ(Send(LVM_GETNEXTITEM, 2, LVNI_SELECTED), -1);
    EXPECT_EQ(Send(LVM_GETNEXTITEM, 0, LVNI_ALL), 1);
    EXPECT_TRUE(SetState(-1, 0, LVIS_SELECTED));
    EXPECT_EQ(States(), "001");
}

TEST_F(ListViewTest, KeysMoveTheSelectionAndTellEachChange) {
    Make(LVS_REPORT | LVS_SINGLESEL, {"a", "b", "c"});
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    SetState(0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    SetFocus(list_);
    const struct {
        int key;
        const char* states;
    } keys[] = {
        {VK_DOWN, "030"}, {VK_END, "003"}, {VK_DOWN, "003"}, {VK_UP, "030"}, {VK_HOME, "300"}};
    std::string before = "300";
    for (const auto& [key, states] : keys) {
        test::Told();
        test::Press(list_, key);
        const std::string told = test::Told();
        EXPECT_EQ(told.substr(0, 15), "notify 100 -155");
        EXPECT_EQ(told.find("notify 100 -101") != std::string::npos, states != before);
        EXPECT_EQ(States(), states);
        before = states;
    }
    // A click on the second row.
    PostMessageW(list_, WM_LBUTTONUP, 0, MAKELPARAM(20, 40));
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 40));
    test::HandlePosted();
    EXPECT_NE(test::Told().find("notify 100 -2"), std::string::npos);
    EXPECT_NE(States(), "300");
}

}  // namespace
