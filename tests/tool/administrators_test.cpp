// package/administrators.md: every command of the tool in it does what it says, one after the other
// and as it stands there, and the files that it shows are there for them.
#include "platform_test.h"
#include "tools/computer/sample_library.h"
#include "tools/kpdtool/kpdtool.h"

#include <fstream>
#include <iomanip>
#include <sstream>

namespace test {
namespace {

constexpr std::string_view kCommand = "    kpdtool ";
constexpr std::string_view kFile = "```text ";

/// The current folder for the length of a test.
class InFolder {
  public:
    explicit InFolder(const std::filesystem::path& folder)
        : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~InFolder() { std::filesystem::current_path(before_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

  private:
    std::filesystem::path before_;
};

std::vector<std::string> Words(const std::string& command) {
    std::istringstream text(command);
    std::vector<std::string> words;
    for (std::string word; text >> std::quoted(word);) {
        words.push_back(word);
    }
    return words;
}

using AdministratorsTest = PlatformTest;

TEST_F(AdministratorsTest, TheCommandsOfTheirPageWork) {
    std::ifstream page(std::filesystem::absolute(KPD_SOURCE_DIR) / "package/administrators.md");
    std::ifstream state(std::filesystem::absolute(KPD_SOURCE_DIR) / "tools/samples/printer.txt");
    const computer::SamplePrinter printer({std::istreambuf_iterator<char>(state), {}});
    ASSERT_EQ(printer.Reason(), "");
    const InFolder here(DiskPath(TestFolder()));
    int commands = 0;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with(kFile)) {
            std::ofstream file(line.substr(kFile.size()));
            while (std::getline(page, line) && line != "```") {
                file << line << '\n';
            }
        } else if (line.starts_with(kCommand)) {
            std::ostringstream said;
            // Two that differ are what the page promises there.
            const bool differ = line.find(" diff ") != std::string::npos;
            EXPECT_EQ(RunKpdtool(Words(line.substr(kCommand.size())), said, said), differ ? 1 : 0)
                << line << '\n'
                << said.str();
            EXPECT_NE(said.str(), "") << line;
            ++commands;
        }
    }
    EXPECT_GE(commands, 10);
}

}  // namespace
}  // namespace test
