// Property sheets.
#pragma once

#include <windows.h>

#define MAXPROPPAGES 0x64
#define PSP_DLGINDIRECT 1
#define PSP_USEICONID 4
#define PSP_USETITLE 8
#define PSP_HASHELP 0x20
#define PSH_PROPTITLE 1
#define PSH_NOAPPLYNOW 0x80
#define PSN_SETACTIVE 0xFFFFFF38
#define PSN_KILLACTIVE 0xFFFFFF37
#define PSN_APPLY 0xFFFFFF36
#define PSN_RESET 0xFFFFFF35
#define PSN_HELP 0xFFFFFF33
#define PSN_QUERYCANCEL 0xFFFFFF2F
#define PSNRET_NOERROR 0
#define PSNRET_INVALID 1
#define PSNRET_INVALID_NOCHANGEPAGE 2
#define PSM_SETCURSEL 0x465
#define PSM_CHANGED 0x468
#define PSM_PRESSBUTTON 0x471
#define PSM_GETTABCONTROL 0x474
#define PSM_GETCURRENTPAGEHWND 0x476
#define PSM_INDEXTOID 0x486
#define PSBTN_OK 3
#define PSBTN_APPLYNOW 4
#define PSBTN_CANCEL 5
#define PSBTN_HELP 6

struct PROPSHEETPAGEW;
struct _PSP;
using HPROPSHEETPAGE = _PSP*;
using LPFNPSPCALLBACKW = UINT(CALLBACK*)(HWND window, UINT message, PROPSHEETPAGEW* page);
using PFNPROPSHEETCALLBACK = int(CALLBACK*)(HWND sheet, UINT message, LPARAM parameter);

struct PROPSHEETPAGEW {
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCWSTR pszTemplate;
        LPCDLGTEMPLATEW pResource;
    };
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    LPFNPSPCALLBACKW pfnCallback;
    UINT* pcRefParent;
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
};
using LPCPROPSHEETPAGEW = const PROPSHEETPAGEW*;

struct PROPSHEETHEADERW {
    DWORD dwSize;
    DWORD dwFlags;
    HWND hwndParent;
    HINSTANCE hInstance;
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszCaption;
    UINT nPages;
    union {
        UINT nStartPage;
        LPCWSTR pStartPage;
    };
    union {
        LPCPROPSHEETPAGEW ppsp;
        HPROPSHEETPAGE* phpage;
    };
    PFNPROPSHEETCALLBACK pfnCallback;
    union {
        HBITMAP hbmWatermark;
        LPCWSTR pszbmWatermark;
    };
    HANDLE hplWatermark;
    union {
        HBITMAP hbmHeader;
        LPCWSTR pszbmHeader;
    };
};
using LPCPROPSHEETHEADERW = const PROPSHEETHEADERW*;

struct PSHNOTIFY {
    NMHDR hdr;
    LPARAM lParam;
};

extern "C" {
HPROPSHEETPAGE WINAPI CreatePropertySheetPageW(LPCPROPSHEETPAGEW page);
BOOL WINAPI DestroyPropertySheetPage(HPROPSHEETPAGE page);
INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header);
}
