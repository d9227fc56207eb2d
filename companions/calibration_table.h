// Where on the card the printer places the picture: its calibration table, one row for each card
// thickness, as the printer keeps and exchanges it.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

/// Places in the printer's units along the card's two axes.
struct PrintPosition {
    std::int8_t C;  // 0
    std::int8_t A;  // 1
    WORD Extra;     // 2  the printer's own
    std::int8_t B;  // 4
    BYTE Rest[3];   // 5  the printer's own
};
static_assert(sizeof(PrintPosition) == 8);
static_assert(offsetof(PrintPosition, Extra) == 2 && offsetof(PrintPosition, B) == 4);

struct CalibrationRow {
    PrintPosition Current;  //  0
    PrintPosition Default;  //  8
    BYTE Rest[16];          // 16
};
static_assert(sizeof(CalibrationRow) == 32);

/// By the codes of CardThickness: 0.3, 0.5, 0.8, 1.0 mm.
constexpr int kCalibrationRows = 4;
using CalibrationTable = std::array<CalibrationRow, kCalibrationRows>;
static_assert(sizeof(CalibrationTable) == 128);

/// A value that people see and change as its offset from the default, -Limit to Limit.
struct CalibratedValue {
    std::int8_t PrintPosition::*Value;
    int Limit;
};
inline constexpr CalibratedValue kCalibratedA = {&PrintPosition::A, 10};
inline constexpr CalibratedValue kCalibratedB = {&PrintPosition::B, 20};
inline constexpr CalibratedValue kCalibratedC = {&PrintPosition::C, 10};
inline constexpr const CalibratedValue* kCalibratedValues[] = {&kCalibratedA, &kCalibratedB,
                                                               &kCalibratedC};

int OffsetOf(const CalibrationRow& row, const CalibratedValue& value);
bool IsWithinLimit(const CalibrationRow& row, const CalibratedValue& value);
/// The sum with the default is kept in 8 bits, as the printer's own value is.
void SetOffset(CalibrationRow& row, const CalibratedValue& value, int offset);

/// Puts each value whose offset lies beyond its limit back to its default. True when there was one.
bool RepairCalibration(CalibrationTable& table);
/// Puts the values and the printer's own 16 bits back to their defaults.
void ResetCalibration(CalibrationRow& row);
