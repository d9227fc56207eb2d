// The tree of windows: parents, owners, order from top to bottom, and finding windows in it.
#include "windows/windows.h"

#include <algorithm>

namespace {

using host::Window;
using host::WindowPointer;

bool IsTopmost(const Window& window) {
    return (window.extendedStyle & WS_EX_TOPMOST) != 0;
}

// Where the windows begin that are not topmost, or the very top for one that is.
auto TopFor(Window& window, std::vector<Window*>& siblings) {
    return std::find_if(siblings.begin(), siblings.end(), [&](const Window* sibling) {
        return IsTopmost(window) || !IsTopmost(*sibling);
    });
}

HWND HandleOf(const Window* window) {
    return window == nullptr ? nullptr : window->handle;
}

void CollectDescendants(const Window& window, std::vector<HWND>& all) {
    for (const Window* child : window.children) {
        all.push_back(child->handle);
        CollectDescendants(*child, all);
    }
}

bool Enumerate(const std::vector<HWND>& windows, WNDENUMPROC procedure, LPARAM parameter) {
    return std::all_of(windows.begin(), windows.end(), [&](HWND window) {
        return !host::IsLive(window) || procedure(window, parameter);
    });
}

HWND Sibling(const Window& window, int step) {
    if (window.parent == nullptr) {
        return nullptr;
    }
    const auto& siblings = window.parent->children;
    const auto at = std::find(siblings.begin(), siblings.end(), &window) - siblings.begin() + step;
    return at < 0 || at >= static_cast<std::ptrdiff_t>(siblings.size())
               ? nullptr
               : siblings[static_cast<size_t>(at)]->handle;
}

bool HasText(HWND window, LPCWSTR text) {
    host::WideString own(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, 0);
    own.resize(
        static_cast<size_t>(GetWindowTextW(window, own.data(), static_cast<int>(own.size()))));
    return host::SameText(own, text);
}

}  // namespace

namespace host {

void Link(Window& window, Window& parent, HWND after) {
    Unlink(window);
    auto& siblings = parent.children;
    auto place = TopFor(window, siblings);
    if (after == HWND_BOTTOM) {
        place = siblings.end();
    } else if (after != HWND_TOP && after != HWND_TOPMOST && after != HWND_NOTOPMOST) {
        place = std::find_if(siblings.begin(), siblings.end(),
                             [&](const Window* sibling) { return sibling->handle == after; });
        place += place == siblings.end() ? 0 : 1;
    }
    siblings.insert(place, &window);
    window.parent = &parent;
}

void Unlink(Window& window) {
    if (window.parent != nullptr) {
        std::erase(window.parent->children, &window);
        window.parent = nullptr;
    }
}

Window& RootOf(Window& window) {
    Window* at = &window;
    while (at->parent != nullptr && at->parent != &Desktop()) {
        at = at->parent;
    }
    return *at;
}

bool IsShown(const Window& window) {
    for (const Window* at = &window; at != nullptr; at = at->parent) {
        if ((at->style & WS_VISIBLE) == 0) {
            return false;
        }
    }
    return true;
}

}  // namespace host

HWND WINAPI GetParent(HWND handle) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return nullptr;
    }
    if ((window->style & WS_POPUP) != 0) {
        return HandleOf(window->owner);
    }
    return (window->style & WS_CHILD) != 0 ? HandleOf(window->parent) : nullptr;
}

HWND WINAPI GetAncestor(HWND handle, UINT which) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr || window->parent == nullptr) {
        return nullptr;
    }
    if (which != GA_ROOT) {
        host::Unsupported("GetAncestor %u", which);
    }
    return host::RootOf(*window).handle;
}

HWND WINAPI GetWindow(HWND handle, UINT which) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return nullptr;
    }
    switch (which) {
        case GW_HWNDNEXT:
            return Sibling(*window, 1);
        case GW_HWNDPREV:
            return Sibling(*window, -1);
        case GW_OWNER:
            return HandleOf(window->owner);
        case GW_CHILD:
            return window->children.empty() ? nullptr : HandleOf(window->children.front());
        default:
            host::Unsupported("GetWindow %u", which);
    }
}

BOOL WINAPI IsChild(HWND parent, HWND handle) {
    if (!host::IsLive(handle)) {
        return FALSE;
    }
    const WindowPointer window = host::FindWindowObject(handle);
    for (const Window* at = window.get(); at->IsChildStyle() && at->parent != nullptr;) {
        at = at->parent;
        if (at->handle == parent) {
            return TRUE;
        }
    }
    return FALSE;
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC procedure, LPARAM parameter) {
    const WindowPointer window =
        host::FindWindowObject(parent == nullptr ? host::Desktop().handle : parent);
    if (window == nullptr) {
        return FALSE;
    }
    std::vector<HWND> all;
    CollectDescendants(*window, all);
    Enumerate(all, procedure, parameter);
    return TRUE;
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC procedure, LPARAM parameter) {
    if (thread != GetCurrentThreadId()) {
        return FALSE;
    }
    return Enumerate(host::ChildrenOf(host::Desktop()), procedure, parameter);
}

HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR text) {
    const WindowPointer window =
        host::FindWindowObject(parent == nullptr ? host::Desktop().handle : parent);
    if (window == nullptr) {
        return nullptr;
    }
    const std::shared_ptr<host::WindowClass> wanted =
        className == nullptr ? nullptr : host::FindClass(nullptr, className);
    if (className != nullptr && wanted == nullptr) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    bool searching = after == nullptr;
    for (HWND child : host::ChildrenOf(*window)) {
        if (searching && host::IsLive(child) &&
            (wanted == nullptr ||
             host::SameText(wanted->name, host::FindWindowObject(child)->windowClass->name)) &&
            (text == nullptr || HasText(child, text))) {
            return child;
        }
        searching = searching || child == after;
    }
    return nullptr;
}
