// The common property sheet library's records: what a driver's sheet function is given.
#pragma once

#include <windows.h>

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
