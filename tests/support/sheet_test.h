// The fixture for the document sheet as users have it: opened through the driver's entry point,
// used from within, closed with OK or Cancel.
#pragma once

#include "driver_test.h"
#include "window_test.h"

#include <prsht.h>

#include <functional>
#include <vector>

namespace test {

class SheetTest : public DriverTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    using Step = std::function<void()>;
    /// Opens the sheet of a model through DrvDocumentProperties, does the steps in order, then
    /// presses the button (PSBTN_OK or PSBTN_CANCEL), and gives the call's result.
    LONG RunSheet(const WideString& model, std::vector<Step> steps, int button = PSBTN_OK,
                  const WideString& port = {});
    /// The same on an open printer, without steps.
    LONG RunOn(HANDLE printer, int button = PSBTN_OK);

    /// Asks `look` at the Advance Tool dialog with everything that a model shows in it, and closes
    /// it.
    void OpenAdvanceTool(const std::function<void(HWND)>& look);

    // For the steps.
    static HWND Sheet();              ///< the sheet on the screen; null when there is none
    static HWND ShowPage(int index);  ///< shows a tab's page and gives its dialog
    static std::vector<std::string> Tabs();

    DevModeRecord input_ = {};   ///< the default record at first
    DevModeRecord output_ = {};  ///< what the last RunSheet gave back
};

}  // namespace test
