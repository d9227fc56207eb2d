// Settings files of any content: nothing behind the file is read, only fields that files carry
// change, what is applied is what was offered, and a record written afterwards reads back.
#include "core/settings_file.h"
#include "fuzz_support.h"

namespace {

struct Applied {
    DWORD parts = 0;
    DWORD records = 0;
};

void Note(SettingsParts part, void* applied) {
    static_cast<Applied*>(applied)->parts |= part;
    ++static_cast<Applied*>(applied)->records;
}

DevModeRecord Default() {
    DevModeRecord record;
    BuildDefaultDevMode(&record, TEXT("Printer"), TEXT("Mirv KP-41"));
    return record;
}

// The record with every field that the parts carry as the other record has it.
DevModeRecord WithParts(DevModeRecord record, DWORD parts, const DevModeRecord& other) {
    for (const SettingsRecord& row : kSettingsRecords) {
        for (const SettingsField& field : row.Fields) {
            if ((parts & row.Part) != 0) {
                std::memcpy(reinterpret_cast<BYTE*>(&record) + field.Field.Offset,
                            reinterpret_cast<const BYTE*>(&other) + field.Field.Offset,
                            field.Field.Width);
            }
        }
    }
    return record;
}

bool Same(const DevModeRecord& a, const DevModeRecord& b) {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const test::GuardedBuffer guarded(size, {reinterpret_cast<const char*>(data), size});
    const std::span<const BYTE> file(guarded.data(), size);
    DWORD offered;
    const SettingsStatus scanned = ScanSettings(file, &offered);
    for (DWORD chosen = 0; chosen <= (kDeviceOptionSettings | kColorSettings); ++chosen) {
        DevModeRecord record = Default();
        Applied applied;
        Require(ApplySettings(file, chosen, record, Note, &applied) == scanned, "status");
        Require((applied.parts & ~(offered & chosen)) == 0, "offered and chosen");
        Require(Same(record, WithParts(Default(), applied.parts, record)), "carried fields");
        Require(applied.records != 0 || Same(record, Default()),
                "nothing applied, nothing changed");

        BYTE written[kLargestSettingsFile];
        const size_t length = WriteSettings(record, chosen, written);
        DWORD parts;
        Require(ScanSettings({written, length}, &parts) == SettingsStatus::kDone && parts == chosen,
                "scans what was written");
        DevModeRecord again = Default();
        Require(ApplySettings({written, length}, chosen, again, Note, &applied) ==
                    SettingsStatus::kDone,
                "reads what was written");
        Require(Same(again, WithParts(Default(), chosen, record)), "reads back the same");
    }
    return 0;
}
