// Which window has the focus, is active and has captured the mouse.
#include "windows/windows.h"

#include <algorithm>

namespace {

using host::Window;
using host::WindowPointer;

HWND focus = nullptr;
HWND active = nullptr;
HWND capture = nullptr;

bool IsWithin(const Window& window, HWND handle) {
    return handle == window.handle || IsChild(window.handle, handle);
}

// Moves the focus within what is active, with its two messages.
void MoveFocus(HWND to) {
    const HWND from = focus;
    if (from == to) {
        return;
    }
    focus = to;
    if (host::IsLive(from)) {
        host::Send(from, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
    }
    if (focus == to && host::IsLive(to)) {
        host::Send(to, WM_SETFOCUS, reinterpret_cast<WPARAM>(from), 0);
    }
}

void Deactivate(HWND handle, HWND next) {
    if (!host::IsLive(handle)) {
        return;
    }
    host::Send(handle, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next));
    if (host::IsLive(handle)) {
        host::Send(handle, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(next));
    }
}

// The window comes to the top, and what it owns above it.
void Raise(Window& window) {
    host::Link(window, host::Desktop(), HWND_TOP);
    std::vector<HWND> all = host::ChildrenOf(host::Desktop());
    for (auto it = all.rbegin(); it != all.rend(); ++it) {
        const WindowPointer other = host::FindWindowObject(*it);
        if (other->owner == &window) {
            Raise(*other);
        }
    }
}

bool CanTakeOver(const Window& window) {
    return (window.style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE && !window.isDestroyed &&
           (window.extendedStyle & WS_EX_TOOLWINDOW) == 0;
}

}  // namespace

namespace host {

void Activate(HWND handle) {
    const HWND before = active;
    if (before == handle) {
        return;
    }
    const WindowPointer window = handle == nullptr ? nullptr : FindWindowObject(handle);
    active = handle;
    Deactivate(before, handle);
    if (active != handle) {
        return;
    }
    if (window == nullptr) {
        host::Send(before, WM_ACTIVATEAPP, FALSE, 0);
        MoveFocus(nullptr);
        return;
    }
    Raise(*window);
    if (before == nullptr) {
        Send(handle, WM_ACTIVATEAPP, TRUE, 0);
    }
    Send(handle, WM_NCACTIVATE, TRUE, reinterpret_cast<LPARAM>(before));
    Send(handle, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(before));
    if (active == handle && IsLive(handle) && focus != nullptr && !IsWithin(*window, focus)) {
        MoveFocus(handle);
    }
}

void ActivateAnotherThan(Window& window) {
    if (active != window.handle) {
        return;
    }
    if (window.owner != nullptr && CanTakeOver(*window.owner)) {
        Activate(window.owner->handle);
        return;
    }
    for (const Window* other : Desktop().children) {
        if (other != &window && CanTakeOver(*other)) {
            Activate(other->handle);
            return;
        }
    }
    Activate(nullptr);
}

void LeaveFocus(Window& window) {
    if (capture == window.handle) {
        ReleaseCapture();
    }
    // What is in the window keeps the focus, though nobody sees it any more.
    if (focus == window.handle && window.IsChildStyle() && window.parent != nullptr) {
        MoveFocus(window.parent->handle);
    }
}

void ForgetFocus(HWND window) {
    focus = focus == window ? nullptr : focus;
    active = active == window ? nullptr : active;
    capture = capture == window ? nullptr : capture;
}

void ResetFocus() {
    focus = active = capture = nullptr;
}

}  // namespace host

HWND WINAPI GetFocus() {
    return focus;
}

HWND WINAPI SetFocus(HWND handle) {
    const HWND before = focus;
    if (handle == nullptr) {
        MoveFocus(nullptr);
        return before;
    }
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return nullptr;
    }
    if (handle == before) {
        return before;
    }
    for (const Window* at = window.get(); at != nullptr; at = at->parent) {
        if ((at->style & WS_DISABLED) != 0 || at->isDestroyed) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
    }
    const HWND root = host::RootOf(*window).handle;
    if (root != active) {
        host::Activate(root);
        if (active != root || !host::IsLive(handle)) {
            return nullptr;
        }
    }
    MoveFocus(handle);
    return before;
}

HWND WINAPI GetActiveWindow() {
    return active;
}

HWND WINAPI SetActiveWindow(HWND handle) {
    const HWND before = active;
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return nullptr;
    }
    if (window->IsChildStyle() || (window->style & WS_DISABLED) != 0) {
        return window->IsChildStyle() ? nullptr : before;
    }
    host::Activate(handle);
    return before;
}

HWND WINAPI GetCapture() {
    return capture;
}

HWND WINAPI SetCapture(HWND window) {
    const HWND before = capture;
    if (window != nullptr && !host::IsLive(window)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    capture = window;
    if (host::IsLive(before)) {
        host::Send(before, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    }
    return before;
}

BOOL WINAPI ReleaseCapture() {
    SetCapture(nullptr);
    return TRUE;
}

BOOL WINAPI IsWindowEnabled(HWND handle) {
    const WindowPointer window = host::FindWindowObject(handle);
    return window != nullptr && (window->style & WS_DISABLED) == 0;
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    const bool wasDisabled = (window->style & WS_DISABLED) != 0;
    if (enable && wasDisabled) {
        window->style &= ~DWORD{WS_DISABLED};
        host::Send(handle, WM_ENABLE, TRUE, 0);
    } else if (!enable && !wasDisabled) {
        host::Send(handle, WM_CANCELMODE, 0, 0);
        window->style |= WS_DISABLED;
        // What is in a disabled window keeps the focus; only its keys no longer come.
        if (focus == handle) {
            MoveFocus(nullptr);
        }
        if (capture == handle) {
            ReleaseCapture();
        }
        host::Send(handle, WM_ENABLE, FALSE, 0);
    }
    return wasDisabled;
}
