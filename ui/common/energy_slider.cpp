// A slider over an energy table of the record.
#include "ui/common/energy_slider.h"

#include <algorithm>

namespace {

RecordField EntryFor(const DevModeRecord& record, EnergyEntries entries) {
    const BYTE thickness = record.Private.CardThickness;
    const int entry = entries.First + (thickness < kEnergyThicknesses ? thickness : 0);
    return {static_cast<WORD>(entries.Table.Offset + entry), 1};
}

}  // namespace

void ShowEnergy(HWND dialog, const ValueSlider& bar, const DevModeRecord& record,
                EnergyEntries entries) {
    const int value = static_cast<signed char>(ReadField(record, EntryFor(record, entries)));
    ShowSliderValue(dialog, bar, std::max(value, bar.Minimum));
}

void StoreEnergy(HWND dialog, const ValueSlider& bar, DevModeRecord& record,
                 EnergyEntries entries) {
    const int value = SliderValue(dialog, bar);
    WriteField(record, EntryFor(record, entries), static_cast<DWORD>(value));
}
