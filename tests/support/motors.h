// The device I/O library of the driver package, as tests have it lie in the driver directory.
#pragma once

#include "motor_companion.h"
#include "platform_test.h"

namespace test {

/// A library as PrnBridge.dll, gone again at the end.
class DeviceLibrary {
  public:
    /// `file` is a built library, as the standard library names it.
    explicit DeviceLibrary(const std::string& file = KPD_MOTOR_COMPANION);
    DeviceLibrary(const DeviceLibrary&) = delete;
    DeviceLibrary& operator=(const DeviceLibrary&) = delete;
    ~DeviceLibrary();

    /// Of the tests' own library.
    MotorNotes& Notes();

  private:
    WideString path_;
    HMODULE held_ = nullptr;  // so that the notes last from one call of the driver to the next
};

}  // namespace test
