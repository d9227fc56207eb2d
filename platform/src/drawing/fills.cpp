// Brushes at work: filling and framing rectangles, focus rectangles.
#include "state.h"

namespace host {

Paint::Paint(const Context& context, const Brush* brush) {
    if (brush == nullptr) {
        return;
    }
    color_ = PixelOf(brush->color);
    textColor_ = PixelOf(context.state.textColor);
    backColor_ = PixelOf(context.state.backColor);
    origin_ = {context.origin.x + context.state.brushOrigin.x,
               context.origin.y + context.state.brushOrigin.y};
    if (brush->pattern) {
        // Only read from.
        pattern_ = SurfaceOf(const_cast<Bitmap&>(*brush->pattern));
    }
}

Pixel Paint::At(int x, int y) const {
    if (pattern_.top == nullptr) {
        return color_;
    }
    const auto within = [](int at, int size) { return (at % size + size) % size; };
    const Pixel pixel = pattern_.Read(within(x - origin_.x, pattern_.width),
                                      within(y - origin_.y, pattern_.height));
    // A one-bit pattern is drawn in the context's colours.
    return !pattern_.monochrome ? pixel : pixel == 0 ? textColor_ : backColor_;
}

void Fill(const Canvas& canvas, const RECT& rect, const Paint& paint) {
    canvas.Each(rect, [&](int x, int y, Pixel) { return paint.At(x, y); });
}

void FillColor(HDC handle, const RECT& rect, COLORREF color) {
    if (const Context* context = FindContext(handle)) {
        const Canvas canvas(*context);
        canvas.Each(canvas.At(rect), [&](int, int, Pixel) { return PixelOf(color); });
    }
}

}  // namespace host

using host::Context;

int WINAPI FillRect(HDC handle, const RECT* rect, HBRUSH handleOfBrush) {
    const Context* context = host::FindContext(handle);
    const host::Brush* brush = host::FindBrush(handleOfBrush);
    if (context == nullptr || brush == nullptr) {
        return 0;
    }
    const host::Canvas canvas(*context);
    host::Fill(canvas, canvas.At(*rect), host::Paint(*context, brush));
    return 1;
}

int WINAPI FrameRect(HDC context, const RECT* rect, HBRUSH brush) {
    if (host::IsEmpty(*rect)) {
        return 0;
    }
    const RECT sides[] = {
        {rect->left, rect->top, rect->right, rect->top + 1},
        {rect->left, rect->bottom - 1, rect->right, rect->bottom},
        {rect->left, rect->top, rect->left + 1, rect->bottom},
        {rect->right - 1, rect->top, rect->right, rect->bottom},
    };
    int result = 0;
    for (const RECT& side : sides) {
        result = FillRect(context, &side, brush);
    }
    return result;
}

BOOL WINAPI DrawFocusRect(HDC handle, const RECT* rect) {
    const Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    // Every other pixel of the border is inverted, so that drawing it again takes it away.
    const host::Canvas canvas(*context);
    const RECT place = canvas.At(*rect);
    const POINT zero = canvas.At(0, 0);
    canvas.Each(place, [&](int x, int y, host::Pixel target) {
        const bool border =
            x == place.left || y == place.top || x == place.right - 1 || y == place.bottom - 1;
        const bool odd = ((x - zero.x + y - zero.y) & 1) != 0;
        return border && odd ? ~target & 0xFFFFFF : host::kNoPixel;
    });
    return TRUE;
}
