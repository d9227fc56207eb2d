// The version of the installed driver package, as its setup file has it.
#pragma once

#include <windows.h>

/// Characters of each text, terminator included.
constexpr DWORD kVersionLength = 512;

struct DriverVersion {
    WCHAR Date[kVersionLength];
    WCHAR Version[kVersionLength];
};

/// The package of a remote printer is looked up in the model's setup file of the driver directory,
/// that of any other among the setup files of what was installed on this computer. False when there
/// is none; `found` is then as it was.
bool FindDriverVersion(bool isRemotePrinter, BYTE modelCode, DriverVersion& found);
