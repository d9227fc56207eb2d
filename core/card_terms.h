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

/// Empty for a ribbon that has no name.
constexpr const WCHAR* RibbonName(BYTE ribbon) {
    for (const RibbonTerm& row : kRibbons) {
        if (row.Code == ribbon) {
            return row.Name;
        }
    }
    return TEXT("");
}

/// The codes by which printers tell the ribbon in them: several stand for one ribbon of the record.
struct PrinterRibbon {
    BYTE PrinterCode;
    BYTE Ribbon;
};
inline constexpr PrinterRibbon kPrinterRibbons[] = {
    // clang-format off
    {1, kRibbonYMCKO}, {33, kRibbonYMCKO}, {36, kRibbonYMCKO},
    {2, kRibbonK}, {9, kRibbonK}, {35, kRibbonK},
    {6, 2},
    {7, kRibbonKO}, {51, kRibbonKO}, {52, kRibbonKO},
    {8, kRibbonYMCKOK}, {37, kRibbonYMCKOK}, {38, kRibbonYMCKOK},
    {11, kRibbonHalfYMCKO}, {39, kRibbonHalfYMCKO}, {40, kRibbonHalfYMCKO},
    {41, 9}, {42, 9},
    {49, 10}, {50, 10},
    {45, 11}, {46, 11},
    {47, kRibbonYMCKFO}, {48, kRibbonYMCKFO},
    {53, 13}, {54, 13},
    {55, 14}, {56, 14},
    // clang-format on
};

constexpr BYTE kUnknownRibbon = 255;

/// The ribbon of the record that a printer's code stands for; kUnknownRibbon when there is none.
/// The code is in the low six bits, whatever the others are.
constexpr BYTE RibbonOfPrinter(BYTE printerCode) {
    for (const PrinterRibbon& row : kPrinterRibbons) {
        if (row.PrinterCode == (printerCode & 0x3F)) {
            return row.Ribbon;
        }
    }
    return kUnknownRibbon;
}

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
