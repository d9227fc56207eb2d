// Printer information, sized printer-data values and the printer-data record.
#include "core/printer_data.h"

#include <algorithm>
#include <cstring>

namespace {

// Information of the spooler's, asked for its size and then itself by `ask` (buffer, size, needed).
// None unless asking without a buffer fails for want of one, as the contract has it.
template <typename Info, typename Ask>
GlobalBlock<Info> AskTwice(Ask ask) {
    DWORD size = 0;
    if (ask(nullptr, 0, &size) || GetLastError() != ERROR_INSUFFICIENT_BUFFER) {
        return {};
    }
    auto info = GlobalBlock<Info>::Allocate(size);
    if (!info || !ask(reinterpret_cast<BYTE*>(info.get()), size, &size)) {
        return {};
    }
    return info;
}

}  // namespace

GlobalBlock<PRINTER_INFO_2W> GetPrinterInfo2(HANDLE printer) {
    return AskTwice<PRINTER_INFO_2W>([=](BYTE* buffer, DWORD size, DWORD* needed) {
        return GetPrinterW(printer, 2, buffer, size, needed);
    });
}

GlobalBlock<DRIVER_INFO_2W> GetDriverInfo2(HANDLE printer) {
    return AskTwice<DRIVER_INFO_2W>([=](BYTE* buffer, DWORD size, DWORD* needed) {
        return GetPrinterDriverW(printer, nullptr, 2, buffer, size, needed);
    });
}

namespace {

struct PrinterBlobName {
    const WCHAR* SizeValue;
    const WCHAR* DataValue;
};

// Indexed by PrinterBlobIndex.
constexpr PrinterBlobName PrinterBlobNames[] = {
    {TEXT("TTFontSubTableSize"), TEXT("TTFontSubTable")},
    {TEXT("TrayFormSize"), TEXT("TrayFormTable")},
    {TEXT("PrinterDataSize"), TEXT("PrinterData")},
};

// The spooler's functions take their names writable but only read them.
WCHAR* Writable(const WCHAR* name) {
    return const_cast<WCHAR*>(name);
}

// Reads a number of at most 32 bits; the bytes that a shorter one lacks count as zero.
bool ReadPrinterNumber(HANDLE printer, const WCHAR* name, DWORD* number) {
    DWORD value = 0;
    DWORD stored = 0;
    if (GetPrinterDataW(printer, Writable(name), nullptr, reinterpret_cast<BYTE*>(&value),
                        sizeof(value), &stored) != ERROR_SUCCESS) {
        return false;
    }
    *number = value;
    return true;
}

}  // namespace

GlobalBlock<BYTE> ReadPrinterBlob(HANDLE printer, DWORD* size, PrinterBlobIndex index) {
    const PrinterBlobName& names = PrinterBlobNames[index];
    DWORD claimed = 0;
    if (!ReadPrinterNumber(printer, names.SizeValue, &claimed) || claimed == 0) {
        return {};
    }
    // Zeroed, so that a claim of more than is stored brings nothing that was left in memory.
    auto data = GlobalBlock<BYTE>::Allocate(claimed, GPTR);
    DWORD stored = 0;
    if (!data || GetPrinterDataW(printer, Writable(names.DataValue), nullptr, data.get(), claimed,
                                 &stored) != ERROR_SUCCESS) {
        return {};
    }
    if (size != nullptr) {
        *size = claimed;
    }
    return data;
}

bool WritePrinterNumber(HANDLE printer, const WCHAR* name, DWORD type, DWORD number) {
    return SetPrinterDataW(printer, Writable(name), type, reinterpret_cast<BYTE*>(&number),
                           sizeof(number)) == ERROR_SUCCESS;
}

bool WritePrinterBlob(HANDLE printer, const void* data, DWORD size, PrinterBlobIndex index) {
    const PrinterBlobName& names = PrinterBlobNames[index];
    return WritePrinterNumber(printer, names.SizeValue, REG_DWORD, size) &&
           SetPrinterDataW(printer, Writable(names.DataValue), REG_BINARY,
                           static_cast<BYTE*>(const_cast<void*>(data)), size) == ERROR_SUCCESS;
}

namespace {

GlobalBlock<PrinterDataRecord> NewPrinterData() {
    return GlobalBlock<PrinterDataRecord>::Allocate(sizeof(PrinterDataRecord), GPTR);
}

}  // namespace

bool ReadPrinterData(HANDLE printer, PrinterDataRecord* record) {
    DWORD size = 0;
    const GlobalBlock<BYTE> stored = ReadPrinterBlob(printer, &size, kPrinterDataBlob);
    if (!stored) {
        return false;
    }
    *record = {};
    std::memcpy(record, stored.get(), std::min<size_t>(size, sizeof(*record)));
    return true;
}

bool ReadOrBuildPrinterData(HANDLE printer, PrinterDataRecord* record) {
    // Asked twice: the default would be stored over a record that could not be read just now.
    if (ReadPrinterData(printer, record) || ReadPrinterData(printer, record)) {
        return true;
    }
    const auto built = BuildDefaultPrinterData(printer);
    if (built) {
        *record = *built;
    }
    return static_cast<bool>(built);
}

bool CanHavePrinterData(HANDLE printer) {
    return NewPrinterData() || ReadPrinterBlob(printer, nullptr, kPrinterDataBlob);
}

GlobalBlock<PrinterDataRecord> BuildDefaultPrinterData(HANDLE printer) {
    auto record = NewPrinterData();
    if (!record) {
        return {};
    }
    record->RecordVersion = kPrinterDataVersion;
    record->RecordSize = sizeof(PrinterDataRecord);
    record->FreeMemory = kSmallestFreeMemory;
    record->Value16 = 240;

    // "FreeMem" counts 1024 bytes; the largest number that still fits the field in bytes holds.
    constexpr DWORD kMaxFreeMem = 0xFFFFFFFFu / 1024;
    DWORD number = 0;
    if (ReadPrinterNumber(printer, TEXT("FreeMem"), &number)) {
        record->FreeMemory =
            std::max<DWORD>(std::min(number, kMaxFreeMem) * 1024, kSmallestFreeMemory);
    }
    if (ReadPrinterNumber(printer, TEXT("PrinterHT"), &number) && number != 0) {
        record->DataFlags |= kPrinterHalftone;
    }
    if (IsMetricLocale()) {
        record->DataFlags |= kMetricLocale;
    }
    if (GetACP() != 1252) {
        record->DataFlags |= kNotCodePage1252;
    }
    return record;
}

int IsMetricLocale() {
    // The platform's longest country code is five digits and the terminator.
    WCHAR text[6] = {};
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, text, 6) == 0) {
        return 0;
    }
    int code = 0;
    for (const WCHAR* digit = text; *digit >= '0' && *digit <= '9'; ++digit) {
        code = code * 10 + (*digit - '0');
    }
    const bool imperial =
        code == 1 || code == 2 || (code >= 50 && code <= 59) || (code >= 500 && code <= 599);
    return imperial ? 0 : 1;
}
