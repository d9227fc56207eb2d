// Programs and documents opened through the shell.
#pragma once

#include <windows.h>

extern "C" {
/// Gives more than 32 when the shell took the order, else the reason.
HINSTANCE WINAPI ShellExecuteW(HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters,
                               LPCWSTR folder, int show);
}
