// What every page of the document sheet does the same: it keeps the driver context, translates
// itself, reports the user's OK, opens its help and drops the shared tooltip window.
#pragma once

#include "core/context.h"
#include "ui/common/tooltip.h"

#include <windows.h>

#include <span>

struct Page {
    PageSlot Slot;
    const WCHAR* Section;  ///< of the language file, for the dialog's texts and tips
    bool OffersHelp = true;
    bool ReportsAccepted = true;  ///< answers an apply with CPSUI_OK
    bool DropsTooltip = true;     ///< takes the shared tooltip window with it
    std::span<const Tip> Tips = {};
    /// Sets the controls, before the dialog is translated.
    void (*Open)(HWND dialog, DriverContext& context) = nullptr;
};

/// The dialog procedure of a page, as far as pages are alike.
INT_PTR RunPage(const Page& page, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// The context of a page, from its WM_INITDIALOG on; null before.
DriverContext* PageContext(HWND dialog);

/// Tells the sheet that something on the page changed.
void TellSheetChanged(HWND dialog);
