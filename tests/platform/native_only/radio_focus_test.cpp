// Radio buttons and the focus. Wine lets an unchecked one take the focus without a word.
#include "native_only.h"
#include "window_test.h"

namespace {

using RadioFocus = test::WindowTest;

TEST_F(RadioFocus, AnUncheckedOneIsClickedByIt) {
    const struct {
        DWORD kind;
        WPARAM check;
        bool quiet;
        const char* told;
    } kCases[] = {
        {BS_RADIOBUTTON, BST_UNCHECKED, false, "command 100 0h"},
        {BS_AUTORADIOBUTTON, BST_UNCHECKED, false, "command 100 0h"},
        {BS_RADIOBUTTON, BST_CHECKED, false, ""},
        {BS_AUTORADIOBUTTON, BST_CHECKED, false, ""},
        {BS_AUTORADIOBUTTON, BST_UNCHECKED, true, ""},
        {BS_AUTOCHECKBOX, BST_UNCHECKED, false, ""},
        {BS_PUSHBUTTON, BST_UNCHECKED, false, ""},
    };
    for (const auto& [kind, check, quiet, told] : kCases) {
        SetFocus(parent_);
        Control(TEXT("Button"), TEXT("Text"), kind | WS_TABSTOP);
        Send(BM_SETCHECK, check);
        Send(BM_SETDONTCLICK, quiet);
        SetFocus(control_);
        EXPECT_EQ(test::Told(), told) << kind << " " << check;
        EXPECT_EQ(Send(BM_GETCHECK), check) << kind << " " << check;
        DestroyWindow(control_);
    }
}

TEST_F(RadioFocus, TheMouseClicksItOnce) {
    Control(TEXT("Button"), TEXT("Text"), BS_AUTORADIOBUTTON);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(GetFocus(), control_);
    EXPECT_EQ(test::Told(), "");
    Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(test::Told(), "command 100 0h");
}

}  // namespace
