// The version of the installed driver package.
#include "ui/pages/about/driver_version.h"

#include "core/driver_files.h"
#include "core/text.h"

#include <strsafe.h>

namespace {

// ---- A setup file -----------------------------------------------------------------------------

constexpr const WCHAR* kInstallSection = TEXT("KP4xx.NTamd64");
constexpr const WCHAR* kVersionSection = TEXT("Version");

void CopyText(WCHAR (&text)[kVersionLength], WideView part) {
    text[part.copy(text, kVersionLength - 1)] = 0;
}

// The date stands before the first comma and the version behind it.
void Split(WideView both, DriverVersion& version) {
    const size_t comma = both.find(TEXT(','));
    CopyText(version.Date, both.substr(0, comma));
    // Not substr, which can throw: all that throwing needs would be linked in.
    both.remove_prefix(comma == both.npos ? both.size() : comma + 1);
    CopyText(version.Version, both);
}

// False when the file is not there or another driver's. `whenMissing` is the version of a file of
// ours that has none.
bool ReadSetupFile(const WCHAR* file, const WCHAR* whenMissing, DriverVersion& version) {
    WCHAR value[kVersionLength];
    if (GetPrivateProfileStringW(kInstallSection, TEXT("DataFile"), TEXT(""), value, kVersionLength,
                                 file) == 0) {
        return false;
    }
    GetPrivateProfileStringW(kVersionSection, TEXT("DriverVer"), whenMissing, value, kVersionLength,
                             file);
    Split(value, version);
    return true;
}

// ---- The file of a remote printer -------------------------------------------------------------

struct SetupFile {
    BYTE ModelCode;
    const WCHAR* Name;
};

// The compressed setup files of the maker's packages. Records of this driver carry its own code,
// 32.
constexpr SetupFile SetupFileTable[] = {
    {1, TEXT("Card001.in_")},  {2, TEXT("Card002.in_")},  {3, TEXT("Card003.in_")},
    {4, TEXT("Card004.in_")},  {5, TEXT("Card005.in_")},  {6, TEXT("Card006.in_")},
    {7, TEXT("Card007.in_")},  {8, TEXT("Card008.in_")},  {9, TEXT("Card009.in_")},
    {10, TEXT("Card010.in_")}, {11, TEXT("Card011.in_")}, {12, TEXT("Card012.in_")},
    {13, TEXT("Card013.in_")}, {14, TEXT("Card014.in_")}, {15, TEXT("Card015.in_")},
    {16, TEXT("Card016.in_")}, {17, TEXT("Card017.in_")}, {18, TEXT("Card018.in_")},
    {19, TEXT("Card019.in_")}, {20, TEXT("Card020.in_")}, {21, TEXT("Card021.in_")},
    {22, TEXT("Card022.in_")}, {23, TEXT("Card023.in_")}, {24, TEXT("Card024.in_")},
    {25, TEXT("Card025.in_")}, {26, TEXT("Card026.in_")}, {27, TEXT("Card027.in_")},
    {28, TEXT("Card028.in_")}, {29, TEXT("Card029.in_")}, {30, TEXT("Card030.in_")},
    {31, TEXT("Card031.in_")}, {32, TEXT("KP4xx.in_")},
};
constexpr const WCHAR* kDefaultSetupFile = TEXT("Card.in_");

const WCHAR* SetupFileOf(BYTE modelCode) {
    for (const SetupFile& file : SetupFileTable) {
        if (file.ModelCode == modelCode) {
            return file.Name;
        }
    }
    return kDefaultSetupFile;
}

bool FindShipped(BYTE modelCode, DriverVersion& version) {
    WCHAR path[kDriverPathLength];
    DriverFilePath(path, SetupFileOf(modelCode));
    return ReadSetupFile(path, TEXT("09/20/2004,3.2.0.22"), version);
}

// ---- The files of what was installed here -----------------------------------------------------

// The first one of ours counts, in the order in which the file system lists them.
bool FindInstalled(DriverVersion& version) {
    constexpr size_t kPathLength = 2 * MAX_PATH;
    WCHAR windows[MAX_PATH];
    const UINT length = GetWindowsDirectoryW(windows, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return false;
    }
    WCHAR path[kPathLength];
    StringCchPrintfW(path, kPathLength, TEXT("%s\\inf\\oem*.inf"), windows);
    WIN32_FIND_DATAW file;
    HANDLE search = FindFirstFileW(path, &file);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    bool isFound = false;
    do {
        StringCchPrintfW(path, kPathLength, TEXT("%s\\inf\\%s"), windows, file.cFileName);
        isFound = ReadSetupFile(path, TEXT("05/20/2003,3.0.0.0"), version);
    } while (!isFound && FindNextFileW(search, &file));
    FindClose(search);
    return isFound;
}

}  // namespace

bool FindDriverVersion(bool isRemotePrinter, BYTE modelCode, DriverVersion& found) {
    return isRemotePrinter ? FindShipped(modelCode, found) : FindInstalled(found);
}
