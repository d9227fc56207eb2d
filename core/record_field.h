// A number of the record by its place, for tables whose rows name what they read and write.
#pragma once

#include "core/device_mode.h"

struct RecordField {
    WORD Offset;  ///< in DevModeRecord
    WORD Width;   ///< 1, 2 or 4 bytes; of a field that is no number any
};

/// RECORD_FIELD(Public.dmOrientation), RECORD_FIELD(Private.WhiteSkip).
#define RECORD_FIELD(member)                                         \
    (RecordField{static_cast<WORD>(offsetof(DevModeRecord, member)), \
                 static_cast<WORD>(sizeof(static_cast<DevModeRecord*>(nullptr)->member))})

/// The bits of the field as an unsigned number.
DWORD ReadField(const DevModeRecord& record, RecordField field);
/// Writes as many bits as the field has; in a field of more than four bytes zeros behind them.
void WriteField(DevModeRecord& record, RecordField field, DWORD value);
