// The print-area designer of the driver package, AreaDesign.dll. A print area is a named layout of
// rectangles on one side of the card; the library designs areas, keeps them as files and lists
// them. What it gives is not believed: names are given an end, counts and chains have a limit.
#pragma once

#include "core/device_mode.h"
#include "core/owners.h"

#include <cstddef>

enum AreaSide { kFrontArea, kBackArea, kAreaSides };

// ---- Areas --------------------------------------------------------------------------------------
// Records of the library's format. Lengths are in layout units, which the layout itself has chosen.

struct PrintAreaBlock {
    BYTE Reserved00[8];
    BYTE Kind;  //   8  kWhiteBlock: drawn in white; else in the area's colour
    BYTE Reserved09[3];
    WORD X;       //  12  from the card's left edge
    WORD Y;       //  14  from the card's bottom edge
    WORD Width;   //  16
    WORD Height;  //  18
    BYTE Reserved20[84];
    PrintAreaBlock* Next;  // 104
};
static_assert(sizeof(PrintAreaBlock) == 112);
static_assert(offsetof(PrintAreaBlock, Kind) == 8);
static_assert(offsetof(PrintAreaBlock, X) == 12);
static_assert(offsetof(PrintAreaBlock, Height) == 18);
static_assert(offsetof(PrintAreaBlock, Next) == 104);

constexpr BYTE kWhiteBlock = 1;

struct PrintAreaData {
    BYTE Reserved000[10];
    BYTE Orientation;  //  10  DMORIENT_PORTRAIT: made for a portrait card
    BYTE Reserved011[81];
    DWORD Width;   //  92
    DWORD Height;  //  96
    BYTE Reserved100[4];
    COLORREF CardColor;  // 104
    COLORREF AreaColor;  // 108
    BYTE Reserved112[696];
    PrintAreaBlock* FirstBlock;  // 808
    BYTE Reserved816[8];
};
static_assert(sizeof(PrintAreaData) == 824);
static_assert(offsetof(PrintAreaData, Orientation) == 10);
static_assert(offsetof(PrintAreaData, Width) == 92);
static_assert(offsetof(PrintAreaData, CardColor) == 104);
static_assert(offsetof(PrintAreaData, FirstBlock) == 808);

/// A copy of an area with its blocks, to be given back with FreePrintAreaData. Null for null, when
/// memory is short, and for a chain of blocks that does not come to an end.
PrintAreaData* CopyPrintAreaData(const PrintAreaData* area);
/// Frees a copy; the holder is null then.
void FreePrintAreaData(PrintAreaData*& copy);

// ---- What the library is told -------------------------------------------------------------------

/// Where things are, as narrow texts with a backslash at their end.
struct AreaFolders {
    // Up to three bytes a character.
    char Driver[3 * 2 * MAX_PATH];
    char Areas[3 * 2 * MAX_PATH];
};
/// Where the user's application data lie is kept in a registry key of the session.
enum class SessionKey { kAsItIs, kMadeWhenMissing };
/// False when the user's application-data folder is not known or cannot be written narrow.
bool FindAreaFolders(AreaFolders& folders, SessionKey key = SessionKey::kAsItIs);

struct PrintAreaParams {
    DWORD Size;              //   0
    DWORD Always1At4;        //   4
    BYTE Surface;            //   8  what else is on that side of the card
    BYTE Orientation;        //   9  1 portrait, 2 landscape
    WORD AreaIndex;          //  10
    DWORD FirstExtent;       //  12  in dots
    DWORD SecondExtent;      //  16
    WORD HorizontalDpi;      //  20
    WORD VerticalDpi;        //  22
    BYTE Always1At24;        //  24
    BYTE Always20hAt25;      //  25
    BYTE Reserved26[6];      //  26
    const char* Driver;      //  32  folder
    const char* Areas;       //  40  folder
    char LanguageFile[120];  //  48  the designer's, without a folder
};
static_assert(sizeof(PrintAreaParams) == 168);
static_assert(offsetof(PrintAreaParams, AreaIndex) == 10);
static_assert(offsetof(PrintAreaParams, HorizontalDpi) == 20);
static_assert(offsetof(PrintAreaParams, Driver) == 32);
static_assert(offsetof(PrintAreaParams, LanguageFile) == 48);

/// The parameters to list the areas for a side of the record's card. They refer to the folders.
PrintAreaParams EnumerationParams(const DevModeRecord& record, AreaSide side,
                                  const AreaFolders& folders);
/// The parameters to run the designer, with that area chosen.
PrintAreaParams DesignerParams(const DevModeRecord& record, AreaSide side,
                               const AreaFolders& folders, WORD area);

/// The name of the designer's language file for the user's UI language.
void DesignerLanguageFile(WCHAR (&file)[MAX_PATH]);

// ---- The library --------------------------------------------------------------------------------

struct AreaDesignerObject;
struct AreaEnumeration;
/// The object of the library that is asked: one of the two, the other is null.
struct AreaSource {
    AreaDesignerObject* Designer;
    AreaEnumeration* Enumeration;
};

/// The loaded library of one page, all zero while it is not loaded.
struct AreaDesignLibrary {
    HMODULE Module;
    AreaEnumeration* Enumerations[kAreaSides];  ///< of the lists as they are; null without one
    FARPROC EntryPoints[8];
    DWORD IsLoaded;
};

/// Reports no failure; a library that lacks an entry point is not used.
void LoadAreaDesigner(AreaDesignLibrary& library);
/// Ends its enumerations and frees it.
void UnloadAreaDesigner(AreaDesignLibrary& library);

// For a loaded library alone.

/// Characters of an area's name, terminator included.
constexpr size_t kAreaNameLength = 260;
/// More are not listed: an area's number has 16 bits.
constexpr DWORD kMostAreas = 0x10000;

/// Lists a side's areas anew. False when the library could not; else their number, kMostAreas at
/// most.
bool ListAreas(AreaDesignLibrary& library, AreaSide side, const PrintAreaParams& params,
               DWORD& count);
/// Gives the library's own answer; the name is empty where it gave none.
bool GetAreaName(const AreaDesignLibrary& library, AreaSource source, DWORD area,
                 WCHAR (&name)[kAreaNameLength]);
/// A copy of an area, as of CopyPrintAreaData; also null when the library gives none.
PrintAreaData* CopyArea(const AreaDesignLibrary& library, AreaSource source, DWORD area);

/// Null when the library cannot. Ended with EndDesigner.
AreaDesignerObject* NewDesigner(const AreaDesignLibrary& library, const AreaFolders& folders);
/// Shows the designer until its user closes it. True when he accepted an area, whose number is then
/// in `params`; it need not be one that the library has.
bool RunDesigner(const AreaDesignLibrary& library, AreaDesignerObject* designer,
                 PrintAreaParams& params);
void EndDesigner(const AreaDesignLibrary& library, AreaDesignerObject* designer);

/// While it lives, the driver directory is the last of the process's search path (PATH), where the
/// designer finds libraries of its own.
class DesignerSearchPath {
  public:
    DesignerSearchPath();
    DesignerSearchPath(const DesignerSearchPath&) = delete;
    DesignerSearchPath& operator=(const DesignerSearchPath&) = delete;
    ~DesignerSearchPath();

  private:
    GlobalBlock<WCHAR> before_;  // none without a PATH
    bool isChanged_ = false;
};
