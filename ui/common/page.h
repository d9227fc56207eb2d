// What every page of the document sheet does the same: it keeps the driver context, sets its
// section, fills and translates itself, reports the user's OK, opens its help and drops the shared
// tooltip window. A page is one row of hooks, and one dialog procedure serves them all.
#pragma once

#include "core/context.h"
#include "ui/common/numeric_field.h"
#include "ui/common/tooltip.h"

#include <windows.h>

#include <span>

struct Page {
    PageSlot Slot;
    const WCHAR* Section;  ///< of the language file
    /// With the texts that the page has in common with another one; its dialog is translated by
    /// this section first, and then by its own.
    const WCHAR* SharedSection = nullptr;
    bool OffersHelp = true;
    bool ReportsAccepted = true;  ///< answers an apply with CPSUI_OK
    bool DropsTooltip = true;     ///< takes the shared tooltip window with it
    std::span<const NumericField> Fields = {};
    std::span<const TextField> TextFields = {};  ///< their texts are not translated
    std::span<const Tip> Tips = {};

    // The hooks, each optional. While the page is being filled nothing that its controls tell is
    // passed on to them. The page's section is the current one when Fill, Open, Complete, Activate,
    // Apply, Applied and TakeAnswer are called; the others set it before they look texts up, since
    // another page's may be.

    /// Brings the record into a form that the page can show, and sets the controls from it; the
    /// skeleton then translates them. Called when the page opens and by FillPage, then also
    /// without a dialog (null) while the page is not open.
    void (*Fill)(HWND dialog, DriverContext& context) = nullptr;
    /// What is done once for a dialog, after it was filled and before it is translated.
    void (*Open)(HWND dialog, DriverContext& context) = nullptr;
    /// After the dialog was translated: shows what stays as it is, such as names of others' making.
    void (*Complete)(HWND dialog, DriverContext& context) = nullptr;
    void (*Activate)(HWND dialog, DriverContext& context) = nullptr;
    /// Before the page reports that the user accepted it.
    void (*Apply)(HWND dialog, DriverContext& context) = nullptr;
    /// After that report.
    void (*Applied)(HWND dialog, DriverContext& context) = nullptr;
    void (*Command)(HWND dialog, DriverContext& context, int control, int notification) = nullptr;
    /// A control's WM_NOTIFY, such as another tab.
    void (*Notify)(HWND dialog, DriverContext& context, const NMHDR& notification) = nullptr;
    /// `request` is the SB_ or TB_ code.
    void (*ScrollHorizontally)(HWND dialog, DriverContext& context, HWND bar,
                               WORD request) = nullptr;
    void (*ScrollVertically)(HWND dialog, DriverContext& context, HWND bar, WORD request) = nullptr;
    /// What a companion sends as WM_COPYDATA, from whomever and of whatever size.
    void (*TakeAnswer)(HWND dialog, DriverContext& context, const COPYDATASTRUCT& answer) = nullptr;
    void (*DrawItem)(HWND dialog, DriverContext& context, const DRAWITEMSTRUCT& item) = nullptr;
    /// `asked` is the part of the page to be painted. Without the hook the dialog paints itself.
    void (*Paint)(HWND dialog, DriverContext& context, HDC target, const RECT& asked) = nullptr;
    /// The user's F1 on a control.
    void (*Help)(HWND dialog, DriverContext& context) = nullptr;
    /// `message` is WM_MOUSEMOVE or WM_LBUTTONUP. No place is negative: the message's words count
    /// without sign.
    void (*Mouse)(HWND dialog, DriverContext& context, UINT message, POINT at) = nullptr;
    /// Releases what the page holds; its controls are still there.
    void (*Close)(HWND dialog, DriverContext& context) = nullptr;
};

INT_PTR RunPage(const Page& page, HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// The dialog procedure of a page. Its creation parameter is a PROPSHEETPAGEW with the driver
/// context as lParam.
template <const Page& Row>
INT_PTR CALLBACK PageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunPage(Row, dialog, message, wParam, lParam);
}

/// Fills a page anew after its record has been replaced. The sheet is told nothing.
void FillPage(const Page& page, DriverContext& context);

/// The context of a page, from its WM_INITDIALOG on; null before.
DriverContext* PageContext(HWND dialog);
