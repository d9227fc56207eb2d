// The device I/O library of the tests.
#include "bridge_companion.h"

#include <algorithm>
#include <string_view>

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C"
#endif

namespace {

BridgeNotes notes;

void NotePrinter(const WCHAR* printer) {
    constexpr size_t kMost = sizeof(notes.Printer) / sizeof(WCHAR) - 1;
    notes.Printer[std::basic_string_view<WCHAR>(printer).copy(notes.Printer, kMost)] = 0;
}

}  // namespace

/// For the test that has the library loaded; otherwise nothing outlives a call.
EXPORTED BridgeNotes* Notes() {
    return &notes;
}

EXPORTED DWORD WINAPI SetCalibrationValuesLira(const WCHAR* printer, const BYTE* table,
                                               DWORD size) {
    NotePrinter(printer);
    std::copy_n(table, sizeof(notes.Table), notes.Table);
    notes.TableSize = size;
    ++notes.Sent;
    return 0;
}

EXPORTED DWORD WINAPI DumpReportFile(const WCHAR* printer) {
    NotePrinter(printer);
    ++notes.Reports;
    return 0;
}

EXPORTED DWORD WINAPI QueryRibbonInfo(const WCHAR* printer, BYTE* first, BYTE* code, DWORD* third,
                                      DWORD* remaining, BYTE* fifth, DWORD* sixth, DWORD* seventh) {
    NotePrinter(printer);
    *first = *fifth = 0xEE;
    *third = *sixth = *seventh = 0xEEEEEEEE;
    *code = notes.RibbonCode;
    *remaining = notes.Remaining;
    ++notes.RibbonQueries;
    return notes.RibbonFailure;
}
