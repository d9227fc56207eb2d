// The Tools page: which of its controls a model and a port have, the ribbon's status, and what it
// does without the device I/O library.
#include "tools_page.h"
#include "core/card_terms.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/pictures.h"

namespace test {
namespace {

// ---- What is there ------------------------------------------------------------------------------

// One letter a control: shown, in the order of the list, in capitals while it is enabled.
TEST_F(ToolsPageTest, ModelAndPortDecideWhatIsShown) {
    constexpr std::pair<int, const char*> kControls[] = {
        {IDC_POSITION_PICTURE, "picture"},
        {IDC_POSITION_A, "A"},
        {IDC_POSITION_B, "B"},
        {IDC_POSITION_C, "C"},
        {IDC_POSITION_A_SCROLL, "arrows"},
        {IDC_POSITION_B_SCROLL, "arrows"},
        {IDC_POSITION_C_SCROLL, "arrows"},
        {IDC_POSITION_SAVE, "save"},
        {IDC_POSITION_DEFAULT, "default"},
        {IDC_POSITION_PRINT, "print"},
        {IDC_CLEANING_TOOL, "clean"},
        {IDC_MAINTENANCE_INFO, "info"},
        {IDC_ADVANCE_TOOL, "advance"},
        {IDC_RIBBON_STATUS, "ribbon"},
        {IDC_CLEAN_MAGNETIC_HEAD, "head"},
        {IDC_CORRECT_RIBBON_SENSOR, "sensor"},
        {IDC_FEED_CHIP_CARD, "chip"},
        {IDC_TEST_MAGNETIC_READING, "stripe"},
    };
    const struct {
        const char* name;
        DWORD network, rewritable;
        const char* shown;
    } cases[] = {
        {"a colour printer beside the computer", 0, 0,
         "picture A B C arrows arrows arrows save default print clean info advance ribbon head "
         "sensor chip stripe "},
        {"in the network", 1, 0, "picture A B C print clean info ribbon head sensor chip stripe "},
        {"for rewritable cards", 0, 1,
         "picture A B C arrows arrows arrows save default print clean info advance "},
        {"for rewritable cards in the network", 1, 1, "picture A B C print clean info "},
    };
    for (const auto& c : cases) {
        context_.IsNetworkPort = c.network;
        context_.IsKP43Family = c.rewritable;
        Open();
        std::string shown;
        for (const auto& [control, name] : kControls) {
            shown += IsShown(control) ? std::string(name) + " " : "";
        }
        EXPECT_EQ(shown, c.shown) << c.name;
        EXPECT_EQ(Adjuster(), "~ ~ ~ | 0 0 0 | ~Save ~Default ~Print") << c.name;
        Answer(MakeTable());
        EXPECT_EQ(Adjuster(), "-1 -2 -3 | -1 -2 -3 | ~Save Default Print") << c.name;
        EXPECT_EQ(TakeChanges(), 0) << c.name;
    }
}

TEST_F(ToolsPageTest, FieldsTakeThreeCharactersOfANumber) {
    Open();
    Answer(MakeTable());
    for (int field : {IDC_POSITION_A, IDC_POSITION_B, IDC_POSITION_C}) {
        EXPECT_EQ(SendMessageW(Item(field), EM_GETLIMITTEXT, 0, 0), 3);
        SendMessageW(Item(field), EM_SETSEL, 0, -1);
        Type(Item(field), ".x+-7");
        EXPECT_EQ(TextOf(Item(field)), "-7");
    }
}

// ---- The ribbon ---------------------------------------------------------------------------------

TEST_F(ToolsPageTest, TheRibbonAndItsRemainingPrints) {
    const struct {
        const char* ribbon;
        const char* text;
    } cases[] = {
        {"1 250", "YMCKO\n\nNumber of remaining ink ribbon:   250"},
        {"33 1", "YMCKO\n\nNumber of remaining ink ribbon:   1"},
        {"97 0", "YMCKO\n\nNumber of remaining ink ribbon:   0"},
        {"227 9", "K\n\nNumber of remaining ink ribbon:   9"},
        {"7 9", "KO\n\nNumber of remaining ink ribbon:   9"},
        {"38 9", "YMCKOK\n\nNumber of remaining ink ribbon:   9"},
        {"40 9", "1/2 YMCKO\n\nNumber of remaining ink ribbon:   9"},
        {"48 9", "YMCKFO\n\nNumber of remaining ink ribbon:   9"},
        {"45 9", "\n\nNumber of remaining ink ribbon:   9"},
        {"63 -1", "\n\nNumber of remaining ink ribbon:   -1"},
    };
    CopyWideBounded(Paper().dmDeviceName, TEXT("Front desk"), CCHDEVICENAME);
    Open();
    for (const auto& c : cases) {
        Connect(std::string("ribbon = ") + c.ribbon + "\n");
        Click(IDC_RIBBON_STATUS);
        EXPECT_EQ(TakeMessages(), std::string("Front desk: ") + c.text + "\n") << c.ribbon;
    }
}

// Every code of a printer, by the ribbon of the record; "-" for none.
TEST_F(ToolsPageTest, CodesOfPrinters) {
    constexpr const char* kRibbonsByCode =
        "- 0 1 - - - 2 3 4 1 - 5 - - - - - - - - - - - - - - - - - - - - "
        "- 0 - 1 0 4 4 5 5 9 9 - - 11 11 12 12 10 10 3 3 13 13 14 14 - - - - - - - ";
    for (int others : {0, 0x40, 0xC0}) {
        std::string ribbons;
        for (int code = 0; code < 64; ++code) {
            const BYTE ribbon = RibbonOfPrinter(static_cast<BYTE>(code | others));
            ribbons += ribbon == kUnknownRibbon ? "- " : std::to_string(ribbon) + " ";
        }
        EXPECT_EQ(ribbons, kRibbonsByCode);
    }
    EXPECT_EQ(Narrow(RibbonName(kUnknownRibbon)), "");
}

TEST_F(ToolsPageTest, TheRibbonIsSpokenOfInTheUsersLanguage) {
    std::fill_n(Paper().dmDeviceName, CCHDEVICENAME, TEXT('x'));
    WriteWideText(LanguageFilePath, TEXT("[Tools]\r\nNumber of remaining ink ribbon=Rest\r\n"));
    Open();
    Connect();
    SetSection(kColorSection);  // as another page has left it
    Click(IDC_RIBBON_STATUS);
    EXPECT_EQ(TakeMessages(), std::string(CCHDEVICENAME, 'x') + ": \n\nRest:   0\n");
}

TEST_F(ToolsPageTest, TheReportIsWrittenForThePrinter) {
    Open();
    Connect();
    Click(IDC_MAINTENANCE_INFO);
    EXPECT_EQ(State(), "reports = 1\n");
}

// ---- Without the library, or with one that lacks everything ------------------------------------

TEST_F(ToolsPageTest, WhatIsSaidWithoutTheLibrary) {
    const std::string kMissing = "Error: Can't load library\n";
    const std::string kRibbon = "Front desk: \n\nNumber of remaining ink ribbon:   0\n";
    const struct {
        int button;
        std::string withoutLibrary;
        std::string withoutOperation;
    } cases[] = {
        {IDC_MAINTENANCE_INFO, kMissing, ""},
        {IDC_RIBBON_STATUS, kMissing + kRibbon, kRibbon},
        {IDC_POSITION_DEFAULT, kMissing, ""},
        {IDC_POSITION_SAVE, kMissing, ""},
    };
    CopyWideBounded(Paper().dmDeviceName, TEXT("Front desk"), CCHDEVICENAME);
    for (const bool hasLibrary : {false, true}) {
        if (hasLibrary) {
            Connect("fault = no calls\n");
        }
        Open();
        Answer(MakeTable());
        for (const auto& c : cases) {
            Enter(IDC_POSITION_C, "1");  // there is something to save
            Click(c.button);
            EXPECT_EQ(TakeMessages(), hasLibrary ? c.withoutOperation : c.withoutLibrary)
                << c.button;
        }
        EXPECT_EQ(Adjuster(), "0 0 1 | 0 0 1 | ~Save Default Print");
    }
}

// ---- The picture --------------------------------------------------------------------------------

class PositionPictureTest : public ToolsPageTest {
  protected:
    void SetUp() override {
        ToolsPageTest::SetUp();
        RemovePictures();  // a package may be installed
    }
    void TearDown() override {
        RemovePictures();
        ToolsPageTest::TearDown();
    }

    /// A bitmap file of 24 bits whose left half is of the one colour and its right of the other.
    static void WritePicture(const WCHAR* name, COLORREF left, COLORREF right) {
        constexpr int kSide = 8;
        std::string file = {'B', 'M'};
        const auto add = [&](std::initializer_list<DWORD> numbers) {
            for (DWORD number : numbers) {
                file.append(reinterpret_cast<const char*>(&number), sizeof(number));
            }
        };
        add({54 + kSide * kSide * 3, 0, 54});
        add({40, kSide, kSide, 1 | 24 << 16, 0, 0, 0, 0, 0, 0});
        for (int i = 0; i < kSide * kSide; ++i) {
            const COLORREF color = i % kSide < kSide / 2 ? left : right;
            for (int shift : {16, 8, 0}) {  // blue first
                file += static_cast<char>(color >> shift);
            }
        }
        WriteBytes(DriverFolder() + TEXT("\\") + name, file);
    }

    /// The page's colours near the left and right end of the picture frame and beside the frame,
    /// painted into a canvas.
    std::vector<COLORREF> Painted() {
        RECT page = {};
        GetClientRect(page_, &page);
        InvalidateRect(page_, nullptr, TRUE);
        UpdateWindow(page_);
        const RECT area = ControlArea(page_, IDC_POSITION_PICTURE);
        HDC screen = GetDC(page_);
        const LONG middle = (area.top + area.bottom) / 2;
        const std::vector<COLORREF> colors = {GetPixel(screen, area.left + 1, area.top + 1),
                                              GetPixel(screen, area.right - 2, area.bottom - 2),
                                              GetPixel(screen, area.left - 2, middle),
                                              GetPixel(screen, area.right + 1, middle)};
        ReleaseDC(page_, screen);
        return colors;
    }

  private:
    static void RemovePictures() {
        for (const WCHAR* name : {TEXT("CalPrvEn.bmp"), TEXT("CalPrvPt.bmp"), TEXT("CalPrvTw.bmp"),
                                  TEXT("CalPrvCn.bmp")}) {
            std::filesystem::remove(DiskPath(DriverFolder() + TEXT("\\") + name));
        }
    }
};

constexpr COLORREF kRed = RGB(200, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 200);

TEST_F(PositionPictureTest, FillsItsFrameOverItsWholeSize) {
    Open();
    const COLORREF ground = Painted()[2];
    const std::vector<COLORREF> none(4, ground);
    EXPECT_EQ(Painted(), none) << "without the file";
    WritePicture(TEXT("CalPrvEn.bmp"), kRed, kBlue);
    EXPECT_EQ(Painted(), none) << "a file that came later";
    Open();
    EXPECT_EQ(Painted(), (std::vector{kRed, kBlue, ground, ground}));
    const RECT area = ControlArea(page_, IDC_POSITION_PICTURE);
    HDC screen = GetDC(page_);
    const LONG middle = (area.left + area.right) / 2;
    EXPECT_EQ(GetPixel(screen, middle - 30, area.top + 9), kRed);
    EXPECT_EQ(GetPixel(screen, middle + 30, area.top + 9), kBlue);
    ReleaseDC(page_, screen);
    WriteBytes(DriverFolder() + TEXT("\\CalPrvEn.bmp"), "no picture");
    EXPECT_EQ(Painted(), (std::vector{kRed, kBlue, ground, ground})) << "it is loaded once";
    Open();
    EXPECT_EQ(Painted(), none);
}

TEST_F(PositionPictureTest, IsInTheUsersLanguage) {
    WritePicture(TEXT("CalPrvEn.bmp"), RGB(1, 0, 0), RGB(1, 0, 0));
    WritePicture(TEXT("CalPrvPt.bmp"), RGB(2, 0, 0), RGB(2, 0, 0));
    WritePicture(TEXT("CalPrvTw.bmp"), RGB(3, 0, 0), RGB(3, 0, 0));
    WritePicture(TEXT("CalPrvCn.bmp"), RGB(4, 0, 0), RGB(4, 0, 0));
    const struct {
        LANGID language;
        int picture;  // 0 for none
    } cases[] = {
        {MAKELANGID(LANG_ENGLISH, 1), 1},
        {MAKELANGID(LANG_GERMAN, 1), 1},
        {MAKELANGID(LANG_JAPANESE, 1), 1},
        {MAKELANGID(LANG_PORTUGUESE, 1), 2},
        {MAKELANGID(LANG_PORTUGUESE, 2), 2},
        {MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL), 3},
        {MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED), 4},
        {MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_HONGKONG), 0},
        {MAKELANGID(LANG_CHINESE, 4), 0},
    };
    for (const auto& c : cases) {
        if (SetUiLanguage(c.language)) {
            Open();
            const std::vector<COLORREF> painted = Painted();
            EXPECT_EQ(painted[0], c.picture == 0 ? painted[2] : RGB(c.picture, 0, 0)) << c.language;
        }
    }
    SetUiLanguage(MAKELANGID(LANG_ENGLISH, 1));
}

}  // namespace
}  // namespace test
