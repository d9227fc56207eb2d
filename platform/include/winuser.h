// Message boxes: the part of the window services that calls without a property sheet use.
#pragma once

#include <windef.h>

#define MB_OK 0x00000000u
#define MB_ICONERROR 0x00000010u
#define IDOK 1

extern "C" {
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type);
}
