// kpdtool record and kpdtool show: records that the driver builds, and records that are stored.
#include "commands.h"
#include "core/context.h"
#include "record_report.h"
#include "temporary_printer.h"
#include "tool_error.h"

#include <algorithm>

namespace kpdtool {
namespace {

// The working record of a driver context for the printer, with the incoming record's settings.
StoredRecord WorkingRecord(const Options& options, HANDLE printer) {
    std::vector<BYTE> incoming;
    if (!options.in.empty()) {
        incoming = WorkingBuffer(ReadRecordFile(options.in));
    }
    const OwnedContext context(
        CreateDriverContext(printer, incoming.empty() ? nullptr : RecordIn(incoming)));
    if (!context) {
        throw ToolError((options.in.empty() ? options.printer : options.in) +
                        ": the driver refuses it");
    }
    const auto* bytes = reinterpret_cast<const BYTE*>(&context->WorkingDevMode);
    return StoredRecord(options.printer, {bytes, bytes + sizeof(DevModeRecord)});
}

void PrintProblems(std::ostream& out, const StoredRecord& record, const StoredRecord* merged) {
    size_t problems = 0;
    size_t changes = 0;
    for (const Field& field : RecordFields()) {
        if (const auto bytes = record.Find(field)) {
            problems += !ProblemIn(record, field, *bytes).empty();
            changes += merged != nullptr && !std::ranges::equal(*bytes, *merged->Find(field));
        }
    }
    out << problems << (problems == 1 ? " field is" : " fields are") << " out of range; ";
    if (merged != nullptr) {
        out << "a merge into a default record changes " << changes << ".\n";
    } else {
        out << "a merge refuses the record: its size names no version, and it has none itself.\n";
    }
}

}  // namespace

int BuildRecord(const Options& options, std::ostream& out) {
    const UiLanguage language(options.language);
    TemporaryPrinter printer(options.printer, options.model);
    const StoredRecord record = WorkingRecord(options, printer.get());
    if (!options.out.empty()) {
        WriteRecordFile(options.out, record.All());
    }
    if (options.json) {
        Json json = {{"model", options.model}, {"language", options.language}};
        json.update(RecordJson(record, nullptr));
        PrintJson(out, json);
    } else {
        PrintRecord(out, record, nullptr);
    }
    return 0;
}

int ShowRecord(const Options& options, std::ostream& out) {
    const StoredRecord record = ReadRecordFile(options.first);
    const std::optional<StoredRecord> merged = Merged(record);
    const StoredRecord* beside = merged ? &*merged : nullptr;
    if (options.json) {
        Json json = {{"file", options.first}, {"mergeAccepts", merged.has_value()}};
        json.update(RecordJson(record, beside));
        PrintJson(out, json);
    } else {
        PrintRecord(out, record, beside);
        PrintProblems(out, record, beside);
    }
    return 0;
}

}  // namespace kpdtool
