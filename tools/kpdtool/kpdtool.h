// kpdtool, the tool of a driver engineer, as a function.
#pragma once

#include <ostream>
#include <string>
#include <vector>

/// Runs the tool with its arguments, the program's name not among them; all text is UTF-8. Gives
/// the exit status: 0 done, 1 what the command found says no, 2 it could not be carried out, with
/// one line on `err`.
int RunKpdtool(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);
