// What the print position adjuster does to the table and the record.
#include "ui/pages/tools/position_settings.h"

namespace {

int RowOfThickness(BYTE thickness) {
    return thickness < kCalibrationRows ? thickness : 0;
}

void CopyToRecord(const PositionSettings& settings, DevModeRecord& record,
                  const CardPosition& position) {
    const PrintPosition& current = settings.Table[settings.Row].Current;
    WriteField(record, position.Stored, static_cast<DWORD>(current.*position.Value.Value));
}

void CopyToRecord(const PositionSettings& settings, DevModeRecord& record) {
    for (const CardPosition* position : kCardPositions) {
        CopyToRecord(settings, record, *position);
    }
}

}  // namespace

bool TakeTable(PositionSettings& settings, const CalibrationTable& table) {
    settings.Table = table;
    return RepairCalibration(settings.Table);
}

bool TurnToThickness(PositionSettings& settings, DevModeRecord& record) {
    BYTE& thickness = record.Private.CardThickness;
    if (thickness == kNoThickness) {
        return false;
    }
    settings.Row = RowOfThickness(thickness);
    thickness = static_cast<BYTE>(settings.Row);
    CopyToRecord(settings, record);
    return true;
}

// In 8 bits, as the sum was stored: beside a default near their end it may have wrapped around.
int OffsetIn(const PositionSettings& settings, const CardPosition& position) {
    return static_cast<std::int8_t>(OffsetOf(settings.Table[settings.Row], position.Value));
}

void StoreOffset(PositionSettings& settings, DevModeRecord& record, const CardPosition& position,
                 int offset) {
    SetOffset(settings.Table[settings.Row], position.Value, offset);
    CopyToRecord(settings, record, position);
}

void ResetPositions(PositionSettings& settings, DevModeRecord& record) {
    settings.Row = RowOfThickness(record.Private.CardThickness);
    CalibrationRow& row = settings.Table[settings.Row];
    ResetCalibration(row);
    CopyToRecord(settings, record);
    record.Private.PrintPositionExtra = row.Current.Extra;
}
