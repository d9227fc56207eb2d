// Here both are as the tool wants them.
#include "console.h"

std::vector<std::string> PrepareConsole(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}
