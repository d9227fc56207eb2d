// A small picture to draw on, read back as rows of letters.
#pragma once

#include "platform_test.h"

#include <cstring>
#include <vector>

namespace test {

/// A memory context with a bitmap whose pixels are at hand, white at first.
class PixelCanvas {
  public:
    PixelCanvas(int width, int height, WORD bits = 32, bool topDown = true)
        : width_(width),
          height_(height),
          bytes_(bits / 8),
          topDown_(topDown),
          context(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = topDown ? -height : height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = bits;
        bitmap = CreateDIBSection(context, &info, DIB_RGB_COLORS, &memory, nullptr, 0);
        first_ = SelectObject(context, bitmap);
        Clear();
    }
    ~PixelCanvas() {
        SelectObject(context, first_);
        DeleteDC(context);
        DeleteObject(bitmap);
    }
    PixelCanvas(const PixelCanvas&) = delete;
    PixelCanvas& operator=(const PixelCanvas&) = delete;

    void Clear() { PatBlt(context, 0, 0, width_, height_, WHITENESS); }

    /// 0xRRGGBB, from the memory.
    unsigned At(int x, int y) const {
        const size_t rowSize = static_cast<size_t>(width_ * bytes_ + 3) / 4 * 4;
        const int row = topDown_ ? y : height_ - 1 - y;
        const BYTE* at =
            static_cast<const BYTE*>(memory) + rowSize * static_cast<size_t>(row) + x * bytes_;
        return at[0] | unsigned{at[1]} << 8 | unsigned{at[2]} << 16;
    }
    /// Row by row: '.' white, '#' black, 'r', 'g', 'b', '?' anything else; rows end with a newline.
    std::string Rows() const {
        std::string rows = "\n";
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const unsigned pixel = At(x, y);
                rows += pixel == 0xFFFFFF   ? '.'
                        : pixel == 0        ? '#'
                        : pixel == 0xFF0000 ? 'r'
                        : pixel == 0x00FF00 ? 'g'
                        : pixel == 0x0000FF ? 'b'
                                            : '?';
            }
            rows += '\n';
        }
        return rows;
    }

  private:
    int width_;
    int height_;
    int bytes_;
    bool topDown_;
    HGDIOBJ first_ = nullptr;

  public:
    HDC context;
    HBITMAP bitmap = nullptr;
    void* memory = nullptr;
};

}  // namespace test
