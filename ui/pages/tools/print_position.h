// The print position adjuster: three fields with arrows over the printer's calibration table, which
// the printer gives when it is asked and gets back when the user saves it.
#pragma once

#include "core/context.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/common/numeric_field.h"
#include "ui/pages/tools/position_settings.h"

#include <array>

struct PositionRow {
    const CardPosition& Position;
    NumericField Field;
    int Opposite;  ///< arrows that a step of this row's moves the other way; 0 for none
};

constexpr PositionRow MakePositionRow(const CardPosition& position, int field, int arrows,
                                      int opposite = 0) {
    return {
        .Position = position,
        .Field = {.Control = field,
                  .Arrows = arrows,
                  .Minimum = -position.Value.Limit,
                  .Maximum = position.Value.Limit,
                  .Extra = '-',
                  .RangeMessage = kIntegerRange,
                  .RangeSection = kToolsSection,
                  .ValidationSection = kSettingSection,
                  .StepsArrows = true},
        .Opposite = opposite,
    };
}

inline constexpr PositionRow kPositionRows[] = {
    MakePositionRow(kPositionA, IDC_POSITION_A, IDC_POSITION_A_SCROLL, IDC_POSITION_B_SCROLL),
    MakePositionRow(kPositionB, IDC_POSITION_B, IDC_POSITION_B_SCROLL),
    MakePositionRow(kPositionC, IDC_POSITION_C, IDC_POSITION_C_SCROLL),
};

/// The rows' fields, as the page's row names them.
inline constexpr auto kPositionFields = [] {
    std::array<NumericField, std::size(kPositionRows)> fields = {};
    for (size_t i = 0; i < fields.size(); ++i) {
        fields[i] = kPositionRows[i].Field;
    }
    return fields;
}();

/// Process-wide: each answer of a printer replaces it, whichever page had asked.
extern PositionSettings PrintPositions;

/// The fields' limits and the arrows' ranges. Everything stays disabled until the printer answers.
void PrepareAdjuster(HWND dialog);

/// Asks the printer for its table; the answer comes later.
void AskForPositions(HWND dialog, DriverContext& context);
/// Shows the table if this is one.
void TakePositions(HWND dialog, DriverContext& context, const COPYDATASTRUCT& answer);

/// Takes what a field tells when its text changes; other controls and notifications are passed
/// over.
void EnterPosition(HWND dialog, DriverContext& context, int control, int notification);
/// Takes what arrows tell (an SB_ code); other bars are passed over.
void StepPosition(HWND dialog, DriverContext& context, HWND arrows, WORD request);

// The buttons.
void SavePositions(HWND dialog, DriverContext& context);
void RestoreDefaultPositions(HWND dialog, DriverContext& context);
void PrintPositionChart(HWND dialog, DriverContext& context);
