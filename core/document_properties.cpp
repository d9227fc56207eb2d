// The entry points that applications and the spooler call directly, with and without a window.
#include "core/document_properties.h"

#include "core/context.h"
#include "core/merge.h"

namespace {

constexpr LONG kFailed = -1;
constexpr LONG kDone = 1;

// ---- Without a window -------------------------------------------------------------------------

// The orientation lock holds the driver's default against an application that has set portrait or
// landscape in the buffer it passes for the answer.
bool AsksForOrientation(const DOCUMENTPROPERTYHEADER& header) {
    // The output record is of the input's layout, which may end before the orientation.
    constexpr size_t kNeeded = offsetof(DEVMODEW, dmOrientation) + sizeof(SHORT);
    if (!AsksForRecord(header) || header.pdmIn == nullptr || header.pdmIn->dmSize < kNeeded) {
        return false;
    }
    const SHORT asked = header.pdmOut->dmOrientation;
    return asked == DMORIENT_PORTRAIT || asked == DMORIENT_LANDSCAPE;
}

// Merges and copies out without showing anything. Gives the header's cbOut when there is no output
// record, 1 when done, -1 on failure.
LONG NonInteractiveDocumentProperties(const DOCUMENTPROPERTYHEADER& header) {
    if (header.pdmOut == nullptr) {
        return static_cast<LONG>(header.cbOut);
    }
    // Read first: the input record may be the same buffer, and the context may fill that in place.
    const bool asksForOrientation = AsksForOrientation(header);
    const OwnedContext context(CreateDriverContext(header.hPrinter, header.pdmIn));
    if (!context) {
        return kFailed;
    }
    if (AsksForRecord(header)) {
        DevModeRecord& working = context->WorkingDevMode;
        if (asksForOrientation && working.Private.OrientationLock == 1) {
            working.Public.dmOrientation = kDefaultOrientation;
        }
        CopyDevModeOut(&working, header.pdmIn, header.pdmOut);
    }
    return kDone;
}

// ---- Through the common property sheet library ------------------------------------------------

using CommonPropertySheetFunction = LONG(WINAPI*)(HWND owner, PFNPROPSHEETUI callback,
                                                  LPARAM parameter, LPDWORD result);

/// Gives the library's own answer, negative when the sheet could not be shown; -1 without the
/// library. `*result` is the sheet's result, left alone without the library.
LONG RunCommonPropertySheet(HWND owner, PFNPROPSHEETUI callback, LPARAM parameter, DWORD* result) {
    HMODULE library = LoadLibraryA("compstui.dll");
    if (library == nullptr) {
        return kFailed;
    }
    const auto run = reinterpret_cast<CommonPropertySheetFunction>(
        reinterpret_cast<void*>(GetProcAddress(library, "CommonPropertySheetUIW")));
    const LONG answer = run == nullptr ? kFailed : run(owner, callback, parameter, result);
    FreeLibrary(library);
    return answer;
}

LONG ShowDocumentSheet(HWND window, DOCUMENTPROPERTYHEADER& header) {
    DWORD result = CPSUI_CANCEL;
    const LONG answer = RunCommonPropertySheet(window, DrvDocumentPropertySheets,
                                               reinterpret_cast<LPARAM>(&header), &result);
    return answer < 0 ? kFailed : static_cast<LONG>(result);
}

LONG DocumentPropertiesCommon(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* output,
                              DEVMODEW* input, DWORD mode) {
    if (printer == nullptr) {
        return -LONG{ERROR_INVALID_PARAMETER};
    }
    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer;
    header.pszPrinterName = deviceName;
    header.pdmIn = input;
    header.pdmOut = output;
    header.fMode = mode;
    return (mode & DM_PROMPT) != 0 ? ShowDocumentSheet(window, header)
                                   : SizeOrNonInteractive(header);
}

bool MayChangePrinter(HANDLE printer) {
    DWORD permitted = 1;
    return SetPrinterDataW(printer, const_cast<WCHAR*>(TEXT("Permission")), REG_DWORD,
                           reinterpret_cast<BYTE*>(&permitted), sizeof(permitted)) == ERROR_SUCCESS;
}

}  // namespace

bool AsksForRecord(const DOCUMENTPROPERTYHEADER& header) {
    return (header.fMode & (DM_UPDATE | DM_COPY)) != 0;
}

LONG SizeOrNonInteractive(DOCUMENTPROPERTYHEADER& header) {
    header.cbOut = kRecordSize;
    return header.fMode == 0 ? kRecordSize : NonInteractiveDocumentProperties(header);
}

LONG WINAPI DrvDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                  PDEVMODEW input, DWORD mode) {
    if (mode == 0 || output == nullptr) {
        return kRecordSize;
    }
    const LONG result = DocumentPropertiesCommon(window, printer, deviceName, output, input, mode);
    if (result < 0) {
        return result;
    }
    return result > 0 ? 1 : 2;
}

LONG WINAPI DrvAdvancedDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName,
                                          PDEVMODEW output, PDEVMODEW input) {
    if (output == nullptr) {
        return kRecordSize;
    }
    const DWORD mode = DM_COPY | DM_PROMPT | DM_ADVANCED;
    return DocumentPropertiesCommon(window, printer, deviceName, output, input, mode) > 0 ? 1 : 0;
}

BOOL WINAPI PrinterProperties(HWND window, HANDLE printer) {
    DEVICEPROPERTYHEADER header = {};
    header.cbSize = sizeof(header);
    header.Flags = MayChangePrinter(printer) ? 0 : DPS_NOPERMISSION;
    header.hPrinter = printer;
    DWORD result = 1;
    RunCommonPropertySheet(window, DrvDevicePropertySheets, reinterpret_cast<LPARAM>(&header),
                           &result);
    return result != 0;
}
