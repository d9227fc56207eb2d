// kpdtool record: the record that the driver builds for a model.
#include "commands.h"
#include "core/context.h"
#include "temporary_printer.h"
#include "tool_error.h"
#include "tools/kpdtool/records/record_report.h"

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

}  // namespace kpdtool
