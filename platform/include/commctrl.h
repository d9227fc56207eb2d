// The common controls: track bars, tab controls, list views, tooltips.
#pragma once

#include <windows.h>
#include <prsht.h>

// Notifications of every common control.
#define NM_CLICK 0xFFFFFFFE
#define NM_CUSTOMDRAW 0xFFFFFFF4
#define NM_RELEASEDCAPTURE 0xFFFFFFF0
#define CDDS_PREPAINT 1
#define CDRF_DODEFAULT 0

// Track bars.
#define TBS_AUTOTICKS 1
#define TBS_HORZ 0
#define TBS_VERT 2
#define TBM_GETPOS 0x400
#define TBM_GETRANGEMIN 0x401
#define TBM_GETRANGEMAX 0x402
#define TBM_SETPOS 0x405
#define TBM_SETRANGE 0x406
#define TBM_SETPAGESIZE 0x415
#define TBM_GETTHUMBRECT 0x419
#define TBM_SETTICFREQ 0x414
#define TB_LINEUP 0
#define TB_LINEDOWN 1
#define TB_PAGEUP 2
#define TB_PAGEDOWN 3
#define TB_THUMBPOSITION 4
#define TB_THUMBTRACK 5
#define TB_TOP 6
#define TB_BOTTOM 7
#define TB_ENDTRACK 8

// Tab controls.
#define TCS_MULTILINE 0x200
#define TCIF_TEXT 1
#define TCIF_PARAM 8
#define TCM_FIRST 0x1300
#define TCM_GETITEMCOUNT 0x1304
#define TCM_GETITEMW 0x133C
#define TCM_INSERTITEMW 0x133E
#define TCM_GETITEMRECT 0x130A
#define TCM_GETCURSEL 0x130B
#define TCM_SETCURSEL 0x130C
#define TCM_ADJUSTRECT 0x1328
#define TCM_GETROWCOUNT 0x132C
#define TCN_KEYDOWN 0xFFFFFDDA
#define TCN_SELCHANGE 0xFFFFFDD9
#define TCN_SELCHANGING 0xFFFFFDD8

// List views.
#define LVS_REPORT 1
#define LVIF_TEXT 1
#define LVCF_WIDTH 2
#define LVCF_TEXT 4
#define LVM_FIRST 0x1000
#define LVM_GETITEMCOUNT 0x1004
#define LVM_INSERTITEMW 0x104D
#define LVM_GETITEMTEXTW 0x1073
#define LVM_SETITEMTEXTW 0x1074
#define LVM_INSERTCOLUMNW 0x1061
#define LVN_ITEMCHANGING 0xFFFFFF9C
#define LVN_ITEMCHANGED 0xFFFFFF9B
#define LVN_INSERTITEM 0xFFFFFF9A

// Tooltips.
#define TTS_ALWAYSTIP 1
#define TTS_NOPREFIX 2
#define TTF_IDISHWND 1
#define TTF_SUBCLASS 0x10
#define TTM_ADDTOOLW 0x432
#define TTM_GETTOOLINFOW 0x435
#define TTM_GETTEXTW 0x438
#define TTM_GETTOOLCOUNT 0x40D
#define TTM_SETMAXTIPWIDTH 0x418
#define TTM_GETMAXTIPWIDTH 0x419
#define ICC_WIN95_CLASSES 0xFF

#define TRACKBAR_CLASSW TEXT("msctls_trackbar32")
#define WC_TABCONTROLW TEXT("SysTabControl32")
#define WC_LISTVIEWW TEXT("SysListView32")
#define TOOLTIPS_CLASSW TEXT("tooltips_class32")

struct INITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};

struct NMCUSTOMDRAW {
    NMHDR hdr;
    DWORD dwDrawStage;
    HDC hdc;
    RECT rc;
    DWORD_PTR dwItemSpec;
    UINT uItemState;
    LPARAM lItemlParam;
};

struct TCITEMW {
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};

#pragma pack(push, 1)
struct NMTCKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)

struct LVITEMW {
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
    int iIndent;
    int iGroupId;
    UINT cColumns;
    UINT* puColumns;
    int* piColFmt;
    int iGroup;
};

struct LVCOLUMNW {
    UINT mask;
    int fmt;
    int cx;
    LPWSTR pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder;
    int cxMin;
    int cxDefault;
    int cxIdeal;
};

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
};

#pragma pack(push, 1)
#pragma pack(pop)

struct TOOLINFOW {
    UINT cbSize;
    UINT uFlags;
    HWND hwnd;
    UINT_PTR uId;
    RECT rect;
    HINSTANCE hinst;
    LPWSTR lpszText;
    LPARAM lParam;
    void* lpReserved;
};
// The structure's sizes before its last one and its last two members came; what a program without
// the newest controls must give as cbSize.
#define TTTOOLINFOW_V2_SIZE 64

extern "C" {
BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes);
}
