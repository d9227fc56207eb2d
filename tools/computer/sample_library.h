// A sample of a library that lies outside the driver, installed on this computer for a while: the
// sample, which lies beside the program, and the file that it keeps its state in are put into the
// driver directory.
#pragma once

#include <filesystem>
#include <string>

namespace computer {

/// A sample is taken back at its end, whatever became of its file meanwhile.
class SampleLibrary {
  public:
    SampleLibrary(const SampleLibrary&) = delete;
    SampleLibrary& operator=(const SampleLibrary&) = delete;

    /// Why it could not be installed, else empty.
    const std::string& Reason() const { return reason_; }

    /// The state's file as it is now.
    std::string State() const;

  protected:
    /// `sample` is the built library that is installed as `library`.
    SampleLibrary(const char* library, const char* sample, const char* stateFile,
                  const std::string& state);
    ~SampleLibrary();

  private:
    std::filesystem::path library_;
    std::filesystem::path stateFile_;
    std::string reason_;
};

/// The sample printer.
class SamplePrinter : public SampleLibrary {
  public:
    /// `state` is the text of a printer's file (tools/companions/prn_bridge_queries.cpp lists its
    /// lines). With "fault = no calls" the library is an older one that has queries only.
    explicit SamplePrinter(const std::string& state);
};

/// The sample of the print-area designer.
class SampleDesigner : public SampleLibrary {
  public:
    /// `state` is the text of its file (tools/companions/area_design.cpp lists the lines). With
    /// "fault = no entry point" the library is one that lacks an entry point.
    explicit SampleDesigner(const std::string& state);
    /// Removes the files and folders of print areas that it has made.
    ~SampleDesigner();
};

}  // namespace computer
