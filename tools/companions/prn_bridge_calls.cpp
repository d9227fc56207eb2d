// The sample library's calls, which the driver makes in its own process.
#include "printer.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr DWORD kSuccess = 0;
constexpr DWORD kNoPrinter = 1;

struct LaminationRecord {
    WORD Temperature;         //  0
    WORD DwellTime;           //  2
    WORD Lb;                  //  4
    std::int8_t La;           //  6
    BYTE Unused07;            //  7
    WORD LbReference;         //  8
    std::int8_t LaReference;  // 10
    BYTE Film;                // 11
    BYTE Unused12[4];         // 12
};
static_assert(sizeof(LaminationRecord) == 16);

constexpr BYTE kFilms = 2;

std::string FilmName(const LaminationRecord& record) {
    return "film " + std::to_string(record.Film);
}

}  // namespace

OPERATION DWORD WINAPI SetCalibrationValuesLira(const WCHAR* name, const BYTE* table, DWORD size) {
    Printer printer(name);
    const bool right = printer.Require(table != nullptr && size == kTableSize,
                                       "a calibration table of another size");
    if (!right || !printer.Answers()) {
        return kNoPrinter;
    }
    WriteTable(printer, table);
    return kSuccess;
}

OPERATION DWORD WINAPI DumpReportFile(const WCHAR* name) {
    Printer printer(name);
    if (!printer.Answers()) {
        return kNoPrinter;
    }
    printer.SetNumbers("reports", {printer.Number("reports") + 1});
    return kSuccess;
}

OPERATION DWORD WINAPI QueryRibbonInfo(const WCHAR* name, BYTE* first, BYTE* code, DWORD* third,
                                       DWORD* remaining, BYTE* fifth, DWORD* sixth,
                                       DWORD* seventh) {
    Printer printer(name);
    const bool right = printer.Require(first != nullptr && code != nullptr && third != nullptr &&
                                           remaining != nullptr && fifth != nullptr &&
                                           sixth != nullptr && seventh != nullptr,
                                       "a ribbon output without a place");
    if (!right || !printer.Answers()) {
        return kNoPrinter;
    }
    const std::vector<int> ribbon = printer.Numbers("ribbon", 2);
    *first = *fifth = 0xEE;
    *third = *sixth = *seventh = 0xEEEEEEEE;
    *code = static_cast<BYTE>(printer.IsWrong() ? 63 : ribbon[0]);
    *remaining = static_cast<DWORD>(ribbon[1]);
    return kSuccess;
}

OPERATION DWORD WINAPI FineAdjustMotorParameters(const WCHAR* name, DWORD write, std::int8_t* first,
                                                 std::int8_t* second) {
    Printer printer(name);
    const bool right =
        printer.Require(write <= 1, "motors neither read nor written") &&
        printer.Require(first != nullptr && second != nullptr, "a motor's speed without a place");
    if (!right || !printer.Answers()) {
        return kNoPrinter;
    }
    if (write == 1) {
        printer.SetNumbers("motors", {*first, *second});
        return kSuccess;
    }
    const std::vector<int> motors = printer.Numbers("motors", 2);
    *first = static_cast<std::int8_t>(printer.IsWrong() ? 127 : motors[0]);
    *second = static_cast<std::int8_t>(printer.IsWrong() ? -128 : motors[1]);
    return kSuccess;
}

OPERATION DWORD WINAPI GetLaminationParameters(const WCHAR* name, BYTE* found,
                                               LaminationRecord* record) {
    Printer printer(name);
    const bool right =
        printer.Require(found != nullptr && record != nullptr, "lamination without a place") &&
        printer.Require(*found == 0, "a laminator found before it was asked") &&
        printer.Require(record->Film < kFilms, "an unknown film");
    if (!right || !printer.Answers()) {
        return kNoPrinter;
    }
    *found = static_cast<BYTE>(printer.IsWrong() ? 2 : printer.Number("laminator"));
    const std::vector<int> film = printer.Numbers(FilmName(*record), 6);
    record->Temperature = static_cast<WORD>(film[0]);
    record->DwellTime = static_cast<WORD>(film[1]);
    record->La = static_cast<std::int8_t>(film[2]);
    record->Lb = static_cast<WORD>(film[3]);
    record->LaReference = static_cast<std::int8_t>(film[4]);
    record->LbReference = static_cast<WORD>(film[5]);
    record->Unused07 = 0xE7;
    std::fill_n(record->Unused12, 4, BYTE{0xE8});
    return kSuccess;
}

OPERATION DWORD WINAPI SetLaminationParameters(const WCHAR* name, const LaminationRecord* record) {
    Printer printer(name);
    const bool right = printer.Require(record != nullptr, "lamination without a place") &&
                       printer.Require(record->Film < kFilms, "an unknown film") &&
                       printer.Require(record->Unused07 == 0xE7 && record->Unused12[0] == 0xE8 &&
                                           record->Unused12[3] == 0xE8,
                                       "a lamination record that was not read before");
    if (!right || !printer.Answers()) {
        return kNoPrinter;
    }
    printer.SetNumbers(FilmName(*record), {record->Temperature, record->DwellTime, record->La,
                                           record->Lb, record->LaReference, record->LbReference});
    return kSuccess;
}
