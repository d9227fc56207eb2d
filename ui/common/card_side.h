// The two sides of the card as the record has them: front and back are two rows of one shape.
#pragma once

#include "core/device_mode.h"

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
};

inline constexpr const CardSide* kCardSides[] = {&kFront, &kBack};

/// Sets or clears bits of a field.
inline void PutBits(BYTE& field, BYTE bits, bool set) {
    field = static_cast<BYTE>(set ? field | bits : field & ~bits);
}
