// Putting the sample printer's files where the driver finds them.
#include "sample_printer.h"

#include "computer.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>

namespace computer {
namespace {

namespace fs = std::filesystem;

fs::path Library() {
    return DriverFolder() / "PrnBridge.dll";
}
fs::path StateFile() {
    return DriverFolder() / "SamplePrinter.txt";
}

// A library in use cannot be taken away; a query's process ends in a moment.
bool Remove(const fs::path& path) {
    constexpr int kTries = 200;
    std::error_code error;
    for (int i = 0; i < kTries; ++i) {
        fs::remove(path, error);
        if (!error) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

}  // namespace

SamplePrinter::SamplePrinter(const std::string& state) {
    // One that is there without a sample's file is a real one.
    if (fs::exists(Library()) && !fs::exists(StateFile())) {
        reason_ = "a device I/O library is installed on this computer";
        return;
    }
    const bool callsToo = state.find("fault = no calls") == std::string::npos;
    const fs::path sample =
        ProgramFolder() / "companions" / (callsToo ? "PrnBridge.dll" : "PrnBridgeQueries.dll");
    std::error_code error;
    fs::create_directories(DriverFolder(), error);
    if (!Remove(Library()) || !fs::copy_file(sample, Library(), error)) {
        reason_ = sample.string() + ": cannot be copied into the driver directory";
        return;
    }
    std::ofstream(StateFile(), std::ios::binary) << state;
}

SamplePrinter::~SamplePrinter() {
    if (reason_.empty() && Remove(Library())) {
        Remove(StateFile());
    }
}

std::string SamplePrinter::State() const {
    std::ifstream file(StateFile(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace computer
