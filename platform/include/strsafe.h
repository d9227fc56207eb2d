// Bounded string operations: every result is terminated and never longer than the buffer.
#pragma once

#include <windows.h>

#define STRSAFE_MAX_CCH 2147483647
#define STRSAFE_E_INSUFFICIENT_BUFFER ((HRESULT)0x8007007Au)
#define STRSAFE_E_INVALID_PARAMETER ((HRESULT)0x80070057u)

HRESULT StringCchCopyW(LPWSTR out, size_t length, LPCWSTR text);

/// Knows %s %ls %S %hs %d %i %u %x %X %c and %%, with width and zero padding; stops the program at
/// any other conversion.
HRESULT StringCchPrintfW(LPWSTR out, size_t length, LPCWSTR format, ...);
