// The frames of windows: how wide they are, and how they look.
#include "windows/windows.h"

namespace {

using host::Window;

// What is around the client edge: an edge, the border proper and what sizing takes hold of.
int OuterWidth(DWORD style, DWORD extendedStyle) {
    const bool modal = (extendedStyle & WS_EX_DLGMODALFRAME) != 0;
    int width = 0;
    if ((extendedStyle & WS_EX_STATICEDGE) != 0 && !modal) {
        width = 1;
    } else if (modal || (style & (WS_THICKFRAME | WS_DLGFRAME)) != 0) {
        width = 2;
    }
    width += modal || (style & WS_CAPTION) != 0 ? 1 : 0;
    return width + ((style & WS_THICKFRAME) != 0 ? 1 : 0);
}

bool HasCaption(DWORD style) {
    return (style & WS_CAPTION) == WS_CAPTION;
}

bool HasMenu(const Window& window) {
    return !window.IsChildStyle() && window.id != 0;
}

RECT DrawOuterEdge(const Window& window, HDC context, RECT rect) {
    const int width = OuterWidth(window.style, window.extendedStyle);
    if ((window.style & (WS_THICKFRAME | WS_DLGFRAME)) != 0 ||
        (window.extendedStyle & WS_EX_DLGMODALFRAME) != 0) {
        RECT inner = rect;
        DrawEdge(context, &inner, EDGE_RAISED, BF_RECT | BF_ADJUST);
        for (int i = 2; i < width; ++i) {
            FrameRect(context, &inner, GetSysColorBrush(COLOR_BTNFACE));
            InflateRect(&inner, -1, -1);
        }
    } else if ((window.extendedStyle & WS_EX_STATICEDGE) != 0) {
        DrawEdge(context, &rect, BDR_SUNKENOUTER, BF_RECT);
    } else if ((window.style & WS_BORDER) != 0) {
        FrameRect(context, &rect, GetSysColorBrush(COLOR_WINDOWFRAME));
    }
    InflateRect(&rect, -width, -width);
    return rect;
}

void DrawCaption(const Window& window, HDC context, RECT bar) {
    FillRect(context, &bar,
             GetSysColorBrush(window.active ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION));
    if ((window.style & WS_SYSMENU) != 0) {
        const int height = bar.bottom - bar.top - 4;
        RECT box = {bar.right - 2 - (height + 2), bar.top + 2, bar.right - 2, bar.bottom - 2};
        DrawFrameControl(context, &box, DFC_CAPTION, DFCS_CAPTIONCLOSE);
        bar.right = box.left - 2;
    }
    bar.left += 4;
    const HGDIOBJ font = SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    SetTextColor(context, GetSysColor(COLOR_CAPTIONTEXT));
    SetBkMode(context, TRANSPARENT);
    DrawTextW(context, window.text.c_str(), static_cast<int>(window.text.size()), &bar,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(context, font);
}

void DrawMenuItems(const Window& window, HDC context, RECT bar) {
    FillRect(context, &bar, GetSysColorBrush(COLOR_MENU));
    const HMENU menu = reinterpret_cast<HMENU>(window.id);
    const HGDIOBJ font = SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    SetTextColor(context, GetSysColor(COLOR_MENUTEXT));
    SetBkMode(context, TRANSPARENT);
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        WCHAR text[80];
        GetMenuStringW(menu, static_cast<UINT>(i), text, 80, MF_BYPOSITION);
        RECT place = {0, 0, 0, 0};
        DrawTextW(context, text, -1, &place, DT_SINGLELINE | DT_CALCRECT);
        bar.left += 6;
        DrawTextW(context, text, -1, &bar, DT_SINGLELINE | DT_VCENTER);
        bar.left += place.right + 6;
    }
    SelectObject(context, font);
}

}  // namespace

namespace host {

RECT FrameWidths(DWORD style, bool menu, DWORD extendedStyle) {
    const int outer = OuterWidth(style, extendedStyle);
    const int inner = (extendedStyle & WS_EX_CLIENTEDGE) != 0 ? GetSystemMetrics(SM_CXEDGE) : 0;
    const int caption = HasCaption(style) ? GetSystemMetrics(SM_CYCAPTION) : 0;
    const int bar = menu ? GetSystemMetrics(SM_CYMENU) : 0;
    const int side = outer + inner;
    return {side, side + caption + bar, side, side};
}

void DrawFrame(Window& window, HDC context) {
    const RECT full = {0, 0, window.rect.right - window.rect.left,
                       window.rect.bottom - window.rect.top};
    RECT rect = DrawOuterEdge(window, context, full);
    if (HasCaption(window.style)) {
        RECT bar = rect;
        // The last row under the caption is the frame's.
        bar.bottom = bar.top + GetSystemMetrics(SM_CYCAPTION) - 1;
        DrawCaption(window, context, bar);
        rect.top = bar.bottom + 1;
        const RECT line = {bar.left, bar.bottom, bar.right, rect.top};
        FillRect(context, &line, GetSysColorBrush(COLOR_BTNFACE));
    }
    if (HasMenu(window)) {
        RECT bar = rect;
        bar.bottom = bar.top + GetSystemMetrics(SM_CYMENU);
        DrawMenuItems(window, context, bar);
        rect.top = bar.bottom;
    }
    if ((window.extendedStyle & WS_EX_CLIENTEDGE) != 0) {
        DrawEdge(context, &rect, EDGE_SUNKEN, BF_RECT);
    }
}

}  // namespace host

BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD extendedStyle) {
    const RECT widths = host::FrameWidths(style, menu != FALSE, extendedStyle);
    rect->left -= widths.left;
    rect->top -= widths.top;
    rect->right += widths.right;
    rect->bottom += widths.bottom;
    return TRUE;
}
