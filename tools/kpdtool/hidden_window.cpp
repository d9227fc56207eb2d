// A window of a class of its own.
#include "hidden_window.h"

#include "tool_error.h"

namespace kpdtool {

HiddenWindow::HiddenWindow(const WCHAR* className, WNDPROC procedure, void* owner)
    : className_(className) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);
    window_ = CreateWindowExW(0, className, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (window_ == nullptr) {
        throw ToolError("no window can be made here");
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
}

HiddenWindow::~HiddenWindow() {
    DestroyWindow(window_);
    UnregisterClassW(className_, GetModuleHandleW(nullptr));
}

}  // namespace kpdtool
