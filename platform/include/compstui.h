// The common property sheet library: the one call that opens a driver's sheet, and the records and
// codes that it and the driver's sheet functions exchange.
#pragma once

#include <windows.h>

// What the library's callback does for a sheet function.
#define CPSFUNC_ADD_HPROPSHEETPAGE 0
#define CPSFUNC_ADD_PROPSHEETPAGEW 1
#define CPSFUNC_ADD_PFNPROPSHEETUIW 5
#define CPSFUNC_SET_RESULT 9

// Why a sheet function is called.
#define PROPSHEETUI_REASON_INIT 0
#define PROPSHEETUI_REASON_GET_INFO_HEADER 1
#define PROPSHEETUI_REASON_DESTROY 2
#define PROPSHEETUI_REASON_SET_RESULT 3
#define PROPSHEETUI_INFO_VERSION 0x0100
#define PSUIINFO_UNICODE 1

#define PSUIHDRF_NOAPPLYNOW 2
#define PSUIHDRF_PROPTITLE 4
#define IDI_CPSUI_ICONID_FIRST 64000

#define CPSUI_CANCEL 0
#define CPSUI_OK 1
#define ERR_CPSUI_GETLASTERROR -1
#define ERR_CPSUI_INVALID_PDATA -3
#define ERR_CPSUI_NO_PROPSHEETPAGE -8
#define ERR_CPSUI_CREATEPROPPAGE_FAILED -10
#define ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED -9999

using PFNCOMPROPSHEET = LONG_PTR(CALLBACK*)(HANDLE hComPropSheet, UINT Function, LPARAM lParam1,
                                            LPARAM lParam2);

struct PROPSHEETUI_INFO {
    WORD cbSize;
    WORD Version;
    WORD Flags;
    WORD Reason;
    HANDLE hComPropSheet;
    PFNCOMPROPSHEET pfnComPropSheet;
    LPARAM lParamInit;
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
using PPROPSHEETUI_INFO = PROPSHEETUI_INFO*;
using PFNPROPSHEETUI = LONG (*)(PPROPSHEETUI_INFO info, LPARAM parameter);

struct PROPSHEETUI_INFO_HEADER {
    WORD cbSize;
    WORD Flags;
    LPWSTR pTitle;
    HWND hWndParent;
    HINSTANCE hInst;
    union {
        HICON hIcon;
        ULONG_PTR IconID;
    };
};

struct SETRESULT_INFO {
    WORD cbSize;
    WORD wReserved;
    HANDLE hSetResult;
    LRESULT Result;
};

extern "C" {
LONG APIENTRY CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function, LPARAM parameter,
                                     LPDWORD result);
}
