// What a modal box of the system does to the program's windows while it is up.
#pragma once

#include "host_state.h"

#include <vector>

namespace host {

/// As long as it lives, a box that nobody sees is the active window: what had the focus has lost
/// it, and the owner is disabled, or all windows of the program. At its end all come back.
class Absence {
  public:
    explicit Absence(HWND owner, bool ofAll = false);
    ~Absence();
    Absence(const Absence&) = delete;
    Absence& operator=(const Absence&) = delete;

  private:
    void Disable(HWND top);

    std::vector<HWND> disabled_;
    HWND active_;
    HWND box_;
};

}  // namespace host
