// Each argument is declared once, so that it means the same everywhere.
#include "arguments.h"

#include <CLI/CLI.hpp>

#include "temporary_printer.h"

namespace kpdtool {
namespace {

void AddPrinterName(CLI::App& command, PrinterArguments& printer) {
    command.add_option("--printer", printer.name, "Name of the printer added meanwhile")
        ->capture_default_str();
}

}  // namespace

void AddJson(CLI::App& command, bool& json) {
    command.add_flag("--json", json, "Print JSON instead of text");
}

void AddOut(CLI::App& command, std::string& path) {
    command.add_option("--out", path, "Write the resulting record to this file");
}

void AddModelAndPrinter(CLI::App& command, PrinterArguments& printer) {
    command.add_option("MODEL", printer.model, "Name of the printer's driver")->required();
    AddPrinterName(command, printer);
}

void AddOptionalModelAndPrinter(CLI::App& command, PrinterArguments& printer,
                                const std::string& modelDescription) {
    command.add_option("--model", printer.model, modelDescription)->capture_default_str();
    AddPrinterName(command, printer);
}

void NoteModel(std::ostream& notes, const PrinterArguments& printer) {
    if (const std::string note = ModelNote(printer.model); !note.empty()) {
        notes << "kpdtool: " << note << '\n';
    }
}

}  // namespace kpdtool
