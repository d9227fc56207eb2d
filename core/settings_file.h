// Settings files: chosen parts of a record's settings as a file, which carries them to another
// computer. docs/settings-file.md shows the layout to people. All numbers are little-endian and
// nothing is padded.
#pragma once

#include "core/record_field.h"

#include <span>

/// The bits of a selection of parts.
enum SettingsParts : DWORD { kDeviceOptionSettings = 1, kColorSettings = 2 };

enum class SettingsStatus {
    kDone,  ///< also for a file that ends early
    kNoHeader,
    kNoKeyword,
    kBadRecord,  ///< one that says it is shorter than its type needs
};

// ---- The layout -------------------------------------------------------------------------------

constexpr WORD kSettingsHeader = 0x00AA;
inline constexpr char kSettingsKeyword[] = "Mirv LIRA 700/700i";
constexpr size_t kSettingsKeywordLength = sizeof(kSettingsKeyword) - 1;
/// The end mark has the place of a type, and no length.
constexpr WORD kSettingsEnd = 0xFFAA;
/// Both parts.
constexpr size_t kLargestSettingsFile = 95;

struct SettingsField {
    WORD Offset;  ///< in the body
    RecordField Field;
};

struct SettingsRecord {
    SettingsParts Part;
    const char* Name;
    WORD Type;
    WORD NeededLength;  ///< of the body; a reader takes fields behind it when they are there
    std::span<const SettingsField> Fields;  ///< in their order, without gaps

    constexpr WORD Length() const {
        return static_cast<WORD>(Fields.back().Offset + Fields.back().Field.Width);
    }
};
/// In the order of a file.
extern const std::span<const SettingsRecord> kSettingsRecords;

// ---- Writing and reading ----------------------------------------------------------------------

/// Writes the parts and gives the bytes used.
size_t WriteSettings(const DevModeRecord& record, DWORD parts, BYTE (&file)[kLargestSettingsFile]);

/// Finds out which parts a file offers, also a part that is cut short.
SettingsStatus ScanSettings(std::span<const BYTE> file, DWORD* parts);

/// Told after each record of the file that was applied.
using SettingsApplied = void (*)(SettingsParts part, void* parameter);

/// Puts the chosen parts of a file into the record, each of the file's records as a whole or, when
/// it is cut short, not at all; values are taken as they are. What was applied before a record that
/// is bad stays.
SettingsStatus ApplySettings(std::span<const BYTE> file, DWORD parts, DevModeRecord& record,
                             SettingsApplied applied, void* parameter);
