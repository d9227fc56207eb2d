// The driver's context for a command.
#pragma once

#include "arguments.h"
#include "core/context.h"
#include "tools/kpdtool/records/stored_record.h"

namespace kpdtool {

/// The context of the opened printer with the settings of `record`, unless that is empty, which
/// came from the file `in`. Throws ToolError when the driver refuses.
OwnedContext MakeContext(const PrinterArguments& names, HANDLE printer, const std::string& in,
                         std::vector<BYTE>& record);

StoredRecord WorkingRecord(const PrinterArguments& names, const DriverContext& context);

}  // namespace kpdtool
