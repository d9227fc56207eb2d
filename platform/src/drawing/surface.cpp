#include "surface.h"

namespace host {

void Surface::Write(int x, int y, Pixel pixel) const {
    BYTE* at = top + y * stride + x * bytes;
    if (monochrome) {
        const unsigned grey =
            ((pixel >> 16 & 0xFF) * 30 + (pixel >> 8 & 0xFF) * 59 + (pixel & 0xFF) * 11) / 100;
        pixel = grey < 128 ? 0 : 0xFFFFFF;
    }
    at[0] = static_cast<BYTE>(pixel);
    at[1] = static_cast<BYTE>(pixel >> 8);
    at[2] = static_cast<BYTE>(pixel >> 16);
    if (bytes == 4) {
        at[3] = 0;
    }
}

Surface SurfaceOf(Picture& picture) {
    Surface surface;
    surface.top = reinterpret_cast<BYTE*>(picture.pixels.data());
    surface.stride = std::ptrdiff_t{4} * picture.width;
    surface.width = picture.width;
    surface.height = picture.height;
    return surface;
}

RECT Common(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

bool IsEmpty(const RECT& rect) {
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

void KeepInside(Region& region, const RECT& rect) {
    for (RECT& part : region) {
        part = Common(part, rect);
    }
    std::erase_if(region, IsEmpty);
}

void KeepOutside(Region& region, const RECT& rect) {
    Region rest;
    for (const RECT& part : region) {
        const RECT hole = Common(part, rect);
        if (IsEmpty(hole)) {
            rest.push_back(part);
            continue;
        }
        const RECT around[] = {
            {part.left, part.top, part.right, hole.top},
            {part.left, hole.top, hole.left, hole.bottom},
            {hole.right, hole.top, part.right, hole.bottom},
            {part.left, hole.bottom, part.right, part.bottom},
        };
        std::copy_if(std::begin(around), std::end(around), std::back_inserter(rest),
                     [](const RECT& r) { return !IsEmpty(r); });
    }
    region = rest;
}

bool UsesSource(DWORD operation) {
    // A ternary operation's code has its truth table in the third byte: the source matters when
    // the halves for source 0 and source 1 differ.
    const DWORD table = operation >> 16;
    return (table >> 2 & 0x33) != (table & 0x33);
}

Pixel Combine(DWORD operation, Pixel target, Pixel source, Pixel pattern) {
    switch (operation) {
        case SRCCOPY:
            return source;
        case SRCPAINT:
            return target | source;
        case MERGECOPY:
            return source & pattern;
        case PATCOPY:
            return pattern;
        case WHITENESS:
            return 0xFFFFFF;
        default:
            Unsupported("raster operation %#x", operation);
    }
}

}  // namespace host
