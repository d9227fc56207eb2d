// The command line: the commands there are, and what ends a run.
#include "kpdtool.h"

#include <CLI/CLI.hpp>

#include "commands.h"
#include "tool_error.h"
#include "version.h"

namespace kpdtool {

// Each in the file of its name.
Declare DeclareCaps, DeclareRecord, DeclareShow, DeclareDiff, DeclareConvert, DeclareSheet,
    DeclareSettings, DeclareDevice, DeclareAreas, DeclareLanguage, DeclareLayout;

namespace {

struct CommandRow {
    const char* Name;
    const char* Description;
    const char* Example;
    Declare* DeclareArguments;
};

// clang-format off
constexpr CommandRow kCommands[] = {
    {"caps", "Print every answer of DrvDeviceCapabilities",
     "kpdtool caps \"Mirv KP-410e\"", DeclareCaps},
    {"record", "Build the driver context of a model and print its record",
     "kpdtool record \"Mirv KP-430e\" --language zh-CN --out card.dm", DeclareRecord},
    {"show", "Decode a stored record of any layout; tell what a merge makes of it",
     "kpdtool show card.dm", DeclareShow},
    {"diff", "Name the fields in which two records differ",
     "kpdtool diff before.dm after.dm", DeclareDiff},
    {"convert", "Run DrvConvertDevMode and print what it gives",
     "kpdtool convert --mode 1 --in old.dm --out new.dm", DeclareConvert},
    {"sheet", "Open the document sheet, do a script's steps, tell what changed",
     "kpdtool sheet --in tools/samples/application.dm --script tools/samples/tour.sheet "
     "--device tools/samples/printer.txt --pictures out/pages", DeclareSheet},
    {"settings", "Decode, write, apply and compare settings files",
     "kpdtool settings show Export.mcs", DeclareSettings},
    {"device", "Ask a printer everything that the pages ask it",
     "kpdtool device show \"Badge room\"", DeclareDevice},
    {"areas", "Name the print areas chosen for a printer, and those that the designer has",
     "kpdtool areas \"Mirv KP-41\" --printer \"Badge room\"", DeclareAreas},
    {"language", "Check a language file for its translator: what it lacks, what is cut",
     "kpdtool language package/languages/mvFrnkpd.ini", DeclareLanguage},
    {"layout", "Print the layout of the record as docs/record.md has it",
     "kpdtool layout > docs/record.md", DeclareLayout},
};
// clang-format on

constexpr char kDescription[] =
    R"(Looks into the records of the card-printer driver, and asks the driver.
A printer that a command needs is added for its length and removed again.)";
constexpr char kFooter[] = R"(kpdtool COMMAND --help tells more, with an example each.
Exit status: 0 done, 1 the records differ, the driver said FALSE, an expectation failed or a
language file has faults, 2 it could not be done.)";

/// The tool's arguments as declared, for one run.
class CommandLine {
  public:
    CommandLine() : app_(kDescription, "kpdtool") {
        app_.require_subcommand(1);
        app_.allow_windows_style_options(false);  // the same arguments everywhere; "/a" is a path
        app_.footer(kFooter);
        app_.set_version_flag("--version", "kpdtool " KPD_VERSION, "Print the version and exit");
        for (const CommandRow& row : kCommands) {
            CLI::App* command = app_.add_subcommand(row.Name, row.Description);
            command->footer(std::string("Example:\n  ") + row.Example);
            commands_.emplace_back(command, row.DeclareArguments(*command));
        }
    }

    CLI::App& App() { return app_; }
    int RunParsed(std::ostream& out, std::ostream& notes) const {
        for (const auto& [command, run] : commands_) {
            if (command->parsed()) {
                return run(out, notes);
            }
        }
        return 2;
    }

  private:
    CLI::App app_;
    std::vector<std::pair<CLI::App*, Run>> commands_;
};

int RunCommand(const CommandLine& line, std::ostream& out, std::ostream& err) {
    const int status = line.RunParsed(out, err);
    if (!out.flush()) {
        throw ToolError("the output cannot be written");
    }
    return status;
}

}  // namespace
}  // namespace kpdtool

int RunKpdtool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    kpdtool::CommandLine line;
    try {
        line.App().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return kpdtool::RunCommand(line, out, err);
    } catch (const CLI::CallForHelp&) {
        out << line.App().help();
        return 0;
    } catch (const CLI::CallForVersion& version) {
        out << version.what() << '\n';
        return 0;
    } catch (const std::exception& error) {
        err << "kpdtool: " << error.what() << '\n';
        return 2;
    }
}
