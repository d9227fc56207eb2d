// Message boxes: nothing is shown; the host reads what would be, and has said what the user
// presses.
#include "dialogs/absence.h"

#include <algorithm>
#include <deque>

namespace {

std::vector<host::MessageBox> shown;
std::deque<int> answers;

// The buttons of each kind of box, from the left; the first is the default one.
constexpr int kButtons[][3] = {
    {IDOK},        {IDOK, IDCANCEL},    {IDABORT, IDRETRY, IDIGNORE}, {IDYES, IDNO, IDCANCEL},
    {IDYES, IDNO}, {IDRETRY, IDCANCEL},
};

int Answer(UINT type) {
    const UINT kind = type & MB_TYPEMASK;
    constexpr UINT kIcons = 0xF0;
    if ((type & ~(MB_TYPEMASK | kIcons | MB_DEFBUTTON2)) != 0 || kind >= std::size(kButtons)) {
        host::Unsupported("MessageBoxW of type %#x", type);
    }
    const auto& buttons = kButtons[kind];
    if (answers.empty()) {
        const bool second = (type & MB_DEFBUTTON2) != 0 && buttons[1] != 0;
        return buttons[second ? 1 : 0];
    }
    const int answer = answers.front();
    answers.pop_front();
    if (answer == 0 ||
        std::find(std::begin(buttons), std::end(buttons), answer) == std::end(buttons)) {
        host::Unsupported("answer %d to a message box of type %#x, which lacks it", answer, type);
    }
    return answer;
}

}  // namespace

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
    if (owner != nullptr && !IsWindow(owner)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
    shown.push_back({text == nullptr ? TEXT("") : text, title == nullptr ? TEXT("Error") : title,
                     type, owner != nullptr});
    const int answer = Answer(type);
    const host::Absence box(owner);
    return answer;
}

BOOL WINAPI MessageBeep(UINT) {
    return TRUE;
}

namespace host {

const std::vector<MessageBox>& MessageBoxes() {
    return shown;
}

void AnswerMessageBox(int button) {
    answers.push_back(button);
}

void ResetMessageBoxes() {
    shown.clear();
    answers.clear();
}

}  // namespace host
