// A record as a table for people and as JSON for programs, alone or beside what a merge makes of
// it.
#pragma once

#include "stored_record.h"

#include <ostream>

namespace kpdtool {

/// What a merge into a default record makes of this one, none when the merge refuses it.
std::optional<StoredRecord> Merged(const StoredRecord& record);

/// What is wrong with a field's value, empty when nothing is or the record says it does not count.
std::string ProblemIn(const StoredRecord& record, const Field& field, Bytes bytes);

/// "364 bytes", "112 bytes, not this driver's", "absent".
std::string PrivateText(const StoredRecord& record);

/// `merged` may be null: then only the record itself is told.
void PrintRecord(std::ostream& out, const StoredRecord& record, const StoredRecord* merged);
Json RecordJson(const StoredRecord& record, const StoredRecord* merged);

/// Ends every command with --json.
void PrintJson(std::ostream& out, const Json& json);

}  // namespace kpdtool
