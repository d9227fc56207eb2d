// A context as an application's call makes it.
#include "printer_context.h"

#include "tool_error.h"

namespace kpdtool {

OwnedContext MakeContext(const PrinterArguments& names, HANDLE printer, const std::string& in,
                         std::vector<BYTE>& record) {
    OwnedContext context(CreateDriverContext(printer, record.empty() ? nullptr : RecordIn(record)));
    if (!context) {
        throw ToolError((in.empty() ? names.name : in) + ": the driver refuses it");
    }
    return context;
}

StoredRecord WorkingRecord(const PrinterArguments& names, const DriverContext& context) {
    const auto* bytes = reinterpret_cast<const BYTE*>(&context.WorkingDevMode);
    return StoredRecord(names.name, {bytes, bytes + sizeof(DevModeRecord)});
}

}  // namespace kpdtool
