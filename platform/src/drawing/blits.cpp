// Moving pixels: between contexts, from packed bitmaps to a context, and single ones.
#include "state.h"

namespace host {
namespace {

// Pixels on their way, those of a part of the target; kNoPixel where the source has none.
struct Block {
    RECT part;
    std::vector<Pixel> pixels;

    Pixel At(int x, int y) const {
        return pixels[static_cast<size_t>((y - part.top) * (part.right - part.left) + x -
                                          part.left)];
    }
};

// A range of coordinates as given by a place and a size that may be negative: where it begins,
// how long it is, and whether it runs backwards. A negative one ends at its place.
struct Range {
    Range(int place, int size)
        : first(size < 0 ? place + size + 1 : place), length(std::abs(size)), back(size < 0) {}
    int first;
    int length;
    bool back;
};

// Which source place each target place takes. The middle of a target pixel decides, and when it
// falls between two source pixels, the earlier one when stretching and the later when shrinking.
std::vector<int> Nearest(const Range& target, const Range& source) {
    std::vector<int> places(static_cast<size_t>(target.length));
    for (int i = 0; i < target.length; ++i) {
        const std::int64_t twice = (2 * std::int64_t{i} + 1) * source.length;
        const std::int64_t size = 2 * std::int64_t{target.length};
        const std::int64_t at =
            target.length > source.length ? (twice + size - 1) / size - 1 : twice / size;
        const bool mirrored = target.back != source.back;
        const int index = static_cast<int>(mirrored ? source.length - 1 - at : at);
        places[static_cast<size_t>(i)] = source.first + index;
    }
    return places;
}

using Reader = std::function<Pixel(int x, int y)>;

struct Stretch {
    Range toX;  // on the target's surface
    Range toY;
    Range fromX;
    Range fromY;
};

Block TakeNearest(const Stretch& stretch, const RECT& part, const Reader& read) {
    const std::vector<int> columns = Nearest(stretch.toX, stretch.fromX);
    const std::vector<int> rows = Nearest(stretch.toY, stretch.fromY);
    Block block = {part, {}};
    for (int y = part.top; y < part.bottom; ++y) {
        const int row = rows[static_cast<size_t>(y - stretch.toY.first)];
        for (int x = part.left; x < part.right; ++x) {
            block.pixels.push_back(read(columns[static_cast<size_t>(x - stretch.toX.first)], row));
        }
    }
    return block;
}

// The mean colour of the source pixels that a target pixel covers.
Pixel Mean(int left, int top, int right, int bottom, const Reader& read) {
    unsigned sums[3] = {};
    unsigned count = 0;
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            const Pixel pixel = read(x, y);
            if (pixel != kNoPixel) {
                for (int part = 0; part < 3; ++part) {
                    sums[part] += pixel >> (8 * part) & 0xFF;
                }
                ++count;
            }
        }
    }
    if (count == 0) {
        return kNoPixel;
    }
    const auto mean = [&](int part) { return (sums[part] + count / 2) / count; };
    return mean(2) << 16 | mean(1) << 8 | mean(0);
}

// The source places that one place of the target covers.
struct Span {
    int first;
    int end;
};
Span Covered(int place, const Range& to, const Range& from) {
    const int i = place - to.first;
    const int at = to.back != from.back ? to.length - 1 - i : i;
    const auto bound = [&](int edge) {
        return from.first + static_cast<int>(std::int64_t{edge} * from.length / to.length);
    };
    return {bound(at), std::max(bound(at) + 1, bound(at + 1))};
}

Block TakeMeans(const Stretch& stretch, const RECT& part, const Reader& read) {
    Block block = {part, {}};
    for (int y = part.top; y < part.bottom; ++y) {
        const Span rows = Covered(y, stretch.toY, stretch.fromY);
        for (int x = part.left; x < part.right; ++x) {
            const Span columns = Covered(x, stretch.toX, stretch.fromX);
            block.pixels.push_back(Mean(columns.first, rows.first, columns.end, rows.end, read));
        }
    }
    return block;
}

void Move(const Context& context, const Stretch& stretch, const Reader& read, DWORD operation) {
    if (stretch.toX.length == 0 || stretch.toY.length == 0 || stretch.fromX.length == 0 ||
        stretch.fromY.length == 0) {
        return;
    }
    const Canvas canvas(context);
    const bool shrinks =
        stretch.toX.length < stretch.fromX.length || stretch.toY.length < stretch.fromY.length;
    const bool means = context.state.stretchMode == HALFTONE && shrinks;
    const RECT visible = canvas.Visible({stretch.toX.first, stretch.toY.first,
                                         stretch.toX.first + stretch.toX.length,
                                         stretch.toY.first + stretch.toY.length});
    // Taken before anything is drawn: source and target may overlap.
    const Block block = (means ? TakeMeans : TakeNearest)(stretch, visible, read);
    const Paint paint(context, Find<Brush>(context.state.brush));
    canvas.Each(visible, [&](int x, int y, Pixel target) {
        const Pixel source = block.At(x, y);
        return source == kNoPixel ? kNoPixel : Combine(operation, target, source, paint.At(x, y));
    });
}

// Reads a context's surface, with what changes on the way between one-bit and coloured pixels: of
// the target's colours, text stands for black and background for white; the other way, what has the
// source's background colour becomes white and all else black.
Reader ReaderOf(const Context& target, const Context& source) {
    const Surface from = source.CurrentSurface();
    const bool toMonochrome = target.CurrentSurface().monochrome;
    const Pixel text = PixelOf(target.state.textColor);
    const Pixel back = PixelOf(target.state.backColor);
    const Pixel white = PixelOf(source.state.backColor);
    return [=](int x, int y) -> Pixel {
        if (!from.Has(x, y)) {
            return kNoPixel;
        }
        const Pixel pixel = from.Read(x, y);
        if (from.monochrome == toMonochrome) {
            return pixel;
        }
        return from.monochrome ? (pixel == 0 ? text : back) : (pixel == white ? 0xFFFFFF : 0);
    };
}

Reader ReaderOf(const Picture& picture) {
    return [&picture](int x, int y) {
        const bool inside = x >= 0 && y >= 0 && x < picture.width && y < picture.height;
        return inside ? picture.At(x, y) & 0xFFFFFF : kNoPixel;
    };
}

BOOL Blit(HDC handle, const RECT& to, HDC sourceHandle, const RECT& from, DWORD operation) {
    if (!UsesSource(operation)) {
        return PatBlt(handle, to.left, to.top, to.right, to.bottom, operation);
    }
    const Context* context = FindContext(handle);
    const Context* source = FindContext(sourceHandle);
    if (context == nullptr || source == nullptr) {
        return FALSE;
    }
    const POINT toPlace = Canvas(*context).At(to.left, to.top);
    const POINT fromPlace = Canvas(*source).At(from.left, from.top);
    const Stretch stretch = {{toPlace.x, to.right},
                             {toPlace.y, to.bottom},
                             {fromPlace.x, from.right},
                             {fromPlace.y, from.bottom}};
    Move(*context, stretch, ReaderOf(*context, *source), operation);
    return TRUE;
}

}  // namespace
}  // namespace host

BOOL WINAPI StretchBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, DWORD operation) {
    // Here the rectangles hold a place and a size.
    return host::Blit(context, {x, y, width, height}, source,
                      {sourceX, sourceY, sourceWidth, sourceHeight}, operation);
}

BOOL WINAPI BitBlt(HDC context, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation) {
    return StretchBlt(context, x, y, width, height, source, sourceX, sourceY, width, height,
                      operation);
}

BOOL WINAPI PatBlt(HDC handle, int x, int y, int width, int height, DWORD operation) {
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr || host::UsesSource(operation)) {
        return FALSE;
    }
    const host::Canvas canvas(*context);
    const POINT place = canvas.At(x, y);
    const host::Range across(place.x, width);
    const host::Range down(place.y, height);
    const host::Paint paint(*context, host::Find<host::Brush>(context->state.brush));
    canvas.Each({across.first, down.first, across.first + across.length, down.first + down.length},
                [&](int atX, int atY, host::Pixel target) {
                    return host::Combine(operation, target, 0, paint.At(atX, atY));
                });
    return TRUE;
}

int WINAPI StretchDIBits(HDC handle, int x, int y, int width, int height, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, const void* bits,
                         const BITMAPINFO* info, UINT usage, DWORD operation) {
    if (usage != DIB_RGB_COLORS) {
        host::Unsupported("StretchDIBits with palette indices");
    }
    const host::Context* context = host::FindContext(handle);
    const std::optional<host::Picture> picture =
        host::PictureFromDib(info, bits, SIZE_MAX, SIZE_MAX);
    if (context == nullptr || !picture) {
        return 0;
    }
    // The rows of a bottom-up bitmap count from the last one.
    const bool bottomUp = info->bmiHeader.biHeight > 0;
    const int top = bottomUp ? picture->height - sourceY - sourceHeight : sourceY;
    const POINT place = host::Canvas(*context).At(x, y);
    const host::Stretch stretch = {
        {place.x, width}, {place.y, height}, {sourceX, sourceWidth}, {top, sourceHeight}};
    host::Move(*context, stretch, host::ReaderOf(*picture), operation);
    return picture->height;
}

int WINAPI SetDIBitsToDevice(HDC handle, int x, int y, DWORD width, DWORD height, int sourceX,
                             int sourceY, UINT start, UINT lines, const void* bits,
                             const BITMAPINFO* info, UINT usage) {
    if (usage != DIB_RGB_COLORS || start != 0) {
        host::Unsupported("SetDIBitsToDevice of a part, or with palette indices");
    }
    const host::Context* context = host::FindContext(handle);
    const std::optional<host::Picture> picture =
        host::PictureFromDib(info, bits, SIZE_MAX, SIZE_MAX);
    if (context == nullptr || !picture) {
        return 0;
    }
    const int rows = static_cast<int>(height);
    const int columns = static_cast<int>(width);
    const POINT place = host::Canvas(*context).At(x, y);
    const host::Stretch stretch = {{place.x, columns},
                                   {place.y, rows},
                                   {sourceX, columns},
                                   {picture->height - sourceY - rows, rows}};
    host::Move(*context, stretch, host::ReaderOf(*picture), SRCCOPY);
    return static_cast<int>(std::min(lines, static_cast<UINT>(picture->height)));
}

COLORREF WINAPI SetPixel(HDC handle, int x, int y, COLORREF color) {
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return CLR_INVALID;
    }
    const host::Canvas canvas(*context);
    const POINT place = canvas.At(x, y);
    if (!canvas.Sees(place.x, place.y)) {
        return CLR_INVALID;
    }
    canvas.Put(place.x, place.y, host::PixelOf(color));
    return host::ColorOf(canvas.surface().Read(place.x, place.y));
}

COLORREF WINAPI GetPixel(HDC handle, int x, int y) {
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return CLR_INVALID;
    }
    const host::Canvas canvas(*context);
    const POINT place = canvas.At(x, y);
    return canvas.Sees(place.x, place.y) ? host::ColorOf(canvas.surface().Read(place.x, place.y))
                                         : CLR_INVALID;
}
