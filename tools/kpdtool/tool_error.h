// What ends a command: one line on standard error and exit status 2.
#pragma once

#include <stdexcept>

namespace kpdtool {

class ToolError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace kpdtool
