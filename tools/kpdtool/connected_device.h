// The sample printer for the length of a command.
#pragma once

#include "tools/computer/sample_library.h"

#include <CLI/App.hpp>

#include <optional>
#include <string>

namespace kpdtool {

/// Connects the printer kept in a file, if a command names one; what happens to it is in the file
/// at the end. Throws ToolError when that cannot be done.
class ConnectedDevice {
  public:
    explicit ConnectedDevice(const std::string& file);
    ~ConnectedDevice();
    ConnectedDevice(const ConnectedDevice&) = delete;
    ConnectedDevice& operator=(const ConnectedDevice&) = delete;

  private:
    std::string file_;
    std::string before_;
    std::optional<computer::SamplePrinter> printer_;
};

/// --device, a printer's file.
void AddDevice(CLI::App& command, std::string& file);

}  // namespace kpdtool
