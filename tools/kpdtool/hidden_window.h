// A window that nobody sees, for what is told by message.
#pragma once

#include <windows.h>

namespace kpdtool {

class HiddenWindow {
  public:
    /// The procedure finds `owner` as the window's GWLP_USERDATA, once the window is made. Throws
    /// ToolError when it cannot be made.
    HiddenWindow(const WCHAR* className, WNDPROC procedure, void* owner);
    ~HiddenWindow();
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    HWND get() const { return window_; }

  private:
    const WCHAR* className_;
    HWND window_;
};

}  // namespace kpdtool
