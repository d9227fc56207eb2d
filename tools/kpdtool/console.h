// What a program meets differently on the two platforms: its arguments and its standard output.
#pragma once

#include <string>
#include <vector>

/// Gives the arguments behind the program's name, in UTF-8, and lets standard output and standard
/// error pass every byte as it is.
std::vector<std::string> PrepareConsole(int argc, char** argv);
