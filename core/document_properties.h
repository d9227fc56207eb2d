// Document properties without a window, as the sheet function and the direct entry points give
// them.
#pragma once

#include "core/driver_ui_contract.h"

/// The header's mode asks for the resulting record.
bool AsksForRecord(const DOCUMENTPROPERTYHEADER& header);

/// Sets the header's cbOut to the size of a record and gives that for mode 0; otherwise merges the
/// input record into the printer's own and copies the result out when the mode asks for it: 1 when
/// done, cbOut without an output record, -1 on failure.
LONG SizeOrNonInteractive(DOCUMENTPROPERTYHEADER& header);
