// Putting a sample's files where the driver finds them.
#include "sample_library.h"

#include "computer.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>
#include <vector>

namespace computer {
namespace {

namespace fs = std::filesystem;

// A query's process has the library and the state's file for a moment. False when it takes longer.
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

bool HasFault(const std::string& state, const char* fault) {
    return state.find(std::string("fault = ") + fault) != std::string::npos;
}

}  // namespace

SampleLibrary::SampleLibrary(const char* library, const char* sample, const char* stateFile,
                             const std::string& state)
    : library_(DriverFolder() / library), stateFile_(DriverFolder() / stateFile) {
    // One that is there without a sample's file is a real one.
    if (fs::exists(library_) && !fs::exists(stateFile_)) {
        reason_ = std::string("a real ") + library + " is installed on this computer";
        return;
    }
    const fs::path built = ProgramFolder() / "companions" / sample;
    std::error_code error;
    fs::create_directories(DriverFolder(), error);
    if (!Remove(library_) || !fs::copy_file(built, library_, error)) {
        reason_ = built.string() + ": cannot be copied into the driver directory";
        return;
    }
    std::ofstream(stateFile_, std::ios::binary) << state;
}

SampleLibrary::~SampleLibrary() {
    if (reason_.empty() && Remove(library_)) {
        Remove(stateFile_);
    }
}

std::string SampleLibrary::State() const {
    std::ifstream file;
    TryUntilFree([&] {
        file.open(stateFile_, std::ios::binary);
        return file.is_open() || !fs::exists(stateFile_);
    });
    return {std::istreambuf_iterator<char>(file), {}};
}

SamplePrinter::SamplePrinter(const std::string& state)
    : SampleLibrary("PrnBridge.dll",
                    HasFault(state, "no calls") ? "PrnBridgeQueries.dll" : "PrnBridge.dll",
                    "SamplePrinter.txt", state) {}

SampleDesigner::SampleDesigner(const std::string& state)
    : SampleLibrary("AreaDesign.dll",
                    HasFault(state, "no entry point") ? "AreaDesignOlder.dll" : "AreaDesign.dll",
                    "SampleDesigner.txt", state) {
    ProvideApplicationData();
}

SampleDesigner::~SampleDesigner() {
    if (!Reason().empty()) {
        return;
    }
    // A folder was made before what is in it; one with other files in it stays.
    constexpr std::string_view kMade = "made = ";
    std::vector<std::string> made;
    std::istringstream state(State());
    for (std::string line; std::getline(state, line);) {
        if (line.starts_with(kMade)) {
            made.insert(made.begin(), line.substr(kMade.size()));
        }
    }
    for (const std::string& path : made) {
        const fs::path named(std::u8string(path.begin(), path.end()));
        std::error_code ignored;
        fs::remove(DiskPath(named.string<WCHAR>()), ignored);
    }
}

}  // namespace computer
