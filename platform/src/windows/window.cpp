// Making, destroying and asking windows; the table of them all.
#include "windows/windows.h"

#include <algorithm>
#include <cstring>

namespace {

using host::WideString;
using host::Window;
using host::WindowPointer;

std::unordered_map<HWND, WindowPointer> windows;
ULONG_PTR lastHandle = 0x10000;
WindowPointer desktop;

WindowPointer AddWindow() {
    auto window = std::make_shared<Window>();
    window->handle = reinterpret_cast<HWND>(lastHandle += 2);
    windows.emplace(window->handle, window);
    return window;
}

void MakeDesktop() {
    desktop = AddWindow();
    desktop->windowClass = std::make_shared<host::WindowClass>();
    desktop->windowClass->name = TEXT("#32769");
    desktop->procedure = DefWindowProcW;
    desktop->style = WS_POPUP | WS_VISIBLE;
    desktop->rect = desktop->client = {0, 0, host::kScreenWidth, host::kScreenHeight};
}

// The parent hears of its child coming or going, and so do the parents above it.
void NotifyParents(Window& window, UINT message) {
    const HWND child = window.handle;
    for (WindowPointer at = host::FindWindowObject(child);
         at != nullptr && at->IsChildStyle() && !(at->extendedStyle & WS_EX_NOPARENTNOTIFY);) {
        if (at->parent == nullptr || at->parent == desktop.get()) {
            return;
        }
        const HWND parent = at->parent->handle;
        host::Send(parent, WM_PARENTNOTIFY, MAKEWPARAM(message, LOWORD(window.id)),
                   reinterpret_cast<LPARAM>(child));
        at = host::IsLive(parent) ? host::FindWindowObject(parent) : nullptr;
    }
}

DWORD FullStyle(DWORD style) {
    if ((style & WS_CHILD) != 0) {
        return style;
    }
    return style | WS_CLIPSIBLINGS | ((style & WS_POPUP) != 0 ? 0 : WS_CAPTION);
}

DWORD FullExtendedStyle(DWORD style, DWORD extendedStyle) {
    const bool edge =
        (extendedStyle & WS_EX_DLGMODALFRAME) != 0 ||
        ((style & (WS_DLGFRAME | WS_THICKFRAME)) != 0 && (extendedStyle & WS_EX_STATICEDGE) == 0);
    return edge ? extendedStyle | WS_EX_WINDOWEDGE : extendedStyle & ~DWORD{WS_EX_WINDOWEDGE};
}

// Goes through the tree from the outside in, as WM_DESTROY does.
void SendDestroy(HWND handle) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr || window->isDestroyed) {
        return;
    }
    window->isDestroyed = true;
    if (GetCapture() == handle) {
        ReleaseCapture();
    }
    host::Send(handle, WM_DESTROY, 0, 0);
    for (HWND child : host::ChildrenOf(*window)) {
        SendDestroy(child);
    }
}

// From the inside out: the windows hear their last message and are no more.
void Finish(HWND handle) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return;
    }
    for (HWND child : host::ChildrenOf(*window)) {
        Finish(child);
    }
    host::Send(handle, WM_NCDESTROY, 0, 0);
    if (!host::IsLive(handle)) {
        return;
    }
    host::ForgetMessages(handle);
    host::ForgetFocus(handle);
    host::ForgetContexts(handle);
    if (!window->IsChildStyle() && window->id != 0) {
        DestroyMenu(reinterpret_cast<HMENU>(window->id));
    }
    for (const auto& [other, object] : windows) {
        if (object->owner == window.get()) {
            object->owner = nullptr;
        }
    }
    host::Unlink(*window);
    windows.erase(handle);
}

void DestroyOwned(Window& owner) {
    for (HWND handle : host::ChildrenOf(*desktop)) {
        const WindowPointer window =
            host::IsLive(handle) ? host::FindWindowObject(handle) : nullptr;
        if (window != nullptr && window->owner == &owner) {
            DestroyWindow(handle);
        }
    }
}

// The place and size wanted, with the defaults where they are left to the system.
void SetFirstPlace(CREATESTRUCTW& create) {
    const bool overlapped = (create.style & static_cast<LONG>(WS_CHILD | WS_POPUP)) == 0;
    if (create.x == CW_USEDEFAULT) {
        create.x = create.y = 0;
    }
    if (create.cx == CW_USEDEFAULT) {
        create.cx = overlapped ? 640 : 0;
        create.cy = overlapped ? 480 : 0;
    }
    create.cx = std::max(create.cx, 0);
    create.cy = std::max(create.cy, 0);
}

// Sends what a window hears while it is made. False when it does not want to be, or is gone.
bool TellCreated(const WindowPointer& window, CREATESTRUCTW& create) {
    const HWND handle = window->handle;
    if (!host::Send(handle, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&create)) ||
        !host::IsLive(handle)) {
        return false;
    }
    host::CalculateClient(*window, true);
    if (host::Send(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1 ||
        !host::IsLive(handle)) {
        return false;
    }
    if ((window->style & (WS_CHILD | WS_POPUP)) != 0) {
        window->sizeUntold = false;
        host::TellSize(*window);
        host::TellMove(*window);
    }
    NotifyParents(*window, WM_CREATE);
    return host::IsLive(handle);
}

template <typename Number>
LONG_PTR ReadExtra(const Window& window, int index) {
    const size_t at = static_cast<size_t>(index);
    if (at + sizeof(Number) > window.extra.size()) {
        return host::Fail(ERROR_INVALID_INDEX);
    }
    Number number;
    std::memcpy(&number, &window.extra[at], sizeof(number));
    return static_cast<LONG_PTR>(number);
}

template <typename Number>
LONG_PTR WriteExtra(Window& window, int index, LONG_PTR value) {
    const LONG_PTR before = ReadExtra<Number>(window, index);
    const size_t at = static_cast<size_t>(index);
    if (at + sizeof(Number) <= window.extra.size()) {
        const Number number = static_cast<Number>(value);
        std::memcpy(&window.extra[at], &number, sizeof(number));
    }
    return before;
}

LONG_PTR SetStyle(Window& window, int index, DWORD style) {
    DWORD& kept = index == GWL_STYLE ? window.style : window.extendedStyle;
    STYLESTRUCT change = {kept, style};
    const WPARAM which = static_cast<WPARAM>(static_cast<LONG_PTR>(index));
    host::Send(window.handle, WM_STYLECHANGING, which, reinterpret_cast<LPARAM>(&change));
    kept = index == GWL_STYLE ? change.styleNew : FullExtendedStyle(window.style, change.styleNew);
    host::Send(window.handle, WM_STYLECHANGED, which, reinterpret_cast<LPARAM>(&change));
    return static_cast<LONG_PTR>(static_cast<LONG>(change.styleOld));
}

}  // namespace

namespace host {

WindowPointer FindWindowObject(HWND handle) {
    const auto it = windows.find(handle);
    if (it == windows.end()) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    return it->second;
}

bool IsLive(HWND handle) {
    return windows.contains(handle);
}

Window& Desktop() {
    if (desktop == nullptr) {
        MakeDesktop();
    }
    return *desktop;
}

std::vector<HWND> ChildrenOf(const Window& window) {
    std::vector<HWND> children;
    for (const Window* child : window.children) {
        children.push_back(child->handle);
    }
    return children;
}

void ResetWindows() {
    ResetMessages();
    ResetFocus();
    ResetPainting();
    windows.clear();
    desktop = nullptr;
    ResetClasses();
}

unsigned HeldWindows() {
    return static_cast<unsigned>(windows.size() - (desktop != nullptr ? 1 : 0));
}

}  // namespace host

HWND WINAPI CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR text, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menuOrId,
                            HINSTANCE module, LPVOID parameter) {
    if (host::FailsNow(host::Call::kWindow)) {
        return nullptr;
    }
    const auto windowClass = host::FindClass(module, className);
    if (windowClass == nullptr) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    if (parent == HWND_MESSAGE) {
        host::Unsupported("message-only window");
    }
    const bool isChild = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    if (isChild && parent == nullptr) {
        SetLastError(ERROR_TLW_WITH_WSCHILD);
        return nullptr;
    }
    Window* around = &host::Desktop();
    if (parent != nullptr) {
        const WindowPointer found = host::FindWindowObject(parent);
        if (found == nullptr) {
            return nullptr;
        }
        around = found.get();
    }

    CREATESTRUCTW create = {
        parameter, module,    menuOrId,     parent, height, width, y, x, static_cast<LONG>(style),
        text,      className, extendedStyle};
    SetFirstPlace(create);
    const WindowPointer window = AddWindow();
    window->windowClass = windowClass;
    window->procedure = windowClass->data.lpfnWndProc;
    window->module = module;
    window->style = FullStyle(style) & ~DWORD{WS_VISIBLE};
    window->extendedStyle = FullExtendedStyle(window->style, extendedStyle);
    create.style = static_cast<LONG>(FullStyle(style));
    create.dwExStyle = window->extendedStyle;
    window->id = reinterpret_cast<UINT_PTR>(menuOrId);
    window->extra.resize(static_cast<size_t>(windowClass->data.cbWndExtra));
    window->rect = {create.x, create.y, create.x + create.cx, create.y + create.cy};
    window->client = {0, 0, create.cx, create.cy};
    if (!isChild && around != desktop.get()) {
        window->owner = &host::RootOf(*around);
        around = desktop.get();
    }
    host::Link(*window, *around, isChild ? HWND_BOTTOM : HWND_TOP);

    const HWND handle = window->handle;
    if (!TellCreated(window, create)) {
        if (host::IsLive(handle)) {
            Finish(handle);
        }
        return nullptr;
    }
    if ((style & WS_VISIBLE) != 0) {
        ShowWindow(handle, SW_SHOW);
    }
    return host::IsLive(handle) ? handle : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr || window == desktop) {
        return FALSE;
    }
    if (window->isDestroyed) {
        return TRUE;
    }
    NotifyParents(*window, WM_DESTROY);
    if (window->IsChildStyle()) {
        ShowWindow(handle, SW_HIDE);
    } else {
        if ((window->style & WS_VISIBLE) != 0) {
            SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
        }
        DestroyOwned(*window);
    }
    host::ActivateAnotherThan(*window);
    if (host::IsLive(handle)) {
        SendDestroy(handle);
    }
    if (host::IsLive(handle)) {
        Finish(handle);
    }
    return TRUE;
}

BOOL WINAPI IsWindow(HWND window) {
    return host::IsLive(window);
}

LONG_PTR WINAPI GetWindowLongPtrW(HWND handle, int index) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return 0;
    }
    switch (index) {
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_HINSTANCE:
            return reinterpret_cast<LONG_PTR>(window->module);
        case GWLP_HWNDPARENT:
            return reinterpret_cast<LONG_PTR>(GetParent(handle));
        case GWLP_USERDATA:
            return window->userData;
        case GWLP_ID:
            return static_cast<LONG_PTR>(window->id);
        case GWL_STYLE:
            return static_cast<LONG>(window->style);
        case GWL_EXSTYLE:
            return static_cast<LONG>(window->extendedStyle);
        default:
            return index >= 0 ? ReadExtra<LONG_PTR>(*window, index)
                              : host::Fail(ERROR_INVALID_INDEX);
    }
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND handle, int index, LONG_PTR value) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return 0;
    }
    const LONG_PTR before = index < 0 ? GetWindowLongPtrW(handle, index) : 0;
    switch (index) {
        case GWLP_WNDPROC:
            window->procedure = reinterpret_cast<WNDPROC>(value);
            return before;
        case GWLP_HINSTANCE:
            window->module = reinterpret_cast<HINSTANCE>(value);
            return before;
        case GWLP_HWNDPARENT: {
            const WindowPointer owner = host::FindWindowObject(reinterpret_cast<HWND>(value));
            if (window->IsChildStyle()) {
                host::Unsupported("SetWindowLongPtrW: another parent");
            }
            window->owner = owner.get();
            return before;
        }
        case GWLP_USERDATA:
            window->userData = value;
            return before;
        case GWLP_ID:
            window->id = static_cast<UINT_PTR>(value);
            return before;
        case GWL_STYLE:
        case GWL_EXSTYLE:
            return SetStyle(*window, index, static_cast<DWORD>(value));
        default:
            return index >= 0 ? WriteExtra<LONG_PTR>(*window, index, value)
                              : host::Fail(ERROR_INVALID_INDEX);
    }
}

LONG WINAPI GetWindowLongW(HWND handle, int index) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return 0;
    }
    return static_cast<LONG>(index >= 0 ? ReadExtra<LONG>(*window, index)
                                        : GetWindowLongPtrW(handle, index));
}

LONG WINAPI SetWindowLongW(HWND handle, int index, LONG value) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return 0;
    }
    if (index == GWLP_WNDPROC || index == GWLP_HINSTANCE || index == GWLP_HWNDPARENT) {
        return host::Fail(ERROR_INVALID_INDEX);  // they hold more than 32 bits
    }
    return static_cast<LONG>(index >= 0 ? WriteExtra<LONG>(*window, index, value)
                                        : SetWindowLongPtrW(handle, index, value));
}

HANDLE WINAPI GetPropW(HWND handle, LPCWSTR name) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return nullptr;
    }
    const auto it = window->properties.find(host::FoldCase(name));
    return it == window->properties.end() ? nullptr : it->second;
}

BOOL WINAPI SetPropW(HWND handle, LPCWSTR name, HANDLE value) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    window->properties[host::FoldCase(name)] = value;
    return TRUE;
}

HANDLE WINAPI RemovePropW(HWND handle, LPCWSTR name) {
    const HANDLE value = GetPropW(handle, name);
    if (const WindowPointer window = host::FindWindowObject(handle)) {
        window->properties.erase(host::FoldCase(name));
    }
    return value;
}

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text) {
    if (!host::IsLive(window)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
    return static_cast<BOOL>(host::Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextW(HWND window, LPWSTR text, int length) {
    if (text == nullptr || length <= 0) {
        return 0;
    }
    text[0] = 0;
    return static_cast<int>(SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(length),
                                         reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextLengthW(HWND window) {
    return static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
}

HINSTANCE WINAPI GetModuleHandleW(LPCWSTR name) {
    if (name != nullptr) {
        host::Unsupported("GetModuleHandleW of a library");
    }
    return reinterpret_cast<HINSTANCE>(0x140000000);
}

DWORD WINAPI GetCurrentThreadId() {
    return 0x104;
}

int WINAPI MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) {
        return -1;
    }
    // Rounds half away from zero, whatever the signs.
    const std::int64_t product = std::int64_t{number} * numerator;
    const std::int64_t divisor = denominator;
    const std::int64_t half = std::abs(divisor) / 2;
    const bool negative = (product < 0) != (divisor < 0);
    const std::int64_t size = (std::abs(product) + half) / std::abs(divisor);
    const std::int64_t result = negative ? -size : size;
    return result > INT32_MAX || result < INT32_MIN ? -1 : static_cast<int>(result);
}
