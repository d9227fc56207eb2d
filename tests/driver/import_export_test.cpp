// The Import/Export page: the dialog for the parts by itself, then whole exports and imports in a
// sheet, with the platform's file dialogs.
#include "core/settings_file.h"
#include "resources/resource.h"
#include "sheet_pages.h"
#include "sheet_test.h"
#include "tools/kpdtool/kpdtool.h"
#include "ui/common/language.h"
#include "ui/common/page.h"
#include "ui/pages/import_export/settings_parts_dialog.h"
#include "ui/pages/import_export/settings_transfer.h"

#include <commctrl.h>

#include <sstream>

namespace test {
namespace {

// ---- The dialog for the parts -----------------------------------------------------------------

class SettingsPartsTest : public SheetTest {
  protected:
    INT_PTR Run(DWORD parts, const std::function<void(HWND)>& use) {
        RunInLoop([&] { use(DialogWith(IDC_COLOR_PART)); });
        SetSection(kImportExportSection);
        chosen_ = parts;
        return RunSettingsPartsDialog(nullptr, &chosen_);
    }
    // "x" checked, "." not, "~" before when disabled.
    static std::string Boxes(HWND dialog) {
        std::string text;
        for (const int box : {IDC_DEVICE_OPTION_PART, IDC_COLOR_PART}) {
            text += IsWindowEnabled(GetDlgItem(dialog, box)) ? "" : "~";
            text += IsDlgButtonChecked(dialog, box) == BST_CHECKED ? "x" : ".";
        }
        return text;
    }
    static void Press(HWND dialog, std::initializer_list<int> buttons) {
        for (const int button : buttons) {
            SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
        }
    }

    DWORD chosen_ = 0;
};

TEST_F(SettingsPartsTest, OffersWhatThereIs) {
    const struct {
        DWORD parts;
        const char* boxes;
        const char* title;
    } cases[] = {{0, "..", "Exportieren"},
                 {1, "x~.", "Importieren"},
                 {2, "~.x", "Importieren"},
                 {3, "xx", "Importieren"}};
    WriteWideText(LanguageFilePath,
                  TEXT("[Import/Export]\r\nImport Driver Setting=Importieren\r\nExport Driver "
                       "Setting=Exportieren\r\nColor Setting=Farbe\r\n"));
    for (const auto& c : cases) {
        Run(c.parts, [&](HWND dialog) {
            EXPECT_EQ(Boxes(dialog), c.boxes);
            EXPECT_EQ(TextOf(dialog), c.title);
            EXPECT_EQ(TextOf(GetDlgItem(dialog, IDC_COLOR_PART)), "Farbe");
            RECT area;
            GetWindowRect(dialog, &area);
            EXPECT_NEAR(area.left, GetSystemMetrics(SM_CXSCREEN) - area.right, 1);
            EXPECT_NEAR(area.top, GetSystemMetrics(SM_CYSCREEN) - area.bottom, 1);
            RECT inside;
            GetClientRect(dialog, &inside);
            RECT wanted = {0, 0, 120, 60};
            MapDialogRect(dialog, &wanted);
            EXPECT_EQ(inside.right, wanted.right);
            EXPECT_EQ(inside.bottom, wanted.bottom);
            PostMessageW(dialog, WM_CLOSE, 0, 0);
        });
    }
}

TEST_F(SettingsPartsTest, GivesWhatIsChosen) {
    constexpr int kDevice = IDC_DEVICE_OPTION_PART;
    constexpr int kColor = IDC_COLOR_PART;
    const struct {
        DWORD parts;
        std::initializer_list<int> buttons;
        INT_PTR result;
        DWORD chosen;
    } cases[] = {{0, {IDOK}, 1, 0},
                 {0, {kColor, IDOK}, 1, 2},
                 {0, {kDevice, kColor, IDOK}, 1, 3},
                 {0, {kDevice, kDevice, IDOK}, 1, 0},
                 {3, {kColor, IDOK}, 1, 1},
                 {3, {kDevice, kColor, kDevice, IDOK}, 1, 1},
                 {2, {kColor, IDOK}, 1, 0},
                 {3, {IDOK}, 1, 3},
                 {3, {IDCANCEL}, 2, 3}};
    for (const auto& c : cases) {
        EXPECT_EQ(Run(c.parts, [&](HWND dialog) { Press(dialog, c.buttons); }), c.result);
        EXPECT_EQ(chosen_, c.chosen) << c.parts;
    }
    EXPECT_EQ(Run(3, [](HWND dialog) { SendMessageW(dialog, WM_CLOSE, 0, 0); }), 2);
}

// ---- Exports and imports ----------------------------------------------------------------------

class ImportExportTest : public DriverTest {
  protected:
    static std::string Path(const std::string& file) {
        return DiskPath(TestFolder() + TEXT("\\") + Wide(file)).generic_string();
    }
    static void Store(const std::string& file, const std::string& bytes) {
        WriteBytes(TestFolder() + TEXT("\\") + Wide(file), bytes);
    }
    static std::string Stored(const std::string& file) {
        return ReadBytes(TestFolder() + TEXT("\\") + Wide(file));
    }
    static bool IsThere(const std::string& file) { return std::filesystem::exists(Path(file)); }

    static std::string File(const DevModeRecord& record, DWORD parts) {
        BYTE file[kLargestSettingsFile];
        return {file, file + WriteSettings(record, parts, file)};
    }

    // The steps of a script, with $ for the test's folder.
    static void Play(std::string steps, const std::string& language = "en") {
        for (size_t at; (at = steps.find('$')) != std::string::npos;) {
            steps.replace(at, 1, Path("."));
        }
        Store("a.sheet", steps);
        std::ostringstream said;
        EXPECT_EQ(
            RunKpdtool({"sheet", "--language", language, "--script", Path("a.sheet")}, said, said),
            0)
            << said.str();
    }
};

TEST_F(ImportExportTest, ExportsTheChosenParts) {
    Play(R"(
page "Import/Export"
answer "$/both.mcs"
click "Export Driver Setting"
click "Device Option Setting"
click "Color Setting"
click "OK"
answer "$/device.mcs"
click "Export Driver Setting"
click "Device Option Setting"
click "OK"
answer "$/color"
click "Export Driver Setting"
click "Color Setting"
click "OK"
)");
    const DevModeRecord record = DefaultRecord();
    EXPECT_EQ(Stored("both.mcs"), File(record, 3));
    EXPECT_EQ(Stored("device.mcs"), File(record, 1));
    EXPECT_EQ(Stored("color"), File(record, 2)) << "a name without extension is taken as typed";
}

TEST_F(ImportExportTest, ExportsNothingThatTheUserDoesNotWant) {
    Store("kept.mcs", "kept");
    Store("replaced.mcs", std::string(200, 'x'));
    Play(R"(
page "Import/Export"
click "Export Driver Setting"
click "Color Setting"
click "Cancel"
click "Export Driver Setting"
click "OK"
answer ""
click "Export Driver Setting"
click "Color Setting"
click "OK"
answer "$/kept.mcs"
answer no
answer ""
click "Export Driver Setting"
click "Color Setting"
click "OK"
answer "$/replaced.mcs"
answer yes
click "Export Driver Setting"
click "Color Setting"
click "OK"
)");
    EXPECT_EQ(Stored("kept.mcs"), "kept");
    EXPECT_EQ(Stored("replaced.mcs").size(), 75u);
    EXPECT_FALSE(IsThere("Export.mcs"));
}

TEST_F(ImportExportTest, ImportsTheChosenPartsAndShowsThemInTheUserLanguage) {
    if (!SetUiLanguage(0x0407)) {
        GTEST_SKIP() << "run by the process of a German user";
    }
    DevModeRecord record = DefaultRecord();
    record.Private.RibbonType = kRibbonHalfYMCKO;
    record.Private.CardType = kMagneticStripeCard;
    record.Public.dmCopies = 321;
    record.Public.dmOrientation = 7;
    record.Private.Cyan = 55;
    record.Public.dmICMMethod = 2;
    Store("a.mcs", File(record, 3));
    Store("color.mcs", File(record, 2));
    Play(R"(
page "Import/Export"
answer "$/a.mcs"
click "Import Driver Setting"
expect checked "Device Option Setting"
expect checked "Color Setting"
click "Color Setting"
click "OK"
expect field RibbonType 5
expect field dmCopies 321
expect field dmOrientation 2
expect field Cyan 0
page "Device Option"
expect selected "Ribbon Type : " "1/2 YMCKO"
expect selected "Card Type : " "Magnetic Stripe Card"
expect selected IDC_CARD_TYPE "Magnetstreifenkarte"
expect text "Copy No : " "321"
choose "Ribbon Type : " "K"
page "Import/Export"
answer "$/color.mcs"
click "Import Driver Setting"
expect disabled "Device Option Setting"
expect unchecked "Device Option Setting"
expect text IDC_COLOR_PART "Farbeinstellungen"
click "Cancel"
expect field Cyan 0
answer "$/color.mcs"
click "Import Driver Setting"
click "OK"
expect field Cyan 55
expect field dmICMMethod 2
expect field RibbonType 1
answer ""
click "Import Driver Setting"
)",
         "de");
}

TEST_F(ImportExportTest, SaysWhatIsWrongWithAFile) {
    const std::string good = File(DefaultRecord(), 3);
    DevModeRecord record = DefaultRecord();
    record.Public.dmCopies = 99;
    const struct {
        std::string bytes;
        const char* then;
    } cases[] = {
        {"\xAB" + good.substr(1), "expect message \"Can't find file Header\""},
        {"", "expect message \"Can't find file Header\""},
        {good.substr(0, 19) + "I" + good.substr(20), "expect message \"Can't find file Keyword\""},
        {good.substr(0, 24) + "\x0A" + good.substr(25), "expect message \"Bad File !\""},
        {good.substr(0, 22) + "\xAA\xFF",
         "expect message \"Can't find out any useful export data!\""},
        // Offered, and not applied.
        {File(record, 1).substr(0, 40), "click \"OK\"\nexpect field dmCopies 1"},
    };
    std::string steps = "page \"Import/Export\"\n";
    for (const auto& c : cases) {
        const std::string name = std::to_string(&c - cases) + ".mcs";
        Store(name, c.bytes);
        steps += "answer \"$/" + name + "\"\nclick \"Import Driver Setting\"\n" + c.then + "\n";
    }
    Play(steps);
}

// ---- What pages make of an import -------------------------------------------------------------

// The sheet of a user with the delivered German texts; what its pages tell of changes is counted.
class ImportedPagesTest : public SheetTest {
  protected:
    void SetUp() override {
        SheetTest::SetUp();
        std::filesystem::copy_file(
            std::filesystem::path(KPD_SOURCE_DIR) / "package/languages/mvGerkpd.ini",
            DiskPath(LanguageFilePath));
        changes_ = 0;
    }

    static void Import(HWND page, const DevModeRecord& record) {
        BYTE file[kLargestSettingsFile];
        const size_t size = WriteSettings(record, kDeviceOptionSettings | kColorSettings, file);
        sheetProcedure_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(Sheet(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountChanges)));
        TakeSettings({file, size}, kDeviceOptionSettings | kColorSettings, *PageContext(page));
        SetWindowLongPtrW(Sheet(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(sheetProcedure_));
    }

    static std::string Selected(HWND page, int list) {
        WCHAR text[kTextLength] = {};
        const LRESULT item = SendDlgItemMessageW(page, list, CB_GETCURSEL, 0, 0);
        SendDlgItemMessageW(page, list, CB_GETLBTEXT, static_cast<WPARAM>(item),
                            reinterpret_cast<LPARAM>(text));
        return Narrow(text);
    }

    static inline int changes_ = 0;

  private:
    static LRESULT CALLBACK CountChanges(HWND sheet, UINT message, WPARAM wParam, LPARAM lParam) {
        changes_ += message == PSM_CHANGED;
        return CallWindowProcW(sheetProcedure_, sheet, message, wParam, lParam);
    }

    static inline WNDPROC sheetProcedure_ = nullptr;
};

TEST_F(ImportedPagesTest, SayWhatAFileIsFor) {
    constexpr int kImportExportTab = 6;
    RunSheet(TEXT("Mirv KP-41"), {[] {
                 HWND page = ShowPage(kImportExportTab);
                 EXPECT_TRUE(TextOf(GetDlgItem(page, IDC_NOTICE))
                                 .starts_with("Hinweis:\n    Um dieselben Einstellungen"));
             }});
}

TEST_F(ImportedPagesTest, CorrectWhatComesAndShowItWhetherTheyWereOpenOrNot) {
    constexpr int kColorTab = 2;
    DevModeRecord record = DefaultRecord();
    record.Private.CardType = kMagneticStripeCard;
    record.Public.dmICMMethod = 2;  // the system's, beside the printer's own preference
    record.Private.ColorPreference = kPrinterColor;
    record.Private.ColorStyle = 3;
    record.Private.SkinTone = 2;
    record.Private.Brightness = 150;
    record.Private.Gamma = 5;
    for (const bool open : {false, true}) {
        SCOPED_TRACE(open ? "open" : "not open");
        RunSheet(TEXT("Mirv KP-41"), {[&] {
                     HWND options = ShowPage(0);
                     if (open) {
                         ShowPage(kColorTab);
                     }
                     Import(options, record);
                     EXPECT_EQ(changes_, 0);
                     EXPECT_EQ(Selected(options, IDC_CARD_TYPE), "Magnetstreifenkarte");
                     HWND colors = ShowPage(kColorTab);
                     EXPECT_TRUE(IsDlgButtonChecked(colors, IDC_WINDOWS_COLOR));
                     EXPECT_EQ(TextOf(GetDlgItem(colors, IDC_BASIC_COLOR)), "Mirv-Farben &Basic");
                     EXPECT_EQ(TextOf(GetDlgItem(colors, IDC_BRIGHTNESS)), "100");
                     EXPECT_EQ(SendDlgItemMessageW(colors, IDC_GAMMA_SLIDER, TBM_GETPOS, 0, 0), 1);
                     EXPECT_EQ(Selected(colors, IDC_COLOR_STYLE), "Farbstil F");
                     EXPECT_EQ(Selected(colors, IDC_SKIN_TONE), "Gelblicher Ton");
                 }});
        EXPECT_EQ(output_.Private.ColorPreference, kWindowsColor);
        EXPECT_EQ(output_.Private.Brightness, 100);
        EXPECT_EQ(output_.Private.Gamma, 10);
    }
}

}  // namespace
}  // namespace test
