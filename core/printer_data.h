// What the spooler knows about a printer, and the driver's own values in the printer's data store.
// Every operation that cannot get its information or its memory gives none and keeps nothing.
#pragma once

#include "core/owners.h"

#include <cstddef>

// ---- The printer-data record ------------------------------------------------------------------

enum DataFlagBits : DWORD {
    kMetricLocale = 0x1,
    kPrinterHalftone = 0x2,  ///< the printer-data value "PrinterHT" is nonzero
    kNotCodePage1252 = 0x4,
};

constexpr WORD kPrinterDataVersion = 0x0500;
constexpr DWORD kSmallestFreeMemory = 102400;  ///< bytes

/// Stored as the binary printer-data value "PrinterData"; a persisted format, little-endian.
struct PrinterDataRecord {
    WORD RecordVersion;       //   0
    WORD RecordSize;          //   2
    DWORD DataFlags;          //   4  DataFlagBits
    DWORD FreeMemory;         //   8  bytes
    DWORD Value12;            //  12
    DWORD Value16;            //  16
    BYTE RecordReserved[84];  //  20
};
static_assert(sizeof(PrinterDataRecord) == 104);
static_assert(offsetof(PrinterDataRecord, RecordSize) == 2);
static_assert(offsetof(PrinterDataRecord, DataFlags) == 4);
static_assert(offsetof(PrinterDataRecord, FreeMemory) == 8);
static_assert(offsetof(PrinterDataRecord, Value12) == 12);
static_assert(offsetof(PrinterDataRecord, Value16) == 16);
static_assert(offsetof(PrinterDataRecord, RecordReserved) == 20);

/// Builds the record from the printer's values "FreeMem" and "PrinterHT", the user's locale and the
/// system's code page.
GlobalBlock<PrinterDataRecord> BuildDefaultPrinterData(HANDLE printer);

/// Reads the stored record into `record`: as many bytes as are stored, the rest zero. False when
/// there is none.
bool ReadPrinterData(HANDLE printer, PrinterDataRecord* record);

/// The stored record, or else the default one; false when neither can be had.
bool ReadOrBuildPrinterData(HANDLE printer, PrinterDataRecord* record);

/// Whether that would give one, without asking the spooler while there is memory for a default.
bool CanHavePrinterData(HANDLE printer);

// ---- Sized values -----------------------------------------------------------------------------
// Each is a pair of printer-data values: its size (REG_DWORD) and its bytes (REG_BINARY).

enum PrinterBlobIndex { kFontSubstitutionBlob, kTrayFormBlob, kPrinterDataBlob };

/// Gives as many bytes as the stored size says and that size through `size` when given; bytes that
/// are not stored are zero. None when either value cannot be read (as when more is stored than the
/// size says), the size is 0 or memory is short. Types do not matter.
GlobalBlock<BYTE> ReadPrinterBlob(HANDLE printer, DWORD* size, PrinterBlobIndex index);

/// Stores a 32-bit number as a value of that type; false when it cannot be written.
bool WritePrinterNumber(HANDLE printer, const WCHAR* name, DWORD type, DWORD number);

/// Stores a sized value; false when either write fails, and then the second is not tried.
bool WritePrinterBlob(HANDLE printer, const void* data, DWORD size, PrinterBlobIndex index);

// ---- The printer ------------------------------------------------------------------------------

/// Gives the spooler's level-2 information, which the strings and the default record it names lie
/// behind. Two round trips to the spooler.
GlobalBlock<PRINTER_INFO_2W> GetPrinterInfo2(HANDLE printer);

/// Gives the spooler's level-2 information about the printer's driver, whose name is the model's.
GlobalBlock<DRIVER_INFO_2W> GetDriverInfo2(HANDLE printer);

/// 1 where the user's country measures in millimetres, 0 in North America and the countries whose
/// telephone codes begin with 5, and when the locale cannot be read.
int IsMetricLocale();
