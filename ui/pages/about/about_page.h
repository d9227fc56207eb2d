// The About page: the versions of driver and firmware.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK AboutPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
