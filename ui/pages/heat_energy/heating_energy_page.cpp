// The Heating Energy page: heating trims per panel, side and card thickness.
#include "ui/pages/heat_energy/heating_energy_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK HeatingEnergyPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kHeatingEnergySlot,
                                   .Section = TEXT("HeatEnergy"),
                                   .OffersHelp = false,
                                   .DropsTooltip = false};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
