// The Device Options page: the first page of every model: ribbon, card, orientation, copies and
// what is printed on which side.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK DeviceOptionsPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
