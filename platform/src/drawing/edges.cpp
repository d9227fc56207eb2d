// The drawn parts of the classic controls: edges, buttons, check boxes, arrows.
#include "state.h"

namespace {

constexpr int kNoColor = -1;

// The colours of one ring of an edge.
struct Ring {
    UINT bit;  // BDR_...
    int topLeft;
    int bottomRight;
    int softTopLeft;  // of push buttons, whose outer ring is the lighter one
    int softBottomRight;
    int flat;
};
constexpr Ring kRings[] = {
    {BDR_RAISEDOUTER, COLOR_3DLIGHT, COLOR_3DDKSHADOW, COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW,
     COLOR_BTNSHADOW},
    {BDR_SUNKENOUTER, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW, COLOR_BTNHIGHLIGHT,
     COLOR_BTNSHADOW},
    {BDR_RAISEDINNER, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW, COLOR_3DLIGHT, COLOR_BTNSHADOW,
     COLOR_BTNFACE},
    {BDR_SUNKENINNER, COLOR_3DDKSHADOW, COLOR_3DLIGHT, COLOR_BTNSHADOW, COLOR_3DLIGHT,
     COLOR_BTNFACE},
};

void FillSystem(HDC context, const RECT& rect, int color) {
    if (color != kNoColor) {
        FillRect(context, &rect, GetSysColorBrush(color));
    }
}

// Draws the sides wanted of a ring and takes them off the rectangle.
void DrawRing(HDC context, RECT* rect, const Ring& ring, UINT flags) {
    int topLeft = ring.topLeft;
    int bottomRight = ring.bottomRight;
    if ((flags & BF_FLAT) != 0) {
        topLeft = bottomRight = ring.flat;
    } else if ((flags & BF_SOFT) != 0) {
        topLeft = ring.softTopLeft;
        bottomRight = ring.softBottomRight;
    }
    const RECT r = *rect;
    const struct {
        UINT side;
        RECT line;
        int color;
        LONG RECT::*edge;
        int step;
    } sides[] = {
        {BF_LEFT, {r.left, r.top, r.left + 1, r.bottom}, topLeft, &RECT::left, 1},
        {BF_TOP, {r.left, r.top, r.right, r.top + 1}, topLeft, &RECT::top, 1},
        {BF_RIGHT, {r.right - 1, r.top, r.right, r.bottom}, bottomRight, &RECT::right, -1},
        {BF_BOTTOM, {r.left, r.bottom - 1, r.right, r.bottom}, bottomRight, &RECT::bottom, -1},
    };
    for (const auto& side : sides) {
        if ((flags & side.side) != 0) {
            FillSystem(context, side.line, side.color);
            rect->*side.edge += side.step;
        }
    }
}

// What each letter of a drawn pattern stands for.
int ColorOfLetter(char letter) {
    switch (letter) {
        case 'S':
            return COLOR_BTNSHADOW;
        case 'D':
            return COLOR_3DDKSHADOW;
        case 'H':
            return COLOR_BTNHIGHLIGHT;
        case 'L':
            return COLOR_3DLIGHT;
        default:
            return kNoColor;
    }
}

// Draws a pattern of letters; 'I' is the interior and 'T' the mark, in colours of their own.
template <size_t kRows>
void DrawPattern(HDC context, int x, int y, const char* const (&rows)[kRows], int interior,
                 int mark) {
    for (const char* row : rows) {
        for (int column = 0; row[column] != '\0'; ++column) {
            const char letter = row[column];
            const int color = letter == 'I'   ? interior
                              : letter == 'T' ? mark
                                              : ColorOfLetter(letter);
            FillSystem(context, {x + column, y, x + column + 1, y + 1}, color);
        }
        ++y;
    }
}

constexpr const char* kRadio[] = {
    "....SSSS....", "..SSDDDDSS..", ".SDDIIIIDDH.", ".SDIIIIIILH.", "SDIIIIIIIILH", "SDIIIIIIIILH",
    "SDIIIIIIIILH", "SDIIIIIIIILH", ".SDIIIIIILH.", ".SLLIIIILLH.", "..HHLLLLHH..", "....HHHH....",
};
constexpr const char* kDot[] = {".TT.", "TTTT", "TTTT", ".TT."};
constexpr const char* kTick[] = {
    "......T", ".....TT", "T...TTT", "TT.TTT.", "TTTTT..", ".TTT...", "..T....",
};
constexpr const char* kCross[] = {
    "TT....TT", ".TT..TT.", "..TTTT..", "...TT...", "..TTTT..", ".TT..TT.", "TT....TT",
};
void DrawPush(HDC context, RECT rect, UINT state) {
    const bool down = (state & DFCS_PUSHED) != 0;
    DrawEdge(context, &rect, down ? EDGE_SUNKEN : EDGE_RAISED,
             BF_RECT | BF_SOFT | BF_ADJUST | BF_MIDDLE);
}

void DrawCheck(HDC context, const RECT& place, UINT state) {
    const int size = std::min(place.right - place.left, place.bottom - place.top);
    RECT box = {place.left, place.top, place.left + size, place.top + size};
    OffsetRect(&box, (place.right - place.left - size) / 2, (place.bottom - place.top - size) / 2);
    const bool grey = (state & (DFCS_INACTIVE | DFCS_PUSHED)) != 0;
    DrawEdge(context, &box, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    FillSystem(context, box, grey ? COLOR_BTNFACE : COLOR_WINDOW);
    if ((state & DFCS_CHECKED) != 0) {
        DrawPattern(context, box.left + (box.right - box.left - 7) / 2,
                    box.top + (box.bottom - box.top - 7) / 2, kTick, kNoColor,
                    (state & DFCS_INACTIVE) != 0 ? COLOR_BTNSHADOW : COLOR_WINDOWTEXT);
    }
}

void DrawRadio(HDC context, const RECT& rect, UINT state) {
    const int x = rect.left + (rect.right - rect.left - 12) / 2;
    const int y = rect.top + (rect.bottom - rect.top - 12) / 2;
    const bool grey = (state & (DFCS_INACTIVE | DFCS_PUSHED)) != 0;
    DrawPattern(context, x, y, kRadio, grey ? COLOR_BTNFACE : COLOR_WINDOW, kNoColor);
    if ((state & DFCS_CHECKED) != 0) {
        DrawPattern(context, x + 4, y + 4, kDot, kNoColor,
                    (state & DFCS_INACTIVE) != 0 ? COLOR_BTNSHADOW : COLOR_WINDOWTEXT);
    }
}

// A triangle that grows by a pixel on both sides with each step away from its tip.
void DrawArrow(HDC context, const RECT& rect, UINT direction, int color) {
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const int steps = std::max(1, std::min(width, height) / 4);
    const int centerX = rect.left + (width - 1) / 2;
    const int centerY = rect.top + (height - 1) / 2;
    for (int step = 0; step < steps; ++step) {
        const int across = step;
        const bool towardsStart = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLLEFT;
        const int along = towardsStart ? step - steps / 2 : steps / 2 - step;
        const bool vertical = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLDOWN;
        const RECT line = vertical ? RECT{centerX - across, centerY + along, centerX + across + 1,
                                          centerY + along + 1}
                                   : RECT{centerX + along, centerY - across, centerX + along + 1,
                                          centerY + across + 1};
        FillSystem(context, line, color);
    }
}

void DrawScroll(HDC context, RECT rect, UINT state) {
    const bool pushed = (state & DFCS_PUSHED) != 0;
    const UINT kind = state & 0xF;
    const UINT direction = kind == DFCS_SCROLLCOMBOBOX ? UINT{DFCS_SCROLLDOWN} : kind;
    if (direction > DFCS_SCROLLRIGHT) {
        host::Unsupported("DrawFrameControl of scroll part %u", kind);
    }
    const UINT flat = (state & DFCS_FLAT) != 0 ? BF_FLAT : 0;
    DrawEdge(context, &rect, pushed ? EDGE_SUNKEN : EDGE_RAISED,
             BF_RECT | BF_ADJUST | BF_MIDDLE | flat | (pushed ? BF_SOFT : 0));
    if (pushed) {
        OffsetRect(&rect, 1, 1);
    }
    if ((state & DFCS_INACTIVE) != 0) {
        RECT shadow = rect;
        OffsetRect(&shadow, 1, 1);
        DrawArrow(context, shadow, direction, COLOR_BTNHIGHLIGHT);
    }
    DrawArrow(context, rect, direction,
              (state & DFCS_INACTIVE) != 0 ? COLOR_BTNSHADOW : COLOR_BTNTEXT);
}

void DrawCloseButton(HDC context, const RECT& rect) {
    DrawPush(context, rect, 0);
    DrawPattern(context, (rect.left + rect.right) / 2 - 4, (rect.top + rect.bottom) / 2 - 4, kCross,
                kNoColor, COLOR_BTNTEXT);
}

}  // namespace

BOOL WINAPI DrawEdge(HDC context, LPRECT rect, UINT edge, UINT flags) {
    constexpr UINT kKnown = BF_RECT | BF_MIDDLE | BF_ADJUST | BF_FLAT | BF_SOFT;
    if ((flags & ~kKnown) != 0 || (edge & ~0xFu) != 0) {
        host::Unsupported("DrawEdge(%#x, %#x)", edge, flags);
    }
    if (host::FindContext(context) == nullptr) {
        return FALSE;
    }
    RECT inside = *rect;
    for (const Ring& ring : kRings) {  // the outer ones come first
        if ((edge & ring.bit) != 0) {
            DrawRing(context, &inside, ring, flags);
        }
    }
    if ((flags & BF_MIDDLE) != 0) {
        FillSystem(context, inside, COLOR_BTNFACE);
    }
    if ((flags & BF_ADJUST) != 0) {
        *rect = inside;
    }
    return TRUE;
}

BOOL WINAPI DrawFrameControl(HDC context, LPRECT rect, UINT type, UINT state) {
    constexpr UINT kKnown = 0x1F | DFCS_INACTIVE | DFCS_PUSHED | DFCS_CHECKED | DFCS_FLAT;
    if ((state & ~kKnown) != 0) {
        host::Unsupported("DrawFrameControl in state %#x", state);
    }
    if (host::FindContext(context) == nullptr) {
        return FALSE;
    }
    const UINT button = state & 0x1F;
    if (type == DFC_SCROLL) {
        DrawScroll(context, *rect, state);
    } else if (type == DFC_CAPTION && state == DFCS_CAPTIONCLOSE) {
        DrawCloseButton(context, *rect);
    } else if (type == DFC_BUTTON && button == DFCS_BUTTONPUSH) {
        DrawPush(context, *rect, state);
    } else if (type == DFC_BUTTON && button == DFCS_BUTTONRADIO) {
        DrawRadio(context, *rect, state);
    } else if (type == DFC_BUTTON && button == DFCS_BUTTONCHECK) {
        DrawCheck(context, *rect, state);
    } else {
        host::Unsupported("DrawFrameControl(%u, %#x)", type, state);
    }
    return TRUE;
}
