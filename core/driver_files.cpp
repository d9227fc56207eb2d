// The files of the driver package.
#include "core/driver_files.h"

#include <shellapi.h>
#include <strsafe.h>

void DriverFolderPath(WCHAR (&path)[kDriverPathLength]) {
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    StringCchPrintfW(path, kDriverPathLength, TEXT("%s%s"), system, kDriverDirectory);
}

void DriverFilePath(WCHAR (&path)[kDriverPathLength], const WCHAR* file) {
    WCHAR folder[kDriverPathLength];
    DriverFolderPath(folder);
    StringCchPrintfW(path, kDriverPathLength, TEXT("%s\\%s"), folder, file);
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
