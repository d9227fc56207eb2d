// Which help file or manual is opened, by language, model and page. A real computer would open it.
#include "ui/common/help.h"
#include "core/page_table.h"
#include "platform/host.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "ui/common/page.h"

#include <algorithm>

namespace test {
namespace {

class HelpTest : public SheetTest {
  protected:
    // The file opened since the last call, within the driver directory; empty when none was.
    std::string Opened() {
        const std::string folder = "C:\\Windows\\system32\\spool\\drivers\\x64\\3\\";
        const std::vector<host::ShellCall>& calls = host::ShellCalls();
        if (calls.size() == seen_) {
            return {};
        }
        EXPECT_EQ(calls.size(), ++seen_);
        const host::ShellCall& call = calls.back();
        EXPECT_EQ(Narrow(call.verb), "open");
        EXPECT_EQ(Narrow(call.parameters + call.folder), "");
        EXPECT_EQ(call.show, SW_SHOWNORMAL);
        EXPECT_EQ(Narrow(call.file).substr(0, folder.size()), folder);
        return Narrow(call.file).substr(folder.size());
    }
    void Forget() { seen_ = host::ShellCalls().size(); }

    size_t seen_ = 0;
};

TEST_F(HelpTest, FilesOfEachLanguageAndModel) {
    constexpr LANGID kHongKong = MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_HONGKONG);
    constexpr LANGID kSingapore = MAKELANGID(LANG_CHINESE, 4);
    constexpr BYTE kOwnCode = 32;
    const struct {
        LANGID language;
        BYTE model;
        const char* help;
        const char* manualVariant;
    } cases[] = {
        {MAKELANGID(LANG_ENGLISH, 1), kOwnCode, "MvEngCard.chm", "Eng"},
        {MAKELANGID(LANG_GERMAN, 2), kOwnCode, "MvGerCard.chm", "Eng"},
        {MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL), 2, "MvChtCard002.chm", "Cht"},
        {MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED), 203, "MvChsCard203.chm", "Chs"},
        {kHongKong, kOwnCode, "MvEngCard.chm", "Cht"},
        {kSingapore, 9, "MvEngCard.chm", "Cht"},
        {MAKELANGID(LANG_FRENCH, 3), 100, "MvFrnCard100.chm", "Eng"},
        {MAKELANGID(LANG_ITALIAN, 1), 29, "MvItaCard029.chm", "Eng"},
        {MAKELANGID(LANG_SPANISH, 3), 0, "MvSpnCard.chm", "Eng"},
        {MAKELANGID(LANG_JAPANESE, 1), 255, "MvJpnCard.chm", "Eng"},
        {MAKELANGID(LANG_KOREAN, 1), 22, "MvKrnCard022.chm", "Eng"},
        {MAKELANGID(LANG_PORTUGUESE, 1), 8, "MvPrtCard008.chm", "Eng"},
        {MAKELANGID(LANG_RUSSIAN, 1), 15, "MvRusCard015.chm", "Eng"},
        {MAKELANGID(LANG_POLISH, 1), 101, "MvPolCard101.chm", "Eng"},
        {MAKELANGID(LANG_ARABIC, 1), 102, "MvEngCard.chm", "Eng"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(SetUiLanguage(c.language));
        OpenHelpFile(c.model);
        EXPECT_EQ(Opened(), c.help) << c.language;
        OpenManual(Manual::kAdvanceTool);
        EXPECT_EQ(Opened(), std::string("AdvanceTool") + c.manualVariant + ".pdf") << c.language;
        OpenManual(Manual::kHeatingEnergy);
        EXPECT_EQ(Opened(), std::string("HeatingEnergy") + c.manualVariant + ".pdf") << c.language;
    }
}

TEST_F(HelpTest, TheAdvanceToolsManual) {
    ASSERT_TRUE(SetUiLanguage(MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED)));
    OpenAdvanceTool(
        [](HWND dialog) { SendDlgItemMessageW(dialog, IDC_MOTOR_DESCRIPTION, BM_CLICK, 0, 0); });
    EXPECT_EQ(Opened(), "AdvanceToolChs.pdf");
}

TEST_F(HelpTest, TheHeatingEnergyPagesManual) {
    ASSERT_TRUE(SetUiLanguage(MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL)));
    RunSheet(TEXT("Mirv KP-41"), {[&] {
                 HWND page = ShowPage(kHeatingEnergySlot);
                 Forget();
                 SendDlgItemMessageW(page, IDC_HEATING_DEFAULT, BM_CLICK, 0, 0);
                 EXPECT_EQ(Opened(), "");
                 SendDlgItemMessageW(page, IDC_HEATING_DESCRIPTION, BM_CLICK, 0, 0);
             }});
    EXPECT_EQ(Opened(), "HeatingEnergyCht.pdf");
}

TEST_F(HelpTest, EveryPagesHelpButton) {
    const struct {
        const WCHAR* model;
        std::vector<std::string> withoutHelp;
    } cases[] = {{TEXT("Mirv KP-41"), {"Heating Energy"}}, {TEXT("Mirv KP-43"), {"Rewrite"}}};
    for (const auto& c : cases) {
        RunSheet(c.model, {[&] {
                     const std::vector<std::string> tabs = Tabs();
                     for (size_t tab = 0; tab < tabs.size(); ++tab) {
                         PSHNOTIFY help = {};
                         help.hdr = {Sheet(), 0, static_cast<UINT>(PSN_HELP)};
                         HWND page = ShowPage(static_cast<int>(tab));
                         Forget();  // what the page asked of the printer
                         SendMessageW(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&help));
                         const bool offers =
                             std::ranges::find(c.withoutHelp, tabs[tab]) == c.withoutHelp.end();
                         EXPECT_EQ(Opened(), offers ? "MvEngCard.chm" : "") << tabs[tab];
                     }
                 }},
                 PSBTN_CANCEL);
    }
}

}  // namespace
}  // namespace test
