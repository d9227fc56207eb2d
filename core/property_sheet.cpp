// The driver's face towards the printing system's user interface. Calls that need no window are
// answered here; the sheet itself cannot be opened yet, which its callers are told as a failure.
#include "core/context.h"
#include "core/merge.h"

namespace {

constexpr LONG kFailed = -1;

// The orientation lock holds the driver's default against an application that has set portrait or
// landscape in the buffer it passes for the answer.
bool AsksForOrientation(const DOCUMENTPROPERTYHEADER& header) {
    const SHORT asked = header.pdmOut->dmOrientation;
    return header.pdmIn != nullptr && (asked == DMORIENT_PORTRAIT || asked == DMORIENT_LANDSCAPE);
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
    if ((header.fMode & (DM_UPDATE | DM_COPY)) != 0) {
        DevModeRecord& working = context->WorkingDevMode;
        if (asksForOrientation && working.Private.OrientationLock == 1) {
            working.Public.dmOrientation = kDefaultOrientation;
        }
        CopyDevModeOut(&working, header.pdmIn, header.pdmOut);
    }
    return 1;
}

LONG SizeOrNonInteractive(DOCUMENTPROPERTYHEADER& header) {
    header.cbOut = kRecordSize;
    return header.fMode == 0 ? kRecordSize : NonInteractiveDocumentProperties(header);
}

LONG DocumentPropertiesCommon(HANDLE printer, WCHAR* deviceName, DEVMODEW* output, DEVMODEW* input,
                              DWORD mode) {
    if (printer == nullptr) {
        return -LONG{ERROR_INVALID_PARAMETER};
    }
    if ((mode & DM_PROMPT) != 0) {
        return kFailed;
    }
    DOCUMENTPROPERTYHEADER header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer;
    header.pszPrinterName = deviceName;
    header.pdmIn = input;
    header.pdmOut = output;
    header.fMode = mode;
    return SizeOrNonInteractive(header);
}

}  // namespace

LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter) {
    if (info != nullptr) {
        return kFailed;
    }
    auto* header = reinterpret_cast<DOCUMENTPROPERTYHEADER*>(parameter);
    return header == nullptr ? kFailed : SizeOrNonInteractive(*header);
}

LONG WINAPI DrvDocumentProperties(HWND, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                  PDEVMODEW input, DWORD mode) {
    if (mode == 0 || output == nullptr) {
        return kRecordSize;
    }
    const LONG result = DocumentPropertiesCommon(printer, deviceName, output, input, mode);
    if (result < 0) {
        return result;
    }
    return result > 0 ? 1 : 2;
}

LONG WINAPI DrvAdvancedDocumentProperties(HWND, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                          PDEVMODEW input) {
    if (output == nullptr) {
        return kRecordSize;
    }
    const DWORD mode = DM_COPY | DM_PROMPT | DM_ADVANCED;
    return DocumentPropertiesCommon(printer, deviceName, output, input, mode) > 0 ? 1 : 0;
}
