// The job that erases a rewritable card, apart from anything that is printed on it.
#pragma once

#include "core/context.h"
#include "ui/pages/tools/print_job.h"

/// What the erase job changes in the printer's record: a plain card of 0.8 mm, printed black, with
/// the energy and the working record's quick erase. Everything else stays the printer's.
void SetUpEraseJob(JobRecord& record, const DriverContext& context, int energy);

/// Prints the area that the working record says to erase as a black page with such a record, and
/// comes back when it has been printed. A document that cannot be printed is given up silently.
void EraseCard(const DriverContext& context, int energy);
