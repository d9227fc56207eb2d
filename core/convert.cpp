// The spooler's conversion requests.
#include "core/driver_ui_contract.h"
#include "core/merge.h"
#include "core/printer_data.h"

namespace {

BOOL Fail(DWORD error) {
    SetLastError(error);
    return FALSE;
}

DWORD WholeSize(const DEVMODEW* record) {
    return DWORD{record->dmSize} + record->dmDriverExtra;
}

// Into whatever layout the output record declares.
BOOL ConvertToDeclared(const DEVMODEW* input, DEVMODEW* output, LONG* size) {
    if (output == nullptr || *size < LONG{kHeaderSize} ||
        static_cast<DWORD>(*size) < WholeSize(output) || ConvertDevModeCopy(input, output) <= 0) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    *size = static_cast<LONG>(WholeSize(output));
    return TRUE;
}

// When there is no room, tells how much is needed.
bool HasRoom(const DEVMODEW* output, LONG* size, LONG needed) {
    if (output != nullptr && *size >= needed) {
        return true;
    }
    *size = needed;
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return false;
}

// Into the layout of this driver's first generation, whose private part has nothing in common with
// today's and stays as the caller had it.
BOOL ConvertTo351(const DEVMODEW* input, DEVMODEW* output, LONG* size) {
    constexpr WORD kPublicSize351 = 188;
    constexpr WORD kPrivateSize351 = 112;
    constexpr LONG kNeeded = kPublicSize351 + kPrivateSize351;
    if (!HasRoom(output, size, kNeeded)) {
        return FALSE;
    }
    output->dmSize = kPublicSize351;
    output->dmSpecVersion = 0x0320;
    output->dmDriverVersion = 0x0350;
    output->dmDriverExtra = kPrivateSize351;
    if (CopyPublicPart(input, output) <= 0) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    *size = kNeeded;
    return TRUE;
}

BOOL BuildForPrinter(WCHAR* printerName, DEVMODEW* output, LONG* size) {
    if (!HasRoom(output, size, kRecordSize)) {
        return FALSE;
    }
    *size = kRecordSize;
    const OpenedPrinter printer(printerName);
    if (!printer) {
        return FALSE;
    }
    const auto driver = GetDriverInfo2(printer.get());
    if (!driver) {
        return FALSE;
    }
    // The driver's name is the model's, so the printer need not be asked for it again.
    return BuildDefaultDevMode(reinterpret_cast<DevModeRecord*>(output), driver->pName,
                               driver->pName);
}

}  // namespace

BOOL WINAPI DrvConvertDevMode(LPWSTR printerName, PDEVMODEW input, PDEVMODEW output, PLONG size,
                              DWORD mode) {
    if (size == nullptr) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    switch (mode) {
        case CDM_CONVERT:
            return ConvertToDeclared(input, output, size);
        case CDM_CONVERT351:
            return ConvertTo351(input, output, size);
        case CDM_DRIVER_DEFAULT:
            return BuildForPrinter(printerName, output, size);
        default:
            return FALSE;
    }
}
