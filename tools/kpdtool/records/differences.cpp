// One loop over the fields.
#include "differences.h"

#include "record_report.h"

#include <algorithm>

namespace kpdtool {
namespace {

bool Same(const std::optional<Bytes>& first, const std::optional<Bytes>& second) {
    return first.has_value() == second.has_value() &&
           (!first || std::ranges::equal(*first, *second));
}

std::string Text(const Field& field, const std::optional<Bytes>& bytes) {
    return bytes ? NamedValue(field, *bytes) : "absent";
}

Json Value(const Field& field, const std::optional<Bytes>& bytes) {
    return bytes ? ValueJson(field, *bytes) : Json();
}

}  // namespace

Differences::Differences(const StoredRecord& first, const StoredRecord& second) {
    const bool samePrivate = first.HasOwnPrivate() == second.HasOwnPrivate();
    for (const Field& field : RecordFields()) {
        const auto a = first.Find(field);
        const auto b = second.Find(field);
        if (!Same(a, b) && (samePrivate || !field.IsPrivate())) {
            Add(field, a, b);
        }
    }
    if (!samePrivate) {
        const std::string a = PrivateText(first);
        const std::string b = PrivateText(second);
        table_.Row({"private part", a, b});
        rows_.push_back({{"name", "private part"}, {"first", a}, {"second", b}});
        return;
    }
    const std::vector<BYTE> a = first.Unnamed();
    const std::vector<BYTE> b = second.Unnamed();
    if (a != b) {
        table_.Row({"bytes of no field", std::to_string(a.size()), std::to_string(b.size())});
        rows_.push_back({{"name", "bytes of no field"}, {"first", a}, {"second", b}});
    }
}

void Differences::Add(const Field& field, const std::optional<Bytes>& a,
                      const std::optional<Bytes>& b) {
    const std::string first = Text(field, a);
    std::string second = Text(field, b);
    if (first == second) {
        second += ", other bytes behind its end";
    }
    table_.Row({field.name, first, second});
    rows_.push_back(
        {{"name", field.name}, {"first", Value(field, a)}, {"second", Value(field, b)}});
}

}  // namespace kpdtool
