// What the document sheet needs of its pages. The pages' side defines it, in
// ui/pages/page_table.cpp; nothing else of theirs is known here.
#pragma once

#include "core/context.h"

/// One page slot: its template, its title as a key of a section of the language file, its dialog
/// procedure, and the models and ports that have it.
struct PageRow {
    WORD Dialog;
    const WCHAR* Section;
    const WCHAR* Title;
    DLGPROC Procedure;
    bool (*IsAdded)(const DriverContext& context);
};
/// In the order of PageSlot.
extern const PageRow PageTable[kPageSlots];

/// Characters of a title on its tab, terminator included; a longer translation is cut.
constexpr size_t kPageTitleLength = 128;

/// Looks the page's title up, and leaves its section as the current one.
void LookupPageTitle(const PageRow& row, WCHAR (&title)[kPageTitleLength]);
