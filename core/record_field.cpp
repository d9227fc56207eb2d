// A number of the record by its place. The record is little-endian, as its platform is.
#include "core/record_field.h"

#include <cstring>

DWORD ReadField(const DevModeRecord& record, RecordField field) {
    DWORD value = 0;
    std::memcpy(&value, reinterpret_cast<const BYTE*>(&record) + field.Offset, field.Width);
    return value;
}

void WriteField(DevModeRecord& record, RecordField field, DWORD value) {
    std::memcpy(reinterpret_cast<BYTE*>(&record) + field.Offset, &value, field.Width);
}
