// The Device Options page: which choice each of its controls makes, and what follows on the page.
#include "ui/pages/device_options/device_options_page.h"

#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/numeric_field.h"
#include "ui/pages/device_options/card_options.h"
#include "ui/pages/device_options/card_preview.h"
#include "ui/pages/device_options/option_controls.h"
#include "ui/pages/device_options/ribbon_item.h"

#include <algorithm>
#include <type_traits>

namespace {

// ---- Pictures ---------------------------------------------------------------------------------

enum Pictures : unsigned {
    kNoPicture = 0,
    kFrontPreview = 1,
    kBackPreview = 2,
    kPageOrder = 4,
    kBothPreviews = kFrontPreview | kBackPreview,
    kAllPictures = kPageOrder | kBothPreviews,
};

void RedrawPictures(HWND dialog, unsigned pictures) {
    constexpr struct {
        Pictures Which;
        int Control;
    } kPictures[] = {{kFrontPreview, IDC_FRONT_PREVIEW},
                     {kBackPreview, IDC_BACK_PREVIEW},
                     {kPageOrder, IDC_PAGE_ORDER}};
    for (const auto& picture : kPictures) {
        if ((pictures & picture.Which) != 0) {
            RECT area = ControlArea(dialog, picture.Control);
            InflateRect(&area, 2, 2);
            InvalidateRect(dialog, &area, TRUE);
        }
    }
}

// ---- The copies -------------------------------------------------------------------------------

constexpr NumericField kCopies = {
    .Control = IDC_COPIES,
    .Arrows = IDC_COPIES_SCROLL,
    .Minimum = 1,
    .Maximum = kMaxCopies,
    .RangeMessage = TEXT("Press up and down button to adjust copies (1-9999)."),
    .RangeSection = kDeviceOptionSection,
    .ValidationSection = kToolsSection,
};
constexpr WPARAM kCopiesDigits = 4;

void ShowCopies(HWND dialog, SHORT copies) {
    SetDlgItemInt(dialog, IDC_COPIES, static_cast<UINT>(copies), FALSE);
    SendDlgItemMessageW(dialog, IDC_COPIES, EM_LIMITTEXT, kCopiesDigits, 0);
    HWND arrows = GetDlgItem(dialog, IDC_COPIES_SCROLL);
    SetScrollRange(arrows, SB_CTL, kCopies.Minimum, kCopies.Maximum, FALSE);
    SetScrollPos(arrows, SB_CTL, copies, TRUE);
}

void EnterCopies(HWND dialog, DriverContext& context) {
    SHORT& copies = context.WorkingDevMode.Public.dmCopies;
    copies = static_cast<SHORT>(ValidateIntField(dialog, kCopies, copies));
    SetScrollPos(GetDlgItem(dialog, IDC_COPIES_SCROLL), SB_CTL, copies, TRUE);
    TellSheetChanged(dialog);
}

void StepCopies(HWND dialog, DriverContext& context, HWND bar, WORD request) {
    if (bar == GetDlgItem(dialog, IDC_COPIES_SCROLL)) {
        if (const auto copies = StepField(dialog, kCopies, request)) {
            context.WorkingDevMode.Public.dmCopies = static_cast<SHORT>(*copies);
        }
    }
}

// ---- What follows a change, beyond what the record makes of the controls -----------------------

void OnRibbonChanged(HWND dialog, const DriverContext& context) {
    FillResinLists(dialog, context, kBlackByResin);
    CheckControl(dialog, IDC_NO_WHITE_SKIP, context.WorkingDevMode.Private.WhiteSkip != 1);
}

void OnKOnlyOnBackChanged(HWND dialog, const DriverContext& context) {
    if (context.WorkingDevMode.Private.KOnlyOnBack != 0) {
        FillResinList(dialog, context, kFrontControls,
                      kBlackByResin);  // for when it is shown again
        FillResinList(dialog, context, kBackControls, kTextOnly, kResinDither);
        RedrawPictures(dialog, kAllPictures);
    } else {
        FillResinLists(dialog, context, kBlackByResin);
    }
}

// A card that ends "K only on Back" leaves the back a list that lacks entries.
void OnCardChanged(HWND dialog, const DriverContext& context) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    const LRESULT offered = SendDlgItemMessageW(dialog, kBackControls.Resin, CB_GETCOUNT, 0, 0);
    if (record.KOnlyOnBack == 0 && IsColorRibbon(record.RibbonType) &&
        offered < static_cast<LRESULT>(std::size(kResinChoices))) {
        FillResinList(dialog, context, kBackControls, kBlackByYmcK);
    }
}

// A side that is switched on under a ribbon of no known class stays without its panels.
template <const SideControls& Controls>
void OnPrintedChanged(HWND dialog, const DriverContext& context) {
    if (!IsKnownRibbon(context.WorkingDevMode.Private.RibbonType)) {
        ShowPanels(dialog, Controls, false, false);
    }
}

template <const SideControls& Controls>
void OnColorChanged(HWND dialog, const DriverContext& context) {
    const DevModePrivate& record = context.WorkingDevMode.Private;
    if (IsColorRibbon(record.RibbonType)) {
        SelectResin(dialog, record, Controls, kBlackByResin);
    }
}

// ---- The rules --------------------------------------------------------------------------------

// Calls a change of card_options.h with the arguments that it takes. False when there was nothing
// to change.
template <auto Change, const CardSide&... Side>
bool Apply(DriverContext& context, [[maybe_unused]] int index) {
    using Function = decltype(Change);
    DevModePrivate& record = context.WorkingDevMode.Private;
    if constexpr (std::is_invocable_v<Function, DriverContext&, int>) {
        Change(context, index);
    } else if constexpr (std::is_invocable_v<Function, DevModePrivate&, decltype(Side)..., int>) {
        Change(record, Side..., index);
    } else if constexpr (std::is_invocable_r_v<bool, Function, DevModePrivate&,
                                               decltype(Side)...>) {
        return Change(record, Side...);
    } else {
        Change(record, Side...);
    }
    return true;
}

constexpr int kAnyCommand = -1;

struct Rule {
    int Control;
    int Notification;
    bool (*Apply)(DriverContext& context, int index);
    void (*OnChanged)(HWND dialog, const DriverContext& context);
    unsigned Redraws;
};

// clang-format off
constexpr Rule kRules[] = {
    {IDC_RIBBON, CBN_SELENDOK, Apply<ChooseRibbon>, OnRibbonChanged, kBothPreviews},
    {IDC_CARD_TYPE, CBN_SELENDOK, Apply<ChooseCardType>, OnCardChanged, kAllPictures},
    {IDC_THICKNESS, CBN_SELENDOK, Apply<ChooseThickness>, OnCardChanged, kNoPicture},
    {IDC_K_ONLY_ON_BACK, kAnyCommand, Apply<ToggleKOnlyOnBack>, OnKOnlyOnBackChanged, kNoPicture},
    {IDC_TRANSPARENT_CARD, kAnyCommand, Apply<ToggleTransparentCard>, nullptr, kNoPicture},
    {IDC_FRONT_IMAGE, kAnyCommand, Apply<TogglePrinted, kFront>, OnPrintedChanged<kFrontControls>, kFrontPreview | kPageOrder},
    {IDC_BACK_IMAGE, kAnyCommand, Apply<TogglePrinted, kBack>, OnPrintedChanged<kBackControls>, kBackPreview | kPageOrder},
    {IDC_FRONT_COLOR, kAnyCommand, Apply<ToggleColor, kFront>, OnColorChanged<kFrontControls>, kFrontPreview},
    {IDC_BACK_COLOR, kAnyCommand, Apply<ToggleColor, kBack>, OnColorChanged<kBackControls>, kBackPreview},
    {IDC_FRONT_RESIN, CBN_SELENDOK, Apply<ChooseResin, kFront>, nullptr, kFrontPreview},
    {IDC_BACK_RESIN, CBN_SELENDOK, Apply<ChooseResin, kBack>, nullptr, kBackPreview},
    {IDC_FRONT_ROTATE, kAnyCommand, Apply<ToggleRotated, kFront>, nullptr, kFrontPreview | kPageOrder},
    {IDC_BACK_ROTATE, kAnyCommand, Apply<ToggleRotated, kBack>, nullptr, kBackPreview | kPageOrder},
    {IDC_FRONT_FLIP, kAnyCommand, Apply<ToggleFlipped, kFront>, nullptr, kFrontPreview},
    {IDC_BACK_FLIP, kAnyCommand, Apply<ToggleFlipped, kBack>, nullptr, kBackPreview},
};
// clang-format on

void FollowRule(HWND dialog, DriverContext& context, const Rule& rule) {
    const int index = rule.Notification == CBN_SELENDOK ? SelectedItem(dialog, rule.Control) : 0;
    if (!rule.Apply(context, index)) {
        return;
    }
    ShowOptions(dialog, context);
    if (rule.OnChanged != nullptr) {
        rule.OnChanged(dialog, context);
    }
    RedrawPictures(dialog, rule.Redraws);
    TellSheetChanged(dialog);
}

constexpr struct {
    std::span<const BoundButton> Buttons;
    unsigned Redraws;
} kButtonGroups[] = {{kOrientationButtons, kAllPictures}, {kPlainButtons, kNoPicture}};

// True when the control is one of the bound buttons.
bool PressButton(HWND dialog, DriverContext& context, int control) {
    for (const auto& group : kButtonGroups) {
        for (const BoundButton& button : group.Buttons) {
            if (button.Control == control) {
                StoreClick(context.WorkingDevMode, button);
                ShowButtons(dialog, context.WorkingDevMode, group.Buttons);
                RedrawPictures(dialog, group.Redraws);
                TellSheetChanged(dialog);
                return true;
            }
        }
    }
    return false;
}

void DeviceOptionsCommand(HWND dialog, DriverContext& context, int control, int notification) {
    if (control == IDC_COPIES && notification == EN_CHANGE) {
        EnterCopies(dialog, context);
        return;
    }
    if (PressButton(dialog, context, control)) {
        return;
    }
    const auto* rule = std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& each) {
        return each.Control == control &&
               (each.Notification == kAnyCommand || each.Notification == notification);
    });
    if (rule != std::end(kRules)) {
        FollowRule(dialog, context, *rule);
    }
}

// ---- The page ---------------------------------------------------------------------------------

void DrawItem(HWND, DriverContext&, const DRAWITEMSTRUCT& item) {
    if (item.CtlType == ODT_COMBOBOX && item.CtlID == IDC_RIBBON) {
        DrawRibbonItem(item);
    }
}

constexpr const WCHAR* kFlipTip =
    TEXT("Prints this side as in a mirror, to be read through a clear card.");
constexpr const WCHAR* kResinTip = TEXT(
    "What is printed with resin black, which is crisp, and not with black mixed of the colors.");

constexpr Tip kTips[] = {
    {IDC_RIBBON,
     TEXT("The ribbon that is in the printer. Y, M and C are its colors, K is resin black, O the "
          "overcoat.")},
    {IDC_K_ONLY_ON_BACK,
     TEXT("Prints color on the front, and black of the same ribbon on the back alone.")},
    {IDC_TRANSPARENT_CARD, TEXT("For clear cards: their sides can be printed as in a mirror.")},
    {IDC_ORIENTATION_LOCK, TEXT("Applications cannot choose the orientation any more: when one "
                                "does, the card is printed in landscape.")},
    {IDC_FRONT_FLIP, kFlipTip},
    {IDC_BACK_FLIP, kFlipTip},
    {IDC_FRONT_RESIN, kResinTip},
    {IDC_BACK_RESIN, kResinTip},
    {IDC_NO_WHITE_SKIP,
     TEXT("White areas are passed over quickly. Select this to have every line of "
          "the card printed at the same speed.")},
};

void DropTooltip(HWND, DriverContext&) {
    DestroySharedTooltip();
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

constinit const Page kDeviceOptionsPage = {
    .Slot = kDeviceOptionsSlot,
    .Section = kDeviceOptionSection,
    .Fields = {&kCopies, 1},
    .Tips = kTips,
    .Fill = InitDeviceOptionsPage,
    .Command = DeviceOptionsCommand,
    .ScrollVertically = StepCopies,
    .DrawItem = DrawItem,
    .Paint = PaintDeviceOptions,
    .Help = DropTooltip,
};
