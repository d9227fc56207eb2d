// The document sheet with the Lamination page, which the driver prepares and adds to no sheet.
#pragma once

#include "tools/computer/computer.h"

namespace kpdtool {

/// Shows the sheet of a loaded driver, as its DrvDocumentProperties does with the mode's prompt,
/// and behind the driver's own pages the Lamination page of the driver code linked into this
/// program. Gives what DrvDocumentProperties gives.
LONG ShowSheetWithLamination(const computer::Driver& driver, HANDLE printer, WCHAR* name,
                             DEVMODEW* output, DEVMODEW* input, DWORD mode);

}  // namespace kpdtool
