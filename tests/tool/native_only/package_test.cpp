// package/build_package.py: which files get into a package and what its setup file says of them.
// What the platform makes of such a package is tested where there is one.
#include "platform_test.h"

#include <chrono>
#include <cstdlib>
#include <fstream>

namespace test {
namespace {

namespace fs = std::filesystem;

class BuildPackageTest : public PlatformTest {
  protected:
    void SetUp() override {
        PlatformTest::SetUp();
        Store(built_ / "kpdui.dll", "the library");
        Store(built_ / "kpdtool.exe", "the tool");
    }

    static void Store(const fs::path& path, const std::string& bytes) {
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Read(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// False when it is refused.
    bool Build(const std::string& further = "", const char* zip = "one.zip") const {
        const std::string command = KPD_SOURCE_DIR "/package/build_package.py --built '" +
                                    built_.string() + "' --out '" + out_.string() + "' --zip '" +
                                    (folder_ / zip).string() + "' " + further + " 2>/dev/null";
        return std::system(command.c_str()) == 0;
    }
    std::string SetupFile() const { return Read(out_ / "kpdui.inf"); }
    /// The lines of one of its sections, joined.
    std::string Section(const std::string& name) const {
        const std::string text = SetupFile();
        const size_t begin = text.find("\r\n[" + name + "]\r\n");
        return begin == std::string::npos
                   ? "none"
                   : text.substr(begin + 2, text.find("\r\n\r\n", begin + 2) - begin);
    }

    const fs::path folder_ = DiskPath(TestFolder());
    const fs::path built_ = folder_ / "built";
    const fs::path out_ = folder_ / "out";
};

TEST_F(BuildPackageTest, EveryFileOfTheDriverDirectoryIsNamed) {
    ASSERT_TRUE(Build());
    const std::string copied = Section("DriverFiles");
    const std::string sources = Section("SourceDisksFiles");
    int files = 0;
    for (const auto& entry : fs::directory_iterator(out_)) {
        const std::string name = entry.path().filename().string();
        const bool isOurs =
            name != "kpdui.inf" && name != "kpdtool.exe" && name != "administrators.md";
        EXPECT_EQ(copied.find("\r\n" + name + "\r\n") != std::string::npos, isOurs) << name;
        EXPECT_EQ(sources.find("\r\n" + name + " = 1\r\n") != std::string::npos, isOurs) << name;
        ++files;
    }
    EXPECT_GT(files, 10);
    EXPECT_NE(Section("KP4xx.NTamd64").find("DriverFile = kpdui.dll\r\n"), std::string::npos);
    EXPECT_EQ(SetupFile().find('@'), std::string::npos);
}

TEST_F(BuildPackageTest, TheOtherHalfCompletesIt) {
    const fs::path maker = folder_ / "maker";
    Store(maker / "kpdgdi.dll", "");
    Store(maker / "profiles/Cards.icc", "");
    ASSERT_TRUE(Build("'" + maker.string() + "'"));
    EXPECT_EQ(Section("ColorProfiles"), "[ColorProfiles]\r\nCards.icc\r\n");
    EXPECT_EQ(Section("DriverFiles").find("Cards.icc"), std::string::npos);
    EXPECT_EQ(Section("KP4xx.NTamd64"),
              "[KP4xx.NTamd64]\r\nCopyFiles = DriverFiles, ColorProfiles\r\n"
              "DriverFile = kpdgdi.dll\r\nConfigFile = kpdui.dll\r\nDataFile = KP4xx.in_\r\n");
    // Two of one name would be one in the driver directory.
    Store(maker / "magnetic.TXT", "");
    EXPECT_FALSE(Build("'" + maker.string() + "'"));
}

TEST_F(BuildPackageTest, TheSameFilesGiveTheSameBytes) {
    ASSERT_TRUE(Build());
    for (const auto& entry : fs::directory_iterator(built_)) {
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(50));
    }
    ASSERT_TRUE(Build("", "two.zip"));
    EXPECT_GT(Read(folder_ / "one.zip").size(), 1000u);
    EXPECT_EQ(Read(folder_ / "one.zip"), Read(folder_ / "two.zip"));
}

}  // namespace
}  // namespace test
