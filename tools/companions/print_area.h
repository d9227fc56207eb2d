// The print areas that the sample designer knows: a few standard ones and those kept as text files.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

using WideString = std::basic_string<WCHAR>;

struct AreaBlock {
    BYTE Kind;  ///< 1 is left white
    WORD X;     ///< from the card's left edge
    WORD Y;     ///< from its bottom edge
    WORD Width;
    WORD Height;
};
constexpr BYTE kWhiteBlock = 1;

/// A layout of blocks on one side of the card, in units of its own.
struct PrintArea {
    WideString Name;
    bool IsPortrait = false;
    DWORD Width = 0;
    DWORD Height = 0;
    COLORREF CardColor = 0;
    COLORREF AreaColor = 0;
    std::vector<AreaBlock> Blocks = {};
    WideString File = {};  ///< its text file; empty for a standard one
};

/// What decides which areas there are for a side of a card.
struct AreaCard {
    BYTE Surface;  ///< code of the side's surface
    bool IsUpright;
    WORD LongExtent;  ///< in dots
    bool HasStandard = true;
};

/// The standard areas for such a side, "Standard" first, then those of the folder's files by their
/// names. A file with the name of a standard one takes its place. `folder` ends with a backslash.
std::vector<PrintArea> ListAreas(const AreaCard& card, const WideString& folder);

/// Writes an area as its text file in the folder, which is made when it is missing, and adds what
/// was made that was not there before to `made`. False when that cannot be done.
bool SaveArea(PrintArea& area, const WideString& folder, std::vector<WideString>& made);
