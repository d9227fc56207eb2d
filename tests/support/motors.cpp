// One implementation for both platforms.
#include "motors.h"

namespace test {

DeviceLibrary::DeviceLibrary(const std::string& file)
    : path_(DriverFolder() + TEXT("\\PrnBridge.dll")) {
    std::filesystem::remove(DiskPath(path_));
    std::filesystem::copy_file(file, DiskPath(path_));
    held_ = LoadLibraryW(path_.c_str());
    EXPECT_NE(held_, nullptr);
}

DeviceLibrary::~DeviceLibrary() {
    FreeLibrary(held_);
    std::filesystem::remove(DiskPath(path_));
}

MotorNotes& DeviceLibrary::Notes() {
    const auto notes = reinterpret_cast<MotorNotes* (*)()>(
        reinterpret_cast<void*>(GetProcAddress(held_, "Notes")));
    return *notes();
}

}  // namespace test
