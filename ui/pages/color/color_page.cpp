// The Color page: its buttons and boxes, and the frame of a preview that is switched off.
#include "ui/pages/color/color_page.h"

#include "companions/tone_mapping.h"
#include "ui/common/bound_buttons.h"
#include "ui/common/controls.h"
#include "ui/pages/color/adjustment_rows.h"
#include "ui/pages/color/color_chart.h"
#include "ui/pages/color/color_settings.h"

#include <algorithm>

namespace {

// ---- The colour preference --------------------------------------------------------------------

struct Preference {
    int Control;
    const ColorChoice& Choice;
};
constexpr Preference kPreferences[] = {
    {IDC_BASIC_COLOR, kBasicColor},
    {IDC_CLASSIC_COLOR, kClassicColor},
    {IDC_WINDOWS_COLOR, kSystemColor},
    {IDC_NO_COLOR_PREFERENCE, kUntouchedColor},
};

// On a record with a further style none of the buttons is checked. Two things follow. The platform
// has taken the tab stop from each, so that Tab would pass them by; and it takes the focus on such
// a button for a click, which would choose what nobody has chosen. (Keys that lead to a button and
// choose it set the platform's mark against that back, hence on each showing.)
void ShowPreference(HWND dialog, const DevModePrivate& record) {
    bool any = false;
    for (const Preference& preference : kPreferences) {
        const bool chosen = IsChosen(record, preference.Choice);
        CheckControl(dialog, preference.Control, chosen);
        SendDlgItemMessageW(dialog, preference.Control, BM_SETDONTCLICK, TRUE, 0);
        any = any || chosen;
    }
    if (!any) {
        HWND first = GetDlgItem(dialog, kPreferences[0].Control);
        SetWindowLongW(first, GWL_STYLE, GetWindowLongW(first, GWL_STYLE) | WS_TABSTOP);
    }
    CheckControl(dialog, IDC_COLOR_STYLE_BOX, HasFurtherStyle(record));
    EnableControl(dialog, IDC_COLOR_STYLE, HasFurtherStyle(record));
}

// ---- Boxes ------------------------------------------------------------------------------------

constexpr BoundButton kBoxes[] = {
    {IDC_AUTO_ENHANCE, RECORD_FIELD(Private.AutoEnhance), ButtonKind::kBox},
    {IDC_EDGES_ONLY, RECORD_FIELD(Private.SharpenMode), ButtonKind::kInverseBox},
    {IDC_BITBLT_INVERT, RECORD_FIELD(Private.BitBltInvert), ButtonKind::kExactBox},
};

// ---- The preview's frame ----------------------------------------------------------------------

constexpr const WCHAR* kFurtherStyles[] = {TEXT("Z-Style Color"), TEXT("F-Style Color"),
                                           TEXT("D-Style Color"), TEXT("E-Style Color")};
constexpr const WCHAR* kSkinTones[] = {TEXT("Redish Tone"), TEXT("Yellowish Tone")};

constexpr int kFrame[] = {
    IDC_PREVIEW_AREA,    IDC_PREVIEW,       IDC_SKIN_TONE_LABEL,
    IDC_SKIN_TONE,       IDC_SKIN_VERTICAL, IDC_SKIN_VERTICAL_VALUE,
    IDC_SKIN_HORIZONTAL, IDC_SKIN_RESET,    IDC_SKIN_HORIZONTAL_VALUE,
    IDC_COLOR_STYLE_BOX, IDC_COLOR_STYLE,   IDC_MAGIC_COATING,
};

void FillFrame(HWND dialog, const DevModePrivate& record) {
    CheckControl(dialog, IDC_PREVIEW, true);
    FillList(dialog, IDC_COLOR_STYLE, kFurtherStyles);
    SelectItem(dialog, IDC_COLOR_STYLE, std::max(record.ColorStyle - kFirstFurtherStyle, 0));
    FillTranslatedList(dialog, IDC_SKIN_TONE, kSkinTones);
    SelectItem(dialog, IDC_SKIN_TONE, record.SkinTone - kReddishTone);
    for (int control : kFrame) {
        ShowControl(dialog, control, false);
    }
}

void PaintFrame(HWND, DriverContext&, HDC target, const RECT&) {
    SetStretchBltMode(target, HALFTONE);
    SetICMMode(target, ICM_ON);
}

// ---- What the user does -------------------------------------------------------------------------

template <typename Rows>
auto* FindButton(const Rows& rows, int control) {
    const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                   [=](const auto& each) { return each.Control == control; });
    return row == std::end(rows) ? nullptr : row;
}

void PressPreference(HWND dialog, DevModeRecord& record, const Preference& preference) {
    ChooseColor(record, preference.Choice);
    ShowPreference(dialog, record.Private);
    ShowNumbers(dialog, record.Private);
    ShowButtons(dialog, record, kBoxes);
    SelectItem(dialog, IDC_COLOR_STYLE, 0);
    TellSheetChanged(dialog);
}

void PressBox(HWND dialog, DevModeRecord& record, const BoundButton& box) {
    StoreClick(record, box);
    ShowButtons(dialog, record, {&box, 1});
    TellSheetChanged(dialog);
}

void PressReset(HWND dialog, DevModePrivate& record) {
    ResetAdjustments(record);
    ShowNumbers(dialog, record);
    TellSheetChanged(dialog);
}

void PressButton(HWND dialog, DriverContext& context, int control) {
    DevModeRecord& record = context.WorkingDevMode;
    if (const Preference* preference = FindButton(kPreferences, control)) {
        PressPreference(dialog, record, *preference);
    } else if (const BoundButton* box = FindButton(kBoxes, control)) {
        PressBox(dialog, record, *box);
    } else if (control == IDC_COLOR_RESET) {
        PressReset(dialog, record.Private);
    } else if (control == IDC_COLOR_CHART) {
        OpenColorChart(context);
    }
}

void ColorCommand(HWND dialog, DriverContext& context, int control, int notification) {
    if (!EnterAdjustment(dialog, context.WorkingDevMode.Private, control, notification) &&
        notification == BN_CLICKED) {
        PressButton(dialog, context, control);
    }
}

void ColorScroll(HWND dialog, DriverContext& context, HWND bar, WORD request) {
    SlideAdjustment(dialog, context.WorkingDevMode.Private, bar, request);
}

void CloseColor(HWND, DriverContext&) {
    CloseToneMapping();
}

constexpr Tip kTips[] = {
    {IDC_BASIC_COLOR,
     TEXT("The printer's standard colors. Choosing a preference resets the adjustments below.")},
    {IDC_CLASSIC_COLOR,
     TEXT("The colors of earlier drivers. Choosing a preference resets the adjustments below.")},
    {IDC_WINDOWS_COLOR, TEXT("Windows converts the colors with the printer's color profile. "
                             "Choosing a preference resets the adjustments below.")},
    {IDC_NO_COLOR_PREFERENCE, TEXT("The colors are printed as the application sends them. Choosing "
                                   "a preference resets the adjustments below.")},
    {IDC_AUTO_ENHANCE, TEXT("Corrects the brightness and contrast of each picture automatically.")},
    {IDC_BITBLT_INVERT,
     TEXT("Select this when an application prints pictures with inverted colors.")},
    {IDC_EDGES_ONLY,
     TEXT("Sharpens outlines and text, and leaves even areas such as skin smooth.")},
};

}  // namespace

void InitColorPage(HWND dialog, DriverContext& context) {
    DevModeRecord& record = context.WorkingDevMode;
    CorrectColorSettings(record);
    if (dialog == nullptr) {
        return;
    }
    OpenToneMapping(record.Public.dmDeviceName);
    FillFrame(dialog, record.Private);
    ShowPreference(dialog, record.Private);
    FillAdjustments(dialog, record.Private);
    ShowButtons(dialog, record, kBoxes);
}

constinit const Page kColorPage = {
    .Slot = kColorSlot,
    .Section = kColorSection,
    .Fields = kAdjustmentFields,
    .Tips = kTips,
    .Fill = InitColorPage,
    .Command = ColorCommand,
    .ScrollHorizontally = ColorScroll,
    .Paint = PaintFrame,
    .Close = CloseColor,
};
