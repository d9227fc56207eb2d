// kpdtool record: the record that the driver builds for a model.
#include "arguments.h"
#include "commands.h"
#include "printer_context.h"
#include "temporary_printer.h"
#include "tools/kpdtool/records/record_report.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kpdtool {
namespace {

struct Options {
    PrinterArguments printer;
    std::string language = "en";
    std::string in;
    std::string out;
    bool json = false;
};

int BuildRecord(const Options& options, std::ostream& out) {
    const UiLanguage language(options.language);
    TemporaryPrinter printer(options.printer.name, options.printer.model);
    std::vector<BYTE> incoming;
    if (!options.in.empty()) {
        incoming = WorkingBuffer(ReadRecordFile(options.in));
    }
    const OwnedContext context = MakeContext(options.printer, printer.get(), options.in, incoming);
    const StoredRecord record = WorkingRecord(options.printer, *context);
    if (!options.out.empty()) {
        WriteRecordFile(options.out, record.All());
    }
    if (options.json) {
        Json json = {{"model", options.printer.model}, {"language", options.language}};
        json.update(RecordJson(record, nullptr));
        PrintJson(out, json);
    } else {
        PrintRecord(out, record, nullptr);
    }
    return 0;
}

}  // namespace

Run DeclareRecord(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    AddModelAndPrinter(command, options->printer);
    command.add_option("--in", options->in, "Merge the record in this file");
    AddOut(command, options->out);
    command
        .add_option("--language", options->language, "The user's UI language: " + LanguageTags())
        ->capture_default_str();
    return [options](std::ostream& out, std::ostream& notes) {
        NoteModel(notes, options->printer);
        return BuildRecord(*options, out);
    };
}

}  // namespace kpdtool
