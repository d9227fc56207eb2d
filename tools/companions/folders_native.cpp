// Folders on the drive that the stand-in plays.
#include "folders.h"
#include "platform/host.h"

bool MakeFolder(const std::basic_string<WCHAR>& path) {
    std::error_code error;
    return std::filesystem::create_directory(host::DiskPath(path.c_str()), error);
}
