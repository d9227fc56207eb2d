// Every text is there and fits into its control, in the user's language and in the fonts that he
// has. Where the computer's user cannot be changed from inside, the processes of such users measure
// the others. Letters of Arabic and Persian are measured in their joined forms, but not as a
// shaping engine with ligatures would set them, which is narrower still.
#include "driver_test.h"
#include "tools/kpdtool/kpdtool.h"
#include "tools/kpdtool/language/every_page.h"
#include "ui/common/language.h"

#include <sstream>

namespace test {
namespace {

class TextRoomTest : public DriverTest {};

TEST_F(TextRoomTest, EnglishTextsFit) {
    if (!SetUiLanguage(0x0409)) {
        GTEST_SKIP() << "another user's fonts";
    }
    std::filesystem::remove(DiskPath(LanguageFilePath));
    int pages = 0;
    kpdtool::OpenEveryPage([&](HWND page, const std::string& name) {
        ++pages;
        for (const kpdtool::CutText& cut : kpdtool::CutTextsOf(page)) {
            ADD_FAILURE() << name << ": " << Narrow(cut.text);
        }
    });
    EXPECT_EQ(pages, 16);
}

TEST_F(TextRoomTest, DeliveredFileOfTheUserLanguageIsClean) {
    constexpr LANGID kSpain = MAKELANGID(LANG_SPANISH, 3);
    constexpr LANGID kChina = MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED);
    constexpr LANGID kLanguages[] = {0x0407, 0x040C, 0x0410, kSpain, 0x0416, 0x0415, 0x0419,
                                     0x0411, 0x0412, 0x0404, kChina, 0x0401, 0x0429, 0x0421};
    int measured = 0;
    for (const LANGID language : kLanguages) {
        if (!SetUiLanguage(language)) {
            continue;
        }
        ++measured;
        InitLanguageFile();
        const std::filesystem::path file = std::filesystem::path(KPD_SOURCE_DIR) /
                                           "package/languages" /
                                           DiskPath(LanguageFilePath).filename();
        std::ostringstream said;
        EXPECT_EQ(RunKpdtool({"language", file.string()}, said, said), 0) << file << said.str();
    }
    if (measured == 0) {
        GTEST_SKIP() << "a user without a language file";
    }
}

// The check itself.
TEST_F(TextRoomTest, CutTextIsNoticed) {
    HWND parent = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 300, 300, nullptr,
                                  nullptr, nullptr, nullptr);
    const struct {
        const WCHAR* className;
        DWORD style;
        int width, height;
        const char* cut;
    } cases[] = {
        {TEXT("Static"), SS_LEFT, 200, 24, ""},
        {TEXT("Static"), SS_LEFT, 40, 24, "wider higher"},
        {TEXT("Static"), SS_LEFT, 60, 60, ""},  // it wraps
        {TEXT("Static"), SS_LEFT, 60, 20, "higher"},
        {TEXT("Button"), BS_AUTOCHECKBOX, 60, 24, "wider"},
        {TEXT("Button"), BS_GROUPBOX, 200, 60, ""},
        {TEXT("ComboBox"), CBS_DROPDOWNLIST, 60, 60, "wider"},
        {TEXT("ComboBox"), CBS_DROPDOWNLIST, 200, 60, ""},
    };
    for (const auto& c : cases) {
        HWND control = CreateWindowExW(0, c.className, TEXT("Ribbon colours"), WS_CHILD | c.style,
                                       0, 0, c.width, c.height, parent, nullptr, nullptr, nullptr);
        SendMessageW(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(TEXT("Ribbon colours")));
        const kpdtool::CutText cut = kpdtool::CutTextOf(control);
        const std::string_view wanted = c.cut;
        EXPECT_EQ(cut.wider > 0, wanted.starts_with("wider")) << Narrow(c.className) << c.width;
        EXPECT_EQ(cut.higher > 0, wanted.ends_with("higher")) << Narrow(c.className) << c.width;
        EXPECT_EQ(Narrow(cut.text), wanted.empty() ? "" : "Ribbon colours");
    }
    DestroyWindow(parent);
}

}  // namespace
}  // namespace test
