// Connecting the sample printer.
#include "connected_device.h"

#include "tool_error.h"
#include "wide_text.h"

#include <fstream>
#include <iterator>

namespace kpdtool {

ConnectedDevice::ConnectedDevice(const std::string& file) : file_(file) {
    if (file.empty()) {
        return;
    }
    std::ifstream input(PathFrom(file), std::ios::binary);
    if (!input) {
        throw ToolError(file + ": cannot be read");
    }
    before_.assign(std::istreambuf_iterator<char>(input), {});
    printer_.emplace(before_);
    if (!printer_->Reason().empty()) {
        throw ToolError(printer_->Reason());
    }
}

ConnectedDevice::~ConnectedDevice() {
    if (!printer_) {
        return;
    }
    if (const std::string state = printer_->State(); state != before_) {
        std::ofstream(PathFrom(file_), std::ios::binary) << state;
    }
}

void AddDevice(CLI::App& command, std::string& file) {
    command.add_option("--device", file,
                       "Connect the sample printer kept in this file, which is written again");
}

}  // namespace kpdtool
