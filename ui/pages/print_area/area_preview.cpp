// The picture of a print area.
#include "ui/pages/print_area/area_preview.h"

#include "core/card_terms.h"
#include "ui/common/controls.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

SIZE SizeOf(const RECT& area) {
    return {area.right - area.left, area.bottom - area.top};
}

// ---- The board ----------------------------------------------------------------------------------

constexpr int kCell = 5;
constexpr size_t kPixelBytes = 3;

void DrawBoard(BYTE* pixels, size_t rowSize, SIZE size) {
    for (LONG y = 0; y < size.cy; ++y) {
        BYTE* row = pixels + static_cast<size_t>(y) * rowSize;
        for (LONG x = 0; x < size.cx; ++x) {
            const bool isWhite = (x / kCell + y / kCell) % 2 == 0;
            std::memset(row + static_cast<size_t>(x) * kPixelBytes, isWhite ? 0xFF : 0x80,
                        kPixelBytes);
        }
    }
}

bool PaintBoard(HDC target, const RECT& preview) {
    const SIZE size = SizeOf(preview);
    const size_t rowSize = (static_cast<size_t>(size.cx) * kPixelBytes + 3) / 4 * 4;
    const auto pixels =
        GlobalBlock<BYTE>::Allocate(rowSize * static_cast<size_t>(size.cy), GMEM_ZEROINIT);
    if (!pixels) {
        return false;
    }
    DrawBoard(pixels.get(), rowSize, size);
    BITMAPINFO board = {};
    board.bmiHeader.biSize = sizeof(board.bmiHeader);
    board.bmiHeader.biWidth = size.cx;
    board.bmiHeader.biHeight = -size.cy;  // the top row first
    board.bmiHeader.biPlanes = 1;
    board.bmiHeader.biBitCount = 8 * kPixelBytes;
    const auto width = static_cast<DWORD>(size.cx);
    const auto height = static_cast<DWORD>(size.cy);
    SetDIBitsToDevice(target, preview.left, preview.top, width, height, 0, 0, 0, height,
                      pixels.get(), &board, DIB_RGB_COLORS);
    return true;
}

// ---- The card -----------------------------------------------------------------------------------

constexpr int kCornerDiameter = 10;
constexpr int kMargin = 10;  // right of an upright card, below a lying one

class SolidBrush {
  public:
    // Of the colour's 24 bits.
    explicit SolidBrush(COLORREF color) : brush_(CreateSolidBrush(color & 0xFFFFFF)) {}
    SolidBrush(const SolidBrush&) = delete;
    SolidBrush& operator=(const SolidBrush&) = delete;
    ~SolidBrush() {
        if (brush_ != nullptr) {
            DeleteObject(brush_);
        }
    }
    explicit operator bool() const { return brush_ != nullptr; }
    HBRUSH get() const { return brush_; }

  private:
    HBRUSH brush_;
};

// Where the card is, whatever its size really is.
RECT CardIn(const RECT& preview, bool isPortrait) {
    constexpr CardExtent kCard = CardExtentTable[0];
    const SIZE size = SizeOf(preview);
    if (isPortrait) {
        const LONG right = preview.right - kMargin;
        return {right - kCard.Short * size.cy / kCard.Long, preview.top, right, preview.bottom};
    }
    const LONG bottom = preview.bottom - kMargin;
    return {preview.left, bottom - kCard.Short * size.cx / kCard.Long, preview.right, bottom};
}

void DrawCard(HDC target, const RECT& card, COLORREF color) {
    const SolidBrush brush(color);
    if (brush) {
        HGDIOBJ before = SelectObject(target, brush.get());
        RoundRect(target, card.left, card.top, card.right, card.bottom, kCornerDiameter,
                  kCornerDiameter);
        SelectObject(target, before);
    }
}

// ---- The blocks ---------------------------------------------------------------------------------

// A length of the layout on the card. Both factors are whatever the layout says.
LONG Scaled(DWORD length, LONG onCard, DWORD ofLayout) {
    return static_cast<LONG>(std::int64_t{length} * onCard / ofLayout);
}

// Each length is rounded by itself.
RECT PlaceOf(const PrintAreaBlock& block, const RECT& card, const PrintAreaData& area) {
    const SIZE size = SizeOf(card);
    const LONG left = card.left + Scaled(block.X, size.cx, area.Width);
    const LONG bottom = card.bottom - Scaled(block.Y, size.cy, area.Height);
    return {left, bottom - Scaled(block.Height, size.cy, area.Height),
            left + Scaled(block.Width, size.cx, area.Width), bottom};
}

// The same of a layout that is turned onto an upright card.
RECT TurnedPlaceOf(const PrintAreaBlock& block, const RECT& card, const PrintAreaData& area) {
    const SIZE size = SizeOf(card);
    const LONG left = card.left + Scaled(block.Y, size.cy, area.Width);
    const LONG top = card.top + Scaled(block.X, size.cx, area.Height);
    return {left, top, left + Scaled(block.Height, size.cy, area.Width),
            top + Scaled(block.Width, size.cx, area.Height)};
}

void DrawBlocks(HDC target, const RECT& preview, const RECT& card, bool isTurned,
                const PrintAreaData& area) {
    const SolidBrush white(RGB(255, 255, 255));
    const SolidBrush colored(area.AreaColor);
    if (!white || !colored) {
        return;
    }
    for (const PrintAreaBlock* block = area.FirstBlock; block != nullptr; block = block->Next) {
        const RECT place =
            isTurned ? TurnedPlaceOf(*block, card, area) : PlaceOf(*block, card, area);
        RECT shown;  // a layout's blocks may lie anywhere
        if (IntersectRect(&shown, &place, &preview)) {
            FillRect(target, &shown, (block->Kind == kWhiteBlock ? white : colored).get());
        }
    }
}

}  // namespace

void PaintAreaPreview(HDC target, const RECT& preview, bool isPortrait, const PrintAreaData* area) {
    if (!PaintBoard(target, preview) || area == nullptr) {
        return;
    }
    const RECT card = CardIn(preview, isPortrait);
    DrawCard(target, card, area->CardColor);
    if (area->Width != 0 && area->Height != 0) {
        const bool isTurned = isPortrait && area->Orientation != DMORIENT_PORTRAIT;
        DrawBlocks(target, preview, card, isTurned, *area);
    }
}

void RedrawAreaPreview(HWND dialog, int preview) {
    constexpr int kAround = 2;
    RECT area = ControlArea(dialog, preview);
    InflateRect(&area, kAround, kAround);
    InvalidateRect(dialog, &area, TRUE);
}
