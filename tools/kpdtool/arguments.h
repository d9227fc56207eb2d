// Arguments that several commands take.
#pragma once

#include <CLI/App.hpp>

#include <ostream>
#include <string>

namespace kpdtool {

/// The printer that a command adds for its length.
struct PrinterArguments {
    std::string model = "Mirv KP-41";
    std::string name = "kpdtool";
};

void AddJson(CLI::App& command, bool& json);
void AddOut(CLI::App& command, std::string& path);
/// MODEL, which must be given, and --printer.
void AddModelAndPrinter(CLI::App& command, PrinterArguments& printer);
/// --model, for what the description says, and --printer.
void AddOptionalModelAndPrinter(CLI::App& command, PrinterArguments& printer,
                                const std::string& modelDescription);

/// Tells when the model belongs to no known family.
void NoteModel(std::ostream& notes, const PrinterArguments& printer);

}  // namespace kpdtool
