// kpdtool diff: the fields in which two records differ.
#include "commands.h"
#include "tools/kpdtool/records/differences.h"
#include "tools/kpdtool/records/record_report.h"

namespace kpdtool {

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

}  // namespace kpdtool
