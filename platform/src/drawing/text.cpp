// Text at a place, and its measures.
#include "fonts.h"

namespace host {
namespace {

Pixel Blend(Pixel under, Pixel over, unsigned coverage) {
    Pixel result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const unsigned a = under >> shift & 0xFF;
        const unsigned b = over >> shift & 0xFF;
        result |= (a * (255 - coverage) + b * coverage + 127) / 255 << shift;
    }
    return result;
}

void DrawGlyph(const Canvas& canvas, const Glyph& glyph, int x, int baseLine, Pixel color) {
    const int left = x + glyph.left;
    const int top = baseLine - glyph.top;
    canvas.Each(
        {left, top, left + glyph.width, top + glyph.height}, [&](int atX, int atY, Pixel under) {
            const size_t index = static_cast<size_t>(atY - top) * static_cast<size_t>(glyph.width) +
                                 static_cast<size_t>(atX - left);
            return Blend(under, color, glyph.coverage[index]);
        });
}

void DrawCharacters(const Canvas& canvas, const Context& context, POINT place, const WCHAR* text,
                    size_t length) {
    ReadyFont& font = FontOf(context);
    if (context.state.backMode == OPAQUE) {
        const RECT cell = {place.x, place.y, place.x + font.WidthOf(text, length),
                           place.y + font.Height()};
        canvas.Each(cell, [&](int, int, Pixel) { return PixelOf(context.state.backColor); });
    }
    const Pixel color = PixelOf(context.state.textColor);
    for (size_t i = 0; i < length;) {
        const Glyph& glyph = font.GlyphOf(NextCharacter(text, length, &i));
        DrawGlyph(canvas, glyph, place.x, place.y + font.ascent, color);
        place.x += glyph.advance;
    }
}

}  // namespace
}  // namespace host

using host::Context;

BOOL WINAPI ExtTextOutW(HDC handle, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                        UINT length, const int* distances) {
    if ((options & ~UINT{ETO_OPAQUE | ETO_CLIPPED}) != 0 || distances != nullptr) {
        host::Unsupported("ExtTextOutW with options %#x, or distances", options);
    }
    const Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    host::Canvas canvas(*context);
    if (rect != nullptr && (options & ETO_OPAQUE) != 0) {
        canvas.Each(canvas.At(*rect),
                    [&](int, int, host::Pixel) { return host::PixelOf(context->state.backColor); });
    }
    if (rect != nullptr && (options & ETO_CLIPPED) != 0) {
        canvas.Narrow(*rect);
    }
    if (text != nullptr && length != 0) {
        host::DrawCharacters(canvas, *context, canvas.At(x, y), text, length);
    }
    return TRUE;
}

BOOL WINAPI TextOutW(HDC context, int x, int y, LPCWSTR text, int length) {
    return length < 0
               ? FALSE
               : ExtTextOutW(context, x, y, 0, nullptr, text, static_cast<UINT>(length), nullptr);
}

BOOL WINAPI GetTextExtentPoint32W(HDC handle, LPCWSTR text, int length, LPSIZE size) {
    const Context* context = host::FindContext(handle);
    if (context == nullptr || length < 0) {
        return FALSE;
    }
    if (length == 0) {
        *size = {};  // not even a height
        return TRUE;
    }
    host::ReadyFont& font = host::FontOf(*context);
    *size = {font.WidthOf(text, static_cast<size_t>(length)), font.Height()};
    return TRUE;
}

BOOL WINAPI GetTextMetricsW(HDC handle, TEXTMETRICW* metrics) {
    const Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return FALSE;
    }
    const host::ReadyFont& font = host::FontOf(*context);
    const LOGFONTW& description = host::Find<host::Font>(context->state.font)->description;
    const bool onPrinter = context->kind == host::ContextKind::kPrinter;
    *metrics = {};
    metrics->tmHeight = font.Height();
    metrics->tmAscent = font.ascent;
    metrics->tmDescent = font.descent;
    metrics->tmInternalLeading = font.Height() - font.emHeight;
    metrics->tmAveCharWidth = font.averageWidth;
    metrics->tmMaxCharWidth = font.maximumWidth;
    metrics->tmWeight = font.bold ? FW_BOLD : FW_NORMAL;
    metrics->tmDigitizedAspectX = metrics->tmDigitizedAspectY = onPrinter ? 300 : 96;
    metrics->tmFirstChar = 0x20;
    metrics->tmLastChar = 0xFEFC;
    metrics->tmDefaultChar = 0x1F;
    metrics->tmBreakChar = 0x20;
    metrics->tmItalic = description.lfItalic;
    metrics->tmPitchAndFamily = FF_SWISS | 7;  // an outline font of characters of any width
    return TRUE;
}
