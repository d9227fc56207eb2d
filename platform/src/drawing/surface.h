// Pixels in memory, the parts of them that may be drawn on, and how what is drawn combines with
// what is there. Pixels here are 0x00RRGGBB, as in host::Picture.
#pragma once

#include "drawing.h"

#include <algorithm>

namespace host {

using Pixel = std::uint32_t;

/// Marks a place for which a source has no pixel.
constexpr Pixel kNoPixel = 0xFF000000;

constexpr Pixel PixelOf(COLORREF color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr COLORREF ColorOf(Pixel pixel) {
    return PixelOf(pixel);  // the same exchange of two bytes
}

/// Rows of pixels of a picture, a bitmap or a section whose memory the program sees too.
struct Surface {
    BYTE* top = nullptr;        // the first byte of the top row
    std::ptrdiff_t stride = 0;  // bytes from a row to the one below
    int width = 0;
    int height = 0;
    int bytes = 4;  // of a pixel: 3 or 4
    bool monochrome = false;

    Pixel Read(int x, int y) const {
        const BYTE* at = top + y * stride + x * bytes;
        return at[0] | Pixel{at[1]} << 8 | Pixel{at[2]} << 16;
    }
    void Write(int x, int y, Pixel pixel) const;
    RECT Bounds() const { return {0, 0, width, height}; }
    bool Has(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

Surface SurfaceOf(Picture& picture);

/// The result of a ternary raster operation on a pixel; stops at an unknown one.
Pixel Combine(DWORD operation, Pixel target, Pixel source, Pixel pattern);
bool UsesSource(DWORD operation);

}  // namespace host
