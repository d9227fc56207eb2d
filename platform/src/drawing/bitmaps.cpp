// Bitmaps: reading packed bitmaps of any depth, and making them.
#include "state.h"

#include <cstring>

namespace host {
namespace {

constexpr int kMaximumSide = 0x7FFF;

size_t RowSize(int width, int bits, size_t paddedTo = 32) {
    return (static_cast<size_t>(width) * static_cast<size_t>(bits) + paddedTo - 1) / paddedTo *
           (paddedTo / 8);
}

// What a bitmap's header says, checked.
struct Format {
    int width = 0;
    int height = 0;
    bool topDown = false;
    int bits = 0;
    size_t colors = 0;
    size_t infoSize = 0;  // of the header and the colours
    size_t RowBytes() const { return RowSize(width, bits); }
    size_t ImageBytes() const { return RowBytes() * static_cast<size_t>(height); }
};

bool IsKnownDepth(int bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

std::optional<Format> FormatOf(const BITMAPINFOHEADER& header) {
    if (header.biCompression == 1 || header.biCompression == 2 || header.biBitCount == 16) {
        Unsupported("bitmaps of %u bits, compression %u", header.biBitCount, header.biCompression);
    }
    const bool masks = header.biCompression == BI_BITFIELDS && header.biBitCount == 32;
    if (header.biSize < sizeof(header) || !IsKnownDepth(header.biBitCount) ||
        (header.biCompression != BI_RGB && !masks) || header.biWidth < 1 ||
        header.biWidth > kMaximumSide || header.biHeight == 0 || header.biHeight > kMaximumSide ||
        header.biHeight < -kMaximumSide || header.biClrUsed > 0x10000) {
        return std::nullopt;
    }
    Format format;
    format.width = header.biWidth;
    format.topDown = header.biHeight < 0;
    format.height = format.topDown ? -header.biHeight : header.biHeight;
    format.bits = header.biBitCount;
    const size_t most = format.bits <= 8 ? size_t{1} << format.bits : 0x10000;
    format.colors =
        header.biClrUsed == 0 && format.bits <= 8 ? most : std::min<size_t>(header.biClrUsed, most);
    const size_t maskSize = masks && header.biSize == sizeof(header) ? 12 : 0;
    format.infoSize = header.biSize + maskSize + format.colors * sizeof(RGBQUAD);
    return format;
}

Pixel PixelAt(const Format& format, const BYTE* row, int x, const BYTE* colors) {
    if (format.bits >= 24) {
        const BYTE* at = row + x * format.bits / 8;
        const Pixel alpha = format.bits == 32 ? Pixel{at[3]} << 24 : 0;
        return alpha | at[0] | Pixel{at[1]} << 8 | Pixel{at[2]} << 16;
    }
    const int perByte = 8 / format.bits;
    const int shift = (perByte - 1 - x % perByte) * format.bits;
    const size_t index = static_cast<size_t>(row[x / perByte] >> shift & ((1 << format.bits) - 1));
    if (index >= format.colors) {
        return 0;
    }
    const BYTE* color = colors + index * sizeof(RGBQUAD);
    return color[0] | Pixel{color[1]} << 8 | Pixel{color[2]} << 16;
}

Picture Decode(const Format& format, const BYTE* colors, const BYTE* bits) {
    Picture picture;
    picture.width = format.width;
    picture.height = format.height;
    picture.pixels.reserve(static_cast<size_t>(format.width) * static_cast<size_t>(format.height));
    for (int y = 0; y < format.height; ++y) {
        const int at = format.topDown ? y : format.height - 1 - y;
        const BYTE* row = bits + static_cast<size_t>(at) * format.RowBytes();
        for (int x = 0; x < format.width; ++x) {
            picture.pixels.push_back(PixelAt(format, row, x, colors));
        }
    }
    return picture;
}

}  // namespace

std::optional<Picture> PictureFromDib(const BITMAPINFO* info, const void* bits, size_t infoSize,
                                      size_t bitsSize) {
    BITMAPINFOHEADER header;
    if (infoSize < sizeof(header)) {
        return std::nullopt;
    }
    std::memcpy(&header, info, sizeof(header));
    const std::optional<Format> format = FormatOf(header);
    if (!format || format->infoSize > infoSize || format->ImageBytes() > bitsSize) {
        return std::nullopt;
    }
    const BYTE* colors =
        reinterpret_cast<const BYTE*>(info) + format->infoSize - format->colors * sizeof(RGBQUAD);
    return Decode(*format, colors, static_cast<const BYTE*>(bits));
}

std::optional<Picture> PictureFromDib(const BYTE* bytes, size_t size, size_t* used) {
    BITMAPINFOHEADER header;
    if (size < sizeof(header)) {
        return std::nullopt;
    }
    std::memcpy(&header, bytes, sizeof(header));
    const std::optional<Format> format = FormatOf(header);
    if (!format || format->infoSize > size) {
        return std::nullopt;
    }
    if (used != nullptr) {
        *used = format->infoSize + format->ImageBytes();
    }
    return PictureFromDib(reinterpret_cast<const BITMAPINFO*>(bytes), bytes + format->infoSize,
                          format->infoSize, size - format->infoSize);
}

namespace {

Bitmap EmptyBitmap(int width, int height, int bitsPerPixel) {
    Bitmap bitmap;
    bitmap.width = width;
    bitmap.height = height;
    bitmap.bitsPerPixel = bitsPerPixel;
    bitmap.rows.resize(bitmap.RowSize() * static_cast<size_t>(height));
    return bitmap;
}

}  // namespace

Bitmap BitmapFromPicture(const Picture& picture) {
    Bitmap bitmap = EmptyBitmap(picture.width, picture.height, 32);
    const Surface surface = SurfaceOf(bitmap);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            surface.Write(x, y, picture.At(x, y));
        }
    }
    return bitmap;
}

HBITMAP BitmapFromDib(const BYTE* bytes, size_t size) {
    const std::optional<Picture> picture = PictureFromDib(bytes, size);
    return picture ? static_cast<HBITMAP>(AddObject({BitmapFromPicture(*picture)})) : nullptr;
}

namespace {

HBITMAP NewBitmap(int width, int height, int bitsPerPixel) {
    if (width < 0 || height < 0 || width > kMaximumSide || height > kMaximumSide) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (width == 0 || height == 0) {
        return static_cast<HBITMAP>(DefaultBitmap());
    }
    return static_cast<HBITMAP>(AddObject({EmptyBitmap(width, height, bitsPerPixel)}));
}

}  // namespace
}  // namespace host

using host::Bitmap;

HBITMAP WINAPI CreateCompatibleBitmap(HDC handle, int width, int height) {
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return nullptr;
    }
    const bool oneBit = context->CurrentSurface().monochrome;
    return host::NewBitmap(width, height, oneBit ? 1 : 32);
}

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel,
                            const void* bits) {
    if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 24 && bitsPerPixel != 32)) {
        host::Unsupported("CreateBitmap of %u planes, %u bits", planes, bitsPerPixel);
    }
    const HBITMAP handle = host::NewBitmap(width, height, bitsPerPixel == 1 ? 1 : 32);
    Bitmap* bitmap = host::Find<Bitmap>(handle);
    if (bits == nullptr || bitmap == nullptr || handle == host::DefaultBitmap()) {
        return handle;
    }
    const int depth = static_cast<int>(bitsPerPixel);
    const host::Surface surface = host::SurfaceOf(*bitmap);
    const host::Format format = {width, height, true, depth, 2, 0};
    constexpr BYTE kBlackAndWhite[] = {0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0};
    for (int y = 0; y < height; ++y) {
        const BYTE* row = static_cast<const BYTE*>(bits) +
                          static_cast<size_t>(y) * host::RowSize(width, depth, 16);
        for (int x = 0; x < width; ++x) {
            surface.Write(x, y, host::PixelAt(format, row, x, kBlackAndWhite));
        }
    }
    return handle;
}

HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits,
                                HANDLE section, DWORD) {
    if (usage != DIB_RGB_COLORS || section != nullptr) {
        host::Unsupported("CreateDIBSection of a file mapping or with palette indices");
    }
    if (bits != nullptr) {
        *bits = nullptr;
    }
    const std::optional<host::Format> format = host::FormatOf(info->bmiHeader);
    if (!format) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (format->bits < 24) {
        host::Unsupported("CreateDIBSection of %d bits", format->bits);
    }
    Bitmap bitmap = host::EmptyBitmap(format->width, format->height, format->bits);
    bitmap.section = true;
    bitmap.topDown = format->topDown;
    void* memory = bitmap.rows.data();
    const HGDIOBJ handle = host::AddObject({std::move(bitmap)});
    if (handle != nullptr && bits != nullptr) {
        *bits = memory;
    }
    return static_cast<HBITMAP>(handle);
}
