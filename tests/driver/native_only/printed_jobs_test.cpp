// The driver's own jobs from the pages' buttons on, with the sample printer's calibration table.
#include "driver_test.h"
#include "platform/host.h"
#include "tools/kpdtool/kpdtool.h"

#include <sstream>

namespace test {
namespace {

class PrintedJobsTest : public PlatformTest {
  protected:
    /// The only document that is printed while a script uses a model's sheet.
    static void Print(const char* model, const std::string& script) {
        const std::string folder = DiskPath(TestFolder()).string();
        WriteBytes(TestFolder() + TEXT("\\printer.txt"),
                   "calibration 0 = 1 2 3 4  0 0 0 0\ncalibration 2 = 8 3 -4 800  5 0 -2 800\n");
        WriteBytes(TestFolder() + TEXT("\\print.sheet"), script);
        std::ostringstream said;
        ASSERT_EQ(RunKpdtool({"sheet", "--model", model, "--script", folder + "/print.sheet",
                              "--device", folder + "/printer.txt"},
                             said, said),
                  0)
            << said.str();
        ASSERT_EQ(host::PrintedDocuments().size(), 1u);
        EXPECT_EQ(Document().pages.size(), 1u);
        EXPECT_TRUE(Document().ended);
        ASSERT_EQ(Document().record.size(), sizeof(DevModeRecord));
    }
    static const host::PrintedDocument& Document() { return host::PrintedDocuments()[0]; }
    static const DevModePrivate& Record() {
        return reinterpret_cast<const DevModeRecord*>(Document().record.data())->Private;
    }
};

TEST_F(PrintedJobsTest, TheChartIsPrintedAtThePlacesThatThePageShows) {
    Print("Mirv KP-41",
          "page \"Tools\"\n"
          "await enabled \"Print\"\n"
          "type \"B : \" \"5\"\n"
          "click \"Print\"\n"
          "ok\n");
    EXPECT_EQ(Narrow(Document().name), "Position Calibration Chart");
    const auto place = [&](BYTE value) { return int{static_cast<std::int8_t>(value)}; };
    EXPECT_EQ(place(Record().PrintPositionA), 8);
    EXPECT_EQ(place(Record().PrintPositionB), 5);
    EXPECT_EQ(place(Record().PrintPositionC), -4);
    EXPECT_EQ(Record().PrintPositionExtra, 800);
}

// Whatever becomes of the sheet.
TEST_F(PrintedJobsTest, ACardIsErasedAsThePageStands) {
    Print("Mirv KP-43",
          "page \"Device Option\"\n"
          "choose \"Card Thickness:\" \"0.5 mm\"\n"
          "page \"Rewrite\"\n"
          "click \"Quick erase\"\n"
          "slide IDC_ERASE_ENERGY -17\n"
          "slide IDC_WRITE_ENERGY 90\n"
          "click IDC_ERASE_CARD\n"
          "click \"Erase Now\"\n"
          "cancel\n");
    EXPECT_EQ(Narrow(Document().name), "Erase Card");
    EXPECT_EQ(Record().EraseEnergyTable[2], -17) << "of the job's own thickness";
    EXPECT_EQ(Record().EraseEnergyTable[1], 0);
    EXPECT_EQ(Record().EnergyTables10[4][1], 0);
    EXPECT_EQ(Record().CardThickness, 2);
    EXPECT_EQ(Record().CardHandlingFlags, kDriversOwnJob | kQuickErase);
    EXPECT_EQ(Record().EraseAreaMode, DefaultRecord(TEXT("Mirv KP-43")).Private.EraseAreaMode);
    const host::Picture& page = Document().pages[0];
    EXPECT_EQ(page.At(0, 0), 0u);
    EXPECT_EQ(page.At(641, 400), 0u);
    EXPECT_EQ(page.At(642, 400), 0xFFFFFFu);
}

}  // namespace
}  // namespace test
