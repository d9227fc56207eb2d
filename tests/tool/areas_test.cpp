// kpdtool areas: what the user has chosen and what the designer has.
#include "application_data.h"
#include "printer_user_key.h"
#include "tools/kpdtool/kpdtool.h"

#include <sstream>

namespace test {
namespace {

class AreasTest : public PlatformTest {
  protected:
    // What it prints, and in notes_ what it says beside.
    std::string Areas(const std::vector<std::string>& arguments) {
        std::vector<std::string> all = {"areas"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        std::ostringstream out;
        std::ostringstream notes;
        EXPECT_EQ(RunKpdtool(all, out, notes), 0);
        notes_ = notes.str();
        return out.str();
    }
    std::string File(const std::string& state) {
        const WideString path = TestFolder() + TEXT("\\designer.txt");
        WriteBytes(path, state);
        return DiskPath(path).string();
    }

    ApplicationData applicationData_;
    std::string notes_;
};

TEST_F(AreasTest, TellsWhatIsChosenAndStoresNothing) {
    const PrinterUserKey key(TEXT("Badge room"));
    key.StoreText(TEXT("ResinFrontPrintArea"), TEXT("Photo Window"));
    EXPECT_EQ(Areas({"Mirv KP-41", "--printer", "Badge room"}),
              "Chosen\n"
              "  overcoat    front  Standard      Glossy Overcoat\n"
              "  overcoat    back   Standard      Glossy Overcoat\n"
              "  resin K     front  Photo Window  Print CMY Under K\n"
              "  resin K     back   Standard      Print CMY Under K\n"
              "  lamination  front  Standard\n"
              "  lamination  back   Standard\n");
    EXPECT_NE(notes_.find("The print-area designer cannot be loaded."), std::string::npos);
    EXPECT_EQ(key.Stored(TEXT("ResinBackPrintArea")), "none");
    EXPECT_EQ(Areas({"Mirv KP-43", "--printer", "Badge room"}),
              "Chosen\n  erase  front  Standard\n");
    EXPECT_EQ(key.Stored(TEXT("EraseAreaFront")), "none");
}

TEST_F(AreasTest, ListsWhatTheDesignerHasForEachSide) {
    applicationData_.Store(TestFolder());
    const std::string state = "calls = no\n";
    const std::string file = File(state);
    EXPECT_EQ(Areas({"Mirv KP-43", "--designer", file}),
              "Chosen\n  erase  front  Standard\n"
              "Offered by the designer\n"
              "  front  Standard         1014 x 642, landscape, 1 blocks\n"
              "  front  Photo Window     1014 x 642, landscape, 2 blocks\n"
              "  front  Signature Panel  1014 x 642, landscape, 1 blocks\n");
    EXPECT_EQ(notes_, "");
    EXPECT_NE(Areas({"Mirv KP-41", "--designer", file, "--json"}).find(R"("side": "back")"),
              std::string::npos);
    EXPECT_EQ(ReadBytes(TestFolder() + TEXT("\\designer.txt")), state) << "no complaint";
    EXPECT_NE(Areas({"Mirv KP-41", "--designer", File("fault = no data\ncalls = no\n")})
                  .find("Standard         no data"),
              std::string::npos);
}

}  // namespace
}  // namespace test
