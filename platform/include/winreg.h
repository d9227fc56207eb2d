// The registry: the part of the platform's interface that the driver uses.
#pragma once

#include <windef.h>

using REGSAM = DWORD;
using LSTATUS = LONG;

#define REG_NONE 0
#define REG_SZ 1
#define REG_BINARY 3
#define REG_DWORD 4

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define REG_OPTION_NON_VOLATILE 0
#define REG_CREATED_NEW_KEY 1
#define REG_OPENED_EXISTING_KEY 2

#define HKEY_CURRENT_USER ((HKEY)(ULONG_PTR)0xffffffff80000001ull)
#define HKEY_LOCAL_MACHINE ((HKEY)(ULONG_PTR)0xffffffff80000002ull)

struct SECURITY_ATTRIBUTES;
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

extern "C" {
LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result);
LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass,
                               DWORD options, REGSAM access, LPSECURITY_ATTRIBUTES security,
                               PHKEY result, LPDWORD disposition);
LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size);
LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size);
LSTATUS WINAPI RegCloseKey(HKEY key);
}
