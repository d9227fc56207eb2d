// What the controls of the Device Options page show of a record.
#include "ui/pages/device_options/option_controls.h"

#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/pages/device_options/card_preview.h"

#include <algorithm>

namespace {

// ---- Lists ------------------------------------------------------------------------------------

// A code that a list lacks shows its first entry.
void FillRibbons(HWND dialog, BYTE ribbon) {
    const WCHAR* texts[std::size(kRibbons)];
    int selected = 0;
    for (int i = 0; i < static_cast<int>(std::size(kRibbons)); ++i) {
        texts[i] = kRibbons[i].Name;
        selected = kRibbons[i].Code == ribbon ? i : selected;
    }
    FillList(dialog, IDC_RIBBON, texts);
    SelectItem(dialog, IDC_RIBBON, selected);
}

// The first entry of a side's list under a colour ribbon.
ResinChoice FirstChoice(const DevModePrivate& record, const CardSide& side) {
    return side.Bit == kBackSide && record.KOnlyOnBack != 0 ? kBlackByResin : kResinDisabled;
}

// ---- What the record makes of the other controls ------------------------------------------------

bool IsPrinted(const DevModePrivate& record, const CardSide& side) {
    return (record.PrintSides & side.Bit) != 0;
}

bool ShowsColor(const DriverContext& context, const CardSide& side) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    const bool isBack = side.Bit == kBackSide;
    switch (record.RibbonType) {
        case kRibbonWithoutOptions:
            return false;
        case kRibbonWithoutResin:
            return !isBack || HasPrintableBack(context);
        default:
            return IsColorRibbon(record.RibbonType) && !(isBack && record.KOnlyOnBack != 0);
    }
}

bool ShowsResin(const DevModePrivate& record, const CardSide& side) {
    const bool leavesKToBack = side.Bit == kFrontSide && record.KOnlyOnBack != 0;
    return IsResinRibbon(record.RibbonType) || (IsColorRibbon(record.RibbonType) && !leavesKToBack);
}

void ShowSide(HWND dialog, const DriverContext& context, const SideControls& controls) {
    const CardSide& side = controls.Side;
    const DevModePrivate& record = context.WorkingDevMode.Private;
    const bool isBack = side.Bit == kBackSide;
    const bool exists = !isBack || HasPrintableBack(context);
    const bool printed = IsPrinted(record, side);
    const bool flippable = printed && record.TransparentCard == 1;
    const bool free = record.KOnlyOnBack == 0;  // "K only on Back" decides the sides itself

    CheckControl(dialog, controls.Image, printed);
    EnableControl(dialog, controls.Image, free);
    ShowControl(dialog, controls.Image, exists);
    CheckControl(dialog, controls.Rotate, printed && (record.RotateSides & side.Bit) != 0);
    EnableControl(dialog, controls.Rotate, printed);
    ShowControl(dialog, controls.Rotate, exists);
    CheckControl(dialog, controls.Flip, flippable && (record.FlipSides & side.Bit) != 0);
    EnableControl(dialog, controls.Flip, flippable);
    ShowControl(dialog, controls.Flip, exists && context.IsKP41Family != 0);

    const bool hasPanels = printed && (!isBack || context.IsDuplexModel != 0);
    // Under a ribbon of no known class the panels' controls stay as they are.
    if (!hasPanels || IsKnownRibbon(record.RibbonType)) {
        ShowPanels(dialog, controls, hasPanels && ShowsColor(context, side),
                   hasPanels && ShowsResin(record, side));
    }
    CheckControl(dialog, controls.Color, (record.ColorSides & side.Bit) != 0);
    EnableControl(dialog, controls.Color, free);
}

}  // namespace

void FillCardLists(HWND dialog, const DevModePrivate& record) {
    FillRibbons(dialog, record.RibbonType);
    FillList(dialog, IDC_CARD_TYPE, kCardTypes);
    SelectItem(dialog, IDC_CARD_TYPE,
               record.CardType < std::size(kCardTypes) ? int{record.CardType} : 0);
    FillList(dialog, IDC_THICKNESS, kThicknesses);
    SelectItem(dialog, IDC_THICKNESS, record.CardThickness);
}

void FillResinList(HWND dialog, const DriverContext& context, const SideControls& controls,
                   ResinChoice precedence, ResinChoice last) {
    const CardSide& side = controls.Side;
    const DevModePrivate& record = context.WorkingDevMode.Private;
    SetSection(kDeviceOptionSection);
    if (IsResinRibbon(record.RibbonType)) {
        const bool offersGrey = side.Grey != 0 && context.IsKP43Family != 0;
        FillTranslatedList(dialog, controls.Resin,
                           std::span(kResinRibbonChoices).first(offersGrey ? 3 : 2));
        SelectItem(dialog, controls.Resin, ChosenResinRibbonUse(record, side));
    } else if (IsColorRibbon(record.RibbonType)) {
        const size_t first = FirstChoice(record, side);
        FillTranslatedList(dialog, controls.Resin,
                           std::span(kResinChoices).subspan(first, last + 1 - first));
        SelectResin(dialog, record, controls, precedence);
    } else {
        FillTranslatedList(dialog, controls.Resin, {});
    }
}

void FillResinLists(HWND dialog, const DriverContext& context, ResinChoice precedence) {
    for (const SideControls* controls : kSideControls) {
        FillResinList(dialog, context, *controls, precedence);
    }
}

void SelectResin(HWND dialog, const DevModePrivate& record, const SideControls& controls,
                 ResinChoice precedence) {
    const int index = ChosenResin(record, controls.Side, precedence) -
                      static_cast<int>(FirstChoice(record, controls.Side));
    SelectItem(dialog, controls.Resin, std::max(index, 0));
}

void ShowPanels(HWND dialog, const SideControls& controls, bool color, bool resin) {
    ShowControl(dialog, controls.Color, color);
    ShowControl(dialog, controls.ResinLabel, resin);
    ShowControl(dialog, controls.Resin, resin);
}

void ShowOptions(HWND dialog, const DriverContext& context) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    for (const SideControls* controls : kSideControls) {
        ShowSide(dialog, context, *controls);
    }
    ShowButtons(dialog, context.WorkingDevMode, kOrientationButtons);
    ShowButtons(dialog, context.WorkingDevMode, kPlainButtons);
    ShowControl(dialog, IDC_BACK_GROUP, ShowsBackPreview(context) || HasPrintableBack(context));
    CheckControl(dialog, IDC_K_ONLY_ON_BACK, record.KOnlyOnBack != 0);
    ShowControl(dialog, IDC_K_ONLY_ON_BACK,
                HasPrintableBack(context) && OffersKOnlyOnBack(record.RibbonType));
    CheckControl(dialog, IDC_TRANSPARENT_CARD, record.TransparentCard == 1);
    ShowControl(dialog, IDC_NO_WHITE_SKIP, record.RibbonType != kRibbonYMCKFO);
}

void ShowModelsControls(HWND dialog, const DriverContext& context) {
    const bool choosesCard = context.IsKP43Family == 0;
    for (int control : {IDC_RIBBON_LABEL, IDC_RIBBON, IDC_CARD_TYPE_LABEL, IDC_CARD_TYPE}) {
        ShowControl(dialog, control, choosesCard);
    }
    for (int control : {IDC_PRINTING_MODE_LABEL, IDC_STANDARD_MODE, IDC_PHOTO_MODE}) {
        ShowControl(dialog, control, false);
    }
    ShowControl(dialog, IDC_THICKNESS_LABEL, true);
    ShowControl(dialog, IDC_THICKNESS, true);
    ShowControl(dialog, IDC_TRANSPARENT_CARD, context.IsKP41Family != 0 && context.IsKP49 == 0);
    ShowControl(dialog, IDC_BACK_PREVIEW, ShowsBackPreview(context));
    for (const SideControls* controls : kSideControls) {
        SetDlgItemTextW(dialog, controls->Color, TEXT("Color Printing"));
        ShowPanels(dialog, *controls, true, true);
    }
}
