// kpdtool show: a stored record, and what a merge makes of it.
#include "arguments.h"
#include "commands.h"
#include "tools/kpdtool/records/record_report.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace kpdtool {
namespace {

struct Options {
    std::string file;
    bool json = false;
};

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
        out << "a merge refuses the record: "
            << (record.PublicSize() == 0 ? "it has no public part"
                                         : "its size names no version, and it has none itself")
            << ".\n";
    }
}

int ShowRecord(const Options& options, std::ostream& out) {
    const StoredRecord record = ReadRecordFile(options.file);
    const std::optional<StoredRecord> merged = Merged(record);
    const StoredRecord* beside = merged ? &*merged : nullptr;
    if (options.json) {
        Json json = {{"file", options.file}, {"mergeAccepts", merged.has_value()}};
        json.update(RecordJson(record, beside));
        PrintJson(out, json);
    } else {
        PrintRecord(out, record, beside);
        PrintProblems(out, record, beside);
    }
    return 0;
}

}  // namespace

Run DeclareShow(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    command.add_option("FILE", options->file, "The record")->required();
    return [options](std::ostream& out, std::ostream&) { return ShowRecord(*options, out); };
}

}  // namespace kpdtool
