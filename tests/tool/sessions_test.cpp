// Whole sessions with the document sheet, kept as files: tests/scripts/NAME.sheet played by
// kpdtool, on the default record or NAME.in.dm, gives the bytes of NAME.dm.
#include "platform_test.h"
#include "tools/kpdtool/kpdtool.h"

#include <fstream>
#include <sstream>

namespace test {
namespace {

std::string Bytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(file)), {});
}

class SessionsTest : public PlatformTest {};

TEST_F(SessionsTest, EndWithTheirRecords) {
    const std::filesystem::path folder = std::filesystem::path(KPD_SOURCE_DIR) / "tests/scripts";
    const std::filesystem::path out = DiskPath(TestFolder() + TEXT("\\out.dm"));
    int played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".sheet") {
            continue;
        }
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        const bool rewritable = name.starts_with("rewritable");
        std::vector<std::string> arguments = {"sheet",
                                              "--model",
                                              rewritable ? "Mirv KP-43" : "Mirv KP-41",
                                              "--language",
                                              "en",
                                              "--script",
                                              entry.path().string(),
                                              "--out",
                                              out.string()};
        const std::filesystem::path input = folder / (name + ".in.dm");
        if (std::filesystem::exists(input)) {
            arguments.insert(arguments.end(), {"--in", input.string()});
        }
        std::ostringstream said;
        EXPECT_EQ(RunKpdtool(arguments, said, said), 0) << said.str();
        EXPECT_TRUE(Bytes(out) == Bytes(folder / (name + ".dm"))) << said.str();
        std::filesystem::remove(out);
        ++played;
    }
    EXPECT_GE(played, 9);
}

}  // namespace
}  // namespace test
