// The rows of the Color page: an adjustment's slider and its field, which show the same number.
#pragma once

#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/common/numeric_field.h"
#include "ui/pages/color/color_settings.h"

#include <array>

struct AdjustmentRow {
    const Adjustment& Value;
    NumericField Field;
    int MostTyped;  ///< characters
    int Slider;
    int SliderMinimum;
    int SliderMaximum;
    int (*ToPosition)(int value);
    /// `raises` is for a step to the right, which must give more than the value before it.
    int (*FromPosition)(int position, bool raises);
};

constexpr AdjustmentRow IntegerRow(AdjustmentIndex index, int field, int slider) {
    const Adjustment& value = kAdjustmentTable[index];
    return {
        .Value = value,
        .Field = {.Control = field,
                  .Minimum = value.Minimum,
                  .Maximum = value.Maximum,
                  .Extra = value.Minimum < 0 ? WCHAR{'-'} : WCHAR{0},
                  .RangeMessage = kIntegerRange,
                  .RangeSection = kSettingSection,
                  .ValidationSection = kSettingSection},
        .MostTyped = value.Minimum < 0 ? 4 : 3,
        .Slider = slider,
        .SliderMinimum = value.Minimum,
        .SliderMaximum = value.Maximum,
        .ToPosition = [](int number) { return number; },
        .FromPosition = [](int position, bool) { return position; },
    };
}

/// Up to 1.00 a hundredth is ten positions wide, so that 1.00 stands in the middle.
constexpr int kGammaMiddle = 900;

constexpr AdjustmentRow GammaRow(int field, int slider) {
    constexpr const Adjustment& value = kAdjustmentTable[kGamma];
    static_assert(value.Minimum == kHundredthsMinimum && value.Maximum == kHundredthsMaximum);
    return {
        .Value = value,
        .Field = {.Control = field,
                  .Kind = NumberKind::kHundredths,
                  .Minimum = value.Minimum,
                  .Maximum = value.Maximum,
                  .Extra = '.',
                  .RangeMessage = TEXT("Enter from 0.10 - 9.99 ."),
                  .RangeSection = kSettingSection,
                  .ValidationSection = kSettingSection},
        .MostTyped = 4,
        .Slider = slider,
        .SliderMinimum = 1,
        .SliderMaximum = 1799,
        .ToPosition = [](int gamma) { return gamma < 100 ? (gamma - 10) * 10 : gamma + 800; },
        .FromPosition =
            [](int position, bool raises) {
                return position >= kGammaMiddle ? position - 800
                                                : position / 10 + 10 + (raises ? 1 : 0);
            },
    };
}

inline constexpr AdjustmentRow kAdjustmentRows[] = {
    IntegerRow(kBrightness, IDC_BRIGHTNESS, IDC_BRIGHTNESS_SLIDER),
    IntegerRow(kContrast, IDC_CONTRAST, IDC_CONTRAST_SLIDER),
    IntegerRow(kSharpness, IDC_SHARPNESS, IDC_SHARPNESS_SLIDER),
    IntegerRow(kSaturation, IDC_SATURATION, IDC_SATURATION_SLIDER),
    IntegerRow(kCyan, IDC_CYAN, IDC_CYAN_SLIDER),
    IntegerRow(kMagenta, IDC_MAGENTA, IDC_MAGENTA_SLIDER),
    IntegerRow(kYellow, IDC_YELLOW, IDC_YELLOW_SLIDER),
    GammaRow(IDC_GAMMA, IDC_GAMMA_SLIDER),
};

/// The rows' fields, as the page's row names them.
inline constexpr auto kAdjustmentFields = [] {
    std::array<NumericField, std::size(kAdjustmentRows)> fields = {};
    for (size_t i = 0; i < fields.size(); ++i) {
        fields[i] = kAdjustmentRows[i].Field;
    }
    return fields;
}();

/// Shows the record in every row, with the rows' ranges and limits.
void FillAdjustments(HWND dialog, const DevModePrivate& record);
/// Writes the record's numbers into the fields; what these tell then moves the sliders.
void ShowNumbers(HWND dialog, const DevModePrivate& record);

/// Takes what a field tells. False when the control is no field of a row.
bool EnterAdjustment(HWND dialog, DevModePrivate& record, int control, int notification);
/// Takes what a slider tells (a TB_ code); other bars are passed over.
void SlideAdjustment(HWND dialog, DevModePrivate& record, HWND bar, WORD request);
