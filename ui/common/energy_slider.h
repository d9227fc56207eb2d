// A slider over an energy table of the record: it shows and stores the table's entry for the card's
// thickness.
#pragma once

#include "core/record_field.h"
#include "ui/common/value_slider.h"

/// The entries of a side, one a thickness. A table begins with the front's.
constexpr WORD kEnergyThicknesses = kEnergyTableSize / 2;

struct EnergyEntries {
    RecordField Table;
    WORD First = 0;  ///< that of the thinnest card
};

constexpr ValueSlider EnergyBar(int slider, int text, int tickSpacing) {
    return {slider, text, -127, 127, 10, tickSpacing};
}

/// Shows the entry for the record's thickness; -128 as -127. A thickness that is none of the
/// tables' counts as the first.
void ShowEnergy(HWND dialog, const ValueSlider& bar, const DevModeRecord& record,
                EnergyEntries entries);
/// Stores where the slider is in that entry.
void StoreEnergy(HWND dialog, const ValueSlider& bar, DevModeRecord& record, EnergyEntries entries);
