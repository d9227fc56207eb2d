// What tests of property sheets share: the template of a page, and the sheet that is shown.
#pragma once

#include "window_test.h"

#include <prsht.h>

#include <vector>

namespace test {

/// A page's template in memory: its title, a size in dialog units and an edit control 1000.
inline std::vector<WORD> PageTemplate(const WideString& title, int width = 200, int height = 100) {
    std::vector<WORD> words;
    const auto add = [&](std::initializer_list<DWORD> numbers) {
        for (const DWORD number : numbers) {
            words.push_back(LOWORD(number));
        }
    };
    const auto addText = [&](const WideString& text) {
        words.insert(words.end(), text.begin(), text.end());
        words.push_back(0);
    };
    const DWORD style = WS_CHILD | WS_DISABLED | WS_CAPTION | DS_SETFONT;
    add({style, HIWORD(style), 0, 0, 1, 0, 0, static_cast<DWORD>(width), static_cast<DWORD>(height),
         0, 0});
    addText(title);
    add({8});
    addText(TEXT("MS Shell Dlg"));
    words.resize((words.size() + 1) / 2 * 2);
    const DWORD editStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER;
    add({editStyle, HIWORD(editStyle), 0, 0, 5, 5, 50, 14, 1000, 0xFFFF, 0x81, 0, 0});
    return words;
}

/// The property sheet that is shown in this thread, or null.
inline HWND ShownSheet() {
    HWND sheet = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
            WCHAR name[16] = {};
            GetClassNameW(window, name, 16);
            if (WideString(name) != TEXT("#32770") || !IsWindowVisible(window)) {
                return TRUE;
            }
            *reinterpret_cast<HWND*>(found) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&sheet));
    return sheet;
}

/// The dialog of this thread that has the control, also before its loop has shown it, or null.
inline HWND DialogWith(int control) {
    struct Search {
        int control;
        HWND found;
    } search = {control, nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM given) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(given);
            if (GetDlgItem(window, wanted.control) == nullptr) {
                return TRUE;
            }
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/// Presses a button of the sheet that is shown, PSBTN_OK and its like, from the modal loop.
inline void PressInSheet(int button) {
    RunInLoop(
        [button] { PostMessageW(ShownSheet(), PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0); });
}

}  // namespace test
