// One field's value in a record: as text, as JSON, and what is wrong with it.
#pragma once

#include "fields.h"

#include <nlohmann/json.hpp>
#include <span>
#include <string>

namespace kpdtool {

using Json = nlohmann::ordered_json;

/// Each takes the field's own bytes, as many as the field is wide.
using Bytes = std::span<const BYTE>;

/// Element `index` of a field that is no text.
std::int64_t Number(const Field& field, Bytes bytes, size_t index = 0);

/// "300", "0x0401", "\"CR-80 Card\"", "1 2 3", or "all 0" for such an array.
std::string ValueText(const Field& field, Bytes bytes);

/// The names of the value or of its bits: "landscape", "front, back"; empty when it has none.
std::string NamesOf(const Field& field, Bytes bytes);

/// The value and its names: "2 (landscape)".
std::string NamedValue(const Field& field, Bytes bytes);

/// "out of range (1 to 9999)" and the like; empty for a legal value.
std::string ProblemOf(const Field& field, Bytes bytes);

Json ValueJson(const Field& field, Bytes bytes);

}  // namespace kpdtool
