// The Advance Tool dialog when calls of the platform fail.
#include "lone_page.h"
#include "native_only.h"
#include "resources/resource.h"
#include "sheet_pages.h"
#include "tools/computer/sample_library.h"
#include "ui/common/tooltip.h"
#include "ui/pages/tools/advance_tool.h"

namespace test {
namespace {

using AdvanceToolFaults = LonePageTest;

// Nothing is held, and the record is what the user could see and leave with "Exit".
TEST_F(AdvanceToolFaults, CallsThatFail) {
    const computer::SamplePrinter printer("");
    bool opened = false;
    const auto open = [&] {
        Record().PrinterOptionFlags = 0;
        opened = false;
        RunInLoop([&] {
            HWND dialog = DialogWith(IDC_MOTOR_1);
            opened = dialog != nullptr;
            SendDlgItemMessageW(dialog, IDC_NO_EJECT, BM_CLICK, 0, 0);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        RunAdvanceTool(parent_, context_);
        ForgetSteps();
        DestroySharedTooltip();
        EXPECT_EQ(Record().PrinterOptionFlags != 0, opened);
    };
    open();
    for (const host::Call kind :
         {host::Call::kWindow, host::Call::kModule, host::Call::kResource, host::Call::kProfile}) {
        EXPECT_GT(FailEach(kind, open), 0u);
        EXPECT_TRUE(opened) << "without a failure";
    }
}

}  // namespace
}  // namespace test
