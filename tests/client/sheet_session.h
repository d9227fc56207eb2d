// The sheet of an installed printer, as an application opens it, and what is done in it meanwhile.
#pragma once

#include <windows.h>

#include "core/device_mode.h"

#include <functional>
#include <string>

namespace test {

/// Calls `body` once, from within the message loop, with the next window of this thread that is
/// shown and has this control.
void InNextWindowWith(int control, std::function<void(HWND)> body);

/// Opens the sheet, calls `body` with it and presses a button (PSBTN_...). `record` gets the
/// result.
void RunSheetOf(std::basic_string<WCHAR> printer, DevModeRecord& record,
                const std::function<void(HWND)>& body, int button);

/// Activates the page whose template has this number and gives its window.
HWND ShowPage(HWND sheet, int dialog);

}  // namespace test
