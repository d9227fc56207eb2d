// The Magnetic Encoding page: magnetic stripe encoding.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK MagneticEncodingPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
