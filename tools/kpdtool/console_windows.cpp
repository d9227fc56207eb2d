// The platform gives arguments in the system's code page, in which not every file has a name, and
// its standard output writes '\n' as two bytes.
#include "console.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>

#include "wide_text.h"

std::vector<std::string> PrepareConsole(int, char**) {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> arguments;
    int count = 0;
    WCHAR** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        arguments.push_back(kpdtool::ToUtf8(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}
