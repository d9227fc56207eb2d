// What the Color page's choices do to the record: whose colours are printed, and how pictures are
// adjusted. Nothing here knows of windows.
#pragma once

#include "core/device_mode.h"

#include <type_traits>

// ---- Adjustments ------------------------------------------------------------------------------

/// A number of the record that adjusts pictures.
struct Adjustment {
    int (*Read)(const DevModePrivate& record);
    void (*Write)(DevModePrivate& record, int value);
    int Minimum;
    int Maximum;
    int Neutral;
};

template <auto Member>
constexpr Adjustment AdjustmentOf(int minimum, int maximum, int neutral) {
    return {[](const DevModePrivate& record) -> int { return record.*Member; },
            [](DevModePrivate& record, int value) {
                record.*Member =
                    static_cast<std::remove_reference_t<decltype(record.*Member)>>(value);
            },
            minimum, maximum, neutral};
}

enum AdjustmentIndex {
    kBrightness,
    kContrast,
    kSharpness,
    kSaturation,
    kCyan,
    kMagenta,
    kYellow,
    kGamma,
    kAdjustments
};
inline constexpr Adjustment kAdjustmentTable[kAdjustments] = {
    AdjustmentOf<&DevModePrivate::Brightness>(-100, 100, 0),
    AdjustmentOf<&DevModePrivate::Contrast>(-100, 100, 0),
    AdjustmentOf<&DevModePrivate::Sharpness>(0, 100, 100),
    AdjustmentOf<&DevModePrivate::Saturation>(-100, 100, 0),
    AdjustmentOf<&DevModePrivate::Cyan>(-100, 100, 0),
    AdjustmentOf<&DevModePrivate::Magenta>(-100, 100, 0),
    AdjustmentOf<&DevModePrivate::Yellow>(-100, 100, 0),
    AdjustmentOf<&DevModePrivate::Gamma>(10, 999, 100),  // hundredths
};

/// Makes every adjustment neutral.
void ResetAdjustments(DevModePrivate& record);

// ---- The colour preference --------------------------------------------------------------------

/// Colour styles; those from kFirstFurtherStyle on can be stored but not chosen.
enum ColorStyleCode : BYTE { kClassicStyle, kBasicStyle, kFirstFurtherStyle };

/// What a preference writes.
struct ColorChoice {
    BYTE Preference;  ///< ColorPreferenceCode
    int Style;        ///< ColorStyleCode, kAnyStyle when the style stays as it is
    DWORD IcmMethod;
};
constexpr int kAnyStyle = -1;

inline constexpr ColorChoice kBasicColor = {kPrinterColor, kBasicStyle, DMICMMETHOD_NONE};
inline constexpr ColorChoice kClassicColor = {kPrinterColor, kClassicStyle, DMICMMETHOD_NONE};
inline constexpr ColorChoice kSystemColor = {kWindowsColor, kAnyStyle, DMICMMETHOD_SYSTEM};
inline constexpr ColorChoice kUntouchedColor = {kNoColorPreference, kAnyStyle, DMICMMETHOD_NONE};

/// True while the record (a corrected one) has been given this choice.
bool IsChosen(const DevModePrivate& record, const ColorChoice& choice);
/// The printer's colours in a style that none of the choices is for.
bool HasFurtherStyle(const DevModePrivate& record);

/// Makes the choice, whether or not it is the record's already: the adjustments become neutral and
/// automatic enhancement is switched off with it.
void ChooseColor(DevModeRecord& record, const ColorChoice& choice);

// ---- Opening ----------------------------------------------------------------------------------

constexpr BYTE kReddishTone = 1;
constexpr BYTE kYellowishTone = 2;

/// Makes the record one that the page can show.
void CorrectColorSettings(DevModeRecord& record);
