// A number of the record by its place. The record is little-endian, as its platform is.
#include "core/record_field.h"

#include <algorithm>
#include <cstring>

namespace {

size_t NumberWidth(RecordField field) {
    return std::min<size_t>(field.Width, sizeof(DWORD));
}

}  // namespace

DWORD ReadField(const DevModeRecord& record, RecordField field) {
    DWORD value = 0;
    std::memcpy(&value, reinterpret_cast<const BYTE*>(&record) + field.Offset, NumberWidth(field));
    return value;
}

void WriteField(DevModeRecord& record, RecordField field, DWORD value) {
    BYTE* place = reinterpret_cast<BYTE*>(&record) + field.Offset;
    std::memset(place, 0, field.Width);
    std::memcpy(place, &value, NumberWidth(field));
}
