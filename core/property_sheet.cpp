// The driver's face towards the printing system's user interface: the document and printer sheets,
// and the entry points that answer without a window.
#include "core/property_sheet.h"

#include "core/merge.h"
#include "core/text.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/common/module.h"
#include "ui/pages/about/about_page.h"
#include "ui/pages/color/color_page.h"
#include "ui/pages/device_options/device_options_page.h"
#include "ui/pages/heat_energy/heating_energy_page.h"
#include "ui/pages/import_export/import_export_page.h"
#include "ui/pages/lamination/lamination_page.h"
#include "ui/pages/magnetic/magnetic_encoding_page.h"
#include "ui/pages/print_area/printing_area_page.h"
#include "ui/pages/print_area/rewrite_page.h"
#include "ui/pages/tools/tools_page.h"

#include <prsht.h>
#include <strsafe.h>

namespace {

constexpr LONG kFailed = -1;
constexpr LONG kDone = 1;

// ---- Which pages there are --------------------------------------------------------------------

bool Always(const DriverContext&) {
    return true;
}
bool Never(const DriverContext&) {
    return false;
}
bool IsLocal(const DriverContext& context) {
    return !context.IsRemotePrinter;
}
bool IsRewritable(const DriverContext& context) {
    return context.IsKP43Family != 0;
}
bool IsNotRewritable(const DriverContext& context) {
    return !IsRewritable(context);
}
bool EncodesStripes(const DriverContext& context) {
    return IsNotRewritable(context) && !TextEquals(context.ModelName, TEXT("Mirv KP-560i"));
}

}  // namespace

// In the order of PageSlot. The Lamination page is prepared for a model to come.
// clang-format off
const PageRow PageTable[kPageSlots] = {
    {IDD_DEVICE_OPTIONS, TEXT("DeviceOption"), TEXT("Device Option"), DeviceOptionsPageProc, Always},
    {IDD_PRINTING_AREA, TEXT("PrintingArea"), TEXT("Printing Area"), PrintingAreaPageProc, IsNotRewritable},
    {IDD_COLOR, TEXT("Color"), TEXT("Color"), ColorPageProc, IsNotRewritable},
    {IDD_TOOLS, TEXT("Tools"), TEXT("Tools"), ToolsPageProc, IsLocal},
    {IDD_HEATING_ENERGY, TEXT("HeatEnergy"), TEXT("Heating Energy"), HeatingEnergyPageProc, IsNotRewritable},
    {IDD_MAGNETIC_ENCODING, TEXT("MagneticEncoding"), TEXT("Magnetic Encoding"), MagneticEncodingPageProc, EncodesStripes},
    {IDD_IMPORT_EXPORT, TEXT("Import/Export"), TEXT("Import/Export"), ImportExportPageProc, IsNotRewritable},
    {IDD_LAMINATION, TEXT("Lamination"), TEXT("Lamination"), LaminationPageProc, Never},
    {IDD_REWRITE, TEXT("Rewrite"), TEXT("Rewrite"), RewritePageProc, IsRewritable},
    {IDD_ABOUT, TEXT("About"), TEXT("About"), AboutPageProc, Always},
};
// clang-format on

namespace {

// ---- Assembling a sheet -----------------------------------------------------------------------

constexpr size_t kTitleLength = 128;

struct PreparedPage {
    PROPSHEETPAGEW Record;
    WCHAR Title[kTitleLength];
};

void PreparePage(const PageRow& row, DriverContext* context, PreparedPage& page) {
    WCHAR title[kTextLength];
    SetSection(row.Section);
    LookupString(row.Title, title);
    StringCchCopyW(page.Title, kTitleLength, title);
    page.Record = {};
    page.Record.dwSize = sizeof(page.Record);
    page.Record.dwFlags = PSP_USEICONID | PSP_USETITLE | PSP_HASHELP;
    page.Record.hInstance = ModuleHandle;
    page.Record.pszTemplate = MAKEINTRESOURCEW(row.Dialog);
    page.Record.pszTitle = page.Title;
    page.Record.pfnDlgProc = row.Procedure;
    page.Record.lParam = reinterpret_cast<LPARAM>(context);
}

void KeepSheetCallback(const PROPSHEETUI_INFO& info, DriverContext& context) {
    context.ComPropSheet = info.pfnComPropSheet;
    context.ComPropSheetHandle = info.hComPropSheet;
}

// Gives the page's handle, null when the sheet does not take it.
HANDLE AddPage(const DriverContext& context, PROPSHEETPAGEW& record) {
    if (context.ComPropSheet == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<HANDLE>(context.ComPropSheet(context.ComPropSheetHandle,
                                                         CPSFUNC_ADD_PROPSHEETPAGEW,
                                                         reinterpret_cast<LPARAM>(&record), 0));
}

void HandToSheet(PROPSHEETUI_INFO& info, DriverContext* context) {
    info.UserData = reinterpret_cast<ULONG_PTR>(context);
    info.Result = 0;
}

int AddDocumentPages(PROPSHEETUI_INFO& info, DriverContext* context) {
    KeepSheetCallback(info, *context);
    PreparedPage pages[kPageSlots];
    for (size_t slot = 0; slot < kPageSlots; ++slot) {
        PreparePage(PageTable[slot], context, pages[slot]);
    }
    for (size_t slot = 0; slot < kPageSlots; ++slot) {
        if (!PageTable[slot].IsAdded(*context)) {
            continue;
        }
        context->PageHandles[slot] = AddPage(*context, pages[slot].Record);
        if (context->PageHandles[slot] == nullptr) {
            return 0;
        }
    }
    HandToSheet(info, context);
    return 1;
}

// A page without template and procedure: what is shown for it is the library's affair.
int AddDevicePage(PROPSHEETUI_INFO& info, DriverContext* context) {
    KeepSheetCallback(info, *context);
    PROPSHEETPAGEW record = {};
    record.dwSize = sizeof(record);
    record.hInstance = ModuleHandle;
    record.lParam = reinterpret_cast<LPARAM>(context);
    if (AddPage(*context, record) == nullptr) {
        return 0;
    }
    HandToSheet(info, context);
    return 1;
}

// ---- The reasons that both sheets share -------------------------------------------------------

using AddPages = int (*)(PROPSHEETUI_INFO& info, DriverContext* context);

LONG BeginSheet(PROPSHEETUI_INFO& info, HANDLE printer, DEVMODEW* record, AddPages addPages) {
    OwnedContext context(CreateDriverContext(printer, record));
    if (!IsValidDriverContext(context.get()) || !addPages(info, context.get())) {
        return kFailed;
    }
    context.release();
    return kDone;
}

LONG FillInfoHeader(PROPSHEETUI_INFO_HEADER* header, WCHAR* printerName) {
    constexpr ULONG_PTR kPrinterIcon = 64062;  // the common property sheet library's own
    if (header == nullptr) {
        return kFailed;
    }
    header->Flags = PSUIHDRF_NOAPPLYNOW | PSUIHDRF_PROPTITLE;
    header->pTitle = printerName;
    header->hInst = ModuleHandle;
    header->IconID = kPrinterIcon;
    return kDone;
}

LONG KeepResult(PROPSHEETUI_INFO& info, const SETRESULT_INFO* result) {
    if (result == nullptr) {
        return kFailed;
    }
    info.Result = result->Result;
    return kDone;
}

// Every reason but the first.
LONG GoOnWithSheet(PROPSHEETUI_INFO& info, LPARAM parameter, DriverContext* context,
                   WCHAR* printerName) {
    switch (info.Reason) {
        case PROPSHEETUI_REASON_GET_INFO_HEADER:
            return FillInfoHeader(reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter),
                                  printerName);
        case PROPSHEETUI_REASON_DESTROY:
            ReleaseDriverContext(context);
            info.UserData = 0;
            return kDone;
        case PROPSHEETUI_REASON_SET_RESULT:
            return KeepResult(info, reinterpret_cast<const SETRESULT_INFO*>(parameter));
        default:
            return kFailed;
    }
}

bool AsksForRecord(const DOCUMENTPROPERTYHEADER& header) {
    return (header.fMode & (DM_UPDATE | DM_COPY)) != 0;
}

// The user's OK: what the pages made of the record goes to the caller.
void CopyResultOut(const DOCUMENTPROPERTYHEADER& header, const DriverContext& context,
                   const SETRESULT_INFO* result) {
    if (result != nullptr && result->Result == CPSUI_OK && AsksForRecord(header)) {
        CopyDevModeOut(&context.WorkingDevMode, header.pdmIn, header.pdmOut);
    }
}

// ---- Without a window -------------------------------------------------------------------------

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
    if (AsksForRecord(header)) {
        DevModeRecord& working = context->WorkingDevMode;
        if (asksForOrientation && working.Private.OrientationLock == 1) {
            working.Public.dmOrientation = kDefaultOrientation;
        }
        CopyDevModeOut(&working, header.pdmIn, header.pdmOut);
    }
    return kDone;
}

LONG SizeOrNonInteractive(DOCUMENTPROPERTYHEADER& header) {
    header.cbOut = kRecordSize;
    return header.fMode == 0 ? kRecordSize : NonInteractiveDocumentProperties(header);
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

LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter) {
    auto* header =
        reinterpret_cast<DOCUMENTPROPERTYHEADER*>(info == nullptr ? parameter : info->lParamInit);
    if (header == nullptr) {
        return kFailed;
    }
    if (info == nullptr) {
        return SizeOrNonInteractive(*header);
    }
    if (info->Reason == PROPSHEETUI_REASON_INIT) {
        return BeginSheet(*info, header->hPrinter, header->pdmIn, AddDocumentPages);
    }
    auto* context = reinterpret_cast<DriverContext*>(info->UserData);
    if (!IsValidDriverContext(context)) {
        return kFailed;
    }
    if (info->Reason == PROPSHEETUI_REASON_SET_RESULT) {
        CopyResultOut(*header, *context, reinterpret_cast<const SETRESULT_INFO*>(parameter));
    }
    return GoOnWithSheet(*info, parameter, context, header->pszPrinterName);
}

LONG WINAPI DrvDevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter) {
    if (info == nullptr || info->lParamInit == 0) {
        return kFailed;
    }
    const auto* header = reinterpret_cast<const DEVICEPROPERTYHEADER*>(info->lParamInit);
    if (info->Reason == PROPSHEETUI_REASON_INIT) {
        return BeginSheet(*info, header->hPrinter, nullptr, AddDevicePage);
    }
    auto* context = reinterpret_cast<DriverContext*>(info->UserData);
    if (!IsValidDriverContext(context)) {
        return kFailed;
    }
    return GoOnWithSheet(*info, parameter, context, header->pszPrinterName);
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
