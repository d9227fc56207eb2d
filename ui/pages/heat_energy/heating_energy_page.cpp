// The Heating Energy page: heating trims per panel, side and card thickness.
#include "ui/pages/heat_energy/heating_energy_page.h"

#include "ui/common/language.h"

constinit const Page kHeatingEnergyPage = {.Slot = kHeatingEnergySlot,
                                           .Section = kHeatEnergySection,
                                           .OffersHelp = false,
                                           .DropsTooltip = false};
