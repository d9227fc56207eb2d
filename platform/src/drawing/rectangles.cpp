// The arithmetic of rectangles.
#include "surface.h"

BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy) {
    *rect = {rect->left - dx, rect->top - dy, rect->right + dx, rect->bottom + dy};
    return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy) {
    *rect = {rect->left + dx, rect->top + dy, rect->right + dx, rect->bottom + dy};
    return TRUE;
}

BOOL WINAPI IntersectRect(LPRECT result, const RECT* a, const RECT* b) {
    const RECT common = host::Common(*a, *b);
    const bool empty = host::IsEmpty(*a) || host::IsEmpty(*b) || host::IsEmpty(common);
    *result = empty ? RECT{} : common;
    return !empty;
}

BOOL WINAPI UnionRect(LPRECT result, const RECT* a, const RECT* b) {
    if (host::IsEmpty(*a) || host::IsEmpty(*b)) {
        const RECT other = host::IsEmpty(*a) ? *b : *a;
        *result = host::IsEmpty(other) ? RECT{} : other;
    } else {
        *result = {std::min(a->left, b->left), std::min(a->top, b->top),
                   std::max(a->right, b->right), std::max(a->bottom, b->bottom)};
    }
    return !host::IsEmpty(*result);
}

BOOL WINAPI EqualRect(const RECT* a, const RECT* b) {
    return a->left == b->left && a->top == b->top && a->right == b->right && a->bottom == b->bottom;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point) {
    return point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}
