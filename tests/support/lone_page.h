// The fixture for a page by itself, over a context made by hand, without a sheet or a printer
// around it.
#pragma once

#include "core/context.h"
#include "window_test.h"

namespace test {

class LonePageTest : public WindowTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes a page over context_; one that is open is destroyed first.
    void OpenPage(int dialog, DLGPROC procedure);

    // What the user does.
    void Click(int control);

    // What he sees.
    bool IsShown(int control) const;
    /// "-" when it is hidden; else with "~" before when it is disabled: "x" or "." for a box, the
    /// selected text and the number of items for a list, the position of a slider, else the text.
    std::string Looks(int control) const;
    /// Every control's looks, a line each.
    std::string LooksOfAll() const;

    /// How often the sheet was told of a change since the last call.
    static int TakeChanges();

    DevModePrivate& Record() { return context_.WorkingDevMode.Private; }
    const DevModePrivate& Record() const { return context_.WorkingDevMode.Private; }

    DEVMODEW& Paper() { return context_.WorkingDevMode.Public; }
    const DEVMODEW& Paper() const { return context_.WorkingDevMode.Public; }

    DriverContext context_ = {};
    HWND page_ = nullptr;
};

}  // namespace test
