// Push buttons, check boxes, radio buttons and group boxes: what a click makes of each and what the
// parent hears; and static controls that take clicks.
#include "window_test.h"

namespace {

const std::string kClicked = "command 100 0h";

class ButtonTest : public test::WindowTest {
  protected:
    HWND Make(DWORD kind, int id = 100) {
        return Control(TEXT("Button"), TEXT("&Text"), kind | WS_TABSTOP, id);
    }
    static LRESULT Send(HWND button, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(button, message, wParam, lParam);
    }
    static void Mouse(HWND button, UINT message, int x) {
        Send(button, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(x, 5));
    }
};

TEST_F(ButtonTest, WhatAClickMakesOfEachKind) {
    const struct {
        DWORD kind;
        LRESULT dialogCode;
        UINT checks[3];  // after each click
    } kinds[] = {
        {BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, {0, 0, 0}},
        {BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, {0, 0, 0}},
        {BS_CHECKBOX, DLGC_BUTTON, {0, 0, 0}},
        {BS_AUTOCHECKBOX, DLGC_BUTTON, {1, 0, 1}},
        {BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, {0, 0, 0}},
        {BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, {1, 1, 1}},
    };
    for (const auto& kind : kinds) {
        HWND button = Make(kind.kind);
        EXPECT_EQ(Send(button, WM_GETDLGCODE), kind.dialogCode) << kind.kind;
        for (const UINT check : kind.checks) {
            Send(button, BM_CLICK);
            EXPECT_EQ(test::Told(), kClicked) << kind.kind;
            EXPECT_EQ(Send(button, BM_GETCHECK), check) << kind.kind;
        }
        const bool isPush = kind.kind <= BS_DEFPUSHBUTTON;
        for (const WPARAM check : {WPARAM{1}, WPARAM{0}}) {
            Send(button, BM_SETCHECK, check);
            EXPECT_EQ(Send(button, BM_GETCHECK), isPush ? 0 : check) << kind.kind;
        }
        EXPECT_EQ(test::Told(), "") << kind.kind;
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, ThePressIsAClickWhereItIsLetGoOver) {
    HWND button = Make(BS_AUTOCHECKBOX);
    Mouse(button, WM_LBUTTONDOWN, 5);
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(GetCapture(), button);
    EXPECT_NE(Send(button, BM_GETSTATE) & BST_PUSHED, 0);
    Mouse(button, WM_MOUSEMOVE, 500);
    EXPECT_EQ(Send(button, BM_GETSTATE) & BST_PUSHED, 0);
    Mouse(button, WM_LBUTTONUP, 500);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(test::Told(), "");
    Mouse(button, WM_LBUTTONDOWN, 5);
    Mouse(button, WM_LBUTTONUP, 5);
    EXPECT_EQ(test::Told(), kClicked);
    Mouse(button, WM_LBUTTONUP, 5);
    EXPECT_EQ(test::Told(), "");
    Send(button, WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(test::Told(), "");
    Send(button, WM_KEYUP, VK_SPACE);
    EXPECT_EQ(test::Told(), kClicked);
    Send(button, WM_KEYDOWN, VK_SPACE);
    SetFocus(parent_);
    Send(button, WM_KEYUP, VK_SPACE);
    test::Press(button, VK_RETURN);
    EXPECT_EQ(test::Told(), "");
    EXPECT_EQ(Send(button, BM_GETCHECK), 0);
}

TEST_F(ButtonTest, ARadioButtonTakesTheCheckFromThoseOfItsGroup) {
    HWND first = Make(BS_AUTORADIOBUTTON | WS_GROUP, 101);
    HWND second = Make(BS_AUTORADIOBUTTON, 102);
    HWND box = Make(BS_AUTOCHECKBOX, 103);
    HWND third = Make(BS_AUTORADIOBUTTON, 104);
    HWND other = Make(BS_AUTORADIOBUTTON | WS_GROUP, 105);
    HWND plain = Make(BS_RADIOBUTTON, 106);
    for (HWND button : {first, box, other}) {
        Send(button, BM_SETCHECK, BST_CHECKED);
    }
    const auto checks = [&] {
        std::string all;
        for (HWND button : {first, second, box, third, other, plain}) {
            all += std::to_string(Send(button, BM_GETCHECK));
        }
        return all;
    };
    const std::pair<HWND, const char*> clicks[] = {
        {third, "001110"}, {second, "011010"}, {plain, "011010"}, {other, "011010"}};
    for (const auto& [button, expected] : clicks) {
        Send(button, BM_CLICK);
        EXPECT_EQ(checks(), expected);
    }
    EXPECT_EQ(GetWindowLongW(first, GWL_STYLE) & WS_TABSTOP, 0);
    EXPECT_NE(GetWindowLongW(second, GWL_STYLE) & WS_TABSTOP, 0);
}

TEST_F(ButtonTest, GroupBoxesAndStaticsLetTheMouseThrough) {
    POINT inside = {15, 15};
    ClientToScreen(parent_, &inside);
    const LPARAM place = MAKELPARAM(inside.x, inside.y);
    HWND group = Make(BS_GROUPBOX);
    EXPECT_EQ(Send(group, WM_GETDLGCODE), DLGC_STATIC);
    EXPECT_EQ(Send(group, WM_NCHITTEST, 0, place), HTTRANSPARENT);
    for (const DWORD style : {DWORD{SS_LEFT}, DWORD{SS_LEFT | SS_NOTIFY}}) {
        HWND label = Control(TEXT("Static"), TEXT("Text"), style);
        EXPECT_EQ(Send(label, WM_GETDLGCODE), DLGC_STATIC);
        EXPECT_EQ(Send(label, WM_NCHITTEST, 0, place), style == SS_LEFT ? HTTRANSPARENT : HTCLIENT);
        Mouse(label, WM_LBUTTONDOWN, 5);
        Mouse(label, WM_LBUTTONUP, 5);
        Mouse(label, WM_LBUTTONDBLCLK, 5);
        EnableWindow(label, FALSE);
        EnableWindow(label, TRUE);
        EXPECT_EQ(
            test::Told(),
            style == SS_LEFT ? "" : kClicked + "; command 100 1h; command 100 3h; command 100 2h");
        DestroyWindow(label);
    }
}

}  // namespace
