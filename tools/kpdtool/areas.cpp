// kpdtool areas: which print areas a printer's user has chosen, and what the designer has.
#include "arguments.h"
#include "commands.h"
#include "connected_sample.h"
#include "core/printer_key.h"
#include "printer_context.h"
#include "temporary_printer.h"
#include "text_table.h"
#include "tools/kpdtool/records/record_report.h"
#include "ui/pages/print_area/print_area_settings.h"
#include "wide_text.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kpdtool {
namespace {

struct Options {
    PrinterArguments printer;
    std::string in;
    std::string designer;
    bool json = false;
};

constexpr const char* kSides[kAreaSides] = {"front", "back"};

// ---- What is chosen -----------------------------------------------------------------------------

struct Choice {
    const char* panel;
    const char* side;
    std::string area;
    std::string use;
};

// Nothing is stored here of what is missing, as the pages would.
std::string ChosenName(HKEY key, const WCHAR* value) {
    AreaName name;
    return key != nullptr && ReadAreaName(key, value, name) ? ToUtf8(name.Text)
                                                            : ToUtf8(kStandardArea);
}

std::string UseOf(const DevModePrivate& record, int panel, int side) {
    const auto designed = [side](BYTE mode) { return (mode >> 2 * side & kFrontDesigned) != 0; };
    switch (panel) {
        case kOvercoatPanel:
            return designed(record.OvercoatMode) ? "Designed Overcoat" : "Glossy Overcoat";
        case kResinPanel:
            return designed(record.ResinKMode) ? "Print K Only" : "Print CMY Under K";
        default:
            return "";
    }
}

std::vector<Choice> Choices(const DriverContext& context, const std::string& printer) {
    PrinterKey key(FromUtf8(printer).c_str());
    key.Open(KEY_READ);
    if (context.IsKP43Family != 0) {
        return {{"erase", kSides[kFrontArea], ChosenName(key.get(), kStoredEraseArea), ""}};
    }
    constexpr const char* kPanels[kAreaPanels] = {"overcoat", "resin K", "lamination"};
    const int sides = context.IsDuplexModel != 0 ? kAreaSides : 1;
    std::vector<Choice> choices;
    for (int panel = 0; panel < kAreaPanels; ++panel) {
        for (int side = 0; side < sides; ++side) {
            choices.push_back({kPanels[panel], kSides[side],
                               ChosenName(key.get(), StoredAreaName(panel, side)),
                               UseOf(context.WorkingDevMode.Private, panel, side)});
        }
    }
    return choices;
}

// ---- What the designer has ----------------------------------------------------------------------

class Designer {
  public:
    Designer() { LoadAreaDesigner(library_); }
    ~Designer() { UnloadAreaDesigner(library_); }
    Designer(const Designer&) = delete;
    Designer& operator=(const Designer&) = delete;

    bool IsLoaded() const { return library_.IsLoaded != 0; }

    Json Areas(const DevModeRecord& record, AreaSide side, const AreaFolders& folders) {
        Json areas = Json::array();
        DWORD count = 0;
        if (!ListAreas(library_, side, EnumerationParams(record, side, folders), count)) {
            return areas;
        }
        const AreaSource source = {nullptr, library_.Enumerations[side]};
        for (DWORD i = 0; i < count; ++i) {
            WCHAR name[kAreaNameLength];
            GetAreaName(library_, source, i, name);
            areas.push_back({{"side", kSides[side]}, {"area", ToUtf8(name)}});
            areas.back().update(Layout(source, i));
        }
        return areas;
    }

  private:
    Json Layout(AreaSource source, DWORD index) {
        PrintAreaData* area = CopyArea(library_, source, index);
        if (area == nullptr) {
            return {{"layout", nullptr}};
        }
        int blocks = 0;
        for (const PrintAreaBlock* block = area->FirstBlock; block != nullptr;
             block = block->Next) {
            ++blocks;
        }
        const Json layout = {
            {"layout", {area->Width, area->Height}},
            {"portrait", area->Orientation == DMORIENT_PORTRAIT},
            {"blocks", blocks},
        };
        FreePrintAreaData(area);
        return layout;
    }

    AreaDesignLibrary library_;
};

// The areas for each side, or why there are none.
Json OfferedAreas(const DriverContext& context, std::string& problem) {
    Json offered = Json::array();
    Designer designer;
    AreaFolders folders;
    if (!designer.IsLoaded()) {
        problem = "The print-area designer cannot be loaded.";
    } else if (!FindAreaFolders(folders)) {
        problem = "The user's application-data folder is not known.";
    } else {
        const bool bothSides = context.IsDuplexModel != 0 && context.IsKP43Family == 0;
        for (const AreaSide side : {kFrontArea, kBackArea}) {
            if (side == kFrontArea || bothSides) {
                for (Json& area : designer.Areas(context.WorkingDevMode, side, folders)) {
                    offered.push_back(std::move(area));
                }
            }
        }
    }
    return offered;
}

// ---- What is printed ----------------------------------------------------------------------------

void PrintChoices(std::ostream& out, const std::vector<Choice>& choices) {
    TextTable table;
    table.Heading("Chosen");
    for (const Choice& choice : choices) {
        table.Row({choice.panel, choice.side, choice.area, choice.use});
    }
    table.Print(out);
}

std::string LayoutText(const Json& area) {
    if (area["layout"].is_null()) {
        return "no data";
    }
    return area["layout"][0].dump() + " x " + area["layout"][1].dump() +
           (area["portrait"] ? ", portrait, " : ", landscape, ") + area["blocks"].dump() +
           " blocks";
}

void PrintOffered(std::ostream& out, const Json& offered) {
    TextTable table;
    table.Heading("Offered by the designer");
    for (const Json& area : offered) {
        table.Row(
            {area["side"].get<std::string>(), area["area"].get<std::string>(), LayoutText(area)});
    }
    table.Print(out);
}

int ShowAreas(const Options& options, std::ostream& out, std::ostream& notes) {
    const ConnectedDesigner sample(options.designer);
    std::vector<BYTE> incoming;
    if (!options.in.empty()) {
        incoming = WorkingBuffer(ReadRecordFile(options.in));
    }
    // The user's printer may be there already; this one is for the model's flags and record.
    TemporaryPrinter printer("kpdtool areas", options.printer.model);
    const OwnedContext context = MakeContext(options.printer, printer.get(), options.in, incoming);
    const std::vector<Choice> choices = Choices(*context, options.printer.name);
    std::string problem;
    const Json offered = OfferedAreas(*context, problem);
    if (options.json) {
        Json json = {{"model", options.printer.model}, {"printer", options.printer.name}};
        json["chosen"] = Json::array();
        for (const Choice& choice : choices) {
            json["chosen"].push_back({{"panel", choice.panel},
                                      {"side", choice.side},
                                      {"area", choice.area},
                                      {"use", choice.use}});
        }
        json["offered"] = problem.empty() ? offered : Json();
        PrintJson(out, json);
    } else {
        PrintChoices(out, choices);
        if (problem.empty()) {
            PrintOffered(out, offered);
        }
    }
    if (!problem.empty()) {
        notes << problem << '\n';
    }
    return 0;
}

}  // namespace

Run DeclareAreas(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    command.add_option("MODEL", options->printer.model, "Name of the printer's driver")->required();
    command.add_option("--printer", options->printer.name,
                       "The printer's name, by which the user's choices are kept");
    command.add_option("--in", options->in,
                       "The record with the card and its use (default: the model's)");
    AddDesigner(command, options->designer);
    return [options](std::ostream& out, std::ostream& notes) {
        NoteModel(notes, options->printer);
        return ShowAreas(*options, out, notes);
    };
}

}  // namespace kpdtool
