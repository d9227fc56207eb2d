// Every text fits into its control, in the user's language and in the fonts that he has. Where the
// computer's user cannot be changed from inside, the processes of such users measure the others.
#include "sheet_test.h"
#include "ui/common/language.h"

namespace test {
namespace {

class TextRoomTest : public SheetTest {
  protected:
    /// The texts of a page or dialog that are cut.
    static std::string CutTexts(HWND page) {
        std::string texts;
        const auto add = [&](HWND window) {
            if (const WideString text = CutTextOf(window); !text.empty()) {
                texts += std::to_string(GetDlgCtrlID(window)) + " \"" +
                         std::filesystem::path(text).string() + "\"\n";
            }
        };
        add(page);
        for (HWND control = GetWindow(page, GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            add(control);
        }
        return texts;
    }
};

TEST_F(TextRoomTest, EveryTextFitsInTheUserLanguage) {
    constexpr struct {
        LANGID language;
        const char* file;
    } kLanguages[] = {{0x0409, nullptr}, {0x0407, "mvGerkpd.ini"}, {0x0411, "mvJpnkpd.ini"}};
    for (const auto& row : kLanguages) {
        const char* file = row.file;
        if (!SetUiLanguage(row.language)) {
            continue;
        }
        InitLanguageFile();
        if (file != nullptr) {
            std::filesystem::copy_file(
                std::filesystem::path(KPD_SOURCE_DIR) / "package/languages" / file,
                DiskPath(LanguageFilePath), std::filesystem::copy_options::overwrite_existing);
        }
        int pages = 0;
        OpenEveryPage([&](HWND page) {
            ++pages;
            EXPECT_EQ(CutTexts(page), "") << (file == nullptr ? "English" : file);
        });
        EXPECT_GT(pages, 8);
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
        bool cut;
    } cases[] = {
        {TEXT("Static"), SS_LEFT, 200, 24, false},
        {TEXT("Static"), SS_LEFT, 40, 24, true},
        {TEXT("Static"), SS_LEFT, 60, 60, false},  // it wraps
        {TEXT("Button"), BS_AUTOCHECKBOX, 60, 24, true},
        {TEXT("Button"), BS_GROUPBOX, 200, 60, false},
        {TEXT("ComboBox"), CBS_DROPDOWNLIST, 60, 60, true},
        {TEXT("ComboBox"), CBS_DROPDOWNLIST, 200, 60, false},
    };
    for (const auto& c : cases) {
        HWND control = CreateWindowExW(0, c.className, TEXT("Ribbon colours"), WS_CHILD | c.style,
                                       0, 0, c.width, c.height, parent, nullptr, nullptr, nullptr);
        SendMessageW(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(TEXT("Ribbon colours")));
        EXPECT_EQ(!CutTextOf(control).empty(), c.cut) << Narrow(c.className) << c.width;
    }
    DestroyWindow(parent);
}

}  // namespace
}  // namespace test
