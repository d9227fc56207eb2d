// The Advance Tool dialog when calls of the platform fail.
#include "lone_page.h"
#include "platform/host.h"
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
    const auto open = [&] {
        Record().PrinterOptionFlags = 0;
        bool opened = false;
        RunInLoop([&] {
            HWND dialog = DialogWith(IDC_MOTOR_1);
            opened = dialog != nullptr;
            SendDlgItemMessageW(dialog, IDC_NO_EJECT, BM_CLICK, 0, 0);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        RunAdvanceTool(parent_, context_);
        ForgetSteps();
        DestroySharedTooltip();
        return opened;
    };
    ASSERT_TRUE(open());
    const host::Holdings before = host::CurrentHoldings();
    for (const host::Call kind :
         {host::Call::kWindow, host::Call::kModule, host::Call::kResource, host::Call::kProfile}) {
        for (unsigned n = 1;; ++n) {
            const unsigned calls = host::CallCount(kind);
            host::FailCall(kind, n);
            const bool opened = open();
            host::FailCall(kind, 0);
            EXPECT_EQ(host::CurrentHoldings(), before) << static_cast<int>(kind) << ", call " << n;
            EXPECT_EQ(Record().PrinterOptionFlags != 0, opened)
                << static_cast<int>(kind) << " " << n;
            if (host::CallCount(kind) - calls < n) {
                EXPECT_TRUE(opened);
                break;
            }
        }
    }
}

}  // namespace
}  // namespace test
