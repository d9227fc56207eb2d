// The platform's basic types, as the stand-in spells them: same names, sizes and
// signs as on 64-bit Windows, with WCHAR as char16_t.
#pragma once

#ifndef RC_INVOKED  // the resource compiler takes the names of numbers only
#include <cstddef>
#include <cstdint>
#endif

#define WINAPI
#define CALLBACK
#define APIENTRY WINAPI
#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

using BYTE = std::uint8_t;
using CHAR = char;
using WCHAR = char16_t;
using WORD = std::uint16_t;
using SHORT = std::int16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using INT = int;
using UINT = unsigned int;
using BOOL = int;
using LONGLONG = std::int64_t;
using ULONG_PTR = std::uintptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using INT_PTR = std::intptr_t;
using SIZE_T = std::size_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPBYTE = BYTE*;
using PLONG = LONG*;
using LPDWORD = DWORD*;
using PULONG = ULONG*;
using LPBOOL = BOOL*;
using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;

using HANDLE = void*;
using HGLOBAL = HANDLE;
#define DECLARE_HANDLE(name) \
    struct name##__;         \
    using name = name##__*
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HRSRC);
using HGDIOBJ = void*;
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using ATOM = WORD;
using COLORREF = DWORD;
using LPHANDLE = HANDLE*;
using PHKEY = HKEY*;
using FARPROC = INT_PTR(WINAPI*)();

#define TEXT(text) u##text
#define MAKEWPARAM(a, b) ((WPARAM)(DWORD)MAKELONG(a, b))
#define MAKELPARAM(a, b) ((LPARAM)(DWORD)MAKELONG(a, b))
#define MAKELRESULT(a, b) ((LRESULT)(DWORD)MAKELONG(a, b))
#define LOWORD(l) ((WORD)((DWORD_PTR)(l)&0xffff))
#define HIWORD(l) ((WORD)(((DWORD_PTR)(l) >> 16) & 0xffff))
#define MAKELONG(a, b) ((LONG)(((WORD)(a)) | ((DWORD)((WORD)(b))) << 16))

struct POINT {
    LONG x;
    LONG y;
};
using LPPOINT = POINT*;

struct SIZE {
    LONG cx;
    LONG cy;
};
using LPSIZE = SIZE*;

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPRECT = RECT*;
