// Real message boxes, read and answered by a hook when they become active.
#include "message_boxes.h"

namespace test {
namespace {

HHOOK hook;
std::vector<ShownMessage> shown;

constexpr int kMessageTextId = 0xFFFF;

WideString TextOf(HWND window) {
    WCHAR text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

LRESULT CALLBACK WatchDialogs(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE) {
        const HWND dialog = reinterpret_cast<HWND>(wParam);
        if (HWND text = GetDlgItem(dialog, kMessageTextId); text != nullptr) {
            shown.push_back({TextOf(text), TextOf(dialog), GetWindow(dialog, GW_OWNER) != nullptr});
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        }
    }
    return CallNextHookEx(hook, code, wParam, lParam);
}

}  // namespace

void StartMessageBoxes() {
    shown.clear();
    hook = SetWindowsHookExW(WH_CBT, WatchDialogs, nullptr, GetCurrentThreadId());
}

void StopMessageBoxes() {
    UnhookWindowsHookEx(hook);
}

std::vector<ShownMessage> ShownMessages() {
    return shown;
}

}  // namespace test
