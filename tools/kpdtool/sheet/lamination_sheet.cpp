// A sheet function around the driver's own, which adds a page where that has added its.
#include "lamination_sheet.h"

#include "core/context.h"
#include "core/module.h"
#include "core/page_table.h"

#include <prsht.h>

namespace kpdtool {
namespace {

constexpr LONG kFailed = -1;
constexpr LONG kAccepted = 1;
constexpr LONG kCancelled = 2;

// What the sheet is opened with. The driver takes it for the header that it begins with.
struct Opening {
    DOCUMENTPROPERTYHEADER header;
    const computer::Driver* driver;
};

// The context is the loaded driver's, of the same sources as the page.
HANDLE AddLamination(DriverContext& context) {
    const PageRow& row = PageTable[kLaminationSlot];
    WCHAR title[kPageTitleLength];
    LookupPageTitle(row, title);
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof(page);
    page.dwFlags = PSP_USETITLE | PSP_HASHELP;
    page.hInstance = ModuleHandle;
    page.pszTemplate = MAKEINTRESOURCEW(row.Dialog);
    page.pszTitle = title;
    page.pfnDlgProc = row.Procedure;
    page.lParam = reinterpret_cast<LPARAM>(&context);
    return reinterpret_cast<HANDLE>(context.ComPropSheet(context.ComPropSheetHandle,
                                                         CPSFUNC_ADD_PROPSHEETPAGEW,
                                                         reinterpret_cast<LPARAM>(&page), 0));
}

LONG CALLBACK SheetFunction(PPROPSHEETUI_INFO info, LPARAM parameter) {
    const auto& opening =
        *reinterpret_cast<const Opening*>(info->lParamInit != 0 ? info->lParamInit : parameter);
    const LONG answer = opening.driver->DocumentPropertySheets(info, parameter);
    if (info->Reason == PROPSHEETUI_REASON_INIT && answer > 0) {
        auto& context = *reinterpret_cast<DriverContext*>(info->UserData);
        context.PageHandles[kLaminationSlot] = AddLamination(context);
        return context.PageHandles[kLaminationSlot] != nullptr ? answer : kFailed;
    }
    return answer;
}

}  // namespace

LONG ShowSheetWithLamination(const computer::Driver& driver, HANDLE printer, WCHAR* name,
                             DEVMODEW* output, DEVMODEW* input, DWORD mode) {
    Opening opening = {};
    opening.header.cbSize = sizeof(opening.header);
    opening.header.hPrinter = printer;
    opening.header.pszPrinterName = name;
    opening.header.pdmIn = input;
    opening.header.pdmOut = output;
    opening.header.fMode = mode;
    opening.driver = &driver;
    HMODULE library = LoadLibraryW(TEXT("compstui.dll"));
    if (library == nullptr) {
        return kFailed;
    }
    using Run = LONG(APIENTRY*)(HWND, PFNPROPSHEETUI, LPARAM, LPDWORD);
    const auto run = reinterpret_cast<Run>(
        reinterpret_cast<void*>(GetProcAddress(library, "CommonPropertySheetUIW")));
    DWORD result = CPSUI_CANCEL;
    const LONG shown =
        run == nullptr ? kFailed
                       : run(nullptr, SheetFunction, reinterpret_cast<LPARAM>(&opening), &result);
    FreeLibrary(library);
    return shown < 0 ? kFailed : result == CPSUI_OK ? kAccepted : kCancelled;
}

}  // namespace kpdtool
