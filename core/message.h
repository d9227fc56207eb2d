// Messages to the user.
#pragma once

#include <windows.h>

/// Shows a box with an OK button that belongs to no window. `icon` is MB_ICON..., or 0.
void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon = MB_ICONERROR);

/// Whether such a box waits to be answered, whichever sheet of the process shows it.
bool IsMessageShown();
