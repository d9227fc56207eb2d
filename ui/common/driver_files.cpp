// The files of the driver package.
#include "ui/common/driver_files.h"

#include <shellapi.h>
#include <strsafe.h>

void DriverFilePath(WCHAR (&path)[kDriverPathLength], const WCHAR* file) {
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    StringCchPrintfW(path, kDriverPathLength, TEXT("%s%s\\%s"), system, kDriverDirectory, file);
}

void OpenDriverFile(const WCHAR* file, const WCHAR* parameters) {
    WCHAR path[kDriverPathLength];
    DriverFilePath(path, file);
    ShellExecuteW(nullptr, TEXT("open"), path, parameters, nullptr, SW_SHOWNORMAL);
}

HMODULE LoadDriverLibrary(const WCHAR* file) {
    WCHAR path[kDriverPathLength];
    DriverFilePath(path, file);
    return LoadLibraryW(path);
}
