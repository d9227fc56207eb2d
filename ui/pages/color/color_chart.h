// The colour chart: a program of the driver package prints it.
#pragma once

#include "core/context.h"

/// Starts the program for the context's printer and card. One that is missing is the shell's
/// affair.
void OpenColorChart(const DriverContext& context);
