// The sample printer connected to this computer for a while: the sample of the device I/O library,
// which lies beside the program, and a printer's file are put into the driver directory.
#pragma once

#include <filesystem>
#include <string>

namespace computer {

/// A connection is taken back at its end, whatever became of the file meanwhile.
class SamplePrinter {
  public:
    /// `state` is the text of a printer's file (tools/companions/prn_bridge_queries.cpp lists its lines).
    /// With "fault = no calls" the library is an older one that has queries only. Reason() tells
    /// when it could not be done.
    explicit SamplePrinter(const std::string& state);
    ~SamplePrinter();
    SamplePrinter(const SamplePrinter&) = delete;
    SamplePrinter& operator=(const SamplePrinter&) = delete;

    const std::string& Reason() const { return reason_; }

    /// The printer's file as it is now.
    std::string State() const;

  private:
    std::string reason_;
};

}  // namespace computer
