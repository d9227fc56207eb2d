// Bitmaps of the library on their way to a paint context.
#pragma once

#include <windows.h>

#include <array>

/// The bitmaps of one paint: each is loaded when first asked for, and all are released at the end.
class PictureSet {
  public:
    PictureSet() = default;
    PictureSet(const PictureSet&) = delete;
    PictureSet& operator=(const PictureSet&) = delete;
    ~PictureSet();

    /// The bitmap of that number; null when it cannot be loaded, or is one more than kMost.
    HBITMAP Get(int number);

  private:
    static constexpr size_t kMost = 24;
    struct Picture {
        int Number;
        HBITMAP Bitmap;
    };
    std::array<Picture, kMost> pictures_ = {};
    size_t count_ = 0;
};

/// A context in memory with a bitmap selected; both empty when memory is short.
class MemoryCanvas {
  public:
    /// Shows the bitmap, which stays the caller's.
    MemoryCanvas(HDC like, HBITMAP bitmap);
    /// Has a bitmap of its own, its content unspecified.
    MemoryCanvas(HDC like, int width, int height);
    MemoryCanvas(const MemoryCanvas&) = delete;
    MemoryCanvas& operator=(const MemoryCanvas&) = delete;
    ~MemoryCanvas();

    explicit operator bool() const { return context_ != nullptr && before_ != nullptr; }
    HDC get() const { return context_; }

  private:
    HBITMAP own_ = nullptr;
    HDC context_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

/// A bitmap file of the driver directory as a device-independent bitmap; null when it cannot be
/// loaded. The caller deletes it.
HBITMAP LoadDriverBitmap(const WCHAR* file);

/// Copies a bitmap to (x, y) at its own size, pixel for pixel.
void CopyBitmap(HDC context, int x, int y, HBITMAP bitmap);

/// Copies a bitmap of the library to (x, y), at its own size or, with `destination`, stretched to
/// that rectangle's width and height. One that cannot be loaded draws nothing.
void DrawBitmap(PictureSet& pictures, HDC context, int x, int y, int number,
                const RECT* destination = nullptr);

/// Copies the whole of a canvas to an area of another size, smoothly.
void StretchSmoothly(HDC context, const RECT& destination, HDC source, SIZE size);
