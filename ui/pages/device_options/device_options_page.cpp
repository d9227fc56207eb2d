// The Device Options page: what its controls show, and which choice each of them makes.
#include "ui/pages/device_options/device_options_page.h"

#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/numeric_field.h"
#include "ui/common/page.h"
#include "ui/pages/device_options/card_options.h"
#include "ui/pages/device_options/card_preview.h"
#include "ui/pages/device_options/ribbon_item.h"

#include <algorithm>

namespace {

constexpr const WCHAR* kSection = TEXT("DeviceOption");
constexpr const WCHAR* kCopiesSection = TEXT("Tools");
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

void FillCardLists(HWND dialog, const DevModePrivate& record) {
    FillRibbons(dialog, record.RibbonType);
    FillList(dialog, IDC_CARD_TYPE, kCardTypes);
    SelectItem(dialog, IDC_CARD_TYPE,
               record.CardType < std::size(kCardTypes) ? int{record.CardType} : 0);
    FillList(dialog, IDC_THICKNESS, kThicknesses);
    SelectItem(dialog, IDC_THICKNESS, record.CardThickness);
}

// The first entry of a side's list under a colour ribbon.
ResinChoice FirstChoice(const DevModePrivate& record, const CardSide& side) {
    return side.Bit == kBackSide && record.KOnlyOnBack != 0 ? kBlackByResin : kResinDisabled;
}

void SelectResin(HWND dialog, const DevModePrivate& record, const CardSide& side,
                 ResinChoice precedence) {
    const int index =
        ChosenResin(record, side, precedence) - static_cast<int>(FirstChoice(record, side));
    SelectItem(dialog, side.Resin, std::max(index, 0));
}

// Offers the choices up to `last`, and selects what the record says from `precedence` on.
void FillResin(HWND dialog, const DriverContext& context, const CardSide& side,
               ResinChoice precedence, ResinChoice last = kBlackByYmcK) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
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
    SetSection(kSection);
    for (const CardSide* side : kCardSides) {
        FillResin(dialog, context, *side, precedence);
    }
}

// ---- What the record makes of the other controls ------------------------------------------------

bool IsPrinted(const DevModePrivate& record, const CardSide& side) {
    return (record.PrintSides & side.Bit) != 0;
}

bool ShowsColor(const DriverContext& context, const CardSide& side) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    const bool isBack = side.Bit == kBackSide;
    if (record.RibbonType == kRibbonWithoutResin) {
        return !isBack || HasPrintableBack(context);
    }
    return !IsResinRibbon(record.RibbonType) && !(isBack && record.KOnlyOnBack != 0);
}

bool ShowsResin(const DevModePrivate& record, const CardSide& side) {
    const bool leavesKToBack =
        side.Bit == kFrontSide && record.KOnlyOnBack != 0 && !IsResinRibbon(record.RibbonType);
    return record.RibbonType != kRibbonWithoutResin && !leavesKToBack;
}

// A side's colour box, and its resin list with the label.
void ShowPanels(HWND dialog, const CardSide& side, bool color, bool resin) {
    ShowControl(dialog, side.Color, color);
    ShowControl(dialog, side.ResinLabel, resin);
    ShowControl(dialog, side.Resin, resin);
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

    const bool hasPanels = printed && record.RibbonType != kRibbonWithoutOptions &&
                           (!isBack || context.IsDuplexModel != 0);
    ShowPanels(dialog, side, hasPanels && ShowsColor(context, side),
               hasPanels && ShowsResin(record, side));
    CheckControl(dialog, side.Color, (record.ColorSides & side.Bit) != 0);
    EnableControl(dialog, side.Color, free);
}

// Everything but the lists and the copies.
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

// What the model alone decides.
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
    }
}

void ShowCopies(HWND dialog, SHORT copies) {
    SetDlgItemInt(dialog, IDC_COPIES, static_cast<UINT>(copies), FALSE);
    SendDlgItemMessageW(dialog, IDC_COPIES, EM_LIMITTEXT, kCopiesDigits, 0);
    HWND arrows = GetDlgItem(dialog, IDC_COPIES_SCROLL);
    SetScrollRange(arrows, SB_CTL, 1, kMaxCopies, FALSE);
    SetScrollPos(arrows, SB_CTL, copies, TRUE);
}

// ---- The user's choices -------------------------------------------------------------------------

enum Pictures : unsigned {
    kNoPicture = 0,
    kSidePreview = 1,  ///< that of the control's side
    kPageOrder = 2,
    kBothPreviews = 4,
    kAllPictures = kPageOrder | kBothPreviews,
};

void RedrawPicture(HWND dialog, int control) {
    RECT area = ControlArea(dialog, control);
    InflateRect(&area, 2, 2);
    InvalidateRect(dialog, &area, TRUE);
}

void RedrawPictures(HWND dialog, const CardSide& side, unsigned pictures) {
    if ((pictures & kSidePreview) != 0) {
        RedrawPicture(dialog, side.Preview);
    }
    if ((pictures & kBothPreviews) != 0) {
        RedrawPicture(dialog, kFront.Preview);
        RedrawPicture(dialog, kBack.Preview);
    }
    if ((pictures & kPageOrder) != 0) {
        RedrawPicture(dialog, IDC_PAGE_ORDER);
    }
}

// Beyond what the record makes of the controls.
using Follow = void(HWND dialog, const DriverContext& context, const CardSide& side);

void FollowRibbon(HWND dialog, const DriverContext& context, const CardSide&) {
    FillResinLists(dialog, context, kBlackByResin);
    CheckControl(dialog, IDC_NO_WHITE_SKIP, context.WorkingDevMode.Private.WhiteSkip != 1);
}

void FollowKOnlyOnBack(HWND dialog, const DriverContext& context, const CardSide& side) {
    if (context.WorkingDevMode.Private.KOnlyOnBack != 0) {
        SetSection(kSection);
        FillResin(dialog, context, kFront, kBlackByResin);  // for when it is shown again
        FillResin(dialog, context, kBack, kTextOnly, kResinDither);
        RedrawPictures(dialog, side, kAllPictures);
    } else {
        FillResinLists(dialog, context, kBlackByResin);
    }
}

// A side of a ribbon that is of no known class stays without its panels.
void FollowPrinted(HWND dialog, const DriverContext& context, const CardSide& side) {
    const BYTE ribbon = context.WorkingDevMode.Private.RibbonType;
    if (!IsColorRibbon(ribbon) && !IsResinRibbon(ribbon) && ribbon != kRibbonWithoutResin) {
        ShowPanels(dialog, side, false, false);
    }
}

void FollowColor(HWND dialog, const DriverContext& context, const CardSide& side) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    if (IsColorRibbon(record.RibbonType)) {
        SelectResin(dialog, record, side, kBlackByResin);
    }
}

void FollowCopies(HWND dialog, const DriverContext& context, const CardSide&) {
    SetScrollPos(GetDlgItem(dialog, IDC_COPIES_SCROLL), SB_CTL,
                 context.WorkingDevMode.Public.dmCopies, TRUE);
}

bool ChooseLandscape(DriverContext& context, const CardSide& side, int) {
    return ChooseOrientation(context, side, DMORIENT_LANDSCAPE);
}
bool ChoosePortrait(DriverContext& context, const CardSide& side, int) {
    return ChooseOrientation(context, side, DMORIENT_PORTRAIT);
}

constexpr int kAnyCommand = -1;

struct Rule {
    int Control;
    int Notification;
    const CardSide& Side;
    Change* Apply;
    Follow* Then;
    unsigned Redraws;
};

// clang-format off
constexpr Rule kRules[] = {
    {IDC_RIBBON, CBN_SELENDOK, kFront, ChooseRibbon, FollowRibbon, kBothPreviews},
    {IDC_CARD_TYPE, CBN_SELENDOK, kFront, ChooseCardType, nullptr, kAllPictures},
    {IDC_THICKNESS, CBN_SELENDOK, kFront, ChooseThickness, nullptr, kNoPicture},
    {IDC_K_ONLY_ON_BACK, kAnyCommand, kFront, ToggleKOnlyOnBack, FollowKOnlyOnBack, kNoPicture},
    {IDC_TRANSPARENT_CARD, kAnyCommand, kFront, ToggleTransparentCard, nullptr, kNoPicture},
    {IDC_FRONT_IMAGE, kAnyCommand, kFront, TogglePrinted, FollowPrinted, kSidePreview | kPageOrder},
    {IDC_BACK_IMAGE, kAnyCommand, kBack, TogglePrinted, FollowPrinted, kSidePreview | kPageOrder},
    {IDC_FRONT_COLOR, kAnyCommand, kFront, ToggleColor, FollowColor, kSidePreview},
    {IDC_BACK_COLOR, kAnyCommand, kBack, ToggleColor, FollowColor, kSidePreview},
    {IDC_FRONT_RESIN, CBN_SELENDOK, kFront, ChooseResin, nullptr, kSidePreview},
    {IDC_BACK_RESIN, CBN_SELENDOK, kBack, ChooseResin, nullptr, kSidePreview},
    {IDC_FRONT_ROTATE, kAnyCommand, kFront, ToggleSide<&DevModePrivate::RotateSides>, nullptr, kSidePreview | kPageOrder},
    {IDC_BACK_ROTATE, kAnyCommand, kBack, ToggleSide<&DevModePrivate::RotateSides>, nullptr, kSidePreview | kPageOrder},
    {IDC_FRONT_FLIP, kAnyCommand, kFront, ToggleSide<&DevModePrivate::FlipSides>, nullptr, kSidePreview},
    {IDC_BACK_FLIP, kAnyCommand, kBack, ToggleSide<&DevModePrivate::FlipSides>, nullptr, kSidePreview},
    {IDC_LANDSCAPE, kAnyCommand, kFront, ChooseLandscape, nullptr, kAllPictures},
    {IDC_PORTRAIT, kAnyCommand, kFront, ChoosePortrait, nullptr, kAllPictures},
    {IDC_STANDARD_MODE, kAnyCommand, kFront, SetField<&DevModePrivate::PrintingMode, kStandardMode>, nullptr, kNoPicture},
    {IDC_PHOTO_MODE, kAnyCommand, kFront, SetField<&DevModePrivate::PrintingMode, kPremiumPhotoMode>, nullptr, kNoPicture},
    {IDC_COPIES, EN_CHANGE, kFront, ChooseCopies, FollowCopies, kNoPicture},
    {IDC_ORIENTATION_LOCK, kAnyCommand, kFront, ToggleFlag<&DevModePrivate::OrientationLock>, nullptr, kNoPicture},
    {IDC_NO_WHITE_SKIP, kAnyCommand, kFront, ToggleFlag<&DevModePrivate::WhiteSkip>, nullptr, kNoPicture},
    {IDC_PRINT_AS_OTHER_MODEL, kAnyCommand, kFront, ToggleFlag<&DevModePrivate::PrintAsOtherModel>, nullptr, kNoPicture},
    {IDC_SKIP_BLANK_PAGE, kAnyCommand, kFront, ToggleFlag<&DevModePrivate::SkipBlankPage>, nullptr, kNoPicture},
};
// clang-format on

// What the user chose or entered, for the change.
int ReadChoice(HWND dialog, const DriverContext& context, const Rule& rule) {
    switch (rule.Notification) {
        case CBN_SELENDOK:
            return SelectedItem(dialog, rule.Control);
        case EN_CHANGE: {
            const NumericField& field = NumericFieldOf(rule.Control);
            return ValidateIntField(dialog, rule.Control, field.Minimum, field.Maximum,
                                    context.WorkingDevMode.Public.dmCopies, kCopiesSection);
        }
        default:
            return 0;
    }
}

void DeviceOptionsCommand(HWND dialog, DriverContext& context, WPARAM wParam) {
    for (const Rule& rule : kRules) {
        if (rule.Control != LOWORD(wParam) ||
            (rule.Notification != kAnyCommand && rule.Notification != HIWORD(wParam)) ||
            !rule.Apply(context, rule.Side, ReadChoice(dialog, context, rule))) {
            continue;
        }
        ShowOptions(dialog, context);
        if (rule.Then != nullptr) {
            rule.Then(dialog, context, rule.Side);
        }
        RedrawPictures(dialog, rule.Side, rule.Redraws);
        TellSheetChanged(dialog);
    }
}

void StepCopies(HWND dialog, DriverContext& context, WPARAM wParam, HWND arrows) {
    if (arrows == GetDlgItem(dialog, IDC_COPIES_SCROLL)) {
        context.WorkingDevMode.Public.dmCopies =
            static_cast<SHORT>(StepField(dialog, NumericFieldOf(IDC_COPIES), LOWORD(wParam)));
    }
}

void OpenDeviceOptions(HWND dialog, DriverContext& context) {
    InitDeviceOptionsPage(dialog, context);
    SubclassNumericField(GetDlgItem(dialog, IDC_COPIES), NumericFieldOf(IDC_COPIES));
    context.DeviceOptionsPage = dialog;
}

INT_PTR DrawItem(const DRAWITEMSTRUCT& item) {
    if (item.CtlType != ODT_COMBOBOX || item.CtlID != IDC_RIBBON) {
        return FALSE;
    }
    DrawRibbonItem(item);
    return TRUE;
}

}  // namespace

void InitDeviceOptionsPage(HWND dialog, DriverContext& context) {
    CorrectCardOptions(context);
    FillCardLists(dialog, context.WorkingDevMode.Private);
    FillResinLists(dialog, context, kBlackByYmcK);
    ShowModelsControls(dialog, context);
    ShowOptions(dialog, context);
    ShowCopies(dialog, context.WorkingDevMode.Public.dmCopies);
}

INT_PTR CALLBACK DeviceOptionsPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {
        .Slot = kDeviceOptionsSlot, .Section = kSection, .Open = OpenDeviceOptions};
    DriverContext* context = PageContext(dialog);
    if (context != nullptr) {
        switch (message) {
            case WM_COMMAND:
                if (context->DeviceOptionsPage == dialog) {  // not while it is being filled
                    DeviceOptionsCommand(dialog, *context, wParam);
                }
                return TRUE;
            case WM_VSCROLL:
                StepCopies(dialog, *context, wParam, reinterpret_cast<HWND>(lParam));
                break;
            case WM_PAINT:
                PaintDeviceOptions(dialog, *context);
                return TRUE;
            case WM_DRAWITEM:
                return DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            case WM_HELP:
                DestroySharedTooltip();
                break;
            case WM_DESTROY:
                context->DeviceOptionsPage = nullptr;
                break;
        }
    }
    return RunPage(kPage, dialog, message, wParam, lParam);
}
