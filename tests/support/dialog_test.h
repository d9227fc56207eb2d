// The fixture for dialogs: a dialog of the tests' resources whose procedure a test writes, and the
// log of what it heard.
#pragma once

#include "tests.h"
#include "window_test.h"

namespace test {

inline std::string logged;

inline void Log(const std::string& entry) {
    logged += (logged.empty() ? "" : " ") + entry;
}

/// What was noted since the last call.
inline std::string Logged() {
    return std::exchange(logged, {});
}

inline std::string Id(HWND window) {
    return window == nullptr ? "none" : std::to_string(GetDlgCtrlID(window));
}

/// Of the dialog procedure; a test sets it.
using Answer = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)>;
inline Answer answer;

inline INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return answer ? answer(dialog, message, wParam, lParam) : FALSE;
}

/// Notes the commands that a dialog gets, as "ID:CODE" or, with the code of a click, as "ID".
inline INT_PTR NoteCommands(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND) {
        Log(std::to_string(LOWORD(wParam)) +
            (HIWORD(wParam) == 0 ? "" : ":" + std::to_string(HIWORD(wParam))));
    }
    return message == WM_INITDIALOG;
}

class DialogTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        answer = nullptr;
        Logged();
    }
    void TearDown() override {
        answer = nullptr;
        if (IsWindow(dialog_)) {
            DestroyWindow(dialog_);
        }
        WindowTest::TearDown();
    }

    HWND Make(int id, HWND owner = nullptr, LPARAM parameter = 0) {
        return CreateDialogParamW(module_, MAKEINTRESOURCEW(id), owner, Procedure, parameter);
    }
    /// A dialog that notes its commands and has the focus.
    void Open(int id) {
        answer = NoteCommands;
        dialog_ = Make(id);
        ASSERT_NE(dialog_, nullptr);
        SetActiveWindow(dialog_);
        HandlePosted();
        Logged();
    }
    INT_PTR RunModal(int id, LPARAM parameter = 0) {
        return DialogBoxParamW(module_, MAKEINTRESOURCEW(id), parent_, Procedure, parameter);
    }
    HWND Item(int id) { return GetDlgItem(dialog_, id); }

    /// Gives a message for the control that has the focus to the dialog manager, as a loop does.
    BOOL Key(UINT message, WPARAM key) {
        HWND focus = GetFocus();
        MSG posted = {focus != nullptr ? focus : dialog_, message, key, 1, 0, {0, 0}};
        const BOOL taken = IsDialogMessageW(dialog_, &posted);
        HandlePosted();
        return taken;
    }

    HINSTANCE module_ = GetModuleHandleW(nullptr);
    HWND dialog_ = nullptr;
};

}  // namespace test
