// kpdtool convert: what DrvConvertDevMode makes of a record.
#include "arguments.h"
#include "commands.h"
#include "core/driver_ui_contract.h"
#include "temporary_printer.h"
#include "text_table.h"
#include "tools/kpdtool/records/record_report.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>

namespace kpdtool {
namespace {

struct Options {
    DWORD mode = 0;
    std::string in;
    std::string to;
    std::string out;
    PrinterArguments printer;
    std::optional<LONG> size;
    bool json = false;
};

struct Outcome {
    bool done;
    DWORD error;  ///< means something only when not done
    LONG size;
};

const char* ErrorName(DWORD error) {
    switch (error) {
        case ERROR_SUCCESS:
            return "ERROR_SUCCESS";
        case ERROR_ACCESS_DENIED:
            return "ERROR_ACCESS_DENIED";
        case ERROR_INVALID_HANDLE:
            return "ERROR_INVALID_HANDLE";
        case ERROR_NOT_ENOUGH_MEMORY:
            return "ERROR_NOT_ENOUGH_MEMORY";
        case ERROR_INVALID_PARAMETER:
            return "ERROR_INVALID_PARAMETER";
        case ERROR_INSUFFICIENT_BUFFER:
            return "ERROR_INSUFFICIENT_BUFFER";
        case ERROR_INVALID_PRINTER_NAME:
            return "ERROR_INVALID_PRINTER_NAME";
        default:
            return "an error without a name here";
    }
}

std::vector<BYTE> BufferOf(const std::string& path) {
    return path.empty() ? std::vector<BYTE>() : WorkingBuffer(ReadRecordFile(path));
}

// The record that mode 1 converts into when no other is given: this driver's layout, empty.
std::vector<BYTE> OwnLayout() {
    std::vector<BYTE> buffer(kLargestRecord);
    DEVMODEW* record = RecordIn(buffer);
    record->dmSpecVersion = kSpecVersion;
    record->dmDriverVersion = kDriverVersion;
    record->dmSize = kPublicSize;
    record->dmDriverExtra = kPrivateSize;
    return buffer;
}

Outcome Convert(const Options& options, WCHAR* printer, std::vector<BYTE>& output) {
    std::vector<BYTE> input = BufferOf(options.in);
    const DEVMODEW* layout = RecordIn(output);
    Outcome outcome = {};
    outcome.size = options.size.value_or(LONG{layout->dmSize} + layout->dmDriverExtra);
    SetLastError(ERROR_SUCCESS);
    outcome.done = DrvConvertDevMode(printer, input.empty() ? nullptr : RecordIn(input),
                                     RecordIn(output), &outcome.size, options.mode);
    outcome.error = GetLastError();
    return outcome;
}

Outcome ConvertForPrinter(const Options& options, std::vector<BYTE>& output) {
    if (options.mode != CDM_DRIVER_DEFAULT) {
        return Convert(options, nullptr, output);
    }
    TemporaryPrinter printer(options.printer.name, options.printer.model);
    return Convert(options, printer.Name(), output);
}

void Print(std::ostream& out, const Outcome& outcome, const StoredRecord* record) {
    TextTable table;
    table.Row({"result", outcome.done ? "TRUE" : "FALSE"});
    table.Row({"last error", outcome.done
                                 ? "not set"
                                 : std::to_string(outcome.error) + " " + ErrorName(outcome.error)});
    table.Row({"size on return", std::to_string(outcome.size)});
    table.Print(out);
    if (record != nullptr) {
        PrintRecord(out, *record, nullptr);
    }
}

Json OutcomeJson(const Options& options, const Outcome& outcome, const StoredRecord* record) {
    return {{"mode", options.mode},
            {"result", outcome.done},
            {"lastError", outcome.done ? Json() : Json(outcome.error)},
            {"lastErrorName", outcome.done ? Json() : Json(ErrorName(outcome.error))},
            {"size", outcome.size},
            {"record", record == nullptr ? Json() : RecordJson(*record, nullptr)}};
}

int ConvertRecord(const Options& options, std::ostream& out) {
    const UiLanguage language("en");
    // As large as any layout asks for, whatever size the driver is told.
    std::vector<BYTE> output = options.to.empty() ? OwnLayout() : BufferOf(options.to);
    const Outcome outcome = ConvertForPrinter(options, output);
    std::optional<StoredRecord> record;
    if (outcome.done) {
        output.resize(static_cast<size_t>(outcome.size));
        record.emplace("the converted record", std::move(output));
        if (!options.out.empty()) {
            WriteRecordFile(options.out, record->All());
        }
    }
    const StoredRecord* converted = record ? &*record : nullptr;
    if (options.json) {
        PrintJson(out, OutcomeJson(options, outcome, converted));
    } else {
        Print(out, outcome, converted);
    }
    return outcome.done ? 0 : 1;
}

}  // namespace

Run DeclareConvert(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    command
        .add_option("--mode", options->mode,
                    "1 into the layout of --to, 2 into the first generation's, 4 the "
                    "printer's default record")
        ->required()
        ->check(CLI::IsMember({1, 2, 4}));
    command.add_option("--in", options->in, "The input record; none when not given");
    command.add_option("--to", options->to,
                       "The output record before the call (default: this driver's layout)");
    AddOut(command, options->out);
    AddOptionalModelAndPrinter(command, options->printer,
                               "Name of the printer's driver, for mode 4");
    command.add_option("--size", options->size,
                       "Size to pass (default: that of the output record)");
    return [options](std::ostream& out, std::ostream& notes) {
        NoteModel(notes, options->printer);
        return ConvertRecord(*options, out);
    };
}

}  // namespace kpdtool
