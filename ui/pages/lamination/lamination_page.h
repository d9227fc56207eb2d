// The Lamination page: the laminator's film and parameters.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK LaminationPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
