// Where windows are, how large, and whether they are shown.
#include "windows/windows.h"

#include <algorithm>

namespace {

using host::Window;
using host::WindowPointer;

// What a WM_WINDOWPOSCHANGED says beyond the flags of SetWindowPos.
constexpr UINT kClientSameSize = 0x800;
constexpr UINT kClientSamePlace = 0x1000;
constexpr UINT kNothingMoves = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER;

bool SameSize(const RECT& a, const RECT& b) {
    return a.right - a.left == b.right - b.left && a.bottom - a.top == b.bottom - b.top;
}

RECT Shifted(RECT rect, POINT by) {
    return {rect.left + by.x, rect.top + by.y, rect.right + by.x, rect.bottom + by.y};
}

bool IsAlreadyBehind(const Window& window, HWND after) {
    if (window.parent == nullptr) {
        return true;
    }
    const auto& siblings = window.parent->children;
    if (after == HWND_TOP) {
        return siblings.front() == &window;
    }
    if (after == HWND_BOTTOM) {
        return siblings.back() == &window;
    }
    return after == window.handle || GetWindow(window.handle, GW_HWNDPREV) == after;
}

// Strikes out what would change nothing.
void Simplify(const Window& window, WINDOWPOS& place) {
    const RECT& rect = window.rect;
    if ((window.style & WS_VISIBLE) != 0) {
        place.flags &= ~UINT{SWP_SHOWWINDOW};
    } else {
        place.flags &= ~UINT{SWP_HIDEWINDOW};
    }
    place.cx = std::max(place.cx, 0);
    place.cy = std::max(place.cy, 0);
    if (rect.right - rect.left == place.cx && rect.bottom - rect.top == place.cy) {
        place.flags |= SWP_NOSIZE;
    }
    if (rect.left == place.x && rect.top == place.y) {
        place.flags |= SWP_NOMOVE;
    }
    const bool topmostChange =
        place.hwndInsertAfter == HWND_TOPMOST || place.hwndInsertAfter == HWND_NOTOPMOST;
    if (!topmostChange && IsAlreadyBehind(window, place.hwndInsertAfter)) {
        place.flags |= SWP_NOZORDER;
    }
}

void Reorder(Window& window, HWND after) {
    if (after == HWND_TOPMOST) {
        window.extendedStyle |= WS_EX_TOPMOST;
    } else if (after == HWND_NOTOPMOST) {
        window.extendedStyle &= ~DWORD{WS_EX_TOPMOST};
    }
    host::Link(window, *window.parent, after);
}

void ShowOrHide(Window& window, UINT flags) {
    if ((flags & SWP_SHOWWINDOW) != 0) {
        window.style |= WS_VISIBLE;
        host::InvalidateAll(window);
    } else if ((flags & SWP_HIDEWINDOW) != 0) {
        window.style &= ~DWORD{WS_VISIBLE};
        window.update = {};
        if (window.parent != nullptr && window.IsChildStyle()) {
            host::InvalidateUnder(*window.parent, window.rect);
            host::EraseNow(*window.parent);
        }
    }
}

bool Covers(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

// The window at its new place: what it needs to paint there, and what it uncovers.
void Repaint(Window& window, const RECT& before, UINT flags) {
    if ((flags & SWP_NOREDRAW) != 0 || (window.style & WS_VISIBLE) == 0) {
        return;
    }
    const bool movedChild = window.IsChildStyle() && (flags & SWP_NOMOVE) == 0;
    const bool uncovered = (window.style & WS_CLIPSIBLINGS) != 0 && (flags & SWP_NOZORDER) == 0;
    if ((flags & SWP_NOSIZE) == 0 || movedChild || (window.IsChildStyle() && uncovered)) {
        host::InvalidateAll(window);
    } else if ((flags & SWP_FRAMECHANGED) != 0) {
        (flags & kClientSameSize) != 0 ? void(window.paintFrame = true)
                                       : host::InvalidateAll(window);
    }
    if (window.IsChildStyle() && !Covers(window.rect, before)) {
        host::InvalidateUnder(*window.parent, before);
    }
    if ((flags & (SWP_SHOWWINDOW | SWP_FRAMECHANGED)) != 0) {
        host::EraseNow(window);
    }
}

}  // namespace

namespace host {

POINT OriginOf(const Window& window) {
    POINT origin = {window.rect.left, window.rect.top};
    for (const Window* at = window.parent; at != nullptr; at = at->parent) {
        origin.x += at->rect.left + at->client.left;
        origin.y += at->rect.top + at->client.top;
    }
    return origin;
}

POINT ClientOriginOf(const Window& window) {
    const POINT origin = OriginOf(window);
    return {origin.x + window.client.left, origin.y + window.client.top};
}

RECT ScreenRectOf(const Window& window) {
    const POINT origin = OriginOf(window);
    return Shifted(window.rect, {origin.x - window.rect.left, origin.y - window.rect.top});
}

RECT ClientRectOf(const Window& window) {
    return Shifted(window.client, {-window.client.left, -window.client.top});
}

void CalculateClient(Window& window, bool created) {
    NCCALCSIZE_PARAMS parameters = {};
    const POINT origin = {window.rect.left, window.rect.top};
    parameters.rgrc[0] = window.rect;
    Send(window.handle, WM_NCCALCSIZE, created ? FALSE : TRUE,
         reinterpret_cast<LPARAM>(&parameters));
    RECT client = Shifted(parameters.rgrc[0], {-origin.x, -origin.y});
    client.right = std::max(client.left, client.right);
    client.bottom = std::max(client.top, client.bottom);
    window.client = client;
}

void TellSize(Window& window) {
    const RECT client = ClientRectOf(window);
    Send(window.handle, WM_SIZE, 0, MAKELPARAM(client.right, client.bottom));
}

void TellMove(Window& window) {
    const LPARAM place =
        MAKELPARAM(window.rect.left + window.client.left, window.rect.top + window.client.top);
    Send(window.handle, WM_MOVE, 0, place);
}

}  // namespace host

BOOL WINAPI SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    const RECT before = window->rect;
    WINDOWPOS place = {handle, after, x, y, width, height, flags};
    if ((flags & SWP_NOMOVE) != 0) {
        place.x = before.left;
        place.y = before.top;
    }
    if ((flags & SWP_NOSIZE) != 0) {
        place.cx = before.right - before.left;
        place.cy = before.bottom - before.top;
    }
    host::Send(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
    if (!host::IsLive(handle)) {
        return FALSE;
    }
    Simplify(*window, place);
    const RECT clientBefore = Shifted(window->client, {before.left, before.top});
    if ((place.flags & SWP_NOZORDER) == 0) {
        Reorder(*window, place.hwndInsertAfter);
    }
    window->rect = {place.x, place.y, place.x + place.cx, place.y + place.cy};
    if ((place.flags & SWP_FRAMECHANGED) != 0 || (place.flags & SWP_NOSIZE) == 0) {
        host::CalculateClient(*window, false);
        host::ResizePicture(*window);
    }
    const RECT client = Shifted(window->client, {window->rect.left, window->rect.top});
    place.flags |= SameSize(client, clientBefore) ? kClientSameSize : 0;
    place.flags |=
        client.left == clientBefore.left && client.top == clientBefore.top ? kClientSamePlace : 0;
    ShowOrHide(*window, place.flags);
    if ((flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) == 0 && !window->IsChildStyle() &&
        ((flags & SWP_NOZORDER) == 0 || (flags & SWP_SHOWWINDOW) != 0)) {
        host::Activate(handle);
    }
    if (host::IsLive(handle)) {
        Repaint(*window, before, place.flags);
    }
    const bool changed = (place.flags & kNothingMoves) != kNothingMoves ||
                         (place.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED)) != 0;
    if (changed && host::IsLive(handle)) {
        host::Send(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&place));
    }
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    return SetWindowPos(window, nullptr, x, y, width, height,
                        SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0 : SWP_NOREDRAW));
}

BOOL WINAPI ShowWindow(HWND handle, int command) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    const bool wasVisible = (window->style & WS_VISIBLE) != 0;
    const bool show = command != SW_HIDE;
    UINT flags = SWP_NOSIZE | SWP_NOMOVE | (show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
    switch (command) {
        case SW_SHOWNORMAL:
        case SW_SHOW:
        case SW_HIDE:
            break;
        case SW_SHOWNOACTIVATE:
        case SW_SHOWNA:
            flags |= SWP_NOACTIVATE | SWP_NOZORDER;
            break;
        default:
            host::Unsupported("ShowWindow %d", command);
    }
    const bool isActive = GetActiveWindow() == handle;
    if (show == wasVisible && (!show || window->IsChildStyle() || isActive)) {
        return wasVisible;
    }
    if (window->IsChildStyle() || (!show && !isActive)) {
        flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    }
    if (show != wasVisible) {
        host::Send(handle, WM_SHOWWINDOW, show, 0);
        if (!host::IsLive(handle)) {
            return wasVisible;
        }
    }
    if (window->IsChildStyle() && !host::IsShown(*window->parent)) {
        window->style = show ? window->style | WS_VISIBLE : window->style & ~DWORD{WS_VISIBLE};
    } else {
        SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, flags);
    }
    if (!host::IsLive(handle)) {
        return wasVisible;
    }
    if (!show) {
        host::ActivateAnotherThan(*window);
        host::LeaveFocus(*window);
    } else if (window->sizeUntold) {
        window->sizeUntold = false;
        host::TellSize(*window);
        host::TellMove(*window);
    }
    return wasVisible;
}

BOOL WINAPI IsWindowVisible(HWND handle) {
    const WindowPointer window = host::FindWindowObject(handle);
    return window != nullptr && host::IsShown(*window);
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    *rect = host::ScreenRectOf(*window);
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return FALSE;
    }
    *rect = host::ClientRectOf(*window);
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND window, LPPOINT point) {
    if (!host::IsLive(window)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
    MapWindowPoints(window, nullptr, point, 1);
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND window, LPPOINT point) {
    if (!host::IsLive(window)) {
        return host::Fail(ERROR_INVALID_WINDOW_HANDLE);
    }
    MapWindowPoints(nullptr, window, point, 1);
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
    POINT offset = {0, 0};
    for (const auto& [handle, sign] : {std::pair{from, 1}, std::pair{to, -1}}) {
        if (handle == nullptr) {
            continue;
        }
        const WindowPointer window = host::FindWindowObject(handle);
        if (window == nullptr) {
            return 0;
        }
        const POINT origin = host::ClientOriginOf(*window);
        offset.x += sign * origin.x;
        offset.y += sign * origin.y;
    }
    for (UINT i = 0; i < count; ++i) {
        points[i].x += offset.x;
        points[i].y += offset.y;
    }
    return MAKELONG(offset.x, offset.y);
}
