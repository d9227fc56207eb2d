// Edit controls of one line: what typing, keys and the program make of text and selection, and what
// the parent hears of it.
#include "window_test.h"

namespace {

// The notifications, as the parent notes them.
const std::string kFocused = "command 100 100h";
const std::string kUnfocused = "command 100 200h";
const std::string kChanged = "command 100 400h; command 100 300h";
const std::string kFull = "command 100 501h";

class EditTest : public test::WindowTest {
  protected:
    void Make(const WCHAR* text, DWORD style = ES_AUTOHSCROLL) {
        Control(TEXT("Edit"), text, style);
        SetFocus(control_);
        test::Told();
    }
    // "text start-end"
    std::string State() {
        DWORD start = 0;
        DWORD end = 0;
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return test::TextOf(control_) + " " + std::to_string(start) + "-" + std::to_string(end);
    }
};

TEST_F(EditTest, KeysAndCharacters) {
    const struct {
        int start, end;  // the selection before
        int key;         // or, with `text`, 0
        const char* text;
        const char* state;
        bool changes;
    } steps[] = {
        {3, 3, VK_LEFT, "", "abcde 2-2", false},  {0, 0, VK_LEFT, "", "abcde 0-0", false},
        {3, 3, VK_RIGHT, "", "abcde 4-4", false}, {5, 5, VK_RIGHT, "", "abcde 5-5", false},
        {3, 3, VK_HOME, "", "abcde 0-0", false},  {3, 3, VK_END, "", "abcde 5-5", false},
        {1, 4, VK_LEFT, "", "abcde 3-3", false},  {1, 4, VK_RIGHT, "", "abcde 5-5", false},
        {3, 3, VK_UP, "", "abcde 2-2", false},    {3, 3, VK_DOWN, "", "abcde 4-4", false},
        {3, 3, VK_DELETE, "", "abce 3-3", true},  {5, 5, VK_DELETE, "", "abcde 5-5", false},
        {1, 4, VK_DELETE, "", "ae 1-1", true},    {3, 3, VK_TAB, "", "abcde 3-3", false},
        {3, 3, 0, "\b", "abde 2-2", true},        {0, 0, 0, "\b", "abcde 0-0", false},
        {1, 4, 0, "\b", "ae 1-1", true},          {1, 4, 0, "X", "aXe 2-2", true},
        {2, 2, 0, "+", "ab+cde 3-3", true},       {2, 2, 0, "\r", "abcde 2-2", false},
        {2, 2, 0, "\x1b", "abcde 2-2", false},    {0, -1, 0, "7", "7 1-1", true},
    };
    Make(TEXT(""));
    for (size_t i = 0; i < std::size(steps); ++i) {
        const auto& step = steps[i];
        SetWindowTextW(control_, TEXT("abcde"));
        Send(EM_SETSEL, static_cast<WPARAM>(step.start), step.end);
        EXPECT_EQ(test::Told(), kChanged);
        if (step.key != 0) {
            test::Press(control_, step.key);
        }
        test::Type(control_, step.text);
        EXPECT_EQ(State(), step.state) << i;
        EXPECT_EQ(test::Told(), step.changes ? kChanged : "") << i;
    }
}

TEST_F(EditTest, TheLimitIsForTheUserAlone) {
    Make(TEXT("abcdef"));
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 30000);
    Send(EM_LIMITTEXT, 4);
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 4);
    EXPECT_EQ(State(), "abcdef 0-0");
    test::Type(control_, "x");
    EXPECT_EQ(State(), "abcdef 0-0");
    EXPECT_EQ(test::Told().substr(0, kFull.size()), kFull);
    Send(EM_SETSEL, 1, 5);
    test::Type(control_, "xyz");
    EXPECT_EQ(State(), "axyf 3-3");
    const std::string told = kChanged + "; " + kChanged + "; " + kFull;
    EXPECT_EQ(test::Told().substr(0, told.size()), told);
    SetWindowTextW(control_, TEXT("longer still"));
    EXPECT_EQ(State(), "longer still 0-0");
    Send(EM_LIMITTEXT, 0);
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 0x7FFFFFFE);
}

TEST_F(EditTest, TheProgramSelects) {
    const struct {
        int start, end;
        const char* state;
    } steps[] = {{0, -1, "abcde 0-5"}, {1, 3, "abcde 1-3"},   {-1, 0, "abcde 3-3"},
                 {2, 99, "abcde 2-5"}, {99, 99, "abcde 5-5"}, {3, 1, "abcde 1-3"}};
    Make(TEXT("abcde"));
    for (const auto& [start, end, state] : steps) {
        Send(EM_SETSEL, static_cast<WPARAM>(start), end);
        EXPECT_EQ(State(), state);
    }
    EXPECT_EQ(Send(EM_SETSEL, 1, 4), 1);
    EXPECT_EQ(Send(EM_GETSEL), MAKELRESULT(1, 4));
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS);
    EXPECT_EQ(test::Told(), "");
}

TEST_F(EditTest, FocusAndReadOnly) {
    Make(TEXT("abcde"), ES_AUTOHSCROLL | ES_READONLY);
    test::Type(control_, "x\b");
    test::Press(control_, VK_DELETE);
    EXPECT_EQ(State(), "abcde 0-0");
    EXPECT_EQ(test::Told(), "");
    SetFocus(parent_);
    EXPECT_EQ(test::Told(), kUnfocused);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 5));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(100, 5));
    EXPECT_EQ(test::Told(), kFocused);
    EXPECT_EQ(State(), "abcde 5-5");
}

}  // namespace
