// The program around RunKpdtool.
#include "console.h"
#include "kpdtool.h"

#include <iostream>

int main(int argc, char** argv) {
    return RunKpdtool(PrepareConsole(argc, argv), std::cout, std::cerr);
}
