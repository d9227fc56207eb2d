// What the Device Options page's choices do to the record: ribbons and cards, what is printed on
// which side and how black comes onto it. Nothing here knows of windows.
#pragma once

#include "core/card_terms.h"
#include "core/context.h"
#include "ui/common/card_side.h"

// ---- What there is to choose from -------------------------------------------------------------

/// Two codes that the list does not offer, for ribbons without a resin panel, and without any
/// choice on a side.
constexpr BYTE kRibbonWithoutResin = 2;
constexpr BYTE kRibbonWithoutOptions = 11;

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

/// How resin is used on a side under a colour ribbon. Of several uses in the record the first
/// counts, in the order kBlackByYmcK, kBlackByResin, ... kResinDither, begun at `first`.
ResinChoice ChosenResin(const DevModePrivate& record, const CardSide& side,
                        ResinChoice first = kBlackByYmcK);
/// The same under a resin ribbon.
ResinRibbonChoice ChosenResinRibbonUse(const DevModePrivate& record, const CardSide& side);

// ---- Changes ----------------------------------------------------------------------------------

/// Makes the record one that the page can show: what this model, card and ribbon cannot do is
/// switched off.
void CorrectCardOptions(DriverContext& context);

// A choice of the user's, written into the record with all that depends on it. An index that a list
// lacks counts as its first.

void ChooseRibbon(DriverContext& context, int index);
void ChooseCardType(DevModePrivate& record, int index);
void ChooseThickness(DevModePrivate& record, int index);
void ToggleKOnlyOnBack(DevModePrivate& record);
void ToggleTransparentCard(DevModePrivate& record);

void TogglePrinted(DevModePrivate& record, const CardSide& side);
void ToggleRotated(DevModePrivate& record, const CardSide& side);
void ToggleFlipped(DevModePrivate& record, const CardSide& side);
/// False when the ribbon leaves nothing to choose.
bool ToggleColor(DevModePrivate& record, const CardSide& side);
void ChooseResin(DevModePrivate& record, const CardSide& side, int index);
