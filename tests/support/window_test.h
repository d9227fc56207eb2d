// The fixture for windows and controls: a parent window that notes what its controls tell it, and
// steps that run inside a modal loop.
#pragma once

#include "platform_test.h"

#include <functional>

namespace test {

class WindowTest : public PlatformTest {
  protected:
    void SetUp() override;  ///< parent_ is shown, 400 by 300, and log empty
    void TearDown() override;

    /// Makes a visible child control of parent_ with an identifier.
    HWND Control(const WCHAR* className, const WCHAR* text, DWORD style, int id = 100, int x = 10,
                 int y = 10, int width = 120, int height = 24, DWORD extendedStyle = 0);

    /// To control_.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT SendText(UINT message, int wParam, const WCHAR* text) const;

    HWND parent_ = nullptr;
    HWND control_ = nullptr;  ///< the last that was made
};

/// What parent_ (or any window that calls Note) was told since the last call, one entry a message,
/// as in "command 100 300h; vscroll 0 5; notify 100 -551". Empties the notes.
std::string Told();
/// Notes a WM_COMMAND ("command ID CODEh"), WM_NOTIFY ("notify ID CODE"), WM_HSCROLL or WM_VSCROLL
/// ("vscroll CODE POSITION") or WM_DRAWITEM ("draw ID ITEM ACTION STATE"); nothing else.
void Note(UINT message, WPARAM wParam, LPARAM lParam);

std::string TextOf(HWND window);
WideString WideTextOf(HWND window);

void Press(HWND window, int key);          ///< WM_KEYDOWN and WM_KEYUP, sent
void Type(HWND window, const char* text);  ///< a WM_CHAR for each character, sent

/// Runs the step from the message loop that runs next, a modal one among them; steps run in order,
/// each after what the one before it posted.
void RunInLoop(std::function<void()> step);
/// Forgets the steps that have not run.
void ForgetSteps();
/// The same, and lets go of the window that runs them.
void EndSteps();
/// Handles what is posted until nothing is left.
void HandlePosted();

}  // namespace test
