// The ribbon that the printer has in it.
#pragma once

#include "core/context.h"

/// Asks the printer for its ribbon and shows it with the prints that are left on it, whatever the
/// printer answers.
void ShowRibbonStatus(const DriverContext& context);
