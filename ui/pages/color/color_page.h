// The Color page: colour preference and image adjustments.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK ColorPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
