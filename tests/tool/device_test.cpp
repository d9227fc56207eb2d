// kpdtool device, and a sheet with the sample printer: queries through the platform's own program
// that runs a library's entry, answered by message.
#include "tools/kpdtool/kpdtool.h"

#include "platform_test.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

namespace test {
namespace {

using Json = nlohmann::ordered_json;

constexpr char kState[] =
    "firmware = 1.07.0022\n"
    "ribbon = 33 187\n"
    "motors = 0 -2\n"
    "encoder = 1\n"
    "laminator = 0\n"
    "calibration 0 = 2 -1 0 300  0 0 0 300\n"
    "calibration 2 = 10 21 -10 0  -1 0 0 0\n";

class DeviceToolTest : public PlatformTest {
  protected:
    // The tool's status; what it says is in said_.
    int Run(const std::string& command, const std::string& state, const std::string& wait = "30") {
        WriteBytes(TestFolder() + TEXT("\\printer.txt"), state);
        std::ostringstream out;
        const int status =
            RunKpdtool({"device", command, "Badge room", "--json", "--wait", wait, "--device",
                        DiskPath(TestFolder()).string() + "/printer.txt"},
                       out, out);
        said_ = out.str();
        EXPECT_EQ(ReadBytes(TestFolder() + TEXT("\\printer.txt")), state);
        return status;
    }

    std::string said_;
};

TEST_F(DeviceToolTest, ShowsWhatThePrinterAnswers) {
    ASSERT_EQ(Run("show", kState), 0) << said_;
    const Json shown = Json::parse(said_);
    EXPECT_EQ(shown["firmware"], "1.07.0022");
    EXPECT_EQ(shown["ribbon"]["name"], "YMCKO");
    EXPECT_EQ(shown["ribbon"]["code"], 33);
    EXPECT_EQ(shown["ribbon"]["remaining"], 187);
    EXPECT_EQ(shown["motors"], Json({0, -2}));
    EXPECT_EQ(shown["encoder"], true);
    EXPECT_EQ(shown["laminationOverlay"], nullptr);
    EXPECT_EQ(shown["calibration"].size(), 12u);
}

TEST_F(DeviceToolTest, ChecksTheCalibration) {
    ASSERT_EQ(Run("calibration", kState), 1) << said_;
    std::string outOfRange;
    const Json said = Json::parse(said_);
    for (const Json& value : said["values"]) {
        if (!value["inRange"].get<bool>()) {
            outOfRange += value["card"].get<std::string>() + " " +
                          value["value"].get<std::string>() + " " + value["offset"].dump() + ";";
        }
    }
    EXPECT_EQ(outOfRange, "0.8 mm A 11;0.8 mm B 21;");
}

TEST_F(DeviceToolTest, TellsWhyThereIsNoAnswer) {
    struct Case {
        const char* faults;
        const char* wait;
        const char* said;
    };
    const Case cases[] = {
        {"fault = silent\n", "1", "no answer"},
        {"printer = another\n", "1", "no answer"},
        {"delay = 5000\n", "1", "no answer"},
        {"fault = short\n", "30", "an answer that is none"},
        {"fault = wrong\n", "30", "an answer that is none"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.faults);
        EXPECT_EQ(Run("calibration", std::string(kState) + c.faults, c.wait), 2);
        EXPECT_NE(said_.find(c.said), std::string::npos) << said_;
    }
    EXPECT_EQ(Run("calibration", std::string(kState) + "delay = 300\n"), 1) << said_;
}

TEST_F(DeviceToolTest, NeedsALibrary) {
    std::ostringstream out;
    EXPECT_EQ(RunKpdtool({"device", "show", "Badge room"}, out, out), 2);
    EXPECT_NE(out.str().find("PrnBridge.dll: cannot be loaded"), std::string::npos) << out.str();
}

}  // namespace
}  // namespace test
