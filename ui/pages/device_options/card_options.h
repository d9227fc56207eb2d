// What the Device Options page's choices do to the record: ribbons and cards, what is printed on
// which side and how black comes onto it. Nothing here knows of windows.
#pragma once

#include "core/context.h"
#include "ui/pages/device_options/card_side.h"

// ---- What there is to choose from -------------------------------------------------------------

struct RibbonRow {
    BYTE Code;
    const WCHAR* Text;
};

/// The ribbons in the order of the list. Records may carry other codes.
inline constexpr RibbonRow kRibbons[] = {
    {kRibbonYMCKO, TEXT("YMCKO")},   {kRibbonK, TEXT("K")},   {kRibbonHalfYMCKO, TEXT("1/2 YMCKO")},
    {kRibbonYMCKOK, TEXT("YMCKOK")}, {kRibbonKO, TEXT("KO")}, {kRibbonYMCKFO, TEXT("YMCKFO")},
};

/// Never offered: one has no resin panel, the other leaves nothing to choose on its sides.
constexpr BYTE kRibbonWithoutResin = 2;
constexpr BYTE kRibbonWithoutOptions = 11;

/// By their codes.
inline constexpr const WCHAR* kCardTypes[] = {
    TEXT("Blank Card"),           TEXT("6-pin Smart Chip Card"), TEXT("8-pin Smart Chip Card"),
    TEXT("Magnetic Stripe Card"), TEXT("Chip/Magnetic Card"),    TEXT("Adhesive Card"),
};
inline constexpr const WCHAR* kThicknesses[] = {TEXT("0.3 mm"), TEXT("0.5 mm"), TEXT("0.8 mm"),
                                                TEXT("1.0 mm")};

/// How a colour ribbon's resin panel is used on a side, in the order of the full list. While only
/// resin is printed on the back, its list begins with kBlackByResin.
enum ResinChoice {
    kResinDisabled,
    kBlackByResin,
    kTextOnly,
    kColorPrintingDisabled,
    kBlackAndWhite,
    kResinDither,
    kBlackByYmcK,
};
inline constexpr const WCHAR* kResinChoices[] = {
    TEXT("Disable"),        TEXT("Black by Resin K"),
    TEXT("Text only"),      TEXT("Disable doing color printing"),
    TEXT("Black/White"),    TEXT("Resin Dither"),
    TEXT("Black by YMC+K"),
};

/// The same for a resin ribbon; the last is for the front of the models that can.
enum ResinRibbonChoice { kResinRibbonBlackAndWhite, kResinRibbonDither, kResinRibbonGrey };
inline constexpr const WCHAR* kResinRibbonChoices[] = {TEXT("Black/White"), TEXT("Resin Dither"),
                                                       TEXT("Resin Gray")};

// ---- What a record is about -------------------------------------------------------------------

bool IsColorRibbon(BYTE ribbon);
bool IsResinRibbon(BYTE ribbon);
bool OffersKOnlyOnBack(BYTE ribbon);
/// Of one of these classes, or one of the two ribbons above that stand alone.
bool IsKnownRibbon(BYTE ribbon);

/// Neither an adhesive card nor one too thin to be turned over.
bool IsBackPrintable(const DevModePrivate& record);
/// The back can be printed by this model on this card.
bool HasPrintableBack(const DriverContext& context);

/// How resin is used on a side under a colour ribbon: the first choice that the record makes, from
/// `first` on in the order of precedence, which begins with kBlackByYmcK and ends with
/// kResinDither.
ResinChoice ChosenResin(const DevModePrivate& record, const CardSide& side,
                        ResinChoice first = kBlackByYmcK);
/// The same under a resin ribbon.
ResinRibbonChoice ChosenResinRibbonUse(const DevModePrivate& record, const CardSide& side);

// ---- Changes ----------------------------------------------------------------------------------

/// Makes the record one that the page can show: what this model, card and ribbon cannot do is
/// switched off.
void CorrectCardOptions(DriverContext& context);

/// A choice of the user's, written into the record with all that depends on it. `side` is that of
/// the control, `choice` the index in a list (an index that the list lacks counts as its first) or
/// the number entered; other controls ignore it. False when it changes nothing at all.
using Change = bool(DriverContext& context, const CardSide& side, int choice);

Change ChooseRibbon;
Change ChooseCardType;
Change ChooseThickness;
Change ToggleKOnlyOnBack;
Change ToggleTransparentCard;
Change TogglePrinted;
Change ToggleColor;
Change ChooseResin;
Change ChooseCopies;
Change ChooseOrientation;  ///< DMORIENT_...

/// Between 0 and 1; anything else becomes 0.
template <BYTE DevModePrivate::*Field>
bool ToggleFlag(DriverContext& context, const CardSide&, int) {
    BYTE& field = context.WorkingDevMode.Private.*Field;
    field = field == 0;
    return true;
}

template <BYTE DevModePrivate::*Field>
bool ToggleSide(DriverContext& context, const CardSide& side, int) {
    context.WorkingDevMode.Private.*Field ^= side.Bit;
    return true;
}

template <BYTE DevModePrivate::*Field, BYTE Value>
bool SetField(DriverContext& context, const CardSide&, int) {
    context.WorkingDevMode.Private.*Field = Value;
    return true;
}
