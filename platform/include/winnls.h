// Languages, locales and code pages: the part of the platform's interface that the driver uses.
#pragma once

#include <windef.h>

using LANGID = WORD;
using LCID = DWORD;
using LCTYPE = DWORD;

#define PRIMARYLANGID(lgid) ((WORD)(lgid)&0x3ff)
#define SUBLANGID(lgid) ((WORD)(lgid) >> 10)
#define MAKELANGID(p, s) ((((WORD)(s)) << 10) | (WORD)(p))

#define LANG_ARABIC 0x01
#define LANG_CHINESE 0x04
#define LANG_GERMAN 0x07
#define LANG_ENGLISH 0x09
#define LANG_SPANISH 0x0a
#define LANG_FRENCH 0x0c
#define LANG_ITALIAN 0x10
#define LANG_JAPANESE 0x11
#define LANG_KOREAN 0x12
#define LANG_POLISH 0x15
#define LANG_PORTUGUESE 0x16
#define LANG_RUSSIAN 0x19
#define LANG_INDONESIAN 0x21
#define LANG_FARSI 0x29
#define SUBLANG_DEFAULT 0x01
#define SUBLANG_CHINESE_TRADITIONAL 0x01
#define SUBLANG_CHINESE_SIMPLIFIED 0x02
#define SUBLANG_CHINESE_HONGKONG 0x03

#define LOCALE_USER_DEFAULT 0x0400
#define LOCALE_ICOUNTRY 0x0005

#define CP_ACP 0

#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

extern "C" {
LANGID WINAPI GetUserDefaultUILanguage(void);
int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR data, int length);
UINT WINAPI GetACP(void);
/// Here of texts with a terminator only (lengths of -1), case ignored.
int WINAPI CompareStringOrdinal(LPCWSTR a, int aLength, LPCWSTR b, int bLength, BOOL ignoreCase);
int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int textLength, LPWSTR out,
                               int outLength);
int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength, LPSTR out,
                               int outLength, LPCSTR defaultChar, LPBOOL usedDefaultChar);
}
