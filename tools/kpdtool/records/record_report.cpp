// One loop over the fields for each form.
#include "record_report.h"

#include "core/merge.h"
#include "tools/kpdtool/text_table.h"

#include <algorithm>

namespace kpdtool {
namespace {

bool Differs(const Field& field, Bytes bytes, const StoredRecord* merged) {
    return merged != nullptr && !std::ranges::equal(bytes, *merged->Find(field));
}

// What a value stands for, or else what the field is.
std::string MeaningOf(const Field& field, Bytes bytes) {
    const std::string names = NamesOf(field, bytes);
    return names.empty() ? field.meaning : names;
}

// What stands beside a value: what it means, what is wrong with it, what becomes of it.
std::string Remarks(const StoredRecord& record, const Field& field, Bytes bytes,
                    const StoredRecord* merged) {
    const std::string problem = ProblemIn(record, field, bytes);
    std::string text = !record.Counts(field) ? "not in dmFields"
                       : problem.empty()     ? MeaningOf(field, bytes)
                                             : problem;
    if (Differs(field, bytes, merged)) {
        text += (text.empty() ? "" : "; ") + std::string("a merge makes it ") +
                NamedValue(field, *merged->Find(field));
    }
    return text;
}

void AddFields(TextTable& table, const StoredRecord& record, const StoredRecord* merged,
               bool privatePart) {
    for (const Field& field : RecordFields()) {
        if (field.IsPrivate() != privatePart) {
            continue;
        }
        if (const auto bytes = record.Find(field)) {
            table.Row(
                {field.name, ValueText(field, *bytes), Remarks(record, field, *bytes, merged)});
        } else {
            table.Row({field.name, "absent", ""});
        }
    }
}

}  // namespace

std::string ProblemIn(const StoredRecord& record, const Field& field, Bytes bytes) {
    return record.Counts(field) ? ProblemOf(field, bytes) : "";
}

std::string PrivateText(const StoredRecord& record) {
    if (record.PrivateSize() == 0) {
        return "absent";
    }
    return std::to_string(record.PrivateSize()) + " bytes" +
           (record.HasOwnPrivate() ? "" : ", not this driver's");
}

std::optional<StoredRecord> Merged(const StoredRecord& record) {
    std::vector<BYTE> incoming = WorkingBuffer(record);
    std::vector<BYTE> bytes(sizeof(DevModeRecord));
    auto* current = reinterpret_cast<DevModeRecord*>(bytes.data());
    BuildDefaultDevMode(current, nullptr, nullptr);
    if (!MergeDevMode(current, RecordIn(incoming), nullptr)) {
        return std::nullopt;
    }
    return StoredRecord("merged", std::move(bytes));
}

void PrintRecord(std::ostream& out, const StoredRecord& record, const StoredRecord* merged) {
    TextTable table;
    table.Heading("Public part: " + std::to_string(record.PublicSize()) + " bytes");
    AddFields(table, record, merged, false);
    table.Heading("Private part: " + PrivateText(record));
    if (record.HasOwnPrivate()) {
        AddFields(table, record, merged, true);
    }
    table.Print(out);
    if (record.Behind() != 0) {
        out << "More bytes lie behind the record; nothing reads them.\n";
    }
}

Json RecordJson(const StoredRecord& record, const StoredRecord* merged) {
    Json fields = Json::array();
    for (const Field& field : RecordFields()) {
        Json row = {{"name", field.name}, {"offset", field.offset}, {"value", nullptr}};
        if (const auto bytes = record.Find(field)) {
            row["value"] = ValueJson(field, *bytes);
            row["meaning"] = MeaningOf(field, *bytes);
            if (const std::string problem = ProblemIn(record, field, *bytes); !problem.empty()) {
                row["problem"] = problem;
            }
            if (Differs(field, *bytes, merged)) {
                row["merged"] = ValueJson(field, *merged->Find(field));
            }
        }
        fields.push_back(std::move(row));
    }
    return {{"publicSize", record.PublicSize()},
            {"privateSize", record.PrivateSize()},
            {"ownPrivatePart", record.HasOwnPrivate()},
            {"fields", std::move(fields)}};
}

void PrintJson(std::ostream& out, const Json& json) {
    // A file's name need not be UTF-8.
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace kpdtool
