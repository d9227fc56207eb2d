// What the controls of the Device Options page show of a record.
#include "ui/pages/device_options/option_controls.h"

#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/pages/device_options/card_preview.h"

#include <algorithm>

namespace {

constexpr WPARAM kCopiesDigits = 4;

// ---- Lists ------------------------------------------------------------------------------------

// A code that a list lacks shows its first entry.
void FillRibbons(HWND dialog, BYTE ribbon) {
    const WCHAR* texts[std::size(kRibbons)];
    int selected = 0;
    for (int i = 0; i < static_cast<int>(std::size(kRibbons)); ++i) {
        texts[i] = kRibbons[i].Text;
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

void ShowSide(HWND dialog, const DriverContext& context, const CardSide& side) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    const bool isBack = side.Bit == kBackSide;
    const bool exists = !isBack || HasPrintableBack(context);
    const bool printed = IsPrinted(record, side);
    const bool flippable = printed && record.TransparentCard == 1;
    const bool free = record.KOnlyOnBack == 0;  // else both sides are as that needs them

    CheckControl(dialog, side.Image, printed);
    EnableControl(dialog, side.Image, free);
    ShowControl(dialog, side.Image, exists);
    CheckControl(dialog, side.Rotate, printed && (record.RotateSides & side.Bit) != 0);
    EnableControl(dialog, side.Rotate, printed);
    ShowControl(dialog, side.Rotate, exists);
    CheckControl(dialog, side.Flip, flippable && (record.FlipSides & side.Bit) != 0);
    EnableControl(dialog, side.Flip, flippable);
    ShowControl(dialog, side.Flip, exists && context.IsKP41Family != 0);

    const bool hasPanels = printed && (!isBack || context.IsDuplexModel != 0);
    // Under a ribbon of no known class they stay as they are.
    if (!hasPanels || IsKnownRibbon(record.RibbonType)) {
        ShowPanels(dialog, side, hasPanels && ShowsColor(context, side),
                   hasPanels && ShowsResin(record, side));
    }
    CheckControl(dialog, side.Color, (record.ColorSides & side.Bit) != 0);
    EnableControl(dialog, side.Color, free);
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

void FillResinList(HWND dialog, const DriverContext& context, const CardSide& side,
                   ResinChoice precedence, ResinChoice last) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    SetSection(kDeviceOptionSection);
    if (IsResinRibbon(record.RibbonType)) {
        const bool offersGrey = side.Grey != 0 && context.IsKP43Family != 0;
        FillTranslatedList(dialog, side.Resin,
                           std::span(kResinRibbonChoices).first(offersGrey ? 3 : 2));
        SelectItem(dialog, side.Resin, ChosenResinRibbonUse(record, side));
    } else if (IsColorRibbon(record.RibbonType)) {
        const size_t first = FirstChoice(record, side);
        FillTranslatedList(dialog, side.Resin,
                           std::span(kResinChoices).subspan(first, last + 1 - first));
        SelectResin(dialog, record, side, precedence);
    } else {
        FillTranslatedList(dialog, side.Resin, {});
    }
}

void FillResinLists(HWND dialog, const DriverContext& context, ResinChoice precedence) {
    for (const CardSide* side : kCardSides) {
        FillResinList(dialog, context, *side, precedence);
    }
}

void SelectResin(HWND dialog, const DevModePrivate& record, const CardSide& side,
                 ResinChoice precedence) {
    const int index =
        ChosenResin(record, side, precedence) - static_cast<int>(FirstChoice(record, side));
    SelectItem(dialog, side.Resin, std::max(index, 0));
}

void ShowPanels(HWND dialog, const CardSide& side, bool color, bool resin) {
    ShowControl(dialog, side.Color, color);
    ShowControl(dialog, side.ResinLabel, resin);
    ShowControl(dialog, side.Resin, resin);
}

void ShowOptions(HWND dialog, const DriverContext& context) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    const bool isPortrait = context.WorkingDevMode.Public.dmOrientation == DMORIENT_PORTRAIT;
    for (const CardSide* side : kCardSides) {
        ShowSide(dialog, context, *side);
    }
    ShowControl(dialog, IDC_BACK_GROUP, ShowsBackPreview(context) || HasPrintableBack(context));
    CheckControl(dialog, IDC_K_ONLY_ON_BACK, record.KOnlyOnBack != 0);
    ShowControl(dialog, IDC_K_ONLY_ON_BACK,
                HasPrintableBack(context) && OffersKOnlyOnBack(record.RibbonType));
    CheckControl(dialog, IDC_TRANSPARENT_CARD, record.TransparentCard == 1);
    CheckRadioButton(dialog, IDC_LANDSCAPE, IDC_PORTRAIT,
                     isPortrait ? IDC_PORTRAIT : IDC_LANDSCAPE);
    CheckRadioButton(dialog, IDC_STANDARD_MODE, IDC_PHOTO_MODE,
                     record.PrintingMode == kStandardMode ? IDC_STANDARD_MODE : IDC_PHOTO_MODE);
    CheckControl(dialog, IDC_ORIENTATION_LOCK, record.OrientationLock != 0);
    CheckControl(dialog, IDC_SKIP_BLANK_PAGE, record.SkipBlankPage != 0);
    CheckControl(dialog, IDC_PRINT_AS_OTHER_MODEL, record.PrintAsOtherModel != 0);
    CheckControl(dialog, IDC_NO_WHITE_SKIP, record.WhiteSkip == 0);
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
    for (const CardSide* side : kCardSides) {
        SetDlgItemTextW(dialog, side->Color, TEXT("Color Printing"));
        ShowPanels(dialog, *side, true, true);
    }
}

void ShowCopies(HWND dialog, SHORT copies) {
    SetDlgItemInt(dialog, IDC_COPIES, static_cast<UINT>(copies), FALSE);
    SendDlgItemMessageW(dialog, IDC_COPIES, EM_LIMITTEXT, kCopiesDigits, 0);
    HWND arrows = GetDlgItem(dialog, IDC_COPIES_SCROLL);
    SetScrollRange(arrows, SB_CTL, 1, kMaxCopies, FALSE);
    SetScrollPos(arrows, SB_CTL, copies, TRUE);
}
