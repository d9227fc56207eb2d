// Numeric fields of every kind and range that the driver's pages have or will have.
#pragma once

#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/common/numeric_field.h"

namespace test {

inline constexpr const WCHAR* kRange = kIntegerRange;
constexpr NumberKind kInteger = NumberKind::kInteger;
// clang-format off
inline constexpr NumericField kNumericFields[] = {
    // control, arrows, kind, range, extra character, key's message and section, validation's, steps
    {IDC_COPIES, IDC_COPIES_SCROLL, kInteger, 1, 9999, 0, TEXT("Press up and down button to adjust copies (1-9999)."), kDeviceOptionSection, kToolsSection},
    {IDC_BRIGHTNESS, 0, kInteger, -100, 100, '-', kRange, kSettingSection, kSettingSection},
    {IDC_CYAN, 0, kInteger, -100, 100, '-', kRange, kSettingSection, kSettingSection},
    {IDC_SHARPNESS, 0, kInteger, 0, 100, 0, kRange, kSettingSection, kSettingSection},
    {IDC_GAMMA, 0, NumberKind::kHundredths, kHundredthsMinimum, kHundredthsMaximum, '.', TEXT("Enter from 0.10 - 9.99 ."), kSettingSection, kSettingSection},
    {IDC_POSITION_A, IDC_POSITION_A_SCROLL, kInteger, -10, 10, '-', kRange, kToolsSection, kSettingSection, true},
    {IDC_POSITION_B, IDC_POSITION_B_SCROLL, kInteger, -20, 20, '-', kRange, kToolsSection, kSettingSection, true},
    {IDC_RETRY_CARDS, IDC_RETRY_CARDS_SCROLL, kInteger, 0, 10, 0, kRange, kMagneticEncodingSection, kToolsSection},
    {IDC_START_RECORD, IDC_START_RECORD_SCROLL, kInteger, 1, 2147483647, 0, kRange, kMagneticEncodingSection, kToolsSection},
    {IDC_LAMINATION_B, IDC_LAMINATION_B_SCROLL, kInteger, -15, 15, '-', kRange, kLaminationSection, kSettingSection},
};
// clang-format on

}  // namespace test
