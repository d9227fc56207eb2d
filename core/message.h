// Messages to the user.
#pragma once

#include <windows.h>

/// Shows a box with an OK button that belongs to no window. The thread's windows take no input
/// meanwhile: closed behind it, a sheet would be gone when its page goes on. `icon` is MB_ICON...,
/// or 0.
void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon = MB_ICONERROR);
