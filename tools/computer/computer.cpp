// Adding a printer, as far as it is the same everywhere.
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

}  // namespace computer
