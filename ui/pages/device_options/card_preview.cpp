// The page's pictures. All places on the card are in pixels of its canvas, from its top left.
#include "ui/pages/device_options/card_preview.h"

#include "resources/resource.h"
#include "ui/common/controls.h"

namespace {

constexpr int kCornerDiameter = 16;
constexpr int kOutline = 2;
constexpr POINT kBackMark = {4, 4};         // from the preview's top left
constexpr int kMarginRightOfPortrait = 10;  // between the card and the preview's edge
constexpr int kMarginBelowLandscape = 6;

struct CardShape {
    bool IsPortrait;
    SIZE Size;
    POINT Dither;
    POINT Chip;
    int ChipPicture;
    RECT Stripe;
    int BackMark;
    int FirstPageOrder;  ///< of three: both sides, the front only, the back only
};
constexpr CardShape kShapes[] = {
    {false,
     kLandscapeCard,
     {142, 52},
     {20, 40},
     IDB_CHIP_LANDSCAPE,
     {0, 15, 240, 39},
     IDB_BACK_MARK_LANDSCAPE,
     IDB_PAGE_ORDER_LANDSCAPE_BOTH},
    {true,
     kPortraitCard,
     {52, 142},
     {70, 20},
     IDB_CHIP_PORTRAIT,
     {15, 0, 43, 240},
     IDB_BACK_MARK_PORTRAIT,
     IDB_PAGE_ORDER_PORTRAIT_BOTH},
};

const CardShape& ShapeOf(bool isPortrait) {
    return kShapes[isPortrait ? 1 : 0];
}

// Places of the colour image and the black text; a magnetic stripe moves them aside.
POINT ColorPlace(bool isPortrait, const CardPicture& picture) {
    if (isPortrait) {
        return {picture.Stripe ? 55 : 45, picture.Rotated ? 120 : 70};
    }
    const LONG x = picture.Rotated != picture.Flipped ? 60 : 150;
    return {picture.Stripe ? x - 20 : x, picture.Stripe ? 45 : 35};
}

POINT TextPlace(bool isPortrait, const CardPicture& picture) {
    if (isPortrait) {
        return {picture.Stripe ? 50 : 40, picture.Rotated ? 60 : 170};
    }
    const LONG x = picture.Rotated == picture.Flipped ? 60 : 145;
    const LONG y = picture.Rotated ? 40 : 70;
    return {picture.Stripe ? x - 20 : x, picture.Stripe ? y + 10 : y};
}

int TextPicture(const CardPicture& picture) {
    if (picture.Flipped) {
        return picture.Rotated ? IDB_TEXT_FLIPPED_ROTATED : IDB_TEXT_FLIPPED;
    }
    return picture.Rotated ? IDB_TEXT_ROTATED : IDB_TEXT;
}

void DrawBlankCard(HDC canvas, SIZE size) {
    HPEN pen = CreatePen(PS_SOLID, kOutline, RGB(0, 0, 0));
    HGDIOBJ penBefore = SelectObject(canvas, pen);
    HGDIOBJ brushBefore = SelectObject(canvas, GetStockObject(WHITE_BRUSH));
    RoundRect(canvas, 0, 0, size.cx, size.cy, kCornerDiameter, kCornerDiameter);
    SelectObject(canvas, brushBefore);
    SelectObject(canvas, penBefore);
    DeleteObject(pen);
}

// The ground of a preview.
void FillWithTiles(PictureSet& pictures, HDC context, const RECT& area) {
    HBITMAP tile = pictures.Get(IDB_TILE);
    HBRUSH brush = tile == nullptr ? nullptr : CreatePatternBrush(tile);
    if (brush != nullptr) {
        FillRect(context, &area, brush);
        DeleteObject(brush);
    }
}

// The shorter edge of a card whose longer one is given, to the nearest pixel.
LONG ShortSide(LONG longSide) {
    return static_cast<LONG>(static_cast<float>(longSide) * 150.0f / 240.0f + 0.5f);
}

void DrawCardSide(PictureSet& pictures, HDC context, const RECT& preview,
                  const DevModeRecord& record, const CardSide& side) {
    FillWithTiles(pictures, context, preview);
    if ((record.Private.PrintSides & side.Bit) == 0) {
        return;
    }
    const CardShape& shape = ShapeOf(record.Public.dmOrientation == DMORIENT_PORTRAIT);
    if (side.Bit == kBackSide) {
        DrawBitmap(pictures, context, preview.left + kBackMark.x, preview.top + kBackMark.y,
                   shape.BackMark);
    }
    const MemoryCanvas canvas(context, shape.Size.cx, shape.Size.cy);
    if (!canvas) {
        return;
    }
    // So that the ground goes on outside the card's round corners.
    FillWithTiles(pictures, canvas.get(), {0, 0, shape.Size.cx, shape.Size.cy});
    DrawCard(pictures, canvas.get(), shape.IsPortrait, CardPictureOf(record.Private, side));
    StretchSmoothly(context, PlaceOfCard(preview, shape.IsPortrait), canvas.get(), shape.Size);
}

void DrawPageOrder(PictureSet& pictures, HDC context, const RECT& area,
                   const DevModeRecord& record) {
    const BYTE sides = record.Private.PrintSides & (kFrontSide | kBackSide);
    if (sides == 0) {
        return;
    }
    const int which = sides == kFrontSide ? 1 : sides == kBackSide ? 2 : 0;
    const CardShape& shape = ShapeOf(record.Public.dmOrientation == DMORIENT_PORTRAIT);
    DrawBitmap(pictures, context, area.left, area.top, shape.FirstPageOrder + which, &area);
}

}  // namespace

CardPicture CardPictureOf(const DevModePrivate& record, const CardSide& side) {
    const bool isFront = side.Bit == kFrontSide;
    const bool black =
        (record.ResinOptions & (side.BlackByResin | side.TextOnly | side.ColorDisabled)) != 0 ||
        (record.ResinOptions2 & side.BlackAndWhite) != 0;
    const bool dither = !black && (record.ResinOptions & side.Dither) != 0;
    const bool grey = (record.ResinOptions2 & side.Grey) != 0;
    const BYTE card = record.CardType;
    return {
        .Rotated = (record.RotateSides & side.Bit) != 0,
        .Flipped = (record.FlipSides & side.Bit) != 0,
        .Color = (record.ColorSides & side.Bit) != 0,
        .Black = black || dither || grey,
        .Dither = dither,
        .Chip = isFront &&
                (card == k6PinChipCard || card == k8PinChipCard || card == kChipMagneticCard),
        .Stripe = !isFront && (card == kMagneticStripeCard || card == kChipMagneticCard),
    };
}

void DrawCard(PictureSet& pictures, HDC canvas, bool isPortrait, const CardPicture& picture) {
    const CardShape& shape = ShapeOf(isPortrait);
    DrawBlankCard(canvas, shape.Size);
    if (picture.Dither) {
        DrawBitmap(pictures, canvas, shape.Dither.x, shape.Dither.y, IDB_DITHER);
    }
    if (picture.Color) {
        const POINT at = ColorPlace(isPortrait, picture);
        DrawBitmap(pictures, canvas, at.x, at.y,
                   picture.Rotated ? IDB_PORTRAIT_ROTATED : IDB_PORTRAIT);
    }
    if (picture.Black) {
        const POINT at = TextPlace(isPortrait, picture);
        DrawBitmap(pictures, canvas, at.x, at.y, TextPicture(picture));
    }
    if (picture.Chip) {
        DrawBitmap(pictures, canvas, shape.Chip.x, shape.Chip.y, shape.ChipPicture);
    }
    if (picture.Stripe) {
        FillRect(canvas, &shape.Stripe, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
}

RECT PlaceOfCard(const RECT& preview, bool isPortrait) {
    if (isPortrait) {
        const LONG right = preview.right - kMarginRightOfPortrait;
        return {right - ShortSide(preview.bottom - preview.top), preview.top, right,
                preview.bottom};
    }
    const LONG bottom = preview.bottom - kMarginBelowLandscape;
    return {preview.left, bottom - ShortSide(preview.right - preview.left), preview.right, bottom};
}

bool ShowsBackPreview(const DriverContext& context) {
    return context.IsDuplexModel != 0 && context.IsKP43Family == 0;
}

void PaintDeviceOptions(HWND dialog, DriverContext& context, HDC target, const RECT& asked) {
    const DevModeRecord& record = context.WorkingDevMode;
    PictureSet pictures;
    // A picture outside the part to be painted is not drawn; a missing control has an empty area.
    const auto paint = [&](int control, auto draw) {
        RECT common;
        const RECT area = ControlArea(dialog, control);
        if (IntersectRect(&common, &area, &asked)) {
            draw(area);
        }
    };
    paint(IDC_FRONT_PREVIEW,
          [&](const RECT& area) { DrawCardSide(pictures, target, area, record, kFront); });
    if (ShowsBackPreview(context)) {
        paint(IDC_BACK_PREVIEW,
              [&](const RECT& area) { DrawCardSide(pictures, target, area, record, kBack); });
    }
    paint(IDC_PAGE_ORDER, [&](const RECT& area) { DrawPageOrder(pictures, target, area, record); });
}
