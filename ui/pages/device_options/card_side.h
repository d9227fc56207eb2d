// What exists once for each side of the card: the side's bits in the record's fields, and its
// controls on the page. Front and back are two rows of one shape.
#pragma once

#include "core/device_mode.h"
#include "resources/resource.h"

struct CardSide {
    BYTE Bit;  ///< in PrintSides, ColorSides, RotateSides, FlipSides and BlackByYmcK

    // In ResinOptions.
    BYTE ResinMask;  ///< every bit of the side
    BYTE BlackByResin;
    BYTE TextOnly;
    BYTE ColorDisabled;
    BYTE Dither;

    // In ResinOptions2.
    BYTE BlackAndWhite;
    BYTE Grey;               ///< 0 where it is not offered
    BYTE ResinRibbonOption;  ///< the bits that a choice for a resin ribbon clears

    // Controls.
    int Image;
    int Rotate;
    int Flip;
    int Preview;
    int Color;
    int ResinLabel;
    int Resin;
};

inline constexpr CardSide kFront = {
    .Bit = kFrontSide,
    .ResinMask = 0x55,
    .BlackByResin = kFrontBlackByResin,
    .TextOnly = kFrontTextOnly,
    .ColorDisabled = kFrontColorDisabled,
    .Dither = kFrontResinDither,
    .BlackAndWhite = kFrontBlackAndWhite,
    .Grey = kFrontResinGrey,
    .ResinRibbonOption = kFrontBlackAndWhite | kFrontResinGrey,
    .Image = IDC_FRONT_IMAGE,
    .Rotate = IDC_FRONT_ROTATE,
    .Flip = IDC_FRONT_FLIP,
    .Preview = IDC_FRONT_PREVIEW,
    .Color = IDC_FRONT_COLOR,
    .ResinLabel = IDC_FRONT_RESIN_LABEL,
    .Resin = IDC_FRONT_RESIN,
};

inline constexpr CardSide kBack = {
    .Bit = kBackSide,
    .ResinMask = 0xAA,
    .BlackByResin = kBackBlackByResin,
    .TextOnly = kBackTextOnly,
    .ColorDisabled = kBackColorDisabled,
    .Dither = kBackResinDither,
    .BlackAndWhite = kBackBlackAndWhite,
    .Grey = 0,
    .ResinRibbonOption = 0,
    .Image = IDC_BACK_IMAGE,
    .Rotate = IDC_BACK_ROTATE,
    .Flip = IDC_BACK_FLIP,
    .Preview = IDC_BACK_PREVIEW,
    .Color = IDC_BACK_COLOR,
    .ResinLabel = IDC_BACK_RESIN_LABEL,
    .Resin = IDC_BACK_RESIN,
};

inline constexpr const CardSide* kCardSides[] = {&kFront, &kBack};

/// Sets or clears bits of a field.
inline void PutBits(BYTE& field, BYTE bits, bool set) {
    field = static_cast<BYTE>(set ? field | bits : field & ~bits);
}
