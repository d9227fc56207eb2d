// The printer's calibration table.
#include "companions/calibration_table.h"

#include <cstdlib>

int OffsetOf(const CalibrationRow& row, const CalibratedValue& value) {
    return row.Current.*value.Value - row.Default.*value.Value;
}

bool IsWithinLimit(const CalibrationRow& row, const CalibratedValue& value) {
    return std::abs(OffsetOf(row, value)) <= value.Limit;
}

void SetOffset(CalibrationRow& row, const CalibratedValue& value, int offset) {
    row.Current.*value.Value = static_cast<std::int8_t>(row.Default.*value.Value + offset);
}

bool RepairCalibration(CalibrationTable& table) {
    bool repaired = false;
    for (CalibrationRow& row : table) {
        for (const CalibratedValue* value : kCalibratedValues) {
            if (!IsWithinLimit(row, *value)) {
                SetOffset(row, *value, 0);
                repaired = true;
            }
        }
    }
    return repaired;
}

void ResetCalibration(CalibrationRow& row) {
    for (const CalibratedValue* value : kCalibratedValues) {
        SetOffset(row, *value, 0);
    }
    row.Current.Extra = row.Default.Extra;
}
