// kpdtool settings: settings files, and docs/settings-file.md.
#include "core/settings_file.h"

#include "arguments.h"
#include "commands.h"
#include "core/merge.h"
#include "core/page_table.h"
#include "printer_context.h"
#include "temporary_printer.h"
#include "text_table.h"
#include "tool_error.h"
#include "tools/kpdtool/records/differences.h"
#include "tools/kpdtool/records/record_report.h"
#include "ui/pages/device_options/device_options_page.h"
#include "ui/pages/import_export/settings_transfer.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <memory>
#include <optional>
#include <sstream>

namespace kpdtool {
namespace {

const Field& FieldOf(const SettingsField& carried) {
    return *std::ranges::find(RecordFields(), carried.Field.Offset, &Field::offset);
}

// ---- layout -----------------------------------------------------------------------------------

constexpr char kIntroduction[] =
    R"(# Settings files

A settings file (`.mcs`) carries the Device Option and the Color settings of one printer to another
computer. The Import/Export page writes the parts that the user chooses and reads them back into the
record of the sheet. Numbers are little-endian, nothing is padded. Names are those of the
[device mode record](record.md).

| Offset | Size | Content |
|---|---|---|
)";

constexpr char kRules[] =
    R"(
The count is 2 whichever records follow. A reader takes as many records as the count says, or until
the end mark or the end of the file; records of other types are skipped by their length. A record
that is shorter than it needs to be makes the file bad. One that the file ends within is not applied.
A longer one is applied as far as its fields are known, a shorter one as far as it goes, and values
are taken as they are: showing the page corrects what it corrects.

This file is written by `kpdtool settings layout`, from the table that the driver reads and writes
settings files with.
)";

std::string Hex(WORD value) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setw(4) << std::setfill('0') << value;
    return text.str();
}

void PrintRecordLayout(std::ostream& out, const SettingsRecord& record) {
    out << "\n## " << record.Name << " record\n\nType " << Hex(record.Type) << ", length "
        << record.Length() << ", needed " << record.NeededLength
        << ".\n\n| In body | Width | Name | Meaning |\n|---|---|---|---|\n";
    for (const SettingsField& carried : record.Fields) {
        const Field& field = FieldOf(carried);
        const std::string values = field.ValuesText();
        const std::string meaning = field.meaning;
        out << "| " << carried.Offset << " | " << field.WidthText() << " | `" << field.name
            << "` | " << values << (values.empty() || meaning.empty() ? "" : "; ") << meaning
            << " |\n";
    }
}

int PrintLayout(std::ostream& out) {
    const size_t countAt = sizeof(kSettingsHeader) + kSettingsKeywordLength;
    out << kIntroduction << "| 0 | " << sizeof(kSettingsHeader) << " | header mark "
        << Hex(kSettingsHeader) << " |\n| " << sizeof(kSettingsHeader) << " | "
        << kSettingsKeywordLength << " | `" << kSettingsKeyword << "`, not terminated |\n| "
        << countAt << " | 2 | count of records |\n| " << countAt + 2
        << " | | records: a type of 2 bytes, a length of 2 bytes, a body of that length |\n"
        << "| end | " << sizeof(kSettingsEnd) << " | end mark " << Hex(kSettingsEnd) << " |\n"
        << kRules;
    for (const SettingsRecord& record : kSettingsRecords) {
        PrintRecordLayout(out, record);
    }
    return 0;
}

// ---- Settings files ---------------------------------------------------------------------------

constexpr size_t kMostBytes = 16 << 20;  // far beyond any use

void Ignore(SettingsParts, void*) {}

/// What a settings file says, part by part.
class StoredSettings {
  public:
    explicit StoredSettings(std::vector<BYTE> bytes) : bytes_(std::move(bytes)) {
        status_ = ScanSettings(bytes_, &offered_);
    }

    bool IsOne() const {
        return status_ != SettingsStatus::kNoHeader && status_ != SettingsStatus::kNoKeyword;
    }
    void Require(const std::string& file) const {
        if (!IsOne()) {
            throw ToolError(file + ": is no settings file");
        }
        if (status_ == SettingsStatus::kBadRecord) {
            throw ToolError(file + ": a record is shorter than its type needs");
        }
    }
    std::span<const BYTE> All() const { return bytes_; }
    /// In the file, if only the beginning.
    bool Offers(const SettingsRecord& part) const { return (offered_ & part.Part) != 0; }
    /// In the file as a whole.
    bool Holds(const SettingsRecord& part) const {
        return Find(part, part.Fields.front()).has_value();
    }
    /// None for a field that the part lacks.
    std::optional<std::vector<BYTE>> Find(const SettingsRecord& part,
                                          const SettingsField& field) const {
        const std::vector<BYTE> over0 = Over(0, part, field);
        return over0 == Over(0xFF, part, field) ? std::optional(over0) : std::nullopt;
    }

  private:
    // What applying the file leaves of the field where all bytes were the same.
    std::vector<BYTE> Over(int before, const SettingsRecord& part,
                           const SettingsField& field) const {
        DevModeRecord record;
        std::memset(&record, before, sizeof(record));
        ApplySettings(bytes_, part.Part, record, Ignore, nullptr);
        const auto* place = reinterpret_cast<const BYTE*>(&record) + field.Field.Offset;
        return {place, place + field.Field.Width};
    }

    std::vector<BYTE> bytes_;
    SettingsStatus status_;
    DWORD offered_;
};

StoredSettings ReadSettings(const std::string& file) {
    StoredSettings settings(ReadFileBytes(file, kMostBytes));
    settings.Require(file);
    return settings;
}

// ---- show -------------------------------------------------------------------------------------

struct ShowOptions {
    std::string file;
    bool json = false;
};

std::string MeaningOf(const Field& field, Bytes bytes) {
    const std::string problem = ProblemOf(field, bytes);
    const std::string names = NamesOf(field, bytes);
    return !problem.empty() ? problem : !names.empty() ? names : field.meaning;
}

Json PartJson(const StoredSettings& settings, const SettingsRecord& part) {
    Json fields = Json::array();
    for (const SettingsField& carried : part.Fields) {
        const Field& field = FieldOf(carried);
        Json row = {{"name", field.name}, {"value", nullptr}};
        if (const auto bytes = settings.Find(part, carried)) {
            row["value"] = ValueJson(field, *bytes);
            row["meaning"] = MeaningOf(field, *bytes);
        }
        fields.push_back(std::move(row));
    }
    return {{"part", part.Name}, {"whole", settings.Holds(part)}, {"fields", std::move(fields)}};
}

void AddPart(TextTable& table, const StoredSettings& settings, const SettingsRecord& part) {
    table.Heading(part.Name + std::string(settings.Holds(part) ? "" : ": cut short"));
    for (const SettingsField& carried : part.Fields) {
        const Field& field = FieldOf(carried);
        const auto bytes = settings.Find(part, carried);
        table.Row({field.name, bytes ? ValueText(field, *bytes) : "absent",
                   bytes ? MeaningOf(field, *bytes) : ""});
    }
}

int Show(const ShowOptions& options, std::ostream& out) {
    const StoredSettings settings = ReadSettings(options.file);
    TextTable table;
    Json parts = Json::array();
    for (const SettingsRecord& part : kSettingsRecords) {
        if (settings.Offers(part)) {
            AddPart(table, settings, part);
            parts.push_back(PartJson(settings, part));
        }
    }
    if (options.json) {
        PrintJson(out, {{"file", options.file}, {"parts", parts}});
    } else if (parts.empty()) {
        out << "The file holds no settings.\n";
    } else {
        table.Print(out);
    }
    return 0;
}

// ---- diff -------------------------------------------------------------------------------------

struct DiffOptions {
    std::string first;
    std::string second;
    bool json = false;
};

/// A settings file or a record, for what can be in the former.
class Side {
  public:
    explicit Side(const std::string& file) {
        StoredSettings settings(ReadFileBytes(file, kMostBytes));
        if (settings.IsOne()) {
            settings.Require(file);
            settings_.emplace(std::move(settings));
        } else {
            record_.emplace(ReadRecordFile(file));
        }
    }
    bool IsRecord() const { return record_.has_value(); }
    std::optional<std::vector<BYTE>> Find(const SettingsRecord& part,
                                          const SettingsField& field) const {
        if (!record_) {
            return settings_->Find(part, field);
        }
        const auto bytes = record_->Find(FieldOf(field));
        return bytes ? std::optional(std::vector<BYTE>(bytes->begin(), bytes->end()))
                     : std::nullopt;
    }

  private:
    std::optional<StoredSettings> settings_;
    std::optional<StoredRecord> record_;
};

// A record has fields for parts that the file beside it lacks; those do not differ.
bool Differ(const std::optional<std::vector<BYTE>>& a, const std::optional<std::vector<BYTE>>& b,
            bool besideRecord) {
    return a != b && !(besideRecord && (!a || !b));
}

int Compare(const DiffOptions& options, std::ostream& out) {
    const Side first(options.first);
    const Side second(options.second);
    const bool besideRecord = first.IsRecord() || second.IsRecord();
    TextTable table;
    Json rows = Json::array();
    for (const SettingsRecord& part : kSettingsRecords) {
        for (const SettingsField& carried : part.Fields) {
            const Field& field = FieldOf(carried);
            const auto a = first.Find(part, carried);
            const auto b = second.Find(part, carried);
            if (!Differ(a, b, besideRecord)) {
                continue;
            }
            table.Row({part.Name, field.name, a ? NamedValue(field, *a) : "absent",
                       b ? NamedValue(field, *b) : "absent"});
            rows.push_back({{"part", part.Name},
                            {"name", field.name},
                            {"first", a ? ValueJson(field, *a) : Json()},
                            {"second", b ? ValueJson(field, *b) : Json()}});
        }
    }
    const bool same = rows.empty();
    if (options.json) {
        PrintJson(out, {{"first", options.first},
                        {"second", options.second},
                        {"same", same},
                        {"fields", std::move(rows)}});
    } else if (same) {
        out << "The settings are the same.\n";
    } else {
        table.Print(out);
    }
    return same ? 0 : 1;
}

// ---- export and import ------------------------------------------------------------------------

struct TransferOptions {
    PrinterArguments printer;
    std::string language = "en";
    std::string file;  ///< to import
    std::string in;
    std::vector<std::string> parts;  ///< none: all that there are
    std::string out;
    bool json = false;
};

constexpr struct {
    const char* Name;
    SettingsParts Part;
} kPartNames[] = {{"device", kDeviceOptionSettings}, {"color", kColorSettings}};

DWORD AskedParts(const TransferOptions& options) {
    DWORD parts = 0;
    for (const auto& row : kPartNames) {
        const bool asked = std::ranges::find(options.parts, row.Name) != options.parts.end();
        parts |= asked ? DWORD{row.Part} : 0;
    }
    return parts;
}

DWORD PartsToImport(const TransferOptions& options, const StoredSettings& settings) {
    const DWORD asked = AskedParts(options);
    DWORD held = 0;
    for (const SettingsRecord& part : kSettingsRecords) {
        held |= settings.Holds(part) ? DWORD{part.Part} : 0;
        if ((asked & part.Part & ~held) != 0) {
            throw ToolError(options.file + ": the " + part.Name + " part is " +
                            (settings.Offers(part) ? "cut short" : "not in it"));
        }
    }
    if (held == 0) {
        throw ToolError(options.file + ": holds no settings");
    }
    return asked != 0 ? asked : held;
}

/// What happens to the record of an application between opening the sheet and accepting it.
class Session {
  public:
    explicit Session(const TransferOptions& options)
        : language_(options.language), printer_(options.printer.name, options.printer.model) {
        if (!options.in.empty()) {
            record_ = WorkingBuffer(ReadRecordFile(options.in));
        }
        context_ = MakeContext(options.printer, printer_.get(), options.in, record_);
        if (record_.empty()) {
            record_ = WorkingBuffer(WorkingRecord(options.printer, *context_));
        }
        FillPage(kDeviceOptionsPage, *context_);
    }
    DriverContext& Context() { return *context_; }
    bool HasPage() const { return PageTable[kImportExportSlot].IsAdded(*context_); }
    StoredRecord Before() { return Trimmed(record_); }
    StoredRecord Accepted() {
        std::vector<BYTE> output(kLargestRecord);
        if (CopyDevModeOut(&context_->WorkingDevMode, RecordIn(record_), RecordIn(output)) == 0) {
            throw ToolError("the record's layout has no room for settings");
        }
        return Trimmed(output);
    }

  private:
    static StoredRecord Trimmed(const std::vector<BYTE>& buffer) {
        const Bytes all(buffer);
        const StoredRecord whole("the record", buffer);
        const Bytes bytes = all.first(whole.Size());
        return StoredRecord("the record", {bytes.begin(), bytes.end()});
    }

    UiLanguage language_;
    TemporaryPrinter printer_;
    std::vector<BYTE> record_;
    OwnedContext context_;
};

void NotePage(std::ostream& notes, const TransferOptions& options, const Session& session) {
    if (!session.HasPage()) {
        notes << "kpdtool: note: users of " << options.printer.model
              << " have no Import/Export page\n";
    }
}

int Export(const TransferOptions& options, std::ostream& out, std::ostream& notes) {
    Session session(options);
    NotePage(notes, options, session);
    const DWORD asked = AskedParts(options);
    BYTE file[kLargestSettingsFile];
    const size_t size =
        WriteSettings(session.Context().WorkingDevMode,
                      asked != 0 ? asked : DWORD{kDeviceOptionSettings | kColorSettings}, file);
    WriteRecordFile(options.out, {file, size});
    return Show({options.out, options.json}, out);
}

int Import(const TransferOptions& options, std::ostream& out, std::ostream& notes) {
    const StoredSettings settings = ReadSettings(options.file);
    const DWORD parts = PartsToImport(options, settings);
    Session session(options);
    NotePage(notes, options, session);
    TakeSettings(settings.All(), parts, session.Context());
    const StoredRecord after = session.Accepted();
    const Differences changes(session.Before(), after);
    WriteRecordFile(options.out, after.All());
    if (options.json) {
        PrintJson(out, {{"model", options.printer.model}, {"fields", changes.Rows()}});
    } else if (changes.Rows().empty()) {
        out << "The record is the same.\n";
    } else {
        changes.Table().Print(out);
    }
    return 0;
}

// ---- Arguments --------------------------------------------------------------------------------

// A command below this one, and what it does.
template <typename Options>
struct Declared {
    CLI::App* command;
    std::shared_ptr<Options> options = std::make_shared<Options>();
};

template <typename Options>
Declared<Options> AddCommand(CLI::App& settings, const char* name, const char* description,
                             const std::string& example) {
    Declared<Options> declared = {settings.add_subcommand(name, description)};
    declared.command->footer("Example:\n  kpdtool settings " + example);
    AddJson(*declared.command, declared.options->json);
    return declared;
}

void AddTransfer(CLI::App& command, TransferOptions& options, const char* outDescription) {
    AddModelAndPrinter(command, options.printer);
    command.add_option("--in", options.in,
                       "The record that the application has (default: the printer's)");
    command.add_option("--parts", options.parts, "device, color, or both with a comma")
        ->delimiter(',')
        ->check(CLI::IsMember({"device", "color"}));
    command.add_option("--out", options.out, outDescription)->required();
    command.add_option("--language", options.language, "The user's UI language: " + LanguageTags())
        ->capture_default_str();
}

}  // namespace

Run DeclareSettings(CLI::App& command) {
    command.require_subcommand(1);
    const auto show =
        AddCommand<ShowOptions>(command, "show", "Decode a settings file", "show Export.mcs");
    show.command->add_option("FILE", show.options->file, "The settings file")->required();

    const auto exports = AddCommand<TransferOptions>(
        command, "export", "Write the file that the page of a sheet just opened would write",
        "export \"Mirv KP-41\" --in card.dm --out Export.mcs");
    AddTransfer(*exports.command, *exports.options, "The settings file");

    const auto imports = AddCommand<TransferOptions>(
        command, "import", "Give the record that the page's import and OK would give",
        "import Export.mcs \"Mirv KP-511\" --parts device --out card.dm");
    imports.command->add_option("FILE", imports.options->file, "The settings file")->required();
    AddTransfer(*imports.command, *imports.options, "Write the resulting record to this file");

    const auto diff = AddCommand<DiffOptions>(command, "diff", "Name the settings that differ",
                                              "diff Export.mcs card.dm");
    diff.command->add_option("FIRST", diff.options->first, "A settings file, or a record")
        ->required();
    diff.command->add_option("SECOND", diff.options->second, "Another")->required();

    CLI::App* layout =
        command.add_subcommand("layout", "Print the layout as docs/settings-file.md has it");
    layout->footer("Example:\n  kpdtool settings layout > docs/settings-file.md");
    return [=](std::ostream& out, std::ostream& notes) {
        for (const auto* transfer : {&exports, &imports}) {
            if (transfer->command->parsed()) {
                NoteModel(notes, transfer->options->printer);
            }
        }
        return show.command->parsed()      ? Show(*show.options, out)
               : exports.command->parsed() ? Export(*exports.options, out, notes)
               : imports.command->parsed() ? Import(*imports.options, out, notes)
               : diff.command->parsed()    ? Compare(*diff.options, out)
               : layout->parsed()          ? PrintLayout(out)
                                           : 2;
    };
}

}  // namespace kpdtool
