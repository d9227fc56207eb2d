// Device contexts and the objects they draw with, shared by the files of drawing.
#pragma once

#include "surface.h"

#include <functional>
#include <memory>
#include <optional>
#include <variant>

namespace host {

struct Bitmap {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 32;  // 1 and 32; a section also 24
    bool section = false;   // the program sees the rows
    bool topDown = true;    // the order of the rows in memory
    std::vector<BYTE> rows;

    size_t RowSize() const {  // one-bit bitmaps are kept in 32-bit pixels too
        const auto bits = static_cast<size_t>(bitsPerPixel == 1 ? 32 : bitsPerPixel);
        return (static_cast<size_t>(width) * bits + 31) / 32 * 4;
    }
};
Surface SurfaceOf(Bitmap& bitmap);

struct Brush {
    COLORREF color = 0;
    std::optional<Bitmap> pattern = {};
};

struct Font {
    LOGFONTW description;
};

struct Object {
    std::variant<Bitmap, Brush, LOGPEN, Font> data;
    bool deleted = false;  // but still selected in a context: goes when it is not any more
};

/// The object of that type behind a handle, or null.
template <typename Type>
Type* Find(HGDIOBJ handle);
Object* FindObject(HGDIOBJ handle);
/// A new object; null when ordered to fail.
HGDIOBJ AddObject(Object object);
void RemoveObject(HGDIOBJ handle);
bool IsObjectSelected(HGDIOBJ handle);
/// The one-pixel bitmap that every memory context begins with.
HGDIOBJ DefaultBitmap();
/// The brush behind a handle or a system colour's number plus one; null when it is neither.
const Brush* FindBrush(HBRUSH handle);

/// What SaveDC keeps.
struct ContextState {
    HGDIOBJ bitmap = nullptr;
    HGDIOBJ brush = nullptr;
    HGDIOBJ pen = nullptr;
    HGDIOBJ font = nullptr;
    COLORREF textColor = 0;
    COLORREF backColor = 0xFFFFFF;
    int backMode = OPAQUE;
    int stretchMode = BLACKONWHITE;
    int colorManagement = ICM_OFF;
    POINT brushOrigin = {};
    Region clip;  // on the surface
};

/// What a context for a printer is in the middle of; see printing.cpp.
struct PrintJob;

enum class ContextKind { kPicture, kMemory, kPrinter };

struct Context {
    ContextKind kind = ContextKind::kMemory;
    Picture* target = nullptr;  // of a picture context, and of a printer's while a page is open
    POINT origin = {};          // of the context's coordinates on the surface
    std::shared_ptr<PrintJob> job;
    ContextState state;
    std::vector<ContextState> saved;

    Surface CurrentSurface() const;
};
/// The context, or null with the last error set.
Context* FindContext(HDC handle);
HDC AddContext(Context context);
bool IsContext(HGDIOBJ handle);
void DropContexts();
/// Aborts what a context that goes away was printing.
void DropDocument(HDC handle);
/// Removes what was deleted while it was selected, unless it still is.
void SweepObject(HGDIOBJ object);

/// Where a context draws at this moment: its surface and the visible part of it.
class Canvas {
  public:
    explicit Canvas(const Context& context);

    /// From the context's coordinates to the surface's.
    POINT At(int x, int y) const { return {x + offset_.x, y + offset_.y}; }
    RECT At(const RECT& rect) const;

    /// Replaces each visible pixel of a rectangle of the surface by what `change` makes of its
    /// place and value; kNoPixel leaves it.
    template <typename Change>
    void Each(const RECT& rect, Change change) const {
        for (const RECT& part : clip_) {
            const RECT visible = Common(part, rect);
            for (int y = visible.top; y < visible.bottom; ++y) {
                for (int x = visible.left; x < visible.right; ++x) {
                    if (const Pixel result = change(x, y, surface_.Read(x, y));
                        result != kNoPixel) {
                        surface_.Write(x, y, result);
                    }
                }
            }
        }
    }
    /// The smallest rectangle with all that can be drawn of `rect`.
    RECT Visible(const RECT& rect) const {
        RECT visible = {};
        for (const RECT& part : clip_) {
            const RECT common = Common(part, rect);
            UnionRect(&visible, &visible, &common);
        }
        return visible;
    }
    void Put(int x, int y, Pixel pixel) const;
    bool Sees(int x, int y) const;
    void Narrow(const RECT& rect) { KeepInside(clip_, At(rect)); }
    const Surface& surface() const { return surface_; }

  private:
    Surface surface_;
    POINT offset_;
    Region clip_;
};

/// What a brush gives at each place of a context's surface.
class Paint {
  public:
    Paint(const Context& context, const Brush* brush);
    Pixel At(int x, int y) const;

  private:
    Pixel color_ = 0;
    Pixel textColor_ = 0;
    Pixel backColor_ = 0;
    POINT origin_ = {};
    Surface pattern_;
};

/// Fills a rectangle of the surface.
void Fill(const Canvas& canvas, const RECT& rect, const Paint& paint);
/// Fills a rectangle in the context's coordinates with a color.
void FillColor(HDC context, const RECT& rect, COLORREF color);

/// The picture in a packed bitmap (header, colours, pixels); null when it is damaged. The alpha of
/// 32-bit pixels stays in their top bytes. `used` is set to how many of the bytes it took.
std::optional<Picture> PictureFromDib(const BYTE* bytes, size_t size, size_t* used = nullptr);
/// The same, with the pixels apart.
std::optional<Picture> PictureFromDib(const BITMAPINFO* info, const void* bits, size_t infoSize,
                                      size_t bitsSize);
Bitmap BitmapFromPicture(const Picture& picture);

}  // namespace host
