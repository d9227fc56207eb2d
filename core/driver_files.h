// The files of the driver package, which lie in the driver directory: their paths, opening them
// with the shell, loading the companion libraries.
#pragma once

#include <windows.h>

/// The driver directory below the system directory.
inline constexpr const WCHAR* kDriverDirectory = TEXT("\\spool\\drivers\\x64\\3");

/// Characters of a path in the driver directory, terminator included.
constexpr size_t kDriverPathLength = 2 * MAX_PATH;

/// Writes the driver directory's full path, without a backslash at its end.
void DriverFolderPath(WCHAR (&path)[kDriverPathLength]);
/// Writes the full path of a file of the driver directory.
void DriverFilePath(WCHAR (&path)[kDriverPathLength], const WCHAR* file);

/// Opens a file with the shell's verb "open"; a program with `parameters`. A missing file is the
/// shell's affair.
void OpenDriverFile(const WCHAR* file, const WCHAR* parameters = nullptr);

/// Loads a library by its full path, since a bare name would be searched for elsewhere first. Null
/// when it cannot be loaded; the caller frees it.
HMODULE LoadDriverLibrary(const WCHAR* file);
