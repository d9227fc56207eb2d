// The Color page: what it makes of a record when it opens, and what every choice does to the
// record, to the controls and to the sheet.
#include "color_page.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "ui/common/language.h"
#include "ui/pages/color/adjustment_rows.h"
#include "ui/pages/color/color_page.h"

#include <commctrl.h>

#include <cstring>

namespace test {
namespace {

using Before = void (*)(DevModeRecord&);

// ---- Opening ----------------------------------------------------------------------------------

// `preference` and `settings` as ColorPageTest gives them; `boxes` are automatic enhancement, "Only
// For Edge" and "BitBlt invert".
TEST_F(ColorPageTest, WhatARecordShows) {
    const struct {
        const char* name;
        Before before;
        const char* preference;
        const char* settings;
        const char* boxes;
    } cases[] = {
        // clang-format off
        {"defaults", [](DevModeRecord&) {},
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 0", ".x."},
        {"the system manages colours, whatever was preferred", [](DevModeRecord& r) { r.Public.dmICMMethod = 2; r.Private.ColorPreference = 2; r.Private.SkinSliderV = 9; },
         "..x.", "preference 1 style 1 method 2 skin 1 9 0 flag 0 boxes 0 0 0", ".x."},
        {"no colour preference", [](DevModeRecord& r) { r.Private.ColorPreference = 2; r.Private.SkinSliderV = 9; },
         "...x", "preference 2 style 1 method 1 skin 1 9 0 flag 0 boxes 0 0 0", ".x."},
        {"the system's colours without the system", [](DevModeRecord& r) { r.Private.ColorPreference = 1; },
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 0", ".x."},
        {"another method", [](DevModeRecord& r) { r.Public.dmICMMethod = 3; r.Private.ColorPreference = 2; },
         "x...", "preference 0 style 1 method 3 skin 1 128 0 flag 0 boxes 0 0 0", ".x."},
        {"classic", [](DevModeRecord& r) { r.Private.ColorStyle = 0; r.Private.SkinSliderV = 9; r.Private.SkinSliderH = 7; },
         ".x..", "preference 0 style 0 method 1 skin 1 9 7 flag 0 boxes 0 0 0", ".x."},
        {"a further style", [](DevModeRecord& r) { r.Private.ColorStyle = 3; r.Private.SkinSliderV = 9; r.Private.SkinSliderH = 7; },
         "....", "preference 0 style 3 method 1 skin 1 128 128 flag 0 boxes 0 0 0", ".x."},
        {"a style that nobody knows", [](DevModeRecord& r) { r.Private.ColorStyle = 255; },
         "....", "preference 0 style 255 method 1 skin 1 128 128 flag 0 boxes 0 0 0", ".x."},
        {"a further style under the system's colours", [](DevModeRecord& r) { r.Private.ColorStyle = 3; r.Public.dmICMMethod = 2; },
         "..x.", "preference 1 style 3 method 2 skin 1 0 0 flag 0 boxes 0 0 0", ".x."},
        {"everything on", [](DevModeRecord& r) { r.Private.AutoEnhance = 1; r.Private.SharpenMode = 1; r.Private.BitBltInvert = 1; r.Private.ColorFlag = 1; r.Private.SkinTone = 2; },
         "x...", "preference 0 style 1 method 1 skin 2 128 0 flag 1 boxes 1 1 1", "x.x"},
        {"values out of range", [](DevModeRecord& r) { r.Private.AutoEnhance = 2; r.Private.SharpenMode = 2; r.Private.BitBltInvert = 2; r.Private.ColorFlag = 2; r.Private.SkinTone = 3; r.Private.ColorPreference = 7; },
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 2", ".x."},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        Record().SkinTone = 1;  // whatever the user's language is
        Record().SkinSliderV = Record().SkinSliderH = 0;
        c.before(context_.WorkingDevMode);
        const DevModeRecord stored = context_.WorkingDevMode;
        InitColorPage(nullptr, context_);  // as an import does while the page is not open
        const DevModeRecord corrected = std::exchange(context_.WorkingDevMode, stored);
        Open();
        EXPECT_EQ(std::memcmp(&corrected, &context_.WorkingDevMode, sizeof(corrected)), 0);
        EXPECT_EQ(Preference(), c.preference);
        EXPECT_EQ(Settings(), c.settings);
        EXPECT_EQ(Looks(IDC_AUTO_ENHANCE) + Looks(IDC_EDGES_ONLY) + Looks(IDC_BITBLT_INVERT),
                  c.boxes);
        EXPECT_EQ(TakeChanges(), 0);
    }
}

TEST_F(ColorPageTest, NumbersOutOfRangeAreBroughtIntoIt) {
    const struct {
        SHORT stored;
        WORD gamma;
        const char* adjustments;
        const char* sliders;
        const char* gammaText;
    } cases[] = {
        {150, 1200, "100 100 100 100 100 100 100 999", "100 100 100 100 100 100 100 1799", "9.99"},
        {-150, 5, "-100 -100 0 -100 -100 -100 -100 10", "-100 -100 0 -100 -100 -100 -100 1",
         "0.10"},
        {-5, 0xFFFF, "-5 -5 0 -5 -5 -5 -5 999", "-5 -5 0 -5 -5 -5 -5 1799", "9.99"},
        {32767, 99, "100 100 100 100 100 100 100 99", "100 100 100 100 100 100 100 890", "0.99"},
        {7, 100, "7 7 7 7 7 7 7 100", "7 7 7 7 7 7 7 900", "1.00"},
    };
    for (const auto& c : cases) {
        DevModePrivate& record = Record();
        for (SHORT* number : {&record.Brightness, &record.Contrast, &record.Sharpness,
                              &record.Saturation, &record.Cyan, &record.Magenta, &record.Yellow}) {
            *number = c.stored;
        }
        record.Gamma = c.gamma;
        Open();
        EXPECT_EQ(Adjustments(), c.adjustments);
        EXPECT_EQ(Fields(), c.adjustments);
        EXPECT_EQ(Sliders(), c.sliders);
        EXPECT_EQ(Looks(IDC_GAMMA), c.gammaText);
    }
}

TEST_F(ColorPageTest, ThePreviewsFrameIsThereAndHidden) {
    Record().ColorStyle = 4;
    Record().SkinTone = 2;
    Open();
    for (int control = IDC_PREVIEW_AREA; control <= IDC_MAGIC_COATING; ++control) {
        EXPECT_NE(Item(control), nullptr) << control;
        EXPECT_FALSE(IsShown(control)) << control;
        ShowWindow(Item(control), SW_SHOW);
    }
    EXPECT_EQ(Looks(IDC_PREVIEW), "x");
    EXPECT_EQ(Looks(IDC_COLOR_STYLE_BOX), "x");
    EXPECT_EQ(Looks(IDC_COLOR_STYLE), "D-Style Color of 4");
    EXPECT_EQ(Looks(IDC_SKIN_TONE), "Yellowish Tone of 2");
    Click(IDC_BASIC_COLOR);
    EXPECT_EQ(Looks(IDC_COLOR_STYLE), "~Z-Style Color of 4");
    EXPECT_EQ(Looks(IDC_COLOR_STYLE_BOX), ".");
    FillPage(kColorPage, context_);
    EXPECT_FALSE(IsShown(IDC_COLOR_STYLE));
}

// ---- Choices ----------------------------------------------------------------------------------

constexpr const char* kNeutral = "0 0 100 0 0 0 0 100";
constexpr const char* kAdjusted = "5 5 5 5 5 5 5 105";

TEST_F(ColorPageTest, WhatAChoiceDoes) {
    const struct {
        const char* name;
        Before before;
        int control;
        const char* preference;
        const char* settings;
        const char* adjustments;
    } cases[] = {
        // clang-format off
        {"basic, which it is already", [](DevModeRecord& r) { r.Private.AutoEnhance = 1; r.Private.SharpenMode = 1; r.Private.BitBltInvert = 1; }, IDC_BASIC_COLOR,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 1 1", kNeutral},
        {"classic", [](DevModeRecord&) {}, IDC_CLASSIC_COLOR,
         ".x..", "preference 0 style 0 method 1 skin 1 128 0 flag 0 boxes 0 0 0", kNeutral},
        {"classic after a further style", [](DevModeRecord& r) { r.Private.ColorStyle = 5; }, IDC_CLASSIC_COLOR,
         ".x..", "preference 0 style 0 method 1 skin 1 128 128 flag 0 boxes 0 0 0", kNeutral},
        {"the system's colours keep the style", [](DevModeRecord& r) { r.Private.ColorStyle = 5; r.Private.AutoEnhance = 1; }, IDC_WINDOWS_COLOR,
         "..x.", "preference 1 style 5 method 2 skin 1 128 128 flag 0 boxes 0 0 0", kNeutral},
        {"and so does no preference", [](DevModeRecord& r) { r.Private.ColorStyle = 0; r.Public.dmICMMethod = 2; }, IDC_NO_COLOR_PREFERENCE,
         "...x", "preference 2 style 0 method 1 skin 1 0 0 flag 0 boxes 0 0 0", kNeutral},
        {"basic after the system's", [](DevModeRecord& r) { r.Public.dmICMMethod = 2; r.Private.ColorStyle = 0; }, IDC_BASIC_COLOR,
         "x...", "preference 0 style 1 method 1 skin 1 0 0 flag 0 boxes 0 0 0", kNeutral},
        {"reset", [](DevModeRecord& r) { r.Private.ColorStyle = 0; r.Private.AutoEnhance = 1; r.Private.SharpenMode = 1; r.Private.BitBltInvert = 1; }, IDC_COLOR_RESET,
         ".x..", "preference 0 style 0 method 1 skin 1 0 0 flag 0 boxes 1 1 1", kNeutral},
        {"enhancement on", [](DevModeRecord&) {}, IDC_AUTO_ENHANCE,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 1 0 0", kAdjusted},
        {"enhancement off", [](DevModeRecord& r) { r.Private.AutoEnhance = 1; }, IDC_AUTO_ENHANCE,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 0", kAdjusted},
        {"the whole image", [](DevModeRecord&) {}, IDC_EDGES_ONLY,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 1 0", kAdjusted},
        {"edges only", [](DevModeRecord& r) { r.Private.SharpenMode = 1; }, IDC_EDGES_ONLY,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 0", kAdjusted},
        {"inverted", [](DevModeRecord& r) { r.Private.BitBltInvert = 77; }, IDC_BITBLT_INVERT,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 1", kAdjusted},
        {"as it is", [](DevModeRecord& r) { r.Private.BitBltInvert = 1; }, IDC_BITBLT_INVERT,
         "x...", "preference 0 style 1 method 1 skin 1 128 0 flag 0 boxes 0 0 0", kAdjusted},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        Record().SkinTone = 1;
        Record().SkinSliderV = Record().SkinSliderH = 0;
        for (const AdjustmentRow& row : kAdjustmentRows) {
            row.Value.Write(Record(), row.Field.Kind == NumberKind::kInteger ? 5 : 105);
        }
        c.before(context_.WorkingDevMode);
        Open();
        TakeChanges();
        Click(c.control);
        EXPECT_GT(TakeChanges(), 0);
        EXPECT_EQ(Preference(), c.preference);
        EXPECT_EQ(Settings(), c.settings);
        EXPECT_EQ(Adjustments(), c.adjustments);
        EXPECT_EQ(Fields(), c.adjustments);
        const std::string looks = LooksOfAll();
        FillPage(kColorPage, context_);
        if (Settings() == c.settings) {  // opening has its own idea of skin colours
            EXPECT_EQ(LooksOfAll(), looks);
        }
    }
}

TEST_F(ColorPageTest, NotificationsOfOtherKindsChangeNothing) {
    Open();
    TakeChanges();
    const std::string before = Settings() + Adjustments() + LooksOfAll();
    for (const auto& [control, notification] : {std::pair{IDC_CLASSIC_COLOR, BN_DOUBLECLICKED},
                                                {IDC_AUTO_ENHANCE, BN_DOUBLECLICKED},
                                                {IDC_BRIGHTNESS, EN_UPDATE},
                                                {IDC_BRIGHTNESS, EN_KILLFOCUS},
                                                {IDC_GAMMA, EN_SETFOCUS},
                                                {IDC_SKIN_RESET, BN_CLICKED},
                                                {4711, BN_CLICKED}}) {
        SendMessageW(page_, WM_COMMAND, MAKEWPARAM(control, notification), 0);
    }
    SendMessageW(page_, WM_HSCROLL, SB_LINEDOWN,
                 reinterpret_cast<LPARAM>(Item(IDC_SKIN_HORIZONTAL)));
    EXPECT_EQ(Settings() + Adjustments() + LooksOfAll(), before);
    EXPECT_EQ(TakeChanges(), 0);
}

// ---- Rows -------------------------------------------------------------------------------------

TEST_F(ColorPageTest, EachRowMovesItsOwnNumber) {
    const std::pair<int, int> rows[] = {{IDC_BRIGHTNESS, IDC_BRIGHTNESS_SLIDER},
                                        {IDC_CONTRAST, IDC_CONTRAST_SLIDER},
                                        {IDC_SHARPNESS, IDC_SHARPNESS_SLIDER},
                                        {IDC_SATURATION, IDC_SATURATION_SLIDER},
                                        {IDC_CYAN, IDC_CYAN_SLIDER},
                                        {IDC_MAGENTA, IDC_MAGENTA_SLIDER},
                                        {IDC_YELLOW, IDC_YELLOW_SLIDER},
                                        {IDC_GAMMA, IDC_GAMMA_SLIDER}};
    DevModePrivate& record = Record();
    const auto numbers = [&] {
        return std::vector<int>{record.Brightness, record.Contrast, record.Sharpness,
                                record.Saturation, record.Cyan,     record.Magenta,
                                record.Yellow,     record.Gamma};
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        const auto [field, slider] = rows[i];
        const bool isGamma = field == IDC_GAMMA;
        ResetAdjustments(record);
        Open();
        std::vector<int> expected = numbers();
        TakeChanges();
        SetDlgItemTextW(page_, field, isGamma ? TEXT("2.5") : TEXT("42"));
        expected[i] = isGamma ? 250 : 42;
        EXPECT_EQ(numbers(), expected) << i;
        EXPECT_EQ(Looks(slider), isGamma ? "1050" : "42");
        EXPECT_GT(TakeChanges(), 0);
        Press(Item(slider), VK_RIGHT);
        ++expected[i];
        EXPECT_EQ(numbers(), expected) << i;
        EXPECT_EQ(Looks(field), isGamma ? "2.51" : "43");
        Press(Item(slider), VK_NEXT);
        expected[i] += 10;
        EXPECT_EQ(numbers(), expected) << i;
        EXPECT_GT(TakeChanges(), 0);
        Press(Item(field), VK_UP);
        ++expected[i];
        EXPECT_EQ(numbers(), expected) << i;
        EXPECT_EQ(Looks(slider), isGamma ? "1062" : "54");
        EXPECT_GT(TakeChanges(), 0);
        EXPECT_EQ(SendMessageW(Item(field), EM_GETLIMITTEXT, 0, 0), field == IDC_SHARPNESS ? 3 : 4);
    }
}

TEST_F(ColorPageTest, GammasSliderIsFinerBelowOne) {
    Open();
    HWND slider = Item(IDC_GAMMA_SLIDER);
    const struct {
        int position;
        WORD request;
        const char* text;
        int shown;
    } cases[] = {
        {1, TB_THUMBTRACK, "0.10", 1},
        {2, TB_LINEDOWN, "0.11", 10},
        {10, TB_THUMBTRACK, "0.11", 10},
        {19, TB_LINEUP, "0.11", 10},
        {9, TB_LINEUP, "0.10", 1},
        {11, TB_PAGEDOWN, "0.12", 20},
        {20, TB_PAGEDOWN, "0.13", 30},
        {20, TB_PAGEUP, "0.12", 20},
        {455, TB_THUMBPOSITION, "0.55", 450},
        {891, TB_LINEDOWN, "1.00", 900},
        {899, TB_LINEUP, "0.99", 890},
        {900, TB_THUMBTRACK, "1.00", 900},
        {905, TB_THUMBTRACK, "1.05", 905},
        {901, TB_LINEDOWN, "1.01", 901},
        {1799, TB_BOTTOM, "9.99", 1799},
        {890, TB_ENDTRACK, "0.99", 890},
    };
    for (const auto& c : cases) {
        SendMessageW(slider, TBM_SETPOS, TRUE, c.position);
        SendMessageW(page_, WM_HSCROLL, c.request, reinterpret_cast<LPARAM>(slider));
        EXPECT_EQ(Looks(IDC_GAMMA), c.text) << c.position;
        EXPECT_EQ(Looks(IDC_GAMMA_SLIDER), std::to_string(c.shown)) << c.position;
    }
}

TEST_F(ColorPageTest, GammaIsReadWhileItIsTypedAndWhenItIsLeft) {
    Open();
    const struct {
        const char* typed;
        int gamma;         // while it is typed
        const char* left;  // the text when it has been left
        bool refused;
    } cases[] = {
        {"1.5", 150, "1.5", false},  {"0.0", 150, "1.50", true}, {"", 150, "1.50", true},
        {"0.05", 150, "1.50", true}, {"10", 150, "1.50", true},  {".25", 25, ".25", false},
        {"9", 900, "9", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        SetFocus(Item(IDC_GAMMA));
        Enter(IDC_GAMMA, c.typed);
        EXPECT_EQ(Record().Gamma, c.gamma);
        TakeChanges();
        const std::string whileTyping = TakeMessages();
        SetFocus(Item(IDC_COLOR_RESET));
        HandlePosted();
        const std::string onLeaving = TakeMessages();
        EXPECT_EQ(TakeChanges() > 0, !onLeaving.empty());
        EXPECT_EQ(Looks(IDC_GAMMA), c.left);
        EXPECT_EQ(Record().Gamma, c.gamma);
        EXPECT_EQ(
            whileTyping + onLeaving,
            c.refused ? "Error: Press up and down button to adjust value ( 0.10 - 9.99 ).\n" : "");
    }
}

TEST_F(ColorPageTest, FieldsSayWhatTheyTake) {
    const struct {
        int field;
        const char* range;
        const char* refused;
        const char* before;  // of which Up or Down is too much
        int key;
    } cases[] = {
        {IDC_BRIGHTNESS, "-100 - 100", "101", "100", VK_UP},
        {IDC_CONTRAST, "-100 - 100", "-101", "-100", VK_DOWN},
        {IDC_SATURATION, "-100 - 100", "01", "100", VK_UP},
        {IDC_CYAN, "-100 - 100", "-0", "-100", VK_DOWN},
        {IDC_MAGENTA, "-100 - 100", "x", "100", VK_UP},
        {IDC_YELLOW, "-100 - 100", "1-", "-100", VK_DOWN},
        {IDC_SHARPNESS, "0 - 100", "-1", "0", VK_DOWN},
        {IDC_GAMMA, "0.10 - 9.99", "10", "9.99", VK_UP},
    };
    WriteWideText(LanguageFilePath, TEXT("[Setting]\r\nError=Fehler\r\n"));
    Open();
    for (const auto& c : cases) {
        SetFocus(Item(c.field));
        Enter(c.field, c.before);
        const std::string legal = Fields() + Sliders() + Adjustments();
        Enter(c.field, c.refused);
        EXPECT_EQ(TakeMessages(), "Fehler: Press up and down button to adjust value ( " +
                                      std::string(c.range) + " ).\n");
        EXPECT_EQ(Fields() + Sliders() + Adjustments(), legal) << c.refused;
        Press(Item(c.field), c.key);
        EXPECT_EQ(TakeMessages(), "Fehler: Enter from " + std::string(c.range) + " .\n");
        EXPECT_EQ(TextOf(Item(c.field)), c.before);
        EXPECT_EQ(Fields() + Sliders() + Adjustments(), legal) << c.refused;
        EXPECT_EQ(GetFocus(), Item(c.field));
    }
}

TEST_F(ColorPageTest, OnlyDigitsAndTheFieldsOwnSignCanBeTyped) {
    const std::pair<int, const char*> cases[] = {
        {IDC_BRIGHTNESS, "-1"}, {IDC_SHARPNESS, "1"}, {IDC_GAMMA, "1."}};
    Open();
    for (const auto& [field, text] : cases) {
        SendMessageW(Item(field), EM_SETSEL, 0, -1);
        Type(Item(field), field == IDC_GAMMA ? "+a-1." : "+a-.1");
        EXPECT_EQ(TextOf(Item(field)), text);
    }
}

// ---- The tone-mapping library -----------------------------------------------------------------

TEST_F(ColorPageTest, TheToneMappingLibraryMakesNoDifferenceAndIsNeverCalled) {
    const WideString library = DriverFolder() + TEXT("\\ToneKit.dll");
    const auto use = [&] {
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        Open();
        for (const AdjustmentRow& row : kAdjustmentRows) {
            Press(Item(row.Slider), VK_LEFT);
        }
        for (int button :
             {IDC_CLASSIC_COLOR, IDC_AUTO_ENHANCE, IDC_EDGES_ONLY, IDC_BITBLT_INVERT}) {
            Click(button);
        }
        Press(Item(IDC_SHARPNESS), VK_DOWN);
        const std::string state = Settings() + Adjustments() + LooksOfAll();
        DestroyWindow(std::exchange(page_, nullptr));
        return state;
    };
    const std::string without = use();
    for (const std::filesystem::path companion : {KPD_TONE_COMPANION, KPD_SAMPLE_COMPANION}) {
        std::filesystem::copy_file(companion, DiskPath(library));
        EXPECT_EQ(use(), without) << companion;
        std::filesystem::remove(DiskPath(library));
    }
    WriteBytes(library, "no library");
    EXPECT_EQ(use(), without);
    std::filesystem::remove(DiskPath(library));
}

TEST_F(ColorPageTest, AnyStoredToneMappingParametersAreTaken) {
    CopyWideBounded(Paper().dmDeviceName, TEXT("Kpd tones"), CCHDEVICENAME);
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, TEXT("Printers\\Kpd tones"), 0, nullptr, 0,
                              KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    for (const DWORD size : {DWORD{0}, DWORD{140}, DWORD{141}}) {
        const std::vector<BYTE> bytes(size + 1, 7);
        RegSetValueExW(key, TEXT("HSLPara"), 0, REG_BINARY, bytes.data(), size);
        Open();
        EXPECT_EQ(Preference(), "x...") << size;
    }
    RegCloseKey(key);
}

// ---- In the sheet -----------------------------------------------------------------------------

class ColorSheetTest : public SheetTest {};

TEST_F(ColorSheetTest, AStoredStyleOutlivesTheSheet) {
    input_.Private.ColorStyle = 4;
    input_.Private.Brightness = 12;
    input_.Private.AutoEnhance = 1;
    EXPECT_EQ(RunSheet(TEXT("Mirv KP-41"),
                       {[&] {
                            HWND page = ShowPage(2);
                            for (int i = 0; i < 30; ++i) {
                                MSG tab = {GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {0, 0}};
                                IsDialogMessageW(Sheet(), &tab);
                            }
                            SetFocus(GetDlgItem(page, IDC_CLASSIC_COLOR));
                        },
                        [] { ShowPage(0); }, [] { ShowPage(2); }}),
              1);
    EXPECT_EQ(output_.Private.ColorStyle, 4);
    EXPECT_EQ(output_.Private.Brightness, 12);
    EXPECT_EQ(output_.Private.AutoEnhance, 1);
}

}  // namespace
}  // namespace test
