// The pages of the document sheet.
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
extern const PageRow PageTable[kPageSlots];
