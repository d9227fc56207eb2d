// One implementation for both platforms: it is made of the platform's own calls.
#include "window_test.h"

#include <commctrl.h>

#include <deque>

namespace test {
namespace {

std::string notes;
std::deque<std::function<void()>> steps;
HWND stepWindow = nullptr;

LRESULT CALLBACK ParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Note(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK StepProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP && !steps.empty()) {
        const std::function<void()> step = std::move(steps.front());
        steps.pop_front();
        step();
        // Only now: a message box within the step has a loop of its own.
        if (!steps.empty()) {
            PostMessageW(window, WM_APP, 0, 0);
        }
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterOnce(const WCHAR* name, WNDPROC procedure, int background) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(background) + 1);
    windowClass.lpszClassName = name;
    RegisterClassExW(&windowClass);  // fails when it is there already
}

void Append(const std::string& note) {
    notes += (notes.empty() ? "" : "; ") + note;
}

std::string Hex(unsigned number) {
    char text[16];
    std::snprintf(text, sizeof(text), "%Xh", number);
    return text;
}

}  // namespace

void WindowTest::SetUp() {
    PlatformTest::SetUp();
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_WIN95_CLASSES};
    ASSERT_TRUE(InitCommonControlsEx(&classes));
    RegisterOnce(TEXT("KpdTestParent"), ParentProcedure, COLOR_BTNFACE);
    parent_ = CreateWindowExW(0, TEXT("KpdTestParent"), TEXT("Parent"), WS_POPUP | WS_VISIBLE, 50,
                              50, 400, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(parent_, nullptr);
    HandlePosted();
    Told();
}

void WindowTest::TearDown() {
    EndSteps();
    DestroyWindow(parent_);
    HandlePosted();
    PlatformTest::TearDown();
}

HWND WindowTest::Control(const WCHAR* className, const WCHAR* text, DWORD style, int id, int x,
                         int y, int width, int height, DWORD extendedStyle) {
    HWND control = CreateWindowExW(
        extendedStyle, className, text, WS_CHILD | WS_VISIBLE | style, x, y, width, height, parent_,
        reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(control, nullptr);
    HandlePosted();
    Told();
    return control_ = control;
}

LRESULT WindowTest::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(control_, message, wParam, lParam);
}

LRESULT WindowTest::SendText(UINT message, int wParam, const WCHAR* text) const {
    return Send(message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text));
}

std::string Told() {
    return std::exchange(notes, {});
}

void Note(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        Append("command " + std::to_string(LOWORD(wParam)) + " " + Hex(HIWORD(wParam)));
    } else if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        Append("notify " + std::to_string(header->idFrom) + " " +
               std::to_string(static_cast<int>(header->code)));
    } else if (message == WM_HSCROLL || message == WM_VSCROLL) {
        Append((message == WM_HSCROLL ? "hscroll " : "vscroll ") + std::to_string(LOWORD(wParam)) +
               " " + std::to_string(static_cast<SHORT>(HIWORD(wParam))));
    } else if (message == WM_DRAWITEM) {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        Append("draw " + std::to_string(item->CtlID) + " " +
               std::to_string(static_cast<int>(item->itemID)) + " " + Hex(item->itemAction) + " " +
               Hex(item->itemState));
    }
}

WideString WideTextOf(HWND window) {
    WCHAR text[1024] = {};
    GetWindowTextW(window, text, 1024);
    return text;
}

std::string TextOf(HWND window) {
    return Narrow(WideTextOf(window));
}

void Press(HWND window, int key) {
    SendMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    SendMessageW(window, WM_KEYUP, static_cast<WPARAM>(key), 0xC0000001);
}

void Type(HWND window, const char* text) {
    for (; *text != '\0'; ++text) {
        SendMessageW(window, WM_CHAR, static_cast<BYTE>(*text), 1);
    }
}

void RunInLoop(std::function<void()> step) {
    if (!IsWindow(stepWindow)) {
        RegisterOnce(TEXT("KpdTestSteps"), StepProcedure, COLOR_BTNFACE);
        stepWindow = CreateWindowExW(0, TEXT("KpdTestSteps"), nullptr, WS_POPUP, 0, 0, 0, 0,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        steps.clear();
    }
    const bool waiting = !steps.empty();
    steps.push_back(std::move(step));
    if (!waiting) {
        PostMessageW(stepWindow, WM_APP, 0, 0);
    }
}

void ForgetSteps() {
    steps.clear();
}

void EndSteps() {
    ForgetSteps();
    DestroyWindow(stepWindow);
}

void HandlePosted() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace test
