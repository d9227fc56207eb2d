// Folders of the real computer.
#include "folders.h"

bool MakeFolder(const std::basic_string<WCHAR>& path) {
    return CreateDirectoryW(path.c_str(), nullptr) != 0;
}
