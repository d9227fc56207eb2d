// The Import/Export page: settings carried to another computer in a file.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK ImportExportPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
