// Combo boxes: items, sizes, what the parent hears of each way to choose, and owner-drawn items.
#include "window_test.h"

namespace {

// The notifications, as the parent notes them.
const std::string kChanged = "command 100 1h";
const std::string kFocused = "command 100 3h";
const std::string kUnfocused = "command 100 4h";
const std::string kDropped = "command 100 7h";
const std::string kClosed = "command 100 8h";
const std::string kAccepted = "command 100 9h";
const std::string kCancelled = "command 100 Ah";

std::string Joined(std::initializer_list<std::string> notes) {
    std::string joined;
    for (const std::string& note : notes) {
        joined += (joined.empty() ? "" : "; ") + note;
    }
    return joined;
}

class ComboBoxTest : public test::WindowTest {
  protected:
    void Make(DWORD style, std::initializer_list<const WCHAR*> items = {}, int height = 100) {
        Control(TEXT("ComboBox"), TEXT("title"), style | WS_VSCROLL, 100, 10, 10, 120, height);
        for (const WCHAR* item : items) {
            SendText(CB_ADDSTRING, 0, item);
        }
        test::HandlePosted();
        test::Told();
    }
    void MakeFruits(DWORD style) {
        Make(style,
             {TEXT("apple"), TEXT("Banana"), TEXT("blueberry"), TEXT("cherry"), TEXT("date")});
    }
    // What the parent hears of a key, and of the list that it drops or shuts.
    std::string Key(int key) {
        test::Press(GetFocus(), key);
        return test::Told();
    }
    std::string Drop() { return Key(VK_F4); }
    std::string ClickField() {
        Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(110, 8));
        Send(WM_LBUTTONUP, 0, MAKELPARAM(110, 8));
        return test::Told();
    }
    LRESULT Selected() { return Send(CB_GETCURSEL); }
    bool IsDropped() { return IsWindowVisible(List()) != 0; }
    int Height() {
        RECT window = {};
        GetWindowRect(control_, &window);
        return window.bottom - window.top;
    }
    HWND List() { return FindWindowExW(nullptr, nullptr, TEXT("ComboLBox"), nullptr); }
    // The mouse in the list, at the middle of an item.
    void Mouse(UINT message, int item) {
        const LRESULT y = SendMessageW(List(), LB_GETITEMHEIGHT, 0, 0) * item + 3;
        SendMessageW(List(), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(5, y));
    }
};

TEST_F(ComboBoxTest, HoldingTheListDoesNotShowAHiddenBox) {
    Make(CBS_DROPDOWNLIST);
    ShowWindow(control_, SW_HIDE);
    Send(WM_SETREDRAW, FALSE);
    SendText(CB_ADDSTRING, 0, TEXT("apple"));
    Send(WM_SETREDRAW, TRUE);
    EXPECT_FALSE(IsWindowVisible(control_));
    EXPECT_EQ(Send(CB_GETCOUNT), 1);
}

TEST_F(ComboBoxTest, KeepsItemsAndTheirData) {
    Make(CBS_DROPDOWNLIST, {TEXT("Apple"), TEXT("banana")});
    EXPECT_EQ(test::TextOf(control_), "");
    EXPECT_EQ(SendText(CB_ADDSTRING, 0, TEXT("pear")), 2);
    EXPECT_EQ(SendText(CB_INSERTSTRING, -1, TEXT("aaa")), 3);
    EXPECT_EQ(SendText(CB_INSERTSTRING, 9, TEXT("aaa")), CB_ERR);
    EXPECT_EQ(SendText(CB_INSERTSTRING, 1, TEXT("zzz")), 1);
    WCHAR text[20] = {};
    EXPECT_EQ(SendText(CB_GETLBTEXT, 2, text), 6);
    EXPECT_EQ(test::Narrow(text), "banana");
    constexpr struct {
        UINT message;
        int index;
        LPARAM lParam;
        LRESULT expected;
    } kSteps[] = {
        {CB_GETCOUNT, 0, 0, 5},
        {CB_GETLBTEXTLEN, 4, 0, 3},
        {CB_GETLBTEXT, 7, 0, CB_ERR},
        {CB_GETLBTEXTLEN, -1, 0, -1},
        {CB_GETITEMDATA, 0, 0, 0},
        {CB_SETITEMDATA, 1, 77, 1},
        {CB_GETITEMDATA, 1, 0, 77},
        {CB_GETITEMDATA, 99, 0, -1},
        {CB_GETITEMDATA, -1, 0, -1},
        {CB_SETITEMDATA, 99, 1, -1},
        {CB_GETCURSEL, 0, 0, -1},
        {CB_SETCURSEL, 2, 0, 2},
        {CB_DELETESTRING, 0, 0, 4},
        {CB_GETCURSEL, 0, 0, 1},
        {CB_GETITEMDATA, 0, 0, 77},
        {CB_DELETESTRING, 3, 0, 3},
        {CB_GETCURSEL, 0, 0, 1},
        {CB_DELETESTRING, 1, 0, 2},
        {CB_GETCURSEL, 0, 0, -1},
        {CB_DELETESTRING, 5, 0, -1},
        {CB_SETCURSEL, 0, 0, 0},
        {CB_SETCURSEL, -1, 0, -1},
        {CB_GETCURSEL, 0, 0, -1},
        {CB_SETCURSEL, 5, 0, -1},
        {WM_GETDLGCODE, 0, 0, DLGC_WANTARROWS | DLGC_WANTCHARS},
    };
    for (size_t i = 0; i < std::size(kSteps); ++i) {
        EXPECT_EQ(Send(kSteps[i].message, static_cast<WPARAM>(kSteps[i].index), kSteps[i].lParam),
                  kSteps[i].expected)
            << i;
    }
    Send(CB_SETCURSEL, 0);
    SendText(CB_INSERTSTRING, 0, TEXT("first"));
    EXPECT_EQ(Selected(), 1);
    Send(CB_RESETCONTENT);
    EXPECT_EQ(Send(CB_GETCOUNT), 0);
    EXPECT_EQ(Selected(), CB_ERR);
    EXPECT_EQ(test::Told(), "");
}

TEST_F(ComboBoxTest, ShowsTheSelectedText) {
    MakeFruits(CBS_DROPDOWNLIST);
    EXPECT_EQ(Send(CB_SETCURSEL, 2), 2);
    EXPECT_EQ(SendText(WM_SETTEXT, 0, TEXT("apple")), CB_ERR);
    EXPECT_EQ(Selected(), 2);
    EXPECT_EQ(test::TextOf(control_), "blueberry");
    EXPECT_EQ(GetWindowTextLengthW(control_), 9);
    WCHAR text[4] = {};
    GetWindowTextW(control_, text, 4);
    EXPECT_EQ(test::Narrow(text), "blu");
    Send(CB_DELETESTRING, 2);
    EXPECT_EQ(test::TextOf(control_), "");
    EXPECT_EQ(test::Told(), "");
}

TEST_F(ComboBoxTest, IsAsHighAsItsFieldWhateverIsAskedFor) {
    LOGFONTW description = {};
    description.lfHeight = -11;
    for (size_t i = 0; TEXT("MS Shell Dlg")[i] != 0; ++i) {
        description.lfFaceName[i] = TEXT("MS Shell Dlg")[i];
    }
    HFONT font = CreateFontIndirectW(&description);
    for (const int height : {10, 24, 200}) {
        Make(CBS_DROPDOWNLIST, {}, height);
        EXPECT_EQ(GetWindowLongW(control_, GWL_STYLE) & WS_VSCROLL, 0);
        EXPECT_EQ(Height(), 24);
        Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        EXPECT_EQ(Height(), 21);
        SetWindowPos(control_, nullptr, 0, 0, 150, 60, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_EQ(Height(), 21);
        DestroyWindow(control_);
    }
    DeleteObject(font);
}

TEST_F(ComboBoxTest, TellsOfKeysWhileTheListIsClosed) {
    MakeFruits(CBS_DROPDOWNLIST);
    SetFocus(control_);
    EXPECT_EQ(test::Told(), kFocused);
    constexpr struct {
        int key;
        int selection;
    } kKeys[] = {{VK_DOWN, 0}, {VK_DOWN, 1},  {VK_UP, 0},  {VK_END, 4},
                 {VK_HOME, 0}, {VK_RIGHT, 1}, {VK_LEFT, 0}};
    for (const auto& row : kKeys) {
        EXPECT_EQ(Key(row.key), Joined({kAccepted, kChanged})) << row.key;
        EXPECT_EQ(Selected(), row.selection) << row.key;
    }
    constexpr struct {
        const char* text;
        int selection;
        bool changes;
    } kTexts[] = {{"b", 1, true},  {"b", 2, true},   {"B", 1, true},
                  {"z", 1, false}, {"\r", 1, false}, {" ", 1, false}};
    for (const auto& row : kTexts) {
        test::Type(control_, row.text);
        EXPECT_EQ(test::Told(), row.changes ? Joined({kAccepted, kChanged}) : "") << row.text;
        EXPECT_EQ(Selected(), row.selection) << row.text;
    }
    for (const int key : {VK_RETURN, VK_ESCAPE, VK_SPACE, VK_DELETE, VK_TAB}) {
        EXPECT_EQ(Key(key), "") << key;
    }
    SetFocus(parent_);
    EXPECT_EQ(test::Told(), Joined({kCancelled, kUnfocused}));
}

TEST_F(ComboBoxTest, DropsItsListForKeysAndTellsHowItCloses) {
    MakeFruits(CBS_DROPDOWNLIST);
    SetFocus(control_);
    Send(CB_SETCURSEL, 0);
    test::Told();
    EXPECT_EQ(Drop(), kDropped);
    EXPECT_TRUE(IsDropped());
    EXPECT_EQ(GetFocus(), control_);
    EXPECT_EQ(Key(VK_DOWN), kChanged);
    EXPECT_EQ(test::TextOf(control_), "Banana");
    const MSG escape = {control_, WM_KEYDOWN, VK_ESCAPE, 1, 0, {0, 0}};
    EXPECT_EQ(Send(WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&escape)),
              DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTMESSAGE);
    EXPECT_EQ(Key(VK_RETURN), Joined({kAccepted, kClosed}));
    EXPECT_EQ(Selected(), 1);
    EXPECT_FALSE(IsDropped());
    EXPECT_EQ(Key(VK_F4), kDropped);
    EXPECT_EQ(Key(VK_ESCAPE), Joined({kCancelled, kClosed}));
    Send(WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    EXPECT_EQ(test::Told(), kDropped);
    Send(WM_SYSKEYDOWN, VK_UP, 0x20000001);
    EXPECT_EQ(test::Told(), Joined({kCancelled, kClosed}));
    Drop();
    EXPECT_EQ(Key(VK_F4), Joined({kCancelled, kClosed}));
    Drop();
    SetFocus(parent_);
    EXPECT_EQ(test::Told(), Joined({kCancelled, kClosed, kUnfocused}));
    EXPECT_EQ(Selected(), 1);
    SetFocus(control_);
    Drop();
    EnableWindow(control_, FALSE);
    EXPECT_EQ(test::Told(), Joined({kCancelled, kClosed, kUnfocused}));
}

TEST_F(ComboBoxTest, LetsTheMouseChooseFromTheDroppedList) {
    MakeFruits(CBS_DROPDOWNLIST);
    Send(CB_SETCURSEL, 0);
    EXPECT_EQ(ClickField(), Joined({kFocused, kDropped}));
    EXPECT_EQ(GetCapture(), List());
    RECT field = {};
    RECT list = {};
    GetWindowRect(control_, &field);
    GetWindowRect(List(), &list);
    EXPECT_EQ(list.left, field.left);
    EXPECT_EQ(list.top, field.bottom);
    EXPECT_EQ(list.right, field.right);
    Mouse(WM_MOUSEMOVE, 1);
    Mouse(WM_LBUTTONDOWN, 2);
    EXPECT_EQ(test::Told(), "");
    Mouse(WM_LBUTTONUP, 2);
    EXPECT_EQ(test::Told(), Joined({kAccepted, kClosed, kChanged}));
    EXPECT_EQ(test::TextOf(control_), "blueberry");
    EXPECT_EQ(GetCapture(), nullptr);
    ClickField();
    EXPECT_EQ(ClickField(), Joined({kAccepted, kClosed}));
    ClickField();
    SendMessageW(List(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 900));
    EXPECT_EQ(test::Told(), Joined({kCancelled, kClosed}));
    EXPECT_FALSE(IsDropped());
}

std::string itemNotes;
WNDPROC parentProcedure;

LRESULT CALLBACK DrawingParent(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MEASUREITEM) {
        auto* measure = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
        itemNotes += "measure " + std::to_string(measure->CtlType) + " " +
                     std::to_string(static_cast<int>(measure->itemID)) + "; ";
        measure->itemHeight = 20;
        return TRUE;
    }
    if (message == WM_DELETEITEM) {
        const auto* deleted = reinterpret_cast<const DELETEITEMSTRUCT*>(lParam);
        itemNotes += "delete " + std::to_string(deleted->CtlType) + " " +
                     std::to_string(deleted->itemData) + "; ";
        return TRUE;
    }
    if (message == WM_DRAWITEM) {
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        EXPECT_EQ(draw->CtlType, UINT{ODT_COMBOBOX});
        itemNotes += std::to_string(static_cast<LONG_PTR>(draw->itemData)) + "; ";
    }
    return CallWindowProcW(parentProcedure, window, message, wParam, lParam);
}

// What was told, each note once however often something was painted.
std::string ToldOnce() {
    std::string result;
    std::string last;
    std::string told = test::Told() + "; ";
    for (size_t end; (end = told.find("; ")) != std::string::npos; told.erase(0, end + 2)) {
        const std::string note = told.substr(0, end);
        if (note != last) {
            result += (result.empty() ? "" : "; ") + note;
            last = note;
        }
    }
    return result;
}

TEST_F(ComboBoxTest, HasItsParentDrawItems) {
    parentProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DrawingParent)));
    itemNotes.clear();
    Make(CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, {TEXT("one"), TEXT("two")});
    EXPECT_EQ(itemNotes.substr(0, 27), "measure 3 -1; measure 3 0; ");
    EXPECT_EQ(SendMessageW(List(), LB_GETITEMHEIGHT, 0, 0), 20);
    Send(CB_SETITEMDATA, 0, 5);
    Send(CB_SETITEMDATA, 1, 6);
    Send(CB_SETCURSEL, 1);
    itemNotes.clear();
    test::Told();
    InvalidateRect(control_, nullptr, TRUE);
    test::HandlePosted();
    EXPECT_EQ(ToldOnce(), "draw 100 1 1h 1000h");
    EXPECT_EQ(itemNotes, "6; ");
    SetFocus(control_);
    test::HandlePosted();
    EXPECT_EQ(ToldOnce(), kFocused + "; draw 100 1 1h 1011h");
    Drop();
    test::HandlePosted();
    test::Told();
    InvalidateRect(List(), nullptr, TRUE);
    test::HandlePosted();
    EXPECT_EQ(ToldOnce(), "draw 100 0 1h 0h; draw 100 1 1h 1h");
    Key(VK_F4);
    EnableWindow(control_, FALSE);
    test::Told();
    InvalidateRect(control_, nullptr, TRUE);
    test::HandlePosted();
    EXPECT_EQ(ToldOnce(), "draw 100 1 1h 1004h");
    itemNotes.clear();
    Send(CB_DELETESTRING, 0);
    Send(CB_RESETCONTENT);
    EXPECT_EQ(itemNotes, "delete 3 5; delete 3 6; ");
    DestroyWindow(control_);
    test::Told();
}

}  // namespace
