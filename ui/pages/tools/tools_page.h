// The Tools page: the printer's maintenance functions.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK ToolsPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
