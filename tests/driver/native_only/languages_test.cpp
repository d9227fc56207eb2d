// The languages as a whole: each has its file, and none of them reaches a script.
#include "core/ui_language.h"
#include "sheet_test.h"
#include "tools/kpdtool/kpdtool.h"

#include <set>
#include <sstream>

namespace test {
namespace {

using LanguagesTest = SheetTest;

TEST_F(LanguagesTest, EachHasItsFile) {
    std::set<std::string> wanted;
    for (LANGID primary = 1; primary < 0x80; ++primary) {
        for (const WORD country : {1, 2}) {
            const WideString suffix = UiLanguageOf(MAKELANGID(primary, country)).Suffix;
            if (suffix != TEXT("Eng")) {
                wanted.insert("mv" + Narrow(suffix) + "kpd.ini");
            }
        }
    }
    std::set<std::string> delivered;
    for (const auto& file : std::filesystem::directory_iterator(
             std::filesystem::path(KPD_SOURCE_DIR) / "package/languages")) {
        delivered.insert(file.path().filename().string());
    }
    EXPECT_EQ(delivered, wanted);
}

// A script's English names hold in every language, also for texts that a page puts in the place of
// the template's.
TEST_F(LanguagesTest, ScriptsAreEnglish) {
    const WideString path = TestFolder() + TEXT("\\a.sheet");
    const struct {
        const char* model;
        const char* script;
    } cases[] = {
        {"Mirv KP-41",
         "click \"Color Printing\"\nexpect text \"Color Printing\" \"Farbdruck\"\n"
         "choose \"Card Type : \" \"Adhesive Card\"\nexpect field CardType 5\n"
         "expect field ColorSides 0\n"},
        {"Mirv KP-43",  // a page with texts of two sections
         "page \"Rewrite\"\nexpect text \"Edit Area\" \"Bereich bearbeiten\"\n"
         "expect text IDC_ERASE_NOW \"Jetzt löschen\"\nexpect text IDC_ERASE_NOW \"Erase Now\"\n"
         "expect text IDC_ERASE_AREA_EDIT \"Edit Area\"\n"},
    };
    for (const auto& c : cases) {
        WriteBytes(path, c.script);
        std::ostringstream said;
        EXPECT_EQ(RunKpdtool({"sheet", "--model", c.model, "--language", "de", "--script",
                              DiskPath(path).string()},
                             said, said),
                  0)
            << said.str();
    }
}

}  // namespace
}  // namespace test
