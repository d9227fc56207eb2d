// kpdtool layout: docs/record.md.
#include "arguments.h"
#include "commands.h"
#include "temporary_printer.h"
#include "tools/kpdtool/records/record_report.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace kpdtool {
namespace {

constexpr char kIntroduction[] =
    R"(# The device mode record

All settings of a print job travel in one record of 584 bytes: the platform's public part of 220
bytes and this driver's private part of 364 bytes behind it. The spooler stores it, applications
pass it around and the rendering half of the driver reads it, so its layout is a persisted format.

A record is this driver's own when `dmSpecVersion` is 0x0401, `dmDriverVersion` 0x0500, `dmSize` 220
and `dmDriverExtra` 364. In a record with a public part of another size the private part begins at
that record's `dmSize`. Numbers are little-endian, bits count from bit 0, and no padding is
inserted. The defaults are those of an English user and a model without exceptions; after a merge
`dmLogPixels` is 300 and `dmBitsPerPel` 24. A Chinese, Japanese or Korean user has `Reserved100` 1,
a Simplified Chinese one `SkinTone` 2. "Mirv KP-511" has `PrintingMode` 0; "Mirv KP-430e" has
`RibbonType` 1, `CardType` 5, `ColorSides` 0 and `ResinOptions` 4. Each energy table holds, for card
thickness t (0 to 3), the front's value at t and the back's at t + 4.

This file is written by `kpdtool layout`, from the table that the tool reads records with.
)";

StoredRecord DefaultRecord() {
    const UiLanguage english("en");
    std::vector<BYTE> bytes(sizeof(DevModeRecord));
    BuildDefaultDevMode(reinterpret_cast<DevModeRecord*>(bytes.data()), nullptr, nullptr);
    return StoredRecord("the default record", std::move(bytes));
}

std::string Meaning(const Field& field) {
    const std::string values = field.ValuesText();
    const std::string meaning = field.meaning;
    return meaning.empty() || values.empty() ? values + meaning : values + "; " + meaning;
}

void PrintPart(std::ostream& out, const StoredRecord& defaults, bool privatePart) {
    out << (privatePart ? "\n## Private part\n\n"
                          "| In private part | In record | Width | Name | Default | Meaning |\n"
                          "|---|---|---|---|---|---|\n"
                        : "\n## Public part\n\n"
                          "| In record | Width | Name | Default | Meaning |\n"
                          "|---|---|---|---|---|\n");
    for (const Field& field : RecordFields()) {
        if (field.IsPrivate() != privatePart) {
            continue;
        }
        if (privatePart) {
            out << "| " << field.offset - kPublicSize << ' ';
        }
        out << "| " << field.offset << " | " << field.WidthText() << " | `" << field.name << "` | "
            << ValueText(field, *defaults.Find(field)) << " | " << Meaning(field) << " |\n";
    }
}

Json FieldJson(const Field& field, const StoredRecord& defaults) {
    Json json = {{"name", field.name}, {"offset", field.offset}};
    if (field.IsPrivate()) {
        json["privateOffset"] = field.offset - kPublicSize;
    }
    json["bytes"] = field.width;
    json["width"] = field.WidthText();
    json["default"] = ValueJson(field, *defaults.Find(field));
    json["meaning"] = Meaning(field);
    return json;
}

int PrintLayout(bool json, std::ostream& out) {
    const StoredRecord defaults = DefaultRecord();
    if (json) {
        Json fields = Json::array();
        for (const Field& field : RecordFields()) {
            fields.push_back(FieldJson(field, defaults));
        }
        PrintJson(out, {{"fields", std::move(fields)}});
        return 0;
    }
    out << kIntroduction;
    PrintPart(out, defaults, false);
    PrintPart(out, defaults, true);
    return 0;
}

}  // namespace

Run DeclareLayout(CLI::App& command) {
    const auto json = std::make_shared<bool>(false);
    AddJson(command, *json);
    return [json](std::ostream& out, std::ostream&) { return PrintLayout(*json, out); };
}

}  // namespace kpdtool
