// What the codes of the record are called: ribbons, cards and their thicknesses, as lists offer
// them and messages name them; and the card forms. The names are keys of the language file.
#pragma once

#include "core/device_mode.h"

struct RibbonTerm {
    BYTE Code;
    const WCHAR* Name;
};

/// The ribbons that can be chosen, in the order of the list. Records may carry other codes, which
/// have no name.
inline constexpr RibbonTerm kRibbons[] = {
    {kRibbonYMCKO, TEXT("YMCKO")},   {kRibbonK, TEXT("K")},   {kRibbonHalfYMCKO, TEXT("1/2 YMCKO")},
    {kRibbonYMCKOK, TEXT("YMCKOK")}, {kRibbonKO, TEXT("KO")}, {kRibbonYMCKFO, TEXT("YMCKFO")},
};

/// By CardTypeCode.
inline constexpr const WCHAR* kCardTypes[] = {
    TEXT("Blank Card"),           TEXT("6-pin Smart Chip Card"), TEXT("8-pin Smart Chip Card"),
    TEXT("Magnetic Stripe Card"), TEXT("Chip/Magnetic Card"),    TEXT("Adhesive Card"),
};

/// By CardThicknessCode.
inline constexpr const WCHAR* kThicknesses[] = {TEXT("0.3 mm"), TEXT("0.5 mm"), TEXT("0.8 mm"),
                                                TEXT("1.0 mm")};

struct CardForm {
    SHORT PaperSize;
    SHORT Width;   ///< tenths of a millimetre
    SHORT Length;  ///< tenths of a millimetre
    const WCHAR* FormName;
    DWORD MediaType;
};

/// Form 0 is the one that applications choose by paper size; form 1 is reached only through
/// CardSizeKind kLongCard.
inline constexpr CardForm CardFormTable[] = {
    {560, 544, 859, TEXT("CR-80 Card"), 401},
    {561, 544, 1441, TEXT("CR-80 Long Card"), 402},
};

/// A card's extents in dots at 300 dpi, whatever its orientation.
struct CardExtent {
    SHORT PaperSize;
    int Short;
    int Long;
};
inline constexpr CardExtent CardExtentTable[] = {{560, 642, 1014}, {561, 642, 1700}};

/// The row of a paper size, the first for one that has none.
constexpr const CardExtent& CardExtentOf(SHORT paperSize) {
    for (const CardExtent& row : CardExtentTable) {
        if (row.PaperSize == paperSize) {
            return row;
        }
    }
    return CardExtentTable[0];
}
