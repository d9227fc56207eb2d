// What the Device Options page's choices do to the record.
#include "ui/pages/device_options/card_options.h"

#include <algorithm>

namespace {

constexpr BYTE kBothSides = kFrontSide | kBackSide;

// ---- Ribbons ----------------------------------------------------------------------------------

enum RibbonTraits : unsigned {
    kColor = 1,
    kResin = 2,
    kCanLeaveBackToK = 4,
    kForBothSides = 8,  ///< has panels for the back, and prints it unless told otherwise
};

// Codes 9, 10 and 14 are not offered, but records carry them.
constexpr struct {
    BYTE Code;
    unsigned Traits;
} kRibbonTraits[] = {
    {kRibbonYMCKO, kColor | kCanLeaveBackToK},
    {kRibbonK, kResin},
    {kRibbonKO, kResin},
    {kRibbonYMCKOK, kColor | kForBothSides},
    {kRibbonHalfYMCKO, kColor | kCanLeaveBackToK},
    {9, kColor | kCanLeaveBackToK},
    {10, kColor | kCanLeaveBackToK},
    {kRibbonYMCKFO, kColor | kCanLeaveBackToK},
    {14, kColor | kForBothSides},
};

bool Is(BYTE ribbon, RibbonTraits trait) {
    for (const auto& row : kRibbonTraits) {
        if (row.Code == ribbon) {
            return (row.Traits & trait) != 0;
        }
    }
    return false;
}

// Codes 6 to 8: the resin panel has one use, so that no list offers any.
bool HasFixedResinPanel(BYTE ribbon) {
    return ribbon >= 6 && ribbon <= 8;
}

// ---- Resin ------------------------------------------------------------------------------------

constexpr ResinChoice kPrecedence[] = {kBlackByYmcK,           kBlackByResin,  kTextOnly,
                                       kColorPrintingDisabled, kBlackAndWhite, kResinDither};

// The bit of ResinOptions that a choice sets; 0 for a choice that sets none.
BYTE OptionBit(const CardSide& side, ResinChoice choice) {
    switch (choice) {
        case kBlackByResin:
        case kBlackByYmcK:
            return side.BlackByResin;
        case kTextOnly:
            return side.TextOnly;
        case kColorPrintingDisabled:
            return side.ColorDisabled;
        case kResinDither:
            return side.Dither;
        default:
            return 0;
    }
}

bool IsChosen(const DevModePrivate& record, const CardSide& side, ResinChoice choice) {
    if (choice == kBlackAndWhite) {
        return (record.ResinOptions2 & side.BlackAndWhite) != 0;
    }
    return (record.ResinOptions & OptionBit(side, choice)) != 0 &&
           (choice != kBlackByYmcK || (record.BlackByYmcK & side.Bit) != 0);
}

// Makes `option` the only bit of ResinOptions that a side has set; 0 clears them all.
void SetResinOption(DevModePrivate& record, const CardSide& side, BYTE option) {
    PutBits(record.ResinOptions, side.ResinMask, false);
    PutBits(record.ResinOptions, option, true);
}

bool PrintsBlackAlone(ResinChoice choice) {
    return choice == kBlackAndWhite || choice == kResinDither;
}

void ChooseColorRibbonResin(DevModePrivate& record, const CardSide& side, ResinChoice choice) {
    SetResinOption(record, side, OptionBit(side, choice));
    PutBits(record.ResinOptions2, side.BlackAndWhite, choice == kBlackAndWhite);
    PutBits(record.BlackByYmcK, side.Bit, choice == kBlackByYmcK);
    PutBits(record.ColorSides, side.Bit, !PrintsBlackAlone(choice));
}

void ChooseResinRibbonUse(DevModePrivate& record, const CardSide& side, ResinRibbonChoice choice) {
    PutBits(record.ResinOptions, side.BlackByResin, choice == kResinRibbonBlackAndWhite);
    PutBits(record.ResinOptions, side.Dither, choice == kResinRibbonDither);
    PutBits(record.ResinOptions2, side.ResinRibbonOption, false);
    PutBits(record.ResinOptions2, side.Grey, choice == kResinRibbonGrey);
}

// Under a resin ribbon a printed side is black and white unless it is dithered.
void NeedResinRibbonUse(DevModePrivate& record, const CardSide& side) {
    if ((record.ResinOptions & (side.BlackByResin | side.Dither)) == 0) {
        PutBits(record.ResinOptions, side.BlackByResin, true);
    }
}

// ---- Resets -----------------------------------------------------------------------------------

void ResetForColorRibbon(DriverContext& context) {
    DevModePrivate& record = context.WorkingDevMode.Private;
    const bool both = Is(record.RibbonType, kForBothSides) && HasPrintableBack(context);
    PutBits(record.PrintSides, kFrontSide, true);
    PutBits(record.PrintSides, kBackSide, both);
    PutBits(record.ColorSides, kFrontSide, true);
    PutBits(record.ColorSides, kBackSide, !both);
    record.ResinOptions = both ? kBackBlackByResin : 0;
    PutBits(record.ResinOptions2, kFrontBlackAndWhite | kBackBlackAndWhite, false);
}

void ResetForResinRibbon(DevModePrivate& record) {
    PutBits(record.PrintSides, kFrontSide, true);
    PutBits(record.PrintSides, kBackSide, false);
    PutBits(record.ColorSides, kBothSides, false);
    record.ResinOptions = kFrontBlackByResin | kBackBlackByResin;
    record.ResinOptions2 = 0;
}

void SwitchUnprintableBackOff(DevModePrivate& record) {
    if (IsBackPrintable(record)) {
        return;
    }
    for (BYTE* field : {&record.PrintSides, &record.RotateSides, &record.FlipSides}) {
        PutBits(*field, kBackSide, false);
    }
    record.KOnlyOnBack = 0;
}

// Both sides are printed, the front in colour, the back with resin: black by resin if nothing else.
void PrintOnlyKOnBack(DevModePrivate& record) {
    PutBits(record.PrintSides, kBothSides, true);
    PutBits(record.ColorSides, kFrontSide, true);
    PutBits(record.ColorSides, kBackSide, false);
    if ((record.ResinOptions & kBack.ResinMask) == 0 &&
        (record.ResinOptions2 & kBack.BlackAndWhite) == 0) {
        PutBits(record.ResinOptions, kBack.BlackByResin, true);
        record.ResinOptions2 = 0;
    }
}

// ---- Corrections ------------------------------------------------------------------------------

void CorrectKOnlyOnBack(DriverContext& context) {
    DevModePrivate& record = context.WorkingDevMode.Private;
    const bool keeps =
        record.KOnlyOnBack == 1 && record.RibbonType == kRibbonYMCKO && HasPrintableBack(context);
    record.KOnlyOnBack = keeps;
    if (keeps) {
        PutBits(record.ResinOptions, kFront.ResinMask, false);
        PutBits(record.ResinOptions2, kFrontBlackAndWhite | kFrontResinGrey, false);
        PrintOnlyKOnBack(record);
    }
}

void CorrectResin(DevModePrivate& record, const CardSide& side) {
    if (IsResinRibbon(record.RibbonType)) {
        if ((record.ResinOptions2 & side.Grey) == 0) {
            NeedResinRibbonUse(record, side);
        }
    } else if (IsColorRibbon(record.RibbonType) && PrintsBlackAlone(ChosenResin(record, side))) {
        PutBits(record.ColorSides, side.Bit, false);
    }
}

void CorrectSide(DevModePrivate& record, const CardSide& side) {
    CorrectResin(record, side);
    if ((record.PrintSides & side.Bit) == 0) {
        PutBits(record.RotateSides, side.Bit, false);
        PutBits(record.FlipSides, side.Bit, false);
    }
}

int InRangeOrFirst(int choice, size_t count) {
    return choice >= 0 && choice < static_cast<int>(count) ? choice : 0;
}

}  // namespace

bool IsColorRibbon(BYTE ribbon) {
    return Is(ribbon, kColor);
}
bool IsResinRibbon(BYTE ribbon) {
    return Is(ribbon, kResin);
}
bool OffersKOnlyOnBack(BYTE ribbon) {
    return Is(ribbon, kCanLeaveBackToK);
}
bool IsKnownRibbon(BYTE ribbon) {
    return IsColorRibbon(ribbon) || IsResinRibbon(ribbon) || ribbon == kRibbonWithoutResin ||
           ribbon == kRibbonWithoutOptions;
}

bool IsBackPrintable(const DevModePrivate& record) {
    return record.CardType != kAdhesiveCard && record.CardThickness != kThickness03;
}

bool HasPrintableBack(const DriverContext& context) {
    return context.IsDuplexModel != 0 && IsBackPrintable(context.WorkingDevMode.Private);
}

ResinChoice ChosenResin(const DevModePrivate& record, const CardSide& side, ResinChoice first) {
    const auto* from = std::find(std::begin(kPrecedence), std::end(kPrecedence), first);
    const auto* chosen = std::find_if(from, std::end(kPrecedence), [&](ResinChoice choice) {
        return IsChosen(record, side, choice);
    });
    return chosen == std::end(kPrecedence) ? kResinDisabled : *chosen;
}

ResinRibbonChoice ChosenResinRibbonUse(const DevModePrivate& record, const CardSide& side) {
    if ((record.ResinOptions & side.BlackByResin) != 0) {
        return kResinRibbonBlackAndWhite;
    }
    if ((record.ResinOptions & side.Dither) != 0) {
        return kResinRibbonDither;
    }
    return (record.ResinOptions2 & side.Grey) != 0 ? kResinRibbonGrey : kResinRibbonBlackAndWhite;
}

void CorrectCardOptions(DriverContext& context) {
    DEVMODEW& paper = context.WorkingDevMode.Public;
    DevModePrivate& record = context.WorkingDevMode.Private;
    if (paper.dmOrientation != DMORIENT_PORTRAIT) {
        paper.dmOrientation = DMORIENT_LANDSCAPE;
    }
    CorrectKOnlyOnBack(context);
    for (const CardSide* side : kCardSides) {
        CorrectSide(record, *side);
    }
    if (record.TransparentCard != 1) {
        record.TransparentCard = 0;
        record.FlipSides = 0;
    }
    if (record.PrintingMode != kStandardMode) {
        record.PrintingMode = kPremiumPhotoMode;
    }
    record.OrientationLock = record.OrientationLock != 0;
    record.SkipBlankPage = record.SkipBlankPage != 0;
}

void ChooseRibbon(DriverContext& context, int index) {
    DevModePrivate& record = context.WorkingDevMode.Private;
    record.RibbonType = kRibbons[InRangeOrFirst(index, std::size(kRibbons))].Code;
    record.KOnlyOnBack = 0;
    if (IsColorRibbon(record.RibbonType)) {
        ResetForColorRibbon(context);
    } else if (IsResinRibbon(record.RibbonType)) {
        ResetForResinRibbon(record);
    }
}

void ChooseCardType(DevModePrivate& record, int index) {
    record.CardType = static_cast<BYTE>(InRangeOrFirst(index, std::size(kCardTypes)));
    SwitchUnprintableBackOff(record);
}

void ChooseThickness(DevModePrivate& record, int index) {
    record.CardThickness = static_cast<BYTE>(InRangeOrFirst(index, std::size(kThicknesses)));
    SwitchUnprintableBackOff(record);
}

void ToggleKOnlyOnBack(DevModePrivate& record) {
    if (record.KOnlyOnBack != 0) {
        record.KOnlyOnBack = 0;
        return;
    }
    record.KOnlyOnBack = 1;
    PutBits(record.ResinOptions, kFront.BlackByResin | kFront.TextOnly | kFront.ColorDisabled,
            false);
    PutBits(record.ResinOptions2, kFront.BlackAndWhite, false);
    PutBits(record.BlackByYmcK, kBothSides, false);
    PrintOnlyKOnBack(record);
}

void ToggleTransparentCard(DevModePrivate& record) {
    record.TransparentCard = record.TransparentCard != 1;
    for (const CardSide* side : kCardSides) {
        if ((record.PrintSides & side->Bit) == 0) {
            PutBits(record.FlipSides, side->Bit, false);
        }
    }
    if (record.TransparentCard == 0) {
        record.FlipSides = 0;
    }
}

void TogglePrinted(DevModePrivate& record, const CardSide& side) {
    if ((record.PrintSides & side.Bit) != 0) {
        for (BYTE* field : {&record.PrintSides, &record.RotateSides, &record.FlipSides}) {
            PutBits(*field, side.Bit, false);
        }
        return;
    }
    PutBits(record.PrintSides, side.Bit, true);
    const BYTE ribbon = record.RibbonType;
    if (IsColorRibbon(ribbon)) {
        const bool usesResin = (record.ResinOptions & side.ResinMask) != 0 ||
                               (record.ResinOptions2 & side.BlackAndWhite) != 0;
        if (!usesResin) {
            PutBits(record.ColorSides, side.Bit, true);
        }
    } else if (ribbon == kRibbonWithoutResin) {
        PutBits(record.ColorSides, side.Bit, true);
    } else if (IsResinRibbon(ribbon) || HasFixedResinPanel(ribbon)) {
        NeedResinRibbonUse(record, side);
    }
}

void ToggleRotated(DevModePrivate& record, const CardSide& side) {
    record.RotateSides ^= side.Bit;
}

void ToggleFlipped(DevModePrivate& record, const CardSide& side) {
    record.FlipSides ^= side.Bit;
}

bool ToggleColor(DevModePrivate& record, const CardSide& side) {
    if (record.RibbonType == kRibbonWithoutResin) {
        return false;
    }
    const BYTE black = side.BlackByResin | side.TextOnly | side.ColorDisabled;
    const bool hadColor = (record.ColorSides & side.Bit) != 0;
    const bool mixesBlack = (record.BlackByYmcK & side.Bit) != 0;
    PutBits(record.ColorSides, side.Bit, !hadColor);
    if (!hadColor) {
        // With colour back, "Resin Dither", "Black/White" and "Black by YMC+K" end.
        if (mixesBlack || (record.ResinOptions & side.Dither) != 0 ||
            (record.ResinOptions2 & side.BlackAndWhite) != 0) {
            PutBits(record.ResinOptions2, side.BlackAndWhite, false);
            SetResinOption(record, side, 0);
        }
    } else if (IsColorRibbon(record.RibbonType)) {
        // A side without colour prints at least black by resin; black cannot be mixed of colours.
        if ((record.ResinOptions & black) == 0) {
            PutBits(record.ResinOptions, side.BlackByResin, true);
        } else if (mixesBlack) {
            PutBits(record.ResinOptions2, side.BlackAndWhite, false);
            PutBits(record.BlackByYmcK, side.Bit, false);
            SetResinOption(record, side, side.BlackByResin);
        }
    }
    return true;
}

void ChooseResin(DevModePrivate& record, const CardSide& side, int index) {
    if (IsColorRibbon(record.RibbonType)) {
        const int left = side.Bit == kBackSide && record.KOnlyOnBack != 0 ? kBlackByResin : 0;
        const int entry =
            InRangeOrFirst(index, std::size(kResinChoices) - static_cast<size_t>(left));
        ChooseColorRibbonResin(record, side, static_cast<ResinChoice>(entry + left));
    } else if (IsResinRibbon(record.RibbonType)) {
        const size_t count = std::size(kResinRibbonChoices) - (side.Grey == 0 ? 1 : 0);
        ChooseResinRibbonUse(record, side,
                             static_cast<ResinRibbonChoice>(InRangeOrFirst(index, count)));
    }
}
