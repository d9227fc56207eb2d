// What a command is. Each is a file, which declares its arguments and carries it out, and a row of
// the table in kpdtool.cpp.
#pragma once

#include <functional>
#include <ostream>

namespace CLI {
class App;
}

namespace kpdtool {

/// Carries a command out with the values that its arguments got: prints what it found, and what the
/// user should know beside to `notes`, and gives the exit status. Throws ToolError when it cannot
/// be carried out.
using Run = std::function<int(std::ostream& out, std::ostream& notes)>;

/// Declares a command's arguments.
using Declare = Run(CLI::App& command);

}  // namespace kpdtool
