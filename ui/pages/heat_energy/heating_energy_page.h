// The Heating Energy page: heating trims per panel, side and card thickness.
#pragma once

#include "ui/common/page.h"

extern const Page kHeatingEnergyPage;
