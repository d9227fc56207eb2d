// The Heating Energy page: heating trims per panel, side and card thickness.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK HeatingEnergyPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
