// Windows, messages, dialogs, the classic controls and menus.
#pragma once

#include <windef.h>
#include <wingdi.h>

#define MAKEINTRESOURCEW(id) ((LPWSTR)(ULONG_PTR)(WORD)(id))
#define IS_INTRESOURCE(name) (((ULONG_PTR)(name) >> 16) == 0)
#define RT_CURSOR MAKEINTRESOURCEW(1)
#define RT_BITMAP MAKEINTRESOURCEW(2)
#define RT_ICON MAKEINTRESOURCEW(3)
#define RT_DIALOG MAKEINTRESOURCEW(5)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_GROUP_CURSOR MAKEINTRESOURCEW(12)
#define RT_GROUP_ICON MAKEINTRESOURCEW(14)
#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define IDC_WAIT MAKEINTRESOURCEW(32514)

using WNDPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
using DLGPROC = INT_PTR(CALLBACK*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND window, LPARAM parameter);
using TIMERPROC = void(CALLBACK*)(HWND window, UINT message, UINT_PTR timer, DWORD time);

struct WNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
};

struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using LPMSG = MSG*;

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
using LPPAINTSTRUCT = PAINTSTRUCT*;

struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

struct STYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
};

struct NCCALCSIZE_PARAMS {
    RECT rgrc[3];
    WINDOWPOS* lppos;
};

struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

struct COPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD cbData;
    PVOID lpData;
};

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};

struct MEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
};

struct DELETEITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    HWND hwndItem;
    ULONG_PTR itemData;
};

struct SCROLLINFO {
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};

// A dialog's template as it lies in a resource, packed to two bytes.
#pragma pack(push, 2)
struct DLGTEMPLATE {
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    SHORT x;
    SHORT y;
    SHORT cx;
    SHORT cy;
};
#pragma pack(pop)
using LPCDLGTEMPLATEW = const DLGTEMPLATE*;

// Window styles.
#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_VISIBLE 0x10000000
#define WS_DISABLED 0x8000000
#define WS_CLIPSIBLINGS 0x4000000
#define WS_CLIPCHILDREN 0x2000000
#define WS_CAPTION 0xC00000
#define WS_BORDER 0x800000
#define WS_DLGFRAME 0x400000
#define WS_VSCROLL 0x200000
#define WS_HSCROLL 0x100000
#define WS_SYSMENU 0x80000
#define WS_THICKFRAME 0x40000
#define WS_GROUP 0x20000
#define WS_TABSTOP 0x10000
#define WS_MINIMIZEBOX 0x20000
#define WS_EX_DLGMODALFRAME 1
#define WS_EX_NOPARENTNOTIFY 4
#define WS_EX_TOPMOST 8
#define WS_EX_TOOLWINDOW 0x80
#define WS_EX_WINDOWEDGE 0x100
#define WS_EX_CLIENTEDGE 0x200
#define WS_EX_CONTROLPARENT 0x10000
#define WS_EX_STATICEDGE 0x20000
#define CS_VREDRAW 1
#define CS_HREDRAW 2
#define CS_DBLCLKS 8
#define CS_PARENTDC 0x80
#define CS_SAVEBITS 0x800
#define CS_GLOBALCLASS 0x4000
#define CW_USEDEFAULT (-2147483648)

// Messages of every window.
#define WM_CREATE 1
#define WM_DESTROY 2
#define WM_MOVE 3
#define WM_SIZE 5
#define WM_ACTIVATE 6
#define WM_SETFOCUS 7
#define WM_KILLFOCUS 8
#define WM_ENABLE 10
#define WM_SETREDRAW 11
#define WM_SETTEXT 12
#define WM_GETTEXT 13
#define WM_GETTEXTLENGTH 14
#define WM_PAINT 15
#define WM_CLOSE 0x10
#define WM_QUIT 0x12
#define WM_ERASEBKGND 0x14
#define WM_SYSCOLORCHANGE 0x15
#define WM_SHOWWINDOW 0x18
#define WM_ACTIVATEAPP 0x1C
#define WM_CANCELMODE 0x1F
#define WM_MOUSEACTIVATE 0x21
#define WM_NEXTDLGCTL 0x28
#define WM_DRAWITEM 0x2B
#define WM_MEASUREITEM 0x2C
#define WM_DELETEITEM 0x2D
#define WM_VKEYTOITEM 0x2E
#define WM_CHARTOITEM 0x2F
#define WM_QUERYDRAGICON 0x37
#define WM_SETFONT 0x30
#define WM_GETFONT 0x31
#define WM_COMPAREITEM 0x39
#define WM_WINDOWPOSCHANGING 0x46
#define WM_WINDOWPOSCHANGED 0x47
#define WM_COPYDATA 0x4A
#define WM_NOTIFY 0x4E
#define WM_HELP 0x53
#define WM_NOTIFYFORMAT 0x55
#define WM_CONTEXTMENU 0x7B
#define WM_STYLECHANGING 0x7C
#define WM_STYLECHANGED 0x7D
#define WM_GETICON 0x7F
#define WM_SETICON 0x80
#define WM_NCCREATE 0x81
#define WM_NCDESTROY 0x82
#define WM_NCCALCSIZE 0x83
#define WM_NCHITTEST 0x84
#define WM_NCPAINT 0x85
#define WM_NCACTIVATE 0x86
#define WM_GETDLGCODE 0x87
#define WM_NCLBUTTONDOWN 0xA1
#define WM_KEYDOWN 0x100
#define WM_KEYUP 0x101
#define WM_CHAR 0x102
#define WM_SYSKEYDOWN 0x104
#define WM_SYSKEYUP 0x105
#define WM_SYSCHAR 0x106
#define WM_INITDIALOG 0x110
#define WM_COMMAND 0x111
#define WM_SYSCOMMAND 0x112
#define WM_TIMER 0x113
#define WM_HSCROLL 0x114
#define WM_VSCROLL 0x115
#define WM_CTLCOLORMSGBOX 0x132
#define WM_CTLCOLOREDIT 0x133
#define WM_CTLCOLORLISTBOX 0x134
#define WM_CTLCOLORBTN 0x135
#define WM_CTLCOLORDLG 0x136
#define WM_CTLCOLORSCROLLBAR 0x137
#define WM_CTLCOLORSTATIC 0x138
#define WM_MOUSEMOVE 0x200
#define WM_LBUTTONDOWN 0x201
#define WM_LBUTTONUP 0x202
#define WM_LBUTTONDBLCLK 0x203
#define WM_MOUSEWHEEL 0x20A
#define WM_PARENTNOTIFY 0x210
#define WM_CAPTURECHANGED 0x215
#define WM_USER 0x400
#define WM_APP 0x8000
#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define MK_LBUTTON 1
#define SC_CLOSE 0xF060
#define NFR_UNICODE 2
#define NF_QUERY 3
#define HTTRANSPARENT (-1)
#define HTNOWHERE 0
#define HTCLIENT 1
#define HTCAPTION 2
#define HTVSCROLL 7
#define HTBORDER 18
#define MA_ACTIVATE 1

// What GetWindowLongPtrW and its like address.
#define GWLP_WNDPROC (-4)
#define GWLP_HINSTANCE (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_USERDATA (-21)
#define GWLP_ID (-12)
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC 8
#define DWLP_USER 0x10
#define DLGWINDOWEXTRA 0x1E
#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5
#define GA_ROOT 2

// Showing, moving and redrawing.
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_SHOWNA 8
#define SWP_NOSIZE 1
#define SWP_NOMOVE 2
#define SWP_NOZORDER 4
#define SWP_NOREDRAW 8
#define SWP_NOACTIVATE 0x10
#define SWP_FRAMECHANGED 0x20
#define SWP_SHOWWINDOW 0x40
#define SWP_HIDEWINDOW 0x80
#define RDW_INVALIDATE 1
#define RDW_ERASE 4
#define RDW_NOCHILDREN 0x40
#define RDW_ALLCHILDREN 0x80
#define RDW_UPDATENOW 0x100
#define RDW_FRAME 0x400
#define PM_REMOVE 1

// Dialogs.
#define DS_3DLOOK 4
#define DS_NOFAILCREATE 0x10
#define DS_SETFONT 0x40
#define DS_MODALFRAME 0x80
#define DS_CONTROL 0x400
#define DS_CENTER 0x800
#define DS_CONTEXTHELP 0x2000
#define DS_SHELLFONT 0x48
#define DS_ABSALIGN 1
#define DM_GETDEFID 0x400
#define DM_SETDEFID 0x401
#define DC_HASDEFID 0x534B
#define DLGC_WANTARROWS 1
#define DLGC_WANTTAB 2
#define DLGC_WANTMESSAGE 4
#define DLGC_HASSETSEL 8
#define DLGC_DEFPUSHBUTTON 0x10
#define DLGC_UNDEFPUSHBUTTON 0x20
#define DLGC_RADIOBUTTON 0x40
#define DLGC_WANTCHARS 0x80
#define DLGC_STATIC 0x100
#define DLGC_BUTTON 0x2000
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDHELP 9
#define MB_OK 0
#define MB_OKCANCEL 1
#define MB_ABORTRETRYIGNORE 2
#define MB_YESNO 4
#define MB_RETRYCANCEL 5
#define MB_ICONERROR 0x10
#define MB_ICONWARNING 0x30
#define MB_DEFBUTTON2 0x100
#define MB_TYPEMASK 15

// Static controls.
#define SS_LEFT 0
#define SS_RIGHT 2
#define SS_ICON 3
#define SS_OWNERDRAW 13
#define SS_BITMAP 14
#define SS_TYPEMASK 0x1F
#define SS_NOPREFIX 0x80
#define SS_NOTIFY 0x100
#define STM_GETICON 0x171
#define STM_GETIMAGE 0x173
#define STN_CLICKED 0
#define STN_DBLCLK 1
#define STN_ENABLE 2
#define STN_DISABLE 3

// Buttons.
#define BS_PUSHBUTTON 0
#define BS_DEFPUSHBUTTON 1
#define BS_CHECKBOX 2
#define BS_AUTOCHECKBOX 3
#define BS_RADIOBUTTON 4
#define BS_GROUPBOX 7
#define BS_USERBUTTON 8
#define BS_AUTORADIOBUTTON 9
#define BS_TYPEMASK 15
#define BS_MULTILINE 0x2000
#define BM_GETCHECK 0xF0
#define BM_SETCHECK 0xF1
#define BM_GETSTATE 0xF2
#define BM_SETSTYLE 0xF4
#define BM_CLICK 0xF5
#define BM_SETDONTCLICK 0xF8
#define BN_CLICKED 0
#define BN_DOUBLECLICKED 5
#define BST_UNCHECKED 0
#define BST_CHECKED 1
#define BST_PUSHED 4
#define BST_FOCUS 8

// Edit controls.
#define ES_AUTOHSCROLL 0x80
#define ES_READONLY 0x800
#define EM_GETSEL 0xB0
#define EM_SETSEL 0xB1
#define EM_LIMITTEXT 0xC5
#define EM_GETLIMITTEXT 0xD5
#define EN_SETFOCUS 0x100
#define EN_KILLFOCUS 0x200
#define EN_CHANGE 0x300
#define EN_UPDATE 0x400
#define EN_MAXTEXT 0x501

// Combo boxes.
#define CBS_DROPDOWNLIST 3
#define CBS_OWNERDRAWFIXED 0x10
#define CBS_HASSTRINGS 0x200
#define CB_GETEDITSEL 0x140
#define CB_ADDSTRING 0x143
#define CB_DELETESTRING 0x144
#define CB_GETCOUNT 0x146
#define CB_GETCURSEL 0x147
#define CB_GETLBTEXT 0x148
#define CB_GETLBTEXTLEN 0x149
#define CB_INSERTSTRING 0x14A
#define CB_RESETCONTENT 0x14B
#define CB_SETCURSEL 0x14E
#define CB_GETITEMDATA 0x150
#define CB_SETITEMDATA 0x151
#define CB_ERR (-1)
#define CBN_SELCHANGE 1
#define CBN_SETFOCUS 3
#define CBN_KILLFOCUS 4
#define CBN_DROPDOWN 7
#define CBN_CLOSEUP 8
#define CBN_SELENDOK 9
#define CBN_SELENDCANCEL 10

// List boxes.
#define LBS_NOTIFY 1
#define LBS_OWNERDRAWFIXED 0x10
#define LBS_HASSTRINGS 0x40
#define LBS_NOINTEGRALHEIGHT 0x100
#define LB_ADDSTRING 0x180
#define LB_INSERTSTRING 0x181
#define LB_DELETESTRING 0x182
#define LB_RESETCONTENT 0x184
#define LB_SETCURSEL 0x186
#define LB_GETCURSEL 0x188
#define LB_GETTEXT 0x189
#define LB_GETTEXTLEN 0x18A
#define LB_GETCOUNT 0x18B
#define LB_GETTOPINDEX 0x18E
#define LB_SETTOPINDEX 0x197
#define LB_GETITEMDATA 0x199
#define LB_SETITEMDATA 0x19A
#define LB_SETITEMHEIGHT 0x1A0
#define LB_GETITEMHEIGHT 0x1A1
#define LB_ERR (-1)
#define LBN_SELCHANGE 1
#define LBN_DBLCLK 2
#define LBN_SELCANCEL 3
#define LBN_SETFOCUS 4
#define LBN_KILLFOCUS 5

// Scroll bars.
#define SBS_HORZ 0
#define SBS_VERT 1
#define SB_VERT 1
#define SB_CTL 2
#define SB_LINEUP 0
#define SB_LINEDOWN 1
#define SB_PAGEUP 2
#define SB_PAGEDOWN 3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK 5
#define SB_TOP 6
#define SB_BOTTOM 7
#define SB_ENDSCROLL 8
#define SBM_SETSCROLLINFO 0xE9
#define SBM_GETSCROLLINFO 0xEA
#define SIF_RANGE 1
#define SIF_PAGE 2
#define SIF_POS 4
#define SIF_TRACKPOS 0x10
#define SIF_ALL 0x17

// Owner-drawn items.
#define ODT_LISTBOX 2
#define ODT_COMBOBOX 3
#define ODT_STATIC 5
#define ODA_DRAWENTIRE 1
#define ODA_SELECT 2
#define ODA_FOCUS 4
#define ODS_SELECTED 1
#define ODS_DISABLED 4
#define ODS_FOCUS 0x10
#define ODS_COMBOBOXEDIT 0x1000

// Menus.
#define MF_STRING 0
#define MF_BYCOMMAND 0
#define MF_BYPOSITION 0x400
#define MF_GRAYED 1
#define MF_DISABLED 2
#define MF_CHECKED 8
#define MF_POPUP 0x10
#define MF_SEPARATOR 0x800

// Keys.
#define VK_BACK 8
#define VK_TAB 9
#define VK_RETURN 13
#define VK_SHIFT 0x10
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_DELETE 0x2E
#define VK_F4 0x73

// System colours, metrics and drawn parts.
#define COLOR_SCROLLBAR 0
#define COLOR_ACTIVECAPTION 2
#define COLOR_INACTIVECAPTION 3
#define COLOR_MENU 4
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_CAPTIONTEXT 9
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_BTNSHADOW 0x10
#define COLOR_GRAYTEXT 0x11
#define COLOR_BTNTEXT 0x12
#define COLOR_BTNHIGHLIGHT 0x14
#define COLOR_3DDKSHADOW 0x15
#define COLOR_3DLIGHT 0x16
#define COLOR_INFOBK 0x18
#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYCAPTION 4
#define SM_CYVTHUMB 9
#define SM_CXHTHUMB 10
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXEDGE 0x2D
#define SM_CYVSCROLL 0x14
#define SM_CXHSCROLL 0x15
#define SM_CYMENU 15
#define BDR_RAISEDOUTER 1
#define BDR_SUNKENOUTER 2
#define BDR_RAISEDINNER 4
#define BDR_SUNKENINNER 8
#define EDGE_RAISED 5
#define EDGE_SUNKEN 10
#define EDGE_ETCHED 6
#define BF_LEFT 1
#define BF_TOP 2
#define BF_RIGHT 4
#define BF_BOTTOM 8
#define BF_RECT 15
#define BF_MIDDLE 0x800
#define BF_SOFT 0x1000
#define BF_ADJUST 0x2000
#define BF_FLAT 0x4000
#define DFC_BUTTON 4
#define DFC_SCROLL 3
#define DFC_CAPTION 1
#define DFCS_CAPTIONCLOSE 0
#define DFCS_BUTTONCHECK 0
#define DFCS_BUTTONRADIO 4
#define DFCS_BUTTONPUSH 0x10
#define DFCS_CAPTIONCLOSE 0
#define DFCS_SCROLLUP 0
#define DFCS_SCROLLDOWN 1
#define DFCS_SCROLLLEFT 2
#define DFCS_SCROLLRIGHT 3
#define DFCS_SCROLLCOMBOBOX 5
#define DFCS_INACTIVE 0x100
#define DFCS_PUSHED 0x200
#define DFCS_CHECKED 0x400
#define DFCS_FLAT 0x4000
#define DT_LEFT 0
#define DT_CENTER 1
#define DT_RIGHT 2
#define DT_VCENTER 4
#define DT_WORDBREAK 0x10
#define DT_SINGLELINE 0x20
#define DT_EXPANDTABS 0x40
#define DT_CALCRECT 0x400
#define DT_NOPREFIX 0x800
#define DT_END_ELLIPSIS 0x8000

// Images.
#define IMAGE_BITMAP 0
#define LR_LOADFROMFILE 0x10
#define LR_CREATEDIBSECTION 0x2000

#define HWND_TOP ((HWND)0)
#define HWND_BOTTOM ((HWND)1)
#define HWND_TOPMOST ((HWND)-1)
#define HWND_NOTOPMOST ((HWND)-2)
#define HWND_MESSAGE ((HWND)-3)

extern "C" {

// Classes and windows.
ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass);
BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE module);
int WINAPI GetClassNameW(HWND window, LPWSTR name, int length);
HWND WINAPI CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR text, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menuOrId,
                            HINSTANCE module, LPVOID parameter);
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LONG WINAPI GetWindowLongW(HWND window, int index);
LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
HANDLE WINAPI GetPropW(HWND window, LPCWSTR name);
BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE value);
HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name);
BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int length);
int WINAPI GetWindowTextLengthW(HWND window);
BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);
HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetFocus();
HWND WINAPI SetActiveWindow(HWND window);
HWND WINAPI GetActiveWindow();
HWND WINAPI SetCapture(HWND window);
BOOL WINAPI ReleaseCapture();
HWND WINAPI GetCapture();
HWND WINAPI GetParent(HWND window);
HWND WINAPI GetAncestor(HWND window, UINT which);
HWND WINAPI GetWindow(HWND window, UINT which);
BOOL WINAPI IsChild(HWND parent, HWND window);
BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC procedure, LPARAM parameter);
BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC procedure, LPARAM parameter);
HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR text);
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD extendedStyle);

// Messages.
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                               LPARAM lParam);
LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
void WINAPI PostQuitMessage(int code);
SHORT WINAPI GetKeyState(int key);
UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, TIMERPROC procedure);
BOOL WINAPI KillTimer(HWND window, UINT_PTR timer);

// Painting.
BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL WINAPI UpdateWindow(HWND window);
BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
HDC WINAPI GetDC(HWND window);
HDC WINAPI GetWindowDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC context);
int WINAPI FillRect(HDC context, const RECT* rect, HBRUSH brush);
int WINAPI FrameRect(HDC context, const RECT* rect, HBRUSH brush);
BOOL WINAPI DrawFocusRect(HDC context, const RECT* rect);
int WINAPI DrawTextW(HDC context, LPCWSTR text, int length, LPRECT rect, UINT format);
BOOL WINAPI DrawEdge(HDC context, LPRECT rect, UINT edge, UINT flags);
BOOL WINAPI DrawFrameControl(HDC context, LPRECT rect, UINT type, UINT state);
BOOL WINAPI DrawIcon(HDC context, int x, int y, HICON icon);
DWORD WINAPI GetSysColor(int index);
HBRUSH WINAPI GetSysColorBrush(int index);
int WINAPI GetSystemMetrics(int index);

// Rectangles.
BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy);
BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy);
BOOL WINAPI IntersectRect(LPRECT result, const RECT* a, const RECT* b);
BOOL WINAPI UnionRect(LPRECT result, const RECT* a, const RECT* b);
BOOL WINAPI EqualRect(const RECT* a, const RECT* b);
BOOL WINAPI PtInRect(const RECT* rect, POINT point);

// Dialogs.
HWND WINAPI CreateDialogParamW(HINSTANCE module, LPCWSTR name, HWND owner, DLGPROC procedure,
                               LPARAM parameter);
HWND WINAPI CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW layout, HWND owner,
                                       DLGPROC procedure, LPARAM parameter);
INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR name, HWND owner, DLGPROC procedure,
                               LPARAM parameter);
INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW layout, HWND owner,
                                       DLGPROC procedure, LPARAM parameter);
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);
HWND WINAPI GetDlgItem(HWND dialog, int id);
int WINAPI GetDlgCtrlID(HWND window);
BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int length);
BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT state);
UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int checked);
HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type);
BOOL WINAPI MessageBeep(UINT type);

// Scroll bars.
int WINAPI SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw);
BOOL WINAPI GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw);
int WINAPI GetScrollPos(HWND window, int bar);
BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw);

// Pictures from resources and files.
HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name);
HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name);
HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name);
HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height,
                         UINT flags);
HCURSOR WINAPI SetCursor(HCURSOR cursor);

// Menus.
HMENU WINAPI CreateMenu();
HMENU WINAPI CreatePopupMenu();
BOOL WINAPI DestroyMenu(HMENU menu);
BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text);
BOOL WINAPI ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR idOrSubmenu, LPCWSTR text);
HMENU WINAPI GetMenu(HWND window);
BOOL WINAPI SetMenu(HWND window, HMENU menu);
int WINAPI GetMenuItemCount(HMENU menu);
UINT WINAPI GetMenuItemID(HMENU menu, int position);
int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int length, UINT flags);
UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags);
HMENU WINAPI GetSubMenu(HMENU menu, int position);
BOOL WINAPI DrawMenuBar(HWND window);

}  // extern "C"
