// The Rewrite page: rewritable cards: their energies and their erase job.
#pragma once

#include <windows.h>

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK RewritePageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
