// The document and printer sheets: what they do at each reason of the common property sheet
// library.
#include "core/document_properties.h"
#include "core/driver_ui_contract.h"
#include "core/merge.h"
#include "core/module.h"
#include "core/page_table.h"

#include <prsht.h>

namespace {

constexpr LONG kFailed = -1;
constexpr LONG kDone = 1;

// ---- Assembling a sheet -----------------------------------------------------------------------

struct PreparedPage {
    PROPSHEETPAGEW Record;
    WCHAR Title[kPageTitleLength];
};

void PreparePage(const PageRow& row, DriverContext* context, PreparedPage& page) {
    LookupPageTitle(row, page.Title);
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

// The user's OK: what the pages made of the record goes to the caller.
void CopyResultOut(const DOCUMENTPROPERTYHEADER& header, const DriverContext& context,
                   const SETRESULT_INFO* result) {
    if (result != nullptr && result->Result == CPSUI_OK && AsksForRecord(header)) {
        CopyDevModeOut(&context.WorkingDevMode, header.pdmIn, header.pdmOut);
    }
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
