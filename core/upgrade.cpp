// Bringing printer data stored by an earlier driver to the current format.
#include "core/driver_ui_contract.h"
#include "core/printer_data.h"

#include <algorithm>
#include <cstring>

namespace {

// What an earlier driver stored, as much of it as it said it had filled.
PrinterDataRecord UpgradedRecord(const PrinterDataRecord& old) {
    PrinterDataRecord record = {};
    std::memcpy(&record, &old, std::min<size_t>(old.RecordSize, sizeof(record)));
    record.RecordVersion = kPrinterDataVersion;
    record.RecordSize = sizeof(record);
    return record;
}

bool UpgradePrinterData(HANDLE printer) {
    PrinterDataRecord record;
    if (!ReadOrBuildPrinterData(printer, &record)) {
        return false;
    }
    if (record.RecordVersion < kPrinterDataVersion) {
        record = UpgradedRecord(record);
    }
    // Best effort: a value that cannot be written is rebuilt from its default when it is next read.
    WritePrinterNumber(printer, TEXT("FreeMem"), REG_DWORD, record.FreeMemory / 1024);
    WritePrinterNumber(printer, TEXT("PrinterHT"), REG_BINARY,
                       (record.DataFlags & kPrinterHalftone) != 0 ? 1 : 0);
    WritePrinterBlob(printer, &record, sizeof(record), kPrinterDataBlob);
    return true;
}

// ---- The tray-to-form table -------------------------------------------------------------------
// Old: entries of three zero-terminated strings, then one zero character. Current: a 16-bit size of
// the whole in bytes, then the entries, each with one more zero character, then one zero character.

constexpr size_t kStringsPerEntry = 3;

// The character behind the entry that begins at `at`, or null when the table ends within it. A
// table ends with its last character, which is no part of an entry.
const WCHAR* EndOfEntry(const WCHAR* at, const WCHAR* last) {
    for (size_t i = 0; i < kStringsPerEntry; ++i) {
        at = std::find(at, last, WCHAR{0});
        if (at == last) {
            return nullptr;
        }
        ++at;
    }
    return at;
}

// Counts the entries of an old table; false when it is malformed.
bool CountEntries(const WCHAR* table, size_t characters, size_t* count) {
    const WCHAR* last = table + characters - 1;
    const WCHAR* at = table;
    *count = 0;
    while (at < last && *at != 0) {
        at = EndOfEntry(at, last);
        if (at == nullptr) {
            return false;
        }
        ++*count;
    }
    return at == last && *last == 0;
}

void BuildCurrentTable(const WCHAR* old, size_t entries, WORD size, WCHAR* out) {
    *out++ = size;
    while (entries-- > 0) {
        for (size_t i = 0; i < kStringsPerEntry; ++i) {
            do {
                *out++ = *old;
            } while (*old++ != 0);
        }
        *out++ = 0;
    }
    *out = 0;
}

bool UpgradeTrayFormTable(HANDLE printer) {
    DWORD size = 0;
    const auto stored = ReadPrinterBlob(printer, &size, kTrayFormBlob);
    if (!stored) {
        return true;
    }
    if (size < sizeof(WCHAR)) {
        return false;
    }
    const auto* table = reinterpret_cast<const WCHAR*>(stored.get());
    if (*table == size) {
        return true;
    }
    size_t entries = 0;
    if (size % sizeof(WCHAR) != 0 || !CountEntries(table, size / sizeof(WCHAR), &entries)) {
        return false;
    }
    const size_t newSize = size + sizeof(WORD) + entries * sizeof(WCHAR);
    if (newSize > 0xFFFF) {
        return false;  // more than the table's own size can say
    }
    const auto built = GlobalBlock<WCHAR>::Allocate(newSize);
    if (!built) {
        return false;
    }
    BuildCurrentTable(table, entries, static_cast<WORD>(newSize), built.get());
    WritePrinterBlob(printer, built.get(), static_cast<DWORD>(newSize), kTrayFormBlob);
    return true;
}

}  // namespace

BOOL WINAPI DrvUpgradePrinter(DWORD level, LPBYTE upgradeInfo) {
    const auto* info = reinterpret_cast<const DRIVER_UPGRADE_INFO_1W*>(upgradeInfo);
    if (level != 1 || info == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const OpenedPrinter printer(info->pPrinterName, PRINTER_ALL_ACCESS);
    if (!printer) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return UpgradePrinterData(printer.get()) && UpgradeTrayFormTable(printer.get());
}
