// What a window does with the messages that its class leaves to the system.
#include "windows/windows.h"

#include <algorithm>
#include <utility>

namespace {

using host::Window;
using host::WindowPointer;

LRESULT GetText(const Window& window, WPARAM room, LPWSTR text) {
    if (room == 0) {
        return 0;
    }
    const size_t copied = window.text.copy(text, room - 1);
    text[copied] = 0;
    return static_cast<LRESULT>(copied);
}

LRESULT Erase(const Window& window, HDC context) {
    HBRUSH brush = window.windowClass->data.hbrBackground;
    if (brush == nullptr) {
        return FALSE;
    }
    const ULONG_PTR color = reinterpret_cast<ULONG_PTR>(brush);
    if (color <= COLOR_INFOBK + 1) {
        brush = GetSysColorBrush(static_cast<int>(color) - 1);
    }
    RECT rect;
    GetClipBox(context, &rect);
    FillRect(context, &rect, brush);
    return TRUE;
}

LRESULT ControlColor(UINT message, HDC context) {
    if (message == WM_CTLCOLORSCROLLBAR) {
        SetTextColor(context, GetSysColor(COLOR_BTNHIGHLIGHT));
        SetBkColor(context, GetSysColor(COLOR_SCROLLBAR));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_SCROLLBAR));
    }
    const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    const int color = field ? COLOR_WINDOW : COLOR_BTNFACE;
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(context, GetSysColor(color));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(color));
}

void CalculateFrame(const Window& window, RECT* rect) {
    const bool menu = !window.IsChildStyle() && window.id != 0;
    const RECT widths = host::FrameWidths(window.style, menu, window.extendedStyle);
    rect->left += widths.left;
    rect->top += widths.top;
    rect->right = std::max(rect->right - widths.right, rect->left);
    rect->bottom = std::max(rect->bottom - widths.bottom, rect->top);
}

LRESULT PaintFrame(Window& window) {
    if (!host::IsShown(window)) {
        return 0;
    }
    if (const HDC context = GetWindowDC(window.handle)) {
        const RECT& client = window.client;
        ExcludeClipRect(context, client.left, client.top, client.right, client.bottom);
        host::DrawFrame(window, context);
        ReleaseDC(window.handle, context);
    }
    return 0;
}

LRESULT SetText(Window& window, LPCWSTR text) {
    window.text = text == nullptr ? host::WideString() : host::WideString(text);
    if ((window.style & WS_CAPTION) == WS_CAPTION) {
        PaintFrame(window);
    }
    return TRUE;
}

LRESULT PositionChanged(Window& window, const WINDOWPOS& place) {
    constexpr UINT kClientSameSize = 0x800;
    constexpr UINT kClientSamePlace = 0x1000;
    if ((place.flags & kClientSamePlace) == 0) {
        host::TellMove(window);
    }
    if ((place.flags & kClientSameSize) == 0) {
        host::TellSize(window);
    }
    return 0;
}

LRESULT HitTest(const Window& window, LPARAM place) {
    const POINT point = {static_cast<SHORT>(LOWORD(place)), static_cast<SHORT>(HIWORD(place))};
    const RECT rect = host::ScreenRectOf(window);
    const POINT origin = host::ClientOriginOf(window);
    const RECT client = host::ClientRectOf(window);
    if (!PtInRect(&rect, point)) {
        return HTNOWHERE;
    }
    if (PtInRect(&client, {point.x - origin.x, point.y - origin.y})) {
        return HTCLIENT;
    }
    const bool onCaption = (window.style & WS_CAPTION) == WS_CAPTION && point.y < origin.y;
    return onCaption ? HTCAPTION : HTBORDER;
}

// To the parent of a child, what the child has no use for.
LRESULT PassUp(const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.IsChildStyle() && window.parent != nullptr
               ? host::Send(window.parent->handle, message, wParam, lParam)
               : 0;
}

LRESULT SetIcon(Window& window, WPARAM which, LPARAM icon) {
    HICON& kept = window.icons[which == 0 ? 0 : 1];
    return reinterpret_cast<LRESULT>(std::exchange(kept, reinterpret_cast<HICON>(icon)));
}

LRESULT SetRedraw(Window& window, bool redraw) {
    window.style = redraw ? window.style | WS_VISIBLE : window.style & ~DWORD{WS_VISIBLE};
    return 0;
}

LRESULT DoSystemCommand(HWND handle, WPARAM command) {
    if ((command & 0xFFF0) != SC_CLOSE) {
        host::Unsupported("WM_SYSCOMMAND %#x", static_cast<unsigned>(command));
    }
    host::Send(handle, WM_CLOSE, 0, 0);
    return 0;
}

LRESULT Paint(HWND handle) {
    PAINTSTRUCT paint;
    if (BeginPaint(handle, &paint) != nullptr) {
        EndPaint(handle, &paint);
    }
    return 0;
}

}  // namespace

LRESULT WINAPI DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const WindowPointer window = host::FindWindowObject(handle);
    if (window == nullptr) {
        return 0;
    }
    switch (message) {
        case WM_NCCREATE: {
            const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
            // A number names a picture and is no text.
            if (create != nullptr && !IS_INTRESOURCE(create->lpszName)) {
                window->text = create->lpszName;
            }
            return TRUE;
        }
        case WM_NCCALCSIZE:
            CalculateFrame(*window, reinterpret_cast<RECT*>(lParam));
            return 0;
        case WM_SETTEXT:
            return SetText(*window, reinterpret_cast<LPCWSTR>(lParam));
        case WM_GETTEXT:
            return GetText(*window, wParam, reinterpret_cast<LPWSTR>(lParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->text.size());
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_PAINT:
            return Paint(handle);
        case WM_ERASEBKGND:
            return Erase(*window, reinterpret_cast<HDC>(wParam));
        case WM_NCPAINT:
            return PaintFrame(*window);
        case WM_NCACTIVATE:
            window->active = wParam != FALSE;
            if ((window->style & WS_CAPTION) == WS_CAPTION) {
                PaintFrame(*window);
            }
            return TRUE;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) {
                SetFocus(handle);
            }
            return 0;
        case WM_WINDOWPOSCHANGED:
            return PositionChanged(*window, *reinterpret_cast<const WINDOWPOS*>(lParam));
        case WM_NCHITTEST:
            return HitTest(*window, lParam);
        case WM_SYSCOMMAND:
            return DoSystemCommand(handle, wParam);
        case WM_SYSKEYDOWN:
            if (wParam == VK_F4) {
                PostMessageW(GetAncestor(handle, GA_ROOT), WM_SYSCOMMAND, SC_CLOSE, 0);
            }
            return 0;
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
            return ControlColor(message, reinterpret_cast<HDC>(wParam));
        case WM_NOTIFYFORMAT:
            return lParam == NF_QUERY ? NFR_UNICODE : 0;
        case WM_SETREDRAW:
            return SetRedraw(*window, wParam != FALSE);
        case WM_SETICON:
            return SetIcon(*window, wParam, lParam);
        case WM_GETICON:
            return reinterpret_cast<LRESULT>(window->icons[wParam == 0 ? 0 : 1]);
        case WM_MOUSEACTIVATE:
            return MA_ACTIVATE;
        case WM_HELP:
        case WM_CONTEXTMENU:
        case WM_MOUSEWHEEL:
            return PassUp(*window, message, wParam, lParam);
        default:
            return 0;
    }
}
