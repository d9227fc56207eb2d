// kpdtool diff: the fields in which two records differ.
#include "arguments.h"
#include "commands.h"
#include "tools/kpdtool/records/differences.h"
#include "tools/kpdtool/records/record_report.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kpdtool {
namespace {

struct Options {
    std::string first;
    std::string second;
    bool json = false;
};

int CompareRecords(const Options& options, std::ostream& out) {
    const StoredRecord first = ReadRecordFile(options.first);
    const StoredRecord second = ReadRecordFile(options.second);
    const Differences differences(first, second);
    const bool same = differences.Rows().empty();
    if (options.json) {
        PrintJson(out, {{"first", options.first},
                        {"second", options.second},
                        {"same", same},
                        {"fields", differences.Rows()}});
    } else if (same) {
        out << "The records are the same.\n";
    } else {
        differences.Table().Print(out);
    }
    return same ? 0 : 1;
}

}  // namespace

Run DeclareDiff(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    command.add_option("FIRST", options->first, "A record")->required();
    command.add_option("SECOND", options->second, "Another")->required();
    return [options](std::ostream& out, std::ostream&) { return CompareRecords(*options, out); };
}

}  // namespace kpdtool
