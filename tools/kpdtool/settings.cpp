// kpdtool settings: settings files, and docs/settings-file.md.
#include "core/settings_file.h"

#include "arguments.h"
#include "commands.h"
#include "temporary_printer.h"
#include "text_table.h"
#include "tool_error.h"
#include "tools/kpdtool/records/differences.h"
#include "tools/kpdtool/records/record_report.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iomanip>
#include <memory>
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

}  // namespace

Run DeclareSettings(CLI::App& command) {
    command.require_subcommand(1);
    command.add_subcommand("layout", "Print the layout as docs/settings-file.md has it");
    return [](std::ostream& out, std::ostream&) { return PrintLayout(out); };
}

}  // namespace kpdtool
