// Dialogs at the keyboard: focus, default buttons, Tab, arrows and letters.
#include "dialog_test.h"

namespace test {
namespace {

using DialogKeysTest = DialogTest;

// ---- Focus ------------------------------------------------------------------------------------

TEST_F(DialogKeysTest, TheFirstTabStopGetsTheFocusUnlessTheProcedureGivesItAway) {
    const struct {
        const char* name;
        Answer answer;
        const char* focus;
    } kCases[] = {
        {"agrees", [](HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; },
         "101"},
        {"agrees, first disabled",
         [](HWND dialog, UINT message, WPARAM, LPARAM) {
             if (message == WM_INITDIALOG) {
                 EnableWindow(GetDlgItem(dialog, 101), FALSE);
             }
             return message == WM_INITDIALOG;
         },
         "102"},
        {"sets it",
         [](HWND dialog, UINT message, WPARAM, LPARAM) {
             if (message == WM_INITDIALOG) {
                 SetFocus(GetDlgItem(dialog, 103));
             }
             return FALSE;
         },
         "103"},
        {"leaves it", [](HWND, UINT, WPARAM, LPARAM) { return FALSE; }, "101"},
    };
    for (const auto& [name, procedure, focus] : kCases) {
        answer = procedure;
        dialog_ = Make(IDD_OWNED);
        SetDlgItemTextW(dialog_, 101, TEXT("text"));
        EXPECT_EQ(GetActiveWindow(), dialog_) << name;
        EXPECT_EQ(Id(GetFocus()), focus) << name;
        DestroyWindow(dialog_);
    }
}

TEST_F(DialogKeysTest, TheTextOfAnEditControlIsSelectedWhenTheManagerMovesTheFocusThere) {
    answer = [](HWND dialog, UINT message, WPARAM, LPARAM) {
        if (message == WM_INITDIALOG) {
            SetDlgItemTextW(dialog, 101, TEXT("first"));
            SetDlgItemTextW(dialog, 102, TEXT("second"));
        }
        return message == WM_INITDIALOG;
    };
    dialog_ = Make(IDD_OWNED);
    const auto selection = [&](int id) {
        return SendDlgItemMessageW(dialog_, id, EM_GETSEL, 0, 0);
    };
    EXPECT_EQ(selection(101), MAKELONG(0, 5));
    SetFocus(Item(102));
    EXPECT_EQ(selection(102), 0);
    SendMessageW(dialog_, WM_NEXTDLGCTL, TRUE, FALSE);
    SendMessageW(dialog_, WM_NEXTDLGCTL, FALSE, FALSE);
    EXPECT_EQ(Id(GetFocus()), "102");
    EXPECT_EQ(selection(102), MAKELONG(0, 6));
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(103)), TRUE);
    EXPECT_EQ(Id(GetFocus()), "103");
}

TEST_F(DialogKeysTest, TheFocusComesBackWithTheActivation) {
    answer = [](HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; };
    dialog_ = Make(IDD_OWNED);
    SetFocus(Item(102));
    SetActiveWindow(parent_);
    EXPECT_EQ(GetFocus(), parent_);
    SetActiveWindow(dialog_);
    EXPECT_EQ(Id(GetFocus()), "102");
    SetFocus(dialog_);
    EXPECT_EQ(Id(GetFocus()), "101") << "once only";
    SetFocus(Item(103));
    SetActiveWindow(parent_);
    EnableWindow(Item(103), FALSE);
    SetActiveWindow(dialog_);
    EXPECT_EQ(Id(GetFocus()), "101") << "what had it cannot take it";
    SetFocus(dialog_);
    EXPECT_EQ(Id(GetFocus()), "101");
}

TEST_F(DialogKeysTest, AHiddenPageGivesTheFocusBackOnce) {
    Open(IDD_SHEET);
    const HWND page = Make(IDD_PAGE, dialog_);
    ShowWindow(page, SW_SHOW);
    SetFocus(GetDlgItem(page, 202));
    ShowWindow(page, SW_HIDE);
    ShowWindow(page, SW_SHOW);
    SetFocus(Item(101));
    SetFocus(GetDlgItem(page, 201));
    SetFocus(page);
    EXPECT_EQ(Id(GetFocus()), "202") << "the program has moved it meanwhile";
    SetFocus(page);
    EXPECT_EQ(Id(GetFocus()), "201");
}

// ---- Default buttons --------------------------------------------------------------------------

// The buttons that look like the one that Return presses.
std::string Emphasized(HWND dialog) {
    std::string ids;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0) {
            ids += (ids.empty() ? "" : ",") + Id(child);
        }
    }
    return ids;
}

TEST_F(DialogKeysTest, TheDefaultButtonFollowsTheFocusOverPushButtons) {
    Open(IDD_OWNED);
    const auto defaultId = [&] { return SendMessageW(dialog_, DM_GETDEFID, 0, 0); };
    EXPECT_EQ(defaultId(), MAKELRESULT(IDOK, DC_HASDEFID));
    EXPECT_EQ(Emphasized(dialog_), "1");
    const std::pair<const char*, const char*> kTabs[] = {
        {"102", "1"}, {"1", "1"}, {"2", "2"}, {"103", "103"}, {"101", "1"},
    };
    for (const auto& [focus, emphasized] : kTabs) {
        Key(WM_KEYDOWN, VK_TAB);
        EXPECT_EQ(Id(GetFocus()), focus);
        EXPECT_EQ(Emphasized(dialog_), emphasized) << focus;
        EXPECT_EQ(defaultId(), MAKELRESULT(IDOK, DC_HASDEFID));
    }
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(103)), TRUE);
    EXPECT_EQ(Emphasized(dialog_), "103");
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    EXPECT_EQ(Emphasized(dialog_), "1");
    EXPECT_EQ(SendMessageW(dialog_, DM_SETDEFID, 103, 0), TRUE);
    EXPECT_EQ(Emphasized(dialog_), "103");
    EXPECT_EQ(defaultId(), MAKELRESULT(103, DC_HASDEFID));
    Logged();
    Key(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(Logged(), "103");
    SendMessageW(dialog_, DM_SETDEFID, 999, 0);
    EXPECT_EQ(defaultId(), MAKELRESULT(999, DC_HASDEFID));
    EXPECT_EQ(Emphasized(dialog_), "");
}

// ---- Keys -------------------------------------------------------------------------------------

TEST_F(DialogKeysTest, ReturnPressesTheDefaultButtonAndEscapeCancels) {
    Open(IDD_OWNED);
    Logged();
    const struct {
        int focus;
        WPARAM key;
        const char* told;
    } kCases[] = {
        {101, VK_RETURN, "1"}, {IDCANCEL, VK_RETURN, "2"}, {103, VK_RETURN, "103"},
        {101, VK_ESCAPE, "2"}, {103, VK_ESCAPE, "2"},
    };
    for (const auto& [focus, key, told] : kCases) {
        SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(focus)), TRUE);
        Logged();
        EXPECT_TRUE(Key(WM_KEYDOWN, key));
        EXPECT_EQ(Logged(), told) << focus << " " << key;
    }
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    EnableWindow(Item(IDOK), FALSE);
    Logged();
    Key(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(Logged(), "");
    MSG elsewhere = {parent_, WM_KEYDOWN, VK_TAB, 1, 0, {0, 0}};
    EXPECT_FALSE(IsDialogMessageW(dialog_, &elsewhere));
}

TEST_F(DialogKeysTest, WithoutADefaultButtonReturnMeansOk) {
    Open(IDD_UNKNOWN_CLASS_ALLOWED);
    EXPECT_EQ(SendMessageW(dialog_, DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
    EXPECT_TRUE(Key(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(Logged(), "1");
}

std::string Walk(int count, const std::function<HWND()>& step) {
    std::string walked;
    for (int i = 0; i < count; ++i) {
        walked += (walked.empty() ? "" : " ") + Id(step());
    }
    return walked;
}

TEST_F(DialogKeysTest, TabGoesFromStopToStop) {
    Open(IDD_GROUPS);
    CheckRadioButton(dialog_, 105, 108, 105);
    HWND at = nullptr;
    EXPECT_EQ(Walk(7, [&] { return at = GetNextDlgTabItem(dialog_, at, FALSE); }),
              "101 105 109 110 1 2 101");
    EXPECT_EQ(Walk(7, [&] { return at = GetNextDlgTabItem(dialog_, at, TRUE); }),
              "2 1 110 109 105 101 2");
    EXPECT_EQ(Id(GetNextDlgTabItem(dialog_, Item(107), FALSE)), "109");
    EXPECT_EQ(Id(GetNextDlgTabItem(dialog_, Item(107), TRUE)), "105");
    EXPECT_EQ(Walk(7,
                   [&] {
                       HWND before = GetFocus();
                       Key(WM_KEYDOWN, VK_TAB);
                       return before;
                   }),
              "101 105 109 110 1 2 101");
    EXPECT_EQ(Logged(), "101:512 101:256 101:512");
}

TEST_F(DialogKeysTest, ArrowsStayInTheGroup) {
    Open(IDD_GROUPS);
    const struct {
        int from;
        const char* next;
        const char* previous;
    } kCases[] = {
        {101, "100", "100"}, {102, "100", "101"}, {104, "104", "104"},
        {105, "106", "108"}, {106, "108", "105"}, {107, "108", "106"},
        {108, "105", "106"}, {109, "109", "109"}, {110, "1", "2"},
    };
    for (const auto& [from, next, previous] : kCases) {
        EXPECT_EQ(Id(GetNextDlgGroupItem(dialog_, Item(from), FALSE)), next) << from;
        EXPECT_EQ(Id(GetNextDlgGroupItem(dialog_, Item(from), TRUE)), previous) << from;
    }
    EXPECT_EQ(Id(GetNextDlgGroupItem(dialog_, nullptr, FALSE)), "100");
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(110)), TRUE);
    Logged();
    const std::pair<WPARAM, const char*> kSteps[] = {
        {VK_DOWN, "1"}, {VK_RIGHT, "2"}, {VK_DOWN, "110"}, {VK_UP, "2"}, {VK_LEFT, "1"}};
    for (const auto& [key, reached] : kSteps) {
        Key(WM_KEYDOWN, key);
        EXPECT_EQ(Id(GetFocus()), reached);
        EXPECT_EQ(Emphasized(dialog_), reached);
    }
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    Key(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(Id(GetFocus()), "101") << "an edit control wants the arrows itself";
}

TEST_F(DialogKeysTest, AnArrowChecksTheRadioButtonItReaches) {
    Open(IDD_GROUPS);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(105)), TRUE);
    CheckRadioButton(dialog_, 105, 108, 105);
    Logged();
    const struct {
        WPARAM key;
        int reached;
    } kCases[] = {{VK_DOWN, 106}, {VK_RIGHT, 108}, {VK_DOWN, 105}, {VK_UP, 108}, {VK_LEFT, 106}};
    for (const auto& [key, reached] : kCases) {
        Key(WM_KEYDOWN, key);
        EXPECT_EQ(Id(GetFocus()), std::to_string(reached));
        EXPECT_EQ(Logged(), std::to_string(reached));
        for (int id = 105; id <= 108; ++id) {
            EXPECT_EQ(IsDlgButtonChecked(dialog_, id), UINT{id == reached}) << id;
        }
    }
}

TEST_F(DialogKeysTest, LettersReachTheControlThatBearsThem) {
    Open(IDD_GROUPS);
    const struct {
        int focus;
        UINT message;
        char letter;
        const char* reached;
        const char* told;
    } kCases[] = {
        {110, WM_SYSCHAR, 'n', "101", "101:256"},
        {101, WM_SYSCHAR, 'c', "109", "101:512 109"},
        {101, WM_SYSCHAR, 'C', "109", "101:512 109"},
        {101, WM_SYSCHAR, 'a', "110", "101:512 110"},
        {101, WM_SYSCHAR, 'k', "105", "101:512"},
        {101, WM_SYSCHAR, 's', "106", "101:512 106"},
        {101, WM_SYSCHAR, 'h', "101", ""},
        {101, WM_SYSCHAR, 'd', "101", ""},
        {101, WM_CHAR, 'a', "101", "101:1024 101:768"},
        {109, WM_CHAR, 'a', "110", "110"},
        {109, WM_CHAR, 'n', "101", "101:256"},
        {109, WM_CHAR, 'z', "109", ""},
    };
    CheckRadioButton(dialog_, 105, 108, 105);
    for (const auto& [focus, message, letter, reached, told] : kCases) {
        SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(focus)), TRUE);
        Logged();
        EXPECT_TRUE(Key(message, static_cast<WPARAM>(letter)));
        EXPECT_EQ(Id(GetFocus()), reached) << focus << letter;
        EXPECT_EQ(Logged(), told) << focus << letter;
    }
}

TEST_F(DialogKeysTest, LettersInFieldsAndDoubledMarksMeanNothing) {
    Open(IDD_LABELS);
    SetDlgItemTextW(dialog_, 101, TEXT("&Qtext"));
    const std::pair<char, const char*> kCases[] = {
        {'s', "102"}, {'n', "103"}, {'a', "103"}, {'q', "108"}};
    for (const auto& [letter, reached] : kCases) {
        SendMessageW(dialog_, WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(Item(letter == 's' ? 101 : 103)), TRUE);
        Key(WM_SYSCHAR, static_cast<WPARAM>(letter));
        EXPECT_EQ(Id(GetFocus()), reached) << letter;
    }
}

// ---- A dialog in a dialog ---------------------------------------------------------------------

TEST_F(DialogKeysTest, APageInADialogIsPartOfItsTabOrder) {
    Open(IDD_SHEET);
    const HWND page = Make(IDD_PAGE, dialog_);
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(Id(GetFocus()), "101") << "a page takes no focus";
    EXPECT_EQ(Logged(), "");
    SetWindowPos(page, Item(101), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    const auto tab = [&] {
        Key(WM_KEYDOWN, VK_TAB);
        return GetFocus();
    };
    EXPECT_EQ(Walk(5, tab), "201 202 1 101 201");
    EnableWindow(page, FALSE);
    EXPECT_EQ(Id(GetNextDlgTabItem(dialog_, Item(101), FALSE)), "1");
    EnableWindow(page, TRUE);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    Logged();
    Key(WM_SYSCHAR, 'p');
    EXPECT_EQ(Id(GetFocus()), "201");
    Key(WM_SYSCHAR, 'i');
    EXPECT_EQ(Id(GetFocus()), "202");
    EXPECT_EQ(Logged(), "201:256 201:512 202");
    SetFocus(GetDlgItem(page, 201));
    Key(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(Logged(), "201:256 1");
    Key(WM_SYSCHAR, 'b');
    EXPECT_EQ(Id(GetFocus()), "101");
    EXPECT_EQ(Logged(), "201:512 101");
    EXPECT_EQ(GetDlgItem(dialog_, 201), nullptr) << "only a dialog's own controls";
}

}  // namespace
}  // namespace test
