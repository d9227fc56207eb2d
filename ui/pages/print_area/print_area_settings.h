// Which print areas are chosen: their names, which the registry keeps for each user and printer,
// and the lists of a page to choose them from. The areas themselves are the designer library's.
#pragma once

#include "companions/area_designer.h"
#include "core/context.h"

#include <span>

// ---- Names --------------------------------------------------------------------------------------

struct AreaName {
    WCHAR Text[kAreaNameLength];
};

/// What a page's areas are called until somebody chooses others.
inline constexpr const WCHAR* kStandardArea = TEXT("Standard");

/// What is printed or laid within an area.
enum AreaPanel { kOvercoatPanel, kResinPanel, kLaminationPanel, kAreaPanels };

/// Nothing stays behind the text.
void SetAreaName(AreaName& name, const WCHAR* text);

/// The name that a value of the printer's key has, of whatever type; false when it cannot be read
/// or is longer than a name.
bool ReadAreaName(HKEY key, const WCHAR* value, AreaName& name);

/// The registry values that keep a name: the one of the area that is erased, and those of the
/// panels' areas.
inline constexpr const WCHAR* kStoredEraseArea = TEXT("EraseAreaFront");
const WCHAR* StoredAreaName(int panel, int side);

struct PrintAreaNames {
    AreaName Names[kAreaPanels][kAreaSides];
};

/// Reads the names of a printer. One that cannot be read is "Standard" and is stored so; where the
/// user has no key for the printer yet, it is made and all are "Standard". Types do not matter.
void LoadPrintAreaNames(const WCHAR* printer, PrintAreaNames& names);
/// Stores them, each with all its room. Nothing is stored when the key cannot be opened.
void SavePrintAreaNames(const WCHAR* printer, const PrintAreaNames& names);

// The one area within which rewritable cards are erased has a name as well. It is stored with the
// room of its text alone, and the key is made whenever it is missing.
void LoadEraseAreaName(const WCHAR* printer, AreaName& name);
void SaveEraseAreaName(const WCHAR* printer, const AreaName& name);

// ---- Lists --------------------------------------------------------------------------------------

/// One list of areas on a page, and what is chosen in it.
struct AreaChoice {
    AreaSide Side;
    int List;                       ///< the combo box
    AreaName* Name;                 ///< the chosen area's, whether the list has it or not
    WORD Index = 0;                 ///< in the list
    PrintAreaData* Area = nullptr;  ///< a copy of the chosen area, or none
};

// With a library that is not loaded all of these leave everything as it is.

/// Lists the areas anew and chooses those of the names, else the first. The names stay.
void FillPrintAreaLists(HWND dialog, const DriverContext& context, AreaDesignLibrary& library,
                        std::span<AreaChoice> choices);

/// Takes over what the user has selected in a list; without a selection nothing.
void TakeAreaSelection(HWND dialog, const AreaDesignLibrary& library, AreaChoice& choice);

/// Runs the designer for one of the choices and lists the areas anew. True when the user accepted
/// an area, which is then the choice's. `key` is for the designer; the lists take it as it is.
bool EditPrintArea(HWND dialog, const DriverContext& context, AreaDesignLibrary& library,
                   std::span<AreaChoice> choices, AreaChoice& edited,
                   SessionKey key = SessionKey::kAsItIs);

/// Frees the copies and ends with the library.
void ReleasePrintAreas(AreaDesignLibrary& library, std::span<AreaChoice> choices);
