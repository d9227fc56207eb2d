// What a modal box of the system does to the program's windows while it is up.
#pragma once

#include "host_state.h"

namespace host {

/// As long as it lives, a box that nobody sees is the active window: what had the focus has lost
/// it, and the owner is disabled. At its end both come back.
class Absence {
  public:
    explicit Absence(HWND owner);
    ~Absence();
    Absence(const Absence&) = delete;
    Absence& operator=(const Absence&) = delete;

  private:
    HWND disabled_ = nullptr;
    HWND active_;
    HWND box_;
};

}  // namespace host
