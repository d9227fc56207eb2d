// A card with the position calibration chart, by which people judge the print position.
#pragma once

#include "companions/calibration_table.h"
#include "core/context.h"

/// Prints the chart as a document of one page, at the places of the table's row for the card
/// thickness of the working record. A document that cannot be printed is given up silently.
void PrintCalibrationChart(const DriverContext& context, const CalibrationTable& table);
