// The Device Options page: which choice each of its controls makes, and what follows on the page.
#include "ui/pages/device_options/device_options_page.h"

#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/numeric_field.h"
#include "ui/common/page.h"
#include "ui/pages/device_options/card_options.h"
#include "ui/pages/device_options/card_preview.h"
#include "ui/pages/device_options/option_controls.h"
#include "ui/pages/device_options/ribbon_item.h"

#include <algorithm>

namespace {

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
        FillResinList(dialog, context, kFront, kBlackByResin);  // for when it is shown again
        FillResinList(dialog, context, kBack, kTextOnly, kResinDither);
        RedrawPictures(dialog, side, kAllPictures);
    } else {
        FillResinLists(dialog, context, kBlackByResin);
    }
}

// A side that is switched on under a ribbon of no known class stays without its panels.
void FollowPrinted(HWND dialog, const DriverContext& context, const CardSide& side) {
    if (!IsKnownRibbon(context.WorkingDevMode.Private.RibbonType)) {
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
                                    context.WorkingDevMode.Public.dmCopies,
                                    field.ValidationSection);
        }
        default:
            return 0;
    }
}

const Rule* RuleOf(WPARAM command) {
    const auto* rule = std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& each) {
        return each.Control == LOWORD(command) &&
               (each.Notification == kAnyCommand || each.Notification == HIWORD(command));
    });
    return rule == std::end(kRules) ? nullptr : rule;
}

void DeviceOptionsCommand(HWND dialog, DriverContext& context, WPARAM command) {
    const Rule* rule = RuleOf(command);
    if (rule == nullptr || !rule->Apply(context, rule->Side, ReadChoice(dialog, context, *rule))) {
        return;
    }
    ShowOptions(dialog, context);
    if (rule->Then != nullptr) {
        rule->Then(dialog, context, rule->Side);
    }
    RedrawPictures(dialog, rule->Side, rule->Redraws);
    TellSheetChanged(dialog);
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
        .Slot = kDeviceOptionsSlot, .Section = kDeviceOptionSection, .Open = OpenDeviceOptions};
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
