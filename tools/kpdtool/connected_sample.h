// Samples of the libraries that lie outside the driver, for the length of a command.
#pragma once

#include "tool_error.h"
#include "tools/computer/sample_library.h"

#include <CLI/App.hpp>

#include <optional>
#include <string>

namespace kpdtool {

// A state's file as it is; throws ToolError when it cannot be read. Writing reports nothing.
std::string ReadState(const std::string& file);
void WriteState(const std::string& file, const std::string& state);

/// Installs the sample whose state is kept in a file, if a command names one; what happens to it is
/// in the file at the end. Throws ToolError when that cannot be done.
template <typename Sample>
class ConnectedSample {
  public:
    explicit ConnectedSample(const std::string& file) : file_(file) {
        if (file.empty()) {
            return;
        }
        before_ = ReadState(file);
        sample_.emplace(before_);
        if (!sample_->Reason().empty()) {
            throw ToolError(sample_->Reason());
        }
    }
    ~ConnectedSample() {
        if (sample_ && sample_->State() != before_) {
            WriteState(file_, sample_->State());
        }
    }
    ConnectedSample(const ConnectedSample&) = delete;
    ConnectedSample& operator=(const ConnectedSample&) = delete;

  private:
    std::string file_;
    std::string before_;
    std::optional<Sample> sample_;
};

using ConnectedDevice = ConnectedSample<computer::SamplePrinter>;
using ConnectedDesigner = ConnectedSample<computer::SampleDesigner>;

/// --device, a printer's file.
void AddDevice(CLI::App& command, std::string& file);
/// --designer, a designer's file.
void AddDesigner(CLI::App& command, std::string& file);

}  // namespace kpdtool
