// Messages to the user.
#pragma once

#include <windows.h>

/// Shows a box with an OK button that belongs to no window; until it is answered, the windows of
/// this thread cannot be used. `icon` is MB_ICON..., or 0.
void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon = MB_ICONERROR);
