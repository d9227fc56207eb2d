// The Printing Area page: which printing areas the overcoat and resin panels use.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK PrintingAreaPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
