// The platform's contract for a printer driver's user-interface half: the exported entry points and
// the records that they are given, as far as the compilers' headers lack them.
#pragma once

#include <windows.h>
#include <compstui.h>
#include <winspool.h>

#include <cstddef>

// Modes of a document-properties call that the headers do not name, beside DM_UPDATE, DM_COPY,
// DM_PROMPT and DM_MODIFY.
#ifndef DM_ADVANCED
#define DM_ADVANCED 0x10
#endif
#ifndef DM_NOPERMISSION
#define DM_NOPERMISSION 0x20
#endif

// Flag of a DEVICEPROPERTYHEADER: the user may look at the printer's properties and not change
// them.
#ifndef DPS_NOPERMISSION
#define DPS_NOPERMISSION 1
#endif

// Modes of DrvConvertDevMode.
#ifndef CDM_CONVERT
#define CDM_CONVERT 1
#define CDM_CONVERT351 2
#define CDM_DRIVER_DEFAULT 4
#endif

// Query modes and result flags of DrvQueryColorProfile.
#ifndef QCP_DEVICEPROFILE
#define QCP_DEVICEPROFILE 0
#define QCP_TARGETPROFILE 1
#define QCP_PROFILEMEMORY 1
#define QCP_PROFILEDISK 2
#endif

struct DOCUMENTPROPERTYHEADER {
    WORD cbSize;            //  0
    WORD Reserved;          //  2
    HANDLE hPrinter;        //  8
    LPWSTR pszPrinterName;  // 16
    PDEVMODEW pdmIn;        // 24
    PDEVMODEW pdmOut;       // 32
    DWORD cbOut;            // 40
    DWORD fMode;            // 44
};
static_assert(sizeof(DOCUMENTPROPERTYHEADER) == 48);
static_assert(offsetof(DOCUMENTPROPERTYHEADER, hPrinter) == 8);
static_assert(offsetof(DOCUMENTPROPERTYHEADER, pszPrinterName) == 16);
static_assert(offsetof(DOCUMENTPROPERTYHEADER, pdmIn) == 24);
static_assert(offsetof(DOCUMENTPROPERTYHEADER, pdmOut) == 32);
static_assert(offsetof(DOCUMENTPROPERTYHEADER, cbOut) == 40);
static_assert(offsetof(DOCUMENTPROPERTYHEADER, fMode) == 44);

struct DEVICEPROPERTYHEADER {
    WORD cbSize;            //  0
    WORD Flags;             //  2
    HANDLE hPrinter;        //  8
    LPWSTR pszPrinterName;  // 16
};
static_assert(sizeof(DEVICEPROPERTYHEADER) == 24);
static_assert(offsetof(DEVICEPROPERTYHEADER, hPrinter) == 8);
static_assert(offsetof(DEVICEPROPERTYHEADER, pszPrinterName) == 16);

struct DEVQUERYPRINT_INFO {
    WORD cbSize;         //  0
    WORD Level;          //  2
    HANDLE hPrinter;     //  8
    DEVMODEW* pDevMode;  // 16
    LPWSTR pszErrorStr;  // 24
    DWORD cchErrorStr;   // 32
    DWORD cchNeeded;     // 36
};
static_assert(sizeof(DEVQUERYPRINT_INFO) == 40);
static_assert(offsetof(DEVQUERYPRINT_INFO, Level) == 2);
static_assert(offsetof(DEVQUERYPRINT_INFO, hPrinter) == 8);
static_assert(offsetof(DEVQUERYPRINT_INFO, pDevMode) == 16);
static_assert(offsetof(DEVQUERYPRINT_INFO, pszErrorStr) == 24);

struct DRIVER_UPGRADE_INFO_1W {
    LPWSTR pPrinterName;         // 0
    LPWSTR pOldDriverDirectory;  // 8
};
static_assert(sizeof(DRIVER_UPGRADE_INFO_1W) == 16);

static_assert(sizeof(PROPSHEETUI_INFO) == 48);
static_assert(offsetof(PROPSHEETUI_INFO, Reason) == 6);
static_assert(offsetof(PROPSHEETUI_INFO, lParamInit) == 24);
static_assert(offsetof(PROPSHEETUI_INFO, UserData) == 32);
static_assert(offsetof(PROPSHEETUI_INFO, Result) == 40);

extern "C" {

/// The document sheet's function: called with each reason of the common property sheet library;
/// gives 1 or -1. The sheet's user data is its DriverContext from INIT to DESTROY.
/// Without sheet information `parameter` is the DOCUMENTPROPERTYHEADER, and nothing is ever shown:
/// gives 584 when the header's mode is 0, 1 when done, the header's cbOut (set to 584) when there
/// is no output record, -1 on failure.
LONG WINAPI DrvDocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter);

/// The printer sheet's function; gives 1 or -1.
LONG WINAPI DrvDevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM parameter);

/// Shows the printer's properties. Gives FALSE when the user cancels. To learn whether the user may
/// change the printer it writes the printer-data value "Permission", which stays.
BOOL WINAPI PrinterProperties(HWND window, HANDLE printer);

/// Gives 584 when `mode` is 0 or there is no output record, else 1 (accepted), 2 (cancelled) or a
/// negative failure value, -87 for a missing printer handle.
LONG WINAPI DrvDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                  PDEVMODEW input, DWORD mode);

/// Gives 584 without an output record, else 1 (accepted) or 0.
LONG WINAPI DrvAdvancedDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName,
                                          PDEVMODEW output, PDEVMODEW input);

/// Converts `input` into `output` (modes CDM_CONVERT, CDM_CONVERT351) or fills `output` with the
/// printer's default record (CDM_DRIVER_DEFAULT). `*size` is the bytes `output` has, and on return
/// the bytes used or needed. FALSE with last error 87 or 122, or that of opening the printer.
BOOL WINAPI DrvConvertDevMode(LPWSTR printerName, PDEVMODEW input, PDEVMODEW output, PLONG size,
                              DWORD mode);

/// Gives a count, a number or a pair of 16-bit numbers by `capability` (DC_...), and fills `output`
/// when there is one; (DWORD)-1 for what is not answered and on failure.
DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, LPWSTR deviceName, WORD capability, PVOID output,
                                   PDEVMODEW record);

/// TRUE when a job with the record in `info` can be printed. Writes no error text.
BOOL WINAPI DevQueryPrintEx(DEVQUERYPRINT_INFO* info);

/// Names no colour profile: FALSE when the record asks for the system's colour management, else
/// TRUE with `profile` zeroed over `*profileSize` bytes and `*flags` (when given) QCP_PROFILEDISK.
BOOL WINAPI DrvQueryColorProfile(HANDLE printer, PDEVMODEW record, ULONG queryMode, PVOID profile,
                                 PULONG profileSize, ULONG* flags);

/// Brings the printer data stored by an earlier driver to the current format. Only level 1
/// (DRIVER_UPGRADE_INFO_1W) is known; anything else gives FALSE with last error 87.
BOOL WINAPI DrvUpgradePrinter(DWORD level, LPBYTE upgradeInfo);

/// Accepts every event without action.
BOOL WINAPI DrvPrinterEvent(LPWSTR printerName, INT event, DWORD flags, LPARAM parameter);

}  // extern "C"
