// kpdtool language: a language file checked for its translator.
#include "ui/common/language.h"
#include "arguments.h"
#include "commands.h"
#include "core/ui_language.h"
#include "text_table.h"
#include "tool_error.h"
#include "tools/computer/computer.h"
#include "tools/kpdtool/language/every_page.h"
#include "tools/kpdtool/language/language_file.h"
#include "tools/kpdtool/records/record_report.h"
#include "tools/kpdtool/sheet/resource_names.h"
#include "wide_text.h"

#include <CLI/CLI.hpp>

#include <strsafe.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace kpdtool {
namespace {

struct Options {
    std::string file;
    bool json = false;
};

/// A file in place of the user's language file.
class FileInUse {
  public:
    explicit FileInUse(const LanguageFile& file)
        : name_(computer::TemporaryFolder() + TEXT("\\kpdtool language.ini")) {
        if (StringCchCopyW(LanguageFilePath, kTextLength, name_.c_str()) != S_OK ||
            !(std::ofstream(computer::DiskPath(name_), std::ios::binary) << file.AsUtf16())) {
            throw ToolError("the file cannot be put where the driver reads it");
        }
    }
    ~FileInUse() {
        std::error_code ignored;
        std::filesystem::remove(computer::DiskPath(name_), ignored);
        InitLanguageFile();
    }
    FileInUse(const FileInUse&) = delete;
    FileInUse& operator=(const FileInUse&) = delete;

  private:
    std::basic_string<WCHAR> name_;
};

std::string HeadingOf(std::string_view kind) {
    constexpr struct {
        std::string_view kind;
        const char* heading;
    } kHeadings[] = {
        {"encoding", "Not UTF-16LE with a byte-order mark, but"},
        {"line", "Lines that the driver does not understand"},
        {"missing", "Texts missing, which are shown in English"},
        {"unused", "Texts that the driver has no use for"},
        {"twice", "Given twice"},
        {"changed", "Other conversions or access keys than in English"},
        {"empty", "Empty texts"},
        {"long", "Too long"},
    };
    for (const auto& row : kHeadings) {
        if (row.kind == kind) {
            return row.heading;
        }
    }
    return std::string(kind);
}

std::string PlaceOf(const CutText& cut) {
    return cut.control == 0 ? "title" : ControlName(cut.control);
}

// How much room there is too little of.
std::string RoomText(const CutText& cut) {
    const auto pixels = [](int count, const char* what) {
        return count == 0 ? "" : std::to_string(count) + " pixels too " + what;
    };
    const std::string wide = pixels(cut.wider, "wide");
    const std::string high = pixels(cut.higher, "high");
    return wide + (wide.empty() || high.empty() ? "" : ", ") + high;
}

void PrintFaults(std::ostream& out, const std::vector<Fault>& faults) {
    TextTable table;
    const char* kind = "";
    for (const Fault& fault : faults) {
        if (kind != std::string_view(fault.kind)) {
            kind = fault.kind;
            table.Heading(HeadingOf(kind));
        }
        const std::string line = fault.line == 0 ? "" : "line " + std::to_string(fault.line);
        const std::string section = fault.key.first.empty() ? "" : "[" + fault.key.first + "]";
        const bool both = !fault.key.second.empty() && !fault.detail.empty();
        table.Row({line, section, fault.key.second + (both ? ": " : "") + fault.detail});
    }
    table.Print(out);
}

void PrintCut(std::ostream& out, const std::vector<CutOnPage>& texts) {
    TextTable table;
    if (!texts.empty()) {
        table.Heading("Texts that are cut");
    }
    for (const auto& [page, cut] : texts) {
        table.Row({page, PlaceOf(cut), RoomText(cut), ToUtf8(cut.text)});
    }
    table.Print(out);
}

Json ReportJson(const std::string& file, const std::vector<Fault>& faults,
                const std::vector<CutOnPage>& texts) {
    Json json = {{"file", file}, {"faults", Json::array()}, {"cut", Json::array()}};
    for (const Fault& fault : faults) {
        json["faults"].push_back({{"kind", fault.kind},
                                  {"line", fault.line == 0 ? Json() : Json(fault.line)},
                                  {"section", fault.key.first},
                                  {"text", fault.key.second},
                                  {"detail", fault.detail}});
    }
    for (const auto& [page, cut] : texts) {
        json["cut"].push_back({{"page", page},
                               {"control", PlaceOf(cut)},
                               {"text", ToUtf8(cut.text)},
                               {"wider", cut.wider},
                               {"higher", cut.higher}});
    }
    return json;
}

int CheckLanguageFile(const Options& options, std::ostream& out) {
    constexpr size_t kMostBytes = 1 << 20;
    const std::vector<BYTE> bytes = ReadFileBytes(options.file, kMostBytes + 1);
    if (bytes.size() > kMostBytes) {
        throw ToolError(options.file + ": too long for a language file");
    }
    const LanguageFile file({bytes.begin(), bytes.end()});
    const std::vector<Fault> faults = file.Check(EveryKey());
    const FileInUse inUse(file);
    const std::vector<CutOnPage> cut = CutTextsOfEveryPage();
    const bool clean = faults.empty() && cut.empty();
    if (options.json) {
        PrintJson(out, ReportJson(options.file, faults, cut));
    } else if (clean) {
        out << "Every text is there, and fits.\n";
    } else {
        PrintFaults(out, faults);
        PrintCut(out, cut);
    }
    return clean ? 0 : 1;
}

}  // namespace

Run DeclareLanguage(CLI::App& command) {
    const auto options = std::make_shared<Options>();
    AddJson(command, options->json);
    command.add_option("FILE", options->file, "The language file")->required();
    return [options](std::ostream& out, std::ostream&) { return CheckLanguageFile(*options, out); };
}

}  // namespace kpdtool
