// The device I/O library and its queries.
#include "companions/device_io.h"

#include "core/driver_files.h"
#include "core/message.h"

#include <shellapi.h>
#include <strsafe.h>

#include <algorithm>

namespace {

// English for every user.
constexpr const WCHAR* kNoLibrary = TEXT("Can't load library");
constexpr const WCHAR* kNoLaminationLibrary = TEXT("Can't load PrnBridge.dll");

enum class CallResult { kCalled, kNoLibrary, kNoOperation };

// Each operation as the library exports it. Texts are wide and terminated; outputs may be left as
// they are.
using SetCalibrationValuesLira = DWORD WINAPI(const WCHAR* printer, const CalibrationTable* table,
                                              DWORD size);
using DumpReportFileOperation = DWORD WINAPI(const WCHAR* printer);
using QueryRibbonInfo = DWORD WINAPI(const WCHAR* printer, BYTE*, BYTE* code, DWORD*,
                                     DWORD* remaining, BYTE*, DWORD*, DWORD*);
using FineAdjustMotorParameters = DWORD WINAPI(const WCHAR* printer, DWORD write,
                                               std::int8_t* first, std::int8_t* second);
using GetLaminationParameters = DWORD WINAPI(const WCHAR* printer, BYTE* found,
                                             LaminationRecord* record);
using SetLaminationParameters = DWORD WINAPI(const WCHAR* printer, LaminationRecord* record);

template <typename Operation, typename... Arguments>
CallResult Call(const char* name, const WCHAR* failure, const WCHAR* printer,
                Arguments... arguments) {
    HMODULE library = LoadDriverLibrary(kDeviceLibrary);
    if (library == nullptr) {
        ShowMessage(failure, TEXT("Error"));
        return CallResult::kNoLibrary;
    }
    const auto operation =
        reinterpret_cast<Operation*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    if (operation != nullptr) {
        operation(printer != nullptr ? printer : TEXT(""), arguments...);
    }
    FreeLibrary(library);
    return operation != nullptr ? CallResult::kCalled : CallResult::kNoOperation;
}

void AdjustMotors(const WCHAR* printer, DWORD write, MotorSpeeds& speeds) {
    Call<FineAdjustMotorParameters>("FineAdjustMotorParameters", kNoLibrary, printer, write,
                                    &speeds.First, &speeds.Second);
}

// The bytes of an answer to a query, if there are at least as many as that.
const BYTE* AnswerTo(DeviceQuery query, const COPYDATASTRUCT& answer, DWORD size) {
    const bool isAnswer = answer.dwData == static_cast<ULONG_PTR>(query) && answer.cbData >= size;
    return isAnswer ? static_cast<const BYTE*>(answer.lpData) : nullptr;
}

}  // namespace

RibbonStatus QueryRibbonStatus(const WCHAR* printer) {
    RibbonStatus status;
    struct {
        BYTE First, Fifth;
        DWORD Third, Sixth, Seventh;
    } unused = {};
    Call<QueryRibbonInfo>("QueryRibbonInfo", kNoLibrary, printer, &unused.First, &status.Code,
                          &unused.Third, &status.Remaining, &unused.Fifth, &unused.Sixth,
                          &unused.Seventh);
    return status;
}

void DumpReportFile(const WCHAR* printer) {
    Call<DumpReportFileOperation>("DumpReportFile", kNoLibrary, printer);
}

void SetCalibrationValues(const WCHAR* printer, const CalibrationTable& table) {
    Call<SetCalibrationValuesLira>("SetCalibrationValuesLira", kNoLibrary, printer, &table,
                                   static_cast<DWORD>(sizeof(table)));
}

MotorSpeeds ReadMotorSpeeds(const WCHAR* printer) {
    MotorSpeeds speeds;
    AdjustMotors(printer, 0, speeds);
    return speeds;
}

void WriteMotorSpeeds(const WCHAR* printer, MotorSpeeds speeds) {
    AdjustMotors(printer, 1, speeds);
}

BYTE ReadLaminationParameters(const WCHAR* printer, BYTE film, LaminationRecord& record) {
    BYTE found = 0;
    record = {};
    record.Film = film;
    if (Call<GetLaminationParameters>("GetLaminationParameters", kNoLaminationLibrary, printer,
                                      &found, &record) == CallResult::kNoOperation) {
        record = {};
    }
    return found;
}

void WriteLaminationParameters(const WCHAR* printer, BYTE film, const LaminationRecord& record) {
    LaminationRecord sent = record;
    sent.Film = film;
    Call<SetLaminationParameters>("SetLaminationParameters", kNoLibrary, printer, &sent);
}

void AskDevice(DeviceQuery query, HWND window, const WCHAR* printer) {
    WCHAR folder[kDriverPathLength];
    DriverFolderPath(folder);
    WCHAR parameters[1024];
    StringCchPrintfW(parameters, std::size(parameters),
                     TEXT("%s,DrvUI_GetDeviceInfo -T%d -W%d -P\"%s\""), kDeviceLibrary,
                     static_cast<int>(query), static_cast<int>(reinterpret_cast<LONG_PTR>(window)),
                     printer != nullptr ? printer : TEXT(""));
    ShellExecuteW(nullptr, TEXT("open"), TEXT("rundll32.exe"), parameters, folder, SW_SHOWNORMAL);
}

std::optional<WideView> ReadFirmwareAnswer(const COPYDATASTRUCT& answer) {
    const BYTE* bytes = AnswerTo(DeviceQuery::kFirmwareVersion, answer, 0);
    if (bytes == nullptr) {
        return {};
    }
    const WideView text(reinterpret_cast<const WCHAR*>(bytes), answer.cbData / sizeof(WCHAR));
    return text.substr(0, text.find(TEXT('\0')));
}

std::optional<CalibrationTable> ReadCalibrationAnswer(const COPYDATASTRUCT& answer) {
    constexpr DWORD kTableAt = 2;
    constexpr BYTE kTableMark = 4;
    CalibrationTable table;
    const BYTE* bytes = AnswerTo(DeviceQuery::kCalibration, answer, kTableAt + sizeof(table));
    if (bytes == nullptr || bytes[1] != kTableMark) {
        return {};
    }
    std::copy_n(bytes + kTableAt, sizeof(table), reinterpret_cast<BYTE*>(&table));
    return table;
}

std::optional<bool> ReadEncoderAnswer(const COPYDATASTRUCT& answer) {
    const BYTE* bytes = AnswerTo(DeviceQuery::kMagneticEncoder, answer, 1);
    if (bytes == nullptr) {
        return {};
    }
    return bytes[0] == 1;
}
