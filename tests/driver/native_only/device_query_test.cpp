// The queries' command lines, and what the shell is told beside.
#include "companions/device_io.h"

#include "platform/host.h"
#include "platform_test.h"

namespace test {
namespace {

class DeviceQueryTest : public PlatformTest {};

TEST_F(DeviceQueryTest, NamesItsWindowAsASignedNumber) {
    const ULONG_PTR window = 0xFFFFFFFF80000001;
    AskDevice(DeviceQuery::kFirmwareVersion, reinterpret_cast<HWND>(ULONG_PTR{0x10042}),
              TEXT("Badge room"));
    AskDevice(DeviceQuery::kCalibration, reinterpret_cast<HWND>(window), TEXT("\\\\server\\cards"));
    AskDevice(DeviceQuery::kMagneticEncoder, nullptr, nullptr);
    const auto& calls = host::ShellCalls();
    ASSERT_EQ(calls.size(), 3u);
    const char* const kParameters[] = {
        "PrnBridge.dll,DrvUI_GetDeviceInfo -T1 -W65602 -P\"Badge room\"",
        "PrnBridge.dll,DrvUI_GetDeviceInfo -T5 -W-2147483647 -P\"\\\\server\\cards\"",
        "PrnBridge.dll,DrvUI_GetDeviceInfo -T6 -W0 -P\"\"",
    };
    for (size_t i = 0; i < calls.size(); ++i) {
        EXPECT_EQ(Narrow(calls[i].parameters), kParameters[i]);
        EXPECT_EQ(Narrow(calls[i].verb), "open");
        EXPECT_EQ(Narrow(calls[i].file), "rundll32.exe");
        EXPECT_EQ(Narrow(calls[i].folder), "C:\\Windows\\system32\\spool\\drivers\\x64\\3");
        EXPECT_EQ(calls[i].show, SW_SHOWNORMAL);
    }
}

TEST_F(DeviceQueryTest, IsHeldByNothingWhenTheShellFails) {
    host::FailCall(host::Call::kShell, 1);
    AskDevice(DeviceQuery::kCalibration, nullptr, TEXT("Badge room"));
    EXPECT_TRUE(host::ShellCalls().empty());
}

}  // namespace
}  // namespace test
