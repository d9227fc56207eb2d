// The pages of property sheets: what is behind an HPROPSHEETPAGE.
#pragma once

#include <windows.h>
#include <prsht.h>

#include "host_state.h"

/// A page from its creation until its sheet is gone, or until it is destroyed without one.
struct _PSP {
    PROPSHEETPAGEW page = {};  ///< what the page's dialog is given
    host::WideString title;
    host::WideString templateName;
    std::vector<WORD> layout;  ///< the template, as a child of the sheet; empty until prepared
    SIZE size = {};            ///< in dialog units
    HWND window = nullptr;     ///< made when first shown

    bool Has(DWORD flag) const { return (page.dwFlags & flag) != 0; }
};

namespace host {

/// Copies the caller's page. Null when the page's size is none.
HPROPSHEETPAGE NewSheetPage(const PROPSHEETPAGEW& from);
/// Takes a page over for a sheet, which then deletes it. False when there is no such page.
bool TakeSheetPage(HPROPSHEETPAGE page);
/// Its window is gone by then.
void DeleteSheetPage(HPROPSHEETPAGE page);
/// Reads the page's template. False when there is none.
bool PrepareSheetPage(_PSP& page);

}  // namespace host
