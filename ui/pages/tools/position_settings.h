// Where on the card the printer places the picture: what the print position adjuster does to the
// printer's calibration table and to the record.
#pragma once

#include "companions/calibration_table.h"
#include "core/record_field.h"

/// A value of the table and the field of the record that carries it to the renderer.
struct CardPosition {
    const CalibratedValue& Value;
    RecordField Stored;
};
inline constexpr CardPosition kPositionA = {kCalibratedA, RECORD_FIELD(Private.PrintPositionA)};
inline constexpr CardPosition kPositionB = {kCalibratedB, RECORD_FIELD(Private.PrintPositionB)};
inline constexpr CardPosition kPositionC = {kCalibratedC, RECORD_FIELD(Private.PrintPositionC)};
inline constexpr const CardPosition* kCardPositions[] = {&kPositionA, &kPositionB, &kPositionC};

/// The printer's table as it answered and the user has changed it since, and the row that he sees.
struct PositionSettings {
    CalibrationTable Table;
    int Row;
};

/// CardThickness of a record whose user has not chosen one yet.
constexpr BYTE kNoThickness = 255;

/// Takes the printer's table with what is out of range put right. True when there was such a value,
/// which the printer then does not know.
bool TakeTable(PositionSettings& settings, const CalibrationTable& table);

/// Turns to the row of the record's thickness and copies its values into the record. A thickness
/// that there is no row for becomes the first; with kNoThickness nothing happens, and false is
/// given.
bool TurnToThickness(PositionSettings& settings, DevModeRecord& record);

/// In the row that the user sees.
int OffsetIn(const PositionSettings& settings, const CardPosition& position);
void StoreOffset(PositionSettings& settings, DevModeRecord& record, const CardPosition& position,
                 int offset);

/// Turns to the row of the record's thickness, the first where there is none for it, and puts its
/// values and the printer's own 16 bits back to their defaults, in the record too.
void ResetPositions(PositionSettings& settings, DevModeRecord& record);
