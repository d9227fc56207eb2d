// The position calibration chart from the Tools page's button on, with the sample printer's table.
#include "core/device_mode.h"
#include "platform/host.h"
#include "platform_test.h"
#include "tools/kpdtool/kpdtool.h"

#include <sstream>

namespace test {
namespace {

class PrintedChartTest : public PlatformTest {};

TEST_F(PrintedChartTest, PrintsAtThePlacesThatThePageShows) {
    const std::string folder = DiskPath(TestFolder()).string();
    WriteBytes(TestFolder() + TEXT("\\printer.txt"),
               "calibration 0 = 1 2 3 4  0 0 0 0\ncalibration 2 = 8 3 -4 800  5 0 -2 800\n");
    WriteBytes(TestFolder() + TEXT("\\print.sheet"),
               "page \"Tools\"\n"
               "await enabled \"Print\"\n"
               "type \"B : \" \"5\"\n"
               "click \"Print\"\n"
               "ok\n");
    std::ostringstream said;
    ASSERT_EQ(RunKpdtool({"sheet", "--model", "Mirv KP-41", "--script", folder + "/print.sheet",
                          "--device", folder + "/printer.txt"},
                         said, said),
              0)
        << said.str();
    ASSERT_EQ(host::PrintedDocuments().size(), 1u);
    const host::PrintedDocument& chart = host::PrintedDocuments()[0];
    EXPECT_EQ(Narrow(chart.name), "Position Calibration Chart");
    EXPECT_EQ(chart.pages.size(), 1u);
    EXPECT_TRUE(chart.ended);
    ASSERT_EQ(chart.record.size(), sizeof(DevModeRecord));
    const auto& record = *reinterpret_cast<const DevModeRecord*>(chart.record.data());
    const auto place = [&](BYTE value) { return int{static_cast<std::int8_t>(value)}; };
    EXPECT_EQ(place(record.Private.PrintPositionA), 8);
    EXPECT_EQ(place(record.Private.PrintPositionB), 5);
    EXPECT_EQ(place(record.Private.PrintPositionC), -4);
    EXPECT_EQ(record.Private.PrintPositionExtra, 800);
}

}  // namespace
}  // namespace test
