// The command line: what each command takes, and its help.
#include "kpdtool.h"

#include <CLI/CLI.hpp>

#include "commands.h"
#include "temporary_printer.h"
#include "tool_error.h"
#include "tools/kpdtool/sheet/script.h"

namespace {

using kpdtool::Options;

struct Command {
    CLI::App* app;
    int (*run)(const Options&, std::ostream&);
};

constexpr char kDescription[] =
    R"(Looks into the records of the card-printer driver, and asks the driver.
A printer that a command needs is added for its length and removed again.)";
constexpr char kFooter[] = R"(kpdtool COMMAND --help tells more, with an example each.
Exit status: 0 done, 1 the records differ, the driver said FALSE or an expectation failed, 2 it
could not be done.)";

constexpr char kSheetFooter[] =
    R"(A TEXT, ITEM or CONTROL stands in double quotes, "\"" for one within. A control is named by its
English text, or a field by the label before it; "Rotate 180"#2 is the second of that text; or by
its IDC_ name. Answers are for the next message box (yes, no, ...) or file dialog ("a file").
A script that presses neither ok nor cancel ends with ok. Exit status 1: an expectation failed.)";

/// The tool's arguments as declared, for one run.
class CommandLine {
  public:
    CommandLine() : app_(kDescription, "kpdtool") {
        app_.require_subcommand(1);
        app_.footer(kFooter);
        AddCapabilities();
        AddRecord();
        AddShow();
        AddDiff();
        AddConvert();
        AddSheet();
        AddLayout();
    }

    CLI::App& App() { return app_; }
    const Options& Parsed() const { return options_; }
    int Run(std::ostream& out) const {
        for (const Command& command : commands_) {
            if (command.app->parsed()) {
                return command.run(options_, out);
            }
        }
        return 2;
    }

  private:
    CLI::App* Add(const char* name, const char* description, const char* example,
                  int (*run)(const Options&, std::ostream&)) {
        CLI::App* command = app_.add_subcommand(name, description);
        command->footer(std::string("Example:\n  ") + example);
        command->add_flag("--json", options_.json, "Print JSON instead of text");
        commands_.push_back({command, run});
        return command;
    }
    void AddPrinter(CLI::App* command) {
        command->add_option("--printer", options_.printer, "Name of the printer added meanwhile")
            ->capture_default_str();
    }
    void AddModel(CLI::App* command) {
        command->add_option("MODEL", options_.model, "Name of the printer's driver")->required();
        AddPrinter(command);
    }
    void AddOut(CLI::App* command) {
        command->add_option("--out", options_.out, "Write the resulting record to this file");
    }

    void AddCapabilities() {
        AddModel(Add("caps", "Print every answer of DrvDeviceCapabilities",
                     "kpdtool caps \"Mirv KP-410e\"", kpdtool::PrintCapabilities));
    }
    void AddRecord() {
        CLI::App* command = Add(
            "record", "Build the driver context of a model and print its record",
            "kpdtool record \"Mirv KP-430e\" --language zh-CN --out card.dm", kpdtool::BuildRecord);
        AddModel(command);
        command->add_option("--in", options_.in, "Merge the record in this file");
        AddOut(command);
        command
            ->add_option("--language", options_.language,
                         "The user's UI language: " + kpdtool::LanguageTags())
            ->capture_default_str();
    }
    void AddShow() {
        CLI::App* command =
            Add("show", "Decode a stored record of any layout; tell what a merge makes of it",
                "kpdtool show card.dm", kpdtool::ShowRecord);
        command->add_option("FILE", options_.first, "The record")->required();
    }
    void AddDiff() {
        CLI::App* command = Add("diff", "Name the fields in which two records differ",
                                "kpdtool diff before.dm after.dm", kpdtool::CompareRecords);
        command->add_option("FIRST", options_.first, "A record")->required();
        command->add_option("SECOND", options_.second, "Another")->required();
    }
    void AddConvert() {
        CLI::App* command =
            Add("convert", "Run DrvConvertDevMode and print what it gives",
                "kpdtool convert --mode 1 --in old.dm --out new.dm", kpdtool::ConvertRecord);
        command
            ->add_option("--mode", options_.mode,
                         "1 into the layout of --to, 2 into the first generation's, 4 the "
                         "printer's default record")
            ->required()
            ->check(CLI::IsMember({1, 2, 4}));
        command->add_option("--in", options_.in, "The input record; none when not given");
        command->add_option("--to", options_.to,
                            "The output record before the call (default: this driver's layout)");
        AddOut(command);
        command->add_option("--model", options_.model, "Name of the printer's driver, for mode 4")
            ->capture_default_str();
        AddPrinter(command);
        command->add_option("--size", options_.size,
                            "Size to pass (default: that of the output record)");
    }
    void AddSheet() {
        CLI::App* command =
            Add("sheet", "Open the document sheet, do a script's steps, tell what changed",
                "kpdtool sheet --script tools/samples/tour.sheet --pictures out/pages",
                kpdtool::RunSheet);
        command->footer(command->get_footer() + "\nSteps, one a line, # begins a comment:\n" +
                        kpdtool::ScriptForms() + kSheetFooter);
        command->add_option("--model", options_.model, "Name of the printer's driver")
            ->capture_default_str();
        AddPrinter(command);
        command->add_option("--port", options_.port, "The printer's port (default: a local one)");
        command->add_flag("--remote", options_.remote, "It is a printer of another computer");
        command->add_option(
            "--language", options_.sheetLanguage,
            "The user's UI language (default: as it is): " + kpdtool::LanguageTags());
        command->add_option(
            "--package", options_.package,
            "The driver package's folder, for its language files and pictures (default: "
            "that of the sources)");
        command->add_option("--in", options_.in,
                            "The record that the application has (default: the printer's)");
        AddOut(command);
        command->add_option("--script", options_.script, "The steps");
        command->add_option("--pictures", options_.pictures,
                            "Write a picture of every page to this folder before closing");
    }
    void AddLayout() {
        Add("layout", "Print the layout of the record as docs/record.md has it",
            "kpdtool layout > docs/record.md", kpdtool::PrintLayout);
    }

    CLI::App app_;
    Options options_;
    std::vector<Command> commands_;
};

int Run(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (const std::string note = kpdtool::ModelNote(line.Parsed().model); !note.empty()) {
        err << "kpdtool: " << note << '\n';
    }
    const int status = line.Run(out);
    if (!out.flush()) {
        throw kpdtool::ToolError("the output cannot be written");
    }
    return status;
}

}  // namespace

int RunKpdtool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    CommandLine line;
    try {
        line.App().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return Run(line, out, err);
    } catch (const CLI::CallForHelp&) {
        out << line.App().help();
        return 0;
    } catch (const std::exception& error) {
        err << "kpdtool: " << error.what() << '\n';
        return 2;
    }
}
