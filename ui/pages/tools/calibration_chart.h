// A card with the position calibration chart, by which people judge the print position.
#pragma once

#include "companions/calibration_table.h"
#include "core/context.h"
#include "ui/pages/tools/print_job.h"

/// What the chart's job changes in the printer's record: a plain card, printed at the places of the
/// table's row for the card thickness of the working record.
void SetUpChartJob(JobRecord& record, const DriverContext& context, const CalibrationTable& table);

/// Prints the chart as a document of one page with such a record. A document that cannot be printed
/// is given up silently; without the chart's picture the page is empty.
void PrintCalibrationChart(const DriverContext& context, const CalibrationTable& table);
