// Adding a printer and the driver package's files, as far as it is the same everywhere.
#include "computer.h"

#include "core/device_mode.h"

namespace computer {

std::string InstallPrinter(const PrinterSpec& spec) {
    PrinterSpec complete = spec;
    if (complete.defaultRecord.empty()) {
        complete.defaultRecord.resize(sizeof(DevModeRecord));
        BuildDefaultDevMode(reinterpret_cast<DevModeRecord*>(complete.defaultRecord.data()),
                            spec.name.c_str(), spec.model.c_str());
    }
    return AddToSpooler(complete);
}

std::string InstallPackage(const std::filesystem::path& package) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path folder = DriverFolder();
    fs::create_directories(folder, error);
    for (auto file = fs::recursive_directory_iterator(package, error);
         !error && file != fs::recursive_directory_iterator(); file.increment(error)) {
        if (!file->is_regular_file()) {
            continue;
        }
        // Taken away first: not every library of the language copies over a file that is there.
        const fs::path copy = folder / file->path().filename();
        fs::remove(copy, error);
        if (!error && !fs::copy_file(file->path(), copy, error)) {
            break;
        }
    }
    return error ? package.string() + ": copying the driver package: " + error.message() : "";
}

std::string InstallPackageSources(const std::filesystem::path& sources) {
    std::string reason;
    for (const char* part : {"languages", "pictures", "samples"}) {
        reason = reason.empty() ? InstallPackage(sources / part) : reason;
    }
    return reason;
}

}  // namespace computer
