// Real prompts, recognised by a hook when they become active and answered from their own message
// loop.
#include <windows.h>

#include <dlgs.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <utility>

#include "prompts.h"
#include "sheet_controls.h"
#include "tools/kpdtool/wide_text.h"

namespace kpdtool {
namespace {

constexpr int kMessageTextId = 0xFFFF;
constexpr UINT kAnswerDelay = 50;  // until a prompt is complete, in milliseconds

HHOOK hook;
std::filesystem::path folderBefore;  // a file dialog leaves the process in another
std::deque<int> buttons;
std::deque<std::string> files;

struct Prompt {
    HWND window;
    bool answered;
};
std::vector<Prompt> prompts;
std::vector<std::string> texts;
std::string problem;

BOOL CALLBACK IsNoPushButton(HWND child, LPARAM found) {
    constexpr int kLastButton = 11;
    const int id = GetDlgCtrlID(child);
    if (ClassOf(child) == "Button" ? id > kLastButton : ClassOf(child) != "Static") {
        *reinterpret_cast<bool*>(found) = true;
        return FALSE;
    }
    return TRUE;
}

// A text and push buttons, and nothing else.
bool IsMessageBox(HWND dialog) {
    bool others = false;
    EnumChildWindows(dialog, IsNoPushButton, reinterpret_cast<LPARAM>(&others));
    return GetDlgItem(dialog, kMessageTextId) != nullptr && !others;
}

BOOL CALLBACK TakeFileName(HWND child, LPARAM found) {
    const int id = GetDlgCtrlID(child);
    const int parent = GetDlgCtrlID(GetParent(child));
    if (ClassOf(child) == "Edit" && (id == edt1 || id == cmb13 || parent == cmb13)) {
        *reinterpret_cast<HWND*>(found) = child;
        return FALSE;
    }
    return TRUE;
}

HWND FileNameEdit(HWND dialog) {
    HWND edit = nullptr;
    EnumChildWindows(dialog, TakeFileName, reinterpret_cast<LPARAM>(&edit));
    return edit;
}

bool IsFileDialog(HWND dialog) {
    return GetDlgItem(dialog, cmb1) != nullptr && FileNameEdit(dialog) != nullptr;
}

void AnswerMessageBox(HWND box) {
    texts.push_back(WindowText(GetDlgItem(box, kMessageTextId)));
    // The default button has the focus.
    int button = IsChild(box, GetFocus()) ? GetDlgCtrlID(GetFocus()) : IDOK;
    if (!buttons.empty()) {
        button = buttons.front();
        buttons.pop_front();
    }
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

void AnswerFileDialog(HWND dialog) {
    if (files.empty()) {
        problem = "a file dialog came for which there is no answer";
    }
    const std::string file = files.empty() ? "" : files.front();
    if (!files.empty()) {
        files.pop_front();
    }
    if (!file.empty()) {
        SetWindowTextW(FileNameEdit(dialog), FromUtf8(file).c_str());
    }
    PostMessageW(dialog, WM_COMMAND, file.empty() ? IDCANCEL : IDOK, 0);
}

// Runs in the prompt's own loop.
void CALLBACK AnswerPrompts(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    for (Prompt& prompt : prompts) {
        if (prompt.answered) {
            continue;
        }
        prompt.answered = true;
        if (IsMessageBox(prompt.window)) {
            AnswerMessageBox(prompt.window);
        } else {
            AnswerFileDialog(prompt.window);
        }
    }
}

void AnswerSoon() {
    SetTimer(nullptr, 0, kAnswerDelay, AnswerPrompts);
}

LRESULT CALLBACK WatchDialogs(int code, WPARAM wParam, LPARAM lParam) {
    const HWND dialog = reinterpret_cast<HWND>(wParam);
    const auto known = std::ranges::find(prompts, dialog, &Prompt::window);
    if (code == HCBT_ACTIVATE && known == prompts.end() &&
        (IsMessageBox(dialog) || IsFileDialog(dialog))) {
        prompts.push_back({dialog, false});
        AnswerSoon();
    } else if (code == HCBT_DESTROYWND && known != prompts.end()) {
        prompts.erase(known);
        if (!prompts.empty()) {
            // A file dialog that has complained of a name asks on.
            prompts.back().answered = false;
            AnswerSoon();
        }
    }
    return CallNextHookEx(hook, code, wParam, lParam);
}

}  // namespace

Prompts::Prompts() {
    prompts.clear();
    texts.clear();
    std::error_code ignored;
    folderBefore = std::filesystem::current_path(ignored);
    hook = SetWindowsHookExW(WH_CBT, WatchDialogs, nullptr, GetCurrentThreadId());
}

Prompts::~Prompts() {
    UnhookWindowsHookEx(hook);
    std::error_code ignored;
    std::filesystem::current_path(folderBefore, ignored);
    buttons.clear();
    files.clear();
}

void Prompts::AnswerBox(int button) {
    buttons.push_back(button);
}

void Prompts::AnswerFile(const std::string& file) {
    std::error_code ignored;
    const auto path = std::filesystem::absolute(PathFrom(file), ignored).make_preferred();
    files.push_back(file.empty() ? "" : ToUtf8(path.wstring()));
}

bool Prompts::IsOpen() const {
    return !prompts.empty();
}

std::vector<std::string> Prompts::TakeTexts() {
    return std::exchange(texts, {});
}

std::string Prompts::TakeProblem() {
    return std::exchange(problem, {});
}

}  // namespace kpdtool
