// The one tooltip window, shared by the pages of a sheet.
#pragma once

#include <windows.h>

#include <span>

struct Tip {
    int Control;
    const WCHAR* Key;  ///< looked up in the page's section
};

/// Makes the process-wide tooltip window, owned by the dialog's sheet, unless there is one. Without
/// it, when it cannot be made, no tips are shown.
void CreateSharedTooltip(HWND dialog);

/// Gives each control of the dialog its tip, looked up in the current section. A control that the
/// dialog lacks has none.
void AddTips(HWND dialog, std::span<const Tip> tips);

/// Destroys the window, if there is one, and forgets it.
void DestroySharedTooltip();
