// The device I/O library of the driver package, PrnBridge.dll, which talks to the printer. A call
// loads the library by its full path and frees it again. A library that cannot be loaded is
// reported to the user; an operation that it lacks is passed over, and what it should have given is
// as it was. A null printer name counts as an empty one.
#pragma once

#include "companions/calibration_table.h"
#include "core/text.h"

#include <windows.h>

#include <optional>

/// In the driver directory.
inline constexpr const WCHAR* kDeviceLibrary = TEXT("PrnBridge.dll");

// ---- Calls --------------------------------------------------------------------------------------

/// What the ribbon status is made of.
struct RibbonStatus {
    BYTE Code = 0;        ///< the printer's own code of the ribbon, in the low six bits
    DWORD Remaining = 0;  ///< prints left on the ribbon
};
/// All zero when the printer cannot be asked.
RibbonStatus QueryRibbonStatus(const WCHAR* printer);

/// Has the library write the printer's maintenance report.
void DumpReportFile(const WCHAR* printer);

void SetCalibrationValues(const WCHAR* printer, const CalibrationTable& table);

/// Of the printer's two motors. What the printer gives may lie beyond what people may choose.
struct MotorSpeeds {
    std::int8_t First = 0;
    std::int8_t Second = 0;
};
MotorSpeeds ReadMotorSpeeds(const WCHAR* printer);
void WriteMotorSpeeds(const WCHAR* printer, MotorSpeeds speeds);

/// The laminator's parameters for one film.
struct LaminationRecord {
    WORD Temperature;         //  0  degrees Celsius
    WORD DwellTime;           //  2  in the laminator's units
    WORD LbPosition;          //  4
    std::int8_t LaPosition;   //  6
    BYTE Reserved07;          //  7
    WORD LbReference;         //  8  cannot be set
    std::int8_t LaReference;  // 10  cannot be set
    BYTE Film;                // 11  LaminationOption of the device mode record
    BYTE Reserved12[4];       // 12
};
static_assert(sizeof(LaminationRecord) == 16);
static_assert(offsetof(LaminationRecord, LaPosition) == 6);
static_assert(offsetof(LaminationRecord, LbReference) == 8);
static_assert(offsetof(LaminationRecord, Film) == 11);

/// Asks for a film's parameters. `found` is what the laminator answered, 1 for yes; 0 without an
/// answer.
BYTE ReadLaminationParameters(const WCHAR* printer, BYTE film, LaminationRecord& record);
void WriteLaminationParameters(const WCHAR* printer, BYTE film, const LaminationRecord& record);

// ---- Queries ------------------------------------------------------------------------------------
// A query runs the library in a process of its own, which answers later by WM_COPYDATA to a window.

/// The numbers stand in the query's parameters and, as dwData, in its answer.
enum class DeviceQuery : DWORD {
    kFirmwareVersion = 1,
    kCalibration = 5,
    kMagneticEncoder = 6,
};

/// Does not wait, and reports no failure.
void AskDevice(DeviceQuery query, HWND window, const WCHAR* printer);

// An answer may come from anyone. One to another query, or too short to be an answer, gives none.

/// Up to its terminator, or else whole. Valid as long as the answer.
std::optional<WideView> ReadFirmwareAnswer(const COPYDATASTRUCT& answer);
std::optional<CalibrationTable> ReadCalibrationAnswer(const COPYDATASTRUCT& answer);
/// True when the printer has a magnetic encoder.
std::optional<bool> ReadEncoderAnswer(const COPYDATASTRUCT& answer);
