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

// A query's process has the library and the printer's file for a moment. False when it takes longer.
template <typename Attempt>
bool TryUntilFree(Attempt attempt) {
    constexpr int kTries = 200;
    for (int i = 0; i < kTries; ++i) {
        if (attempt()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

bool Remove(const fs::path& path) {
    return TryUntilFree([&] {
        std::error_code error;
        fs::remove(path, error);
        return !error;
    });
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
    std::ifstream file;
    TryUntilFree([&] {
        file.open(StateFile(), std::ios::binary);
        return file.is_open();
    });
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace computer
