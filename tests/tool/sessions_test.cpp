// Whole sessions with the document sheet, kept as files: tests/scripts/NAME.sheet played by
// kpdtool, on the default record or NAME.in.dm, gives the bytes of NAME.dm. A session plays in a
// folder with all settings files of tests/scripts, and leaves NAME.mcs as Export.mcs if there is
// one. With NAME.printer.txt the sample printer of that state is connected, and in the state of
// NAME.told.txt at the end. With NAME.designer.txt the sample of the print-area designer is
// installed with that state, to which it has added no complaint at the end.
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

// The script with the files that it answers with in the test's folder; its path.
std::string InTestFolder(const std::filesystem::path& script) {
    const std::string answer = "answer \"";
    const std::string place = DiskPath(TestFolder()).generic_string() + "/";
    std::string text = Bytes(script);
    for (size_t at = 0; (at = text.find(answer, at)) != std::string::npos;) {
        text.insert(at += answer.size(), place);
    }
    const WideString copy = TestFolder() + TEXT("\\") + Wide(script.filename().string());
    WriteBytes(copy, text);
    return DiskPath(copy).string();
}

const char* ModelOf(const std::string& session) {
    return session.starts_with("rewritable") ? "Mirv KP-43"
           : session.starts_with("simplex")  ? "Mirv KP-511"
                                             : "Mirv KP-41";
}

TEST_F(SessionsTest, EndWithTheirRecords) {
    const std::filesystem::path folder = std::filesystem::path(KPD_SOURCE_DIR) / "tests/scripts";
    const std::filesystem::path playground = DiskPath(TestFolder());
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".mcs") {
            WriteBytes(TestFolder() + TEXT("\\") + Wide(entry.path().filename().string()),
                       Bytes(entry.path()));
        }
    }
    const std::filesystem::path out = DiskPath(TestFolder() + TEXT("\\out.dm"));
    int played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".sheet") {
            continue;
        }
        const std::string name = entry.path().stem().string();
        SCOPED_TRACE(name);
        std::vector<std::string> arguments = {"sheet",
                                              "--model",
                                              ModelOf(name),
                                              "--language",
                                              "en",
                                              "--script",
                                              InTestFolder(entry.path()),
                                              "--out",
                                              out.string()};
        if (name.starts_with("lamination")) {
            arguments.push_back("--with-lamination");
        }
        const std::filesystem::path input = folder / (name + ".in.dm");
        if (std::filesystem::exists(input)) {
            arguments.insert(arguments.end(), {"--in", input.string()});
        }
        const std::filesystem::path printer = playground / "printer.txt";
        const std::filesystem::path told = folder / (name + ".told.txt");
        if (std::filesystem::exists(told)) {
            WriteBytes(TestFolder() + TEXT("\\printer.txt"),
                       Bytes(folder / (name + ".printer.txt")));
            arguments.insert(arguments.end(), {"--device", printer.string()});
        }
        const std::filesystem::path designer = playground / "designer.txt";
        const std::filesystem::path designed = folder / (name + ".designer.txt");
        if (std::filesystem::exists(designed)) {
            WriteBytes(TestFolder() + TEXT("\\designer.txt"), Bytes(designed));
            arguments.insert(arguments.end(), {"--designer", designer.string()});
        }
        std::ostringstream said;
        EXPECT_EQ(RunKpdtool(arguments, said, said), 0) << said.str();
        EXPECT_TRUE(Bytes(out) == Bytes(folder / (name + ".dm"))) << said.str();
        if (std::filesystem::exists(told)) {
            EXPECT_EQ(Bytes(printer), Bytes(told));
        }
        if (std::filesystem::exists(designed)) {
            EXPECT_EQ(Bytes(designer), Bytes(designed));
        }
        const std::filesystem::path exported = folder / (name + ".mcs");
        if (std::filesystem::exists(exported)) {
            EXPECT_TRUE(Bytes(playground / "Export.mcs") == Bytes(exported));
        }
        std::filesystem::remove(out);
        ++played;
    }
    EXPECT_GE(played, 11);
}

}  // namespace
}  // namespace test
