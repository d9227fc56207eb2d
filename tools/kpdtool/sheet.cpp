// kpdtool sheet: the document sheet, opened as an application does and used as a script says.
#include "arguments.h"
#include "commands.h"
#include "connected_sample.h"
#include "core/page_table.h"
#include "temporary_printer.h"
#include "tool_error.h"
#include "tools/kpdtool/records/differences.h"
#include "tools/kpdtool/records/record_report.h"
#include "tools/kpdtool/sheet/lamination_sheet.h"
#include "tools/kpdtool/sheet/sheet_run.h"
#include "ui/common/language.h"
#include "wide_text.h"

#include <prsht.h>

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <optional>
#include <sstream>

namespace kpdtool {
namespace {

struct Options {
    PrinterArguments printer;
    std::string port;
    bool remote = false;
    std::string language;  ///< empty: the user's as it is
    std::string package;
    bool withLamination = false;
    std::string device;
    std::string designer;
    std::string in;
    std::string out;
    std::string script;
    std::string pictures;
    bool json = false;
};

struct Outcome {
    bool accepted = false;
    std::string unexpected;  ///< the expectation that failed
    std::vector<std::string> messages;
    std::vector<std::string> pictures;
    std::string printed;  ///< by the script
};

constexpr LONG kAccepted = 1;

constexpr char kNotation[] =
    R"(A TEXT, ITEM or CONTROL stands in double quotes, "\"" for one within. A control is named by its
English text, or a field by the label before it; "Rotate 180"#2 is the second of that text; or by
its IDC_ name. Answers are for the next message box (yes, no, ...) or file dialog ("a file").
"await" in place of "expect" waits, half a minute at most, until the expectation holds.
A script that presses neither ok nor cancel ends with ok. Exit status 1: an expectation failed.)";

void Require(const std::string& reason) {
    if (!reason.empty()) {
        throw ToolError(reason);
    }
}

std::vector<SheetPage> DriverPages() {
    std::vector<SheetPage> pages;
    for (const PageRow& row : PageTable) {
        pages.push_back({ToUtf8(row.Title), row.Dialog, {row.Section}});
    }
    // Which has its title alone there.
    pages[kRewriteSlot].sections = {kPrintingAreaSection, kRewritableSection};
    return pages;
}

/// The driver loaded, and a printer to ask it about.
class Application {
  public:
    explicit Application(const Options& options) : options_(options), printer_(Spec(options)) {
        Require(computer::LoadDriver(driver_));
    }

    // The record that the application has.
    std::vector<BYTE> Input() {
        if (!options_.in.empty()) {
            return WorkingBuffer(ReadRecordFile(options_.in));
        }
        std::vector<BYTE> record(kLargestRecord);
        if (driver_.DocumentProperties(nullptr, printer_.get(), printer_.Name(), RecordIn(record),
                                       nullptr, DM_OUT_BUFFER) != kAccepted) {
            throw ToolError(options_.printer.name + ": the driver gives no record");
        }
        return record;
    }
    // False when it was cancelled.
    bool ShowSheet(std::vector<BYTE>& input, std::vector<BYTE>& output) {
        constexpr DWORD kMode = DM_IN_BUFFER | DM_OUT_BUFFER | DM_IN_PROMPT;
        const LONG result =
            options_.withLamination
                ? ShowSheetWithLamination(driver_, printer_.get(), printer_.Name(),
                                          RecordIn(output), RecordIn(input), kMode)
                : driver_.DocumentProperties(nullptr, printer_.get(), printer_.Name(),
                                             RecordIn(output), RecordIn(input), kMode);
        if (result < 0) {
            throw ToolError("the driver cannot show the sheet (" + std::to_string(result) + ")");
        }
        return result == kAccepted;
    }

  private:
    static computer::PrinterSpec Spec(const Options& options) {
        return {.name = FromUtf8(options.printer.name),
                .model = FromUtf8(options.printer.model),
                .port = FromUtf8(options.port),
                .remote = options.remote};
    }

    const Options& options_;
    TemporaryPrinter printer_;
    computer::Driver driver_ = {};
};

// With neither a script nor pictures to take the user has the sheet.
bool IsForTheUser(const Options& options) {
    return options.script.empty() && options.pictures.empty();
}

Outcome UseSheet(const Options& options, const Script& script, Application& application,
                 std::vector<BYTE>& input, std::vector<BYTE>& output) {
    Outcome outcome;
    if (IsForTheUser(options)) {
        outcome.accepted = application.ShowSheet(input, output);
        return outcome;
    }
    std::ostringstream printed;
    const std::vector<SheetPage> pages = DriverPages();
    SheetRun run(script, pages, options.pictures, options.script.empty() ? PSBTN_CANCEL : PSBTN_OK,
                 printed);
    outcome.accepted = application.ShowSheet(input, output);
    outcome.unexpected = run.Finish();
    outcome.messages = run.Messages();
    outcome.pictures = run.Pictures();
    outcome.printed = printed.str();
    return outcome;
}

void InstallPackage(const Options& options) {
    const std::filesystem::path ofSources = computer::ProgramFolder() / KPD_PACKAGE_FOLDER;
    if (!options.package.empty()) {
        Require(computer::InstallPackage(PathFrom(options.package)));
    } else if (std::filesystem::exists(ofSources)) {
        Require(computer::InstallPackageSources(ofSources));
    }
}

StoredRecord Trimmed(const std::string& name, const std::vector<BYTE>& buffer) {
    const StoredRecord whole(name, buffer);
    const Bytes bytes = whole.All().first(whole.Size());
    return StoredRecord(name, {bytes.begin(), bytes.end()});
}

void Print(std::ostream& out, const Options& options, const Outcome& outcome,
           const Differences* changes) {
    out << outcome.printed;
    for (const std::string& message : outcome.messages) {
        out << "A message was shown: " << message << '\n';
    }
    for (const std::string& picture : outcome.pictures) {
        out << options.pictures << '/' << picture << '\n';
    }
    if (!outcome.unexpected.empty()) {
        out << outcome.unexpected << '\n';
    } else if (changes == nullptr) {
        out << "Cancelled.\n";
    } else if (changes->Rows().empty()) {
        out << "Accepted; the record is the same.\n";
    } else {
        out << "Accepted; what changed in the record:\n";
        changes->Table().Print(out);
    }
}

Json OutcomeJson(const Options& options, const Outcome& outcome, const Differences* changes) {
    return {{"model", options.printer.model},
            {"accepted", changes != nullptr},
            {"failure", outcome.unexpected.empty() ? Json() : Json(outcome.unexpected)},
            {"messages", outcome.messages},
            {"pictures", outcome.pictures},
            {"printed", outcome.printed},
            {"fields", changes == nullptr ? Json() : changes->Rows()}};
}

int RunSheet(const Options& options, std::ostream& out) {
    Script script;
    if (!options.script.empty()) {
        script = ReadScript(options.script);
    } else if (IsForTheUser(options)) {
        Require(computer::WhyNoUser());
    }
    std::optional<UiLanguage> language;
    if (!options.language.empty()) {
        language.emplace(options.language);
    }
    InstallPackage(options);
    const ConnectedDevice device(options.device);
    const ConnectedDesigner designer(options.designer);
    Application application(options);
    std::vector<BYTE> input = application.Input();
    const StoredRecord before = Trimmed("the input record", input);
    std::vector<BYTE> output(kLargestRecord);
    const Outcome outcome = UseSheet(options, script, application, input, output);
    std::optional<Differences> changes;
    if (outcome.accepted && outcome.unexpected.empty()) {
        const StoredRecord after = Trimmed("the returned record", output);
        changes.emplace(before, after);
        if (!options.out.empty()) {
            WriteRecordFile(options.out, after.All());
        }
    }
    if (options.json) {
        PrintJson(out, OutcomeJson(options, outcome, changes ? &*changes : nullptr));
    } else {
        Print(out, options, outcome, changes ? &*changes : nullptr);
    }
    return outcome.unexpected.empty() ? 0 : 1;
}

}  // namespace

Run DeclareSheet(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    command.footer(command.get_footer() + "\nSteps, one a line, # begins a comment:\n" +
                   ScriptForms() + kNotation);
    AddJson(command, options->json);
    AddOptionalModelAndPrinter(command, options->printer, "Name of the printer's driver");
    command.add_option("--port", options->port, "The printer's port (default: a local one)");
    command.add_flag("--remote", options->remote, "It is a printer of another computer");
    command.add_flag("--with-lamination", options->withLamination,
                     "Add the Lamination page, which the driver's own sheet never has");
    command.add_option("--language", options->language,
                       "The user's UI language (default: as it is): " + LanguageTags());
    command.add_option("--package", options->package,
                       "The driver package's folder, for its language files and pictures (default: "
                       "that of the sources)");
    AddDevice(command, options->device);
    AddDesigner(command, options->designer);
    command.add_option("--in", options->in,
                       "The record that the application has (default: the printer's)");
    AddOut(command, options->out);
    command.add_option("--script", options->script, "The steps");
    command.add_option("--pictures", options->pictures,
                       "Write a picture of every page to this folder before closing, and those that "
                       "the script takes");
    return [options](std::ostream& out, std::ostream& notes) {
        NoteModel(notes, options->printer);
        return RunSheet(*options, out);
    };
}

}  // namespace kpdtool
