// The Lamination page over the sample printer.
#include "lamination_page.h"

#include "companions/device_io.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/pictures.h"

#include <commctrl.h>

namespace test {
namespace {

constexpr const char* kNoReading = "Error: Can't load PrnBridge.dll\n";
constexpr const char* kNotFound = "Error: Can't find Lamination.\n";

// ---- Activation -------------------------------------------------------------------------------

TEST_F(LaminationPageTest, IsUsableWhileALaminatorAnswers) {
    constexpr int kUsable[] = {IDC_LAMINATION_SIDE,
                               IDC_LAMINATION_TYPE_GROUP,
                               IDC_LAMINATION_TYPE,
                               IDC_DWELL_TIME,
                               IDC_TEMPERATURE,
                               IDC_LAMINATION_POSITION_GROUP,
                               IDC_LAMINATION_A,
                               IDC_LAMINATION_A_SCROLL,
                               IDC_LAMINATION_B,
                               IDC_TRANSFER_DEFAULT,
                               IDC_LAMINATION_POSITION_DEFAULT,
                               IDC_LAMINATION_B_SCROLL};
    constexpr int kAlways[] = {IDC_LAMINATION_SIDE_LABEL, IDC_DWELL_TIME_LABEL,
                               IDC_DWELL_TIME_VALUE,      IDC_TEMPERATURE_LABEL,
                               IDC_TEMPERATURE_VALUE,     IDC_LAMINATION_PICTURE,
                               IDC_LAMINATION_A_LABEL,    IDC_LAMINATION_B_LABEL};
    const std::string films = "film 0 = 170 2100 5 95 3 100\n";
    const struct {
        const char* name;
        std::string state;  // empty: no library
        bool usable;
        const char* messages;
    } cases[] = {
        {"found", "laminator = 1\n" + films, true, ""},
        {"not there", "laminator = 0\n" + films, false, ""},
        {"printer does not answer", "fault = silent\nlaminator = 1\n", false, ""},
        {"found otherwise", "fault = wrong\n" + films, true, ""},
        {"library without the operation", "fault = no calls\nlaminator = 1\n", false, ""},
        {"no library", "", false, kNoReading},
        {"found again", "laminator = 1\n" + films, true, ""},
    };
    Open();
    EXPECT_EQ(TakeMessages(), "");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        if (c.state.empty()) {
            Disconnect();
        } else {
            Connect(c.state);
        }
        Activate();
        EXPECT_EQ(TakeMessages(), c.messages);
        for (const int control : kUsable) {
            EXPECT_EQ(IsWindowEnabled(Item(control)) != 0, c.usable) << control;
        }
        for (const int control : kAlways) {
            EXPECT_TRUE(IsWindowEnabled(Item(control))) << control;
        }
        EXPECT_EQ(Saves(), "..");
        if (c.usable) {
            EXPECT_EQ(Transfer(), "2520 2.52 sec./inch, 170 170 cel.");
            EXPECT_EQ(Position(), "2 2, -5 -5");
        }
        EXPECT_TRUE(c.state.empty() || State() == c.state) << "nothing was sent, no complaint";
        EXPECT_EQ(TakeChanges(), 0);
    }
}

TEST_F(LaminationPageTest, OpensWithoutAskingTheLaminator) {
    Open();
    EXPECT_EQ(Looks(IDC_DWELL_TIME_VALUE) + ", " + Looks(IDC_TEMPERATURE_VALUE),
              "0 sec./inch, 0 cel.");
    EXPECT_EQ(Looks(IDC_LAMINATION_TYPE), " of 0");
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(LaminationPageTest, TextsAreTheUsers) {
    WriteWideText(LanguageFilePath,
                  TEXT("[Lamination]\r\nsec./inch=s/Zoll\r\ncel.=Grad\r\nNo Lamination=Keine\r\n"
                       "Mirv Standard Patch=Flicken\r\nError=Oh\r\nSave=Sichern\r\n"
                       "Enter from -15 - 15 .=Bis 15.\r\n"
                       "[Setting]\r\nError=Nein\r\n"
                       "Press up and down button to adjust value ( -15 - 15 ).=Nur bis 15.\r\n"
                       "[Color]\r\ncel.=no\r\nMirv Standard Overlay=no\r\n"));
    Connect(kLaminator);
    Record().LaminationOption = 1;
    Open();
    EXPECT_EQ(Looks(IDC_DWELL_TIME_VALUE), "0 s/Zoll");
    EXPECT_EQ(Looks(IDC_TEMPERATURE_VALUE), "0 Grad");
    EXPECT_EQ(Looks(IDC_LAMINATION_SIDE), "Keine of 4");
    EXPECT_EQ(TextOf(Item(IDC_LAMINATION_POSITION_SAVE)), "Sichern");
    SetSection(kColorSection);
    Activate();
    EXPECT_EQ(Looks(IDC_LAMINATION_TYPE), "Flicken of 2");
    SetSection(kColorSection);
    Choose(IDC_LAMINATION_TYPE, 0);
    EXPECT_EQ(Looks(IDC_LAMINATION_TYPE), "Mirv Standard Overlay of 2");
    SetSection(kColorSection);
    Slide(IDC_TEMPERATURE, 160, TB_LINEUP);
    EXPECT_EQ(Transfer(), "2520 2.52 s/Zoll, 160 160 Grad");
    SetSection(kColorSection);
    Click(IDC_TRANSFER_DEFAULT);
    EXPECT_EQ(Transfer(), "2400 2.40 s/Zoll, 180 180 Grad");
    Enter(IDC_LAMINATION_A, "16");
    Enter(IDC_LAMINATION_B, "15");
    Press(Item(IDC_LAMINATION_B), VK_UP);
    EXPECT_EQ(TakeMessages(), "Nein: Nur bis 15.\nOh: Bis 15.\n");
    // Fixed English texts.
    Disconnect();
    Click(IDC_TRANSFER_SAVE);
    EXPECT_EQ(TakeMessages(), std::string(kNoReading) + kNotFound);
}

// ---- The job's choices --------------------------------------------------------------------------

// The two low bits count, on a printer that does not turn the card the lowest; none of them is 0.
TEST_F(LaminationPageTest, ShowsTheStoredSide) {
    const struct {
        int stored;
        const char* ofTwoSides;
        const char* ofOneSide;
    } cases[] = {
        {0, "No Lamination of 4", "No Lamination of 2"},
        {1, "Front Side Lamination of 4", "Front Side Lamination of 2"},
        {2, "Back Side Lamination of 4", "No Lamination of 2"},
        {3, "Both Sides Lamination of 4", "Front Side Lamination of 2"},
        {4, "No Lamination of 4", "No Lamination of 2"},
        {0x82, "Back Side Lamination of 4", "No Lamination of 2"},
        {255, "Both Sides Lamination of 4", "Front Side Lamination of 2"},
    };
    for (const auto& c : cases) {
        for (const bool isDuplex : {false, true}) {
            context_.IsDuplexModel = isDuplex;
            Record().LaminationSides = static_cast<BYTE>(c.stored);
            Open();
            const std::string shown = isDuplex ? c.ofTwoSides : c.ofOneSide;
            EXPECT_EQ(Looks(IDC_LAMINATION_SIDE), shown);
            EXPECT_EQ(Record().LaminationSides, shown.starts_with("No") ? 0 : c.stored);
        }
    }
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(LaminationPageTest, StoresSideAndFilmAtOnce) {
    Start();
    for (int index = 0; index < 4; ++index) {
        Choose(IDC_LAMINATION_SIDE, index);
        EXPECT_EQ(Record().LaminationSides, index);
        EXPECT_EQ(TakeChanges(), 1);
    }
    Choose(IDC_LAMINATION_SIDE, -1);
    EXPECT_EQ(Record().LaminationSides, 3);
    // As more entries would be.
    SendMessageW(Item(IDC_LAMINATION_SIDE), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(TEXT("x")));
    Choose(IDC_LAMINATION_SIDE, 4);
    EXPECT_EQ(Record().LaminationSides, 0);
    EXPECT_EQ(TakeChanges(), 2);

    Choose(IDC_LAMINATION_TYPE, 1);
    EXPECT_EQ(Record().LaminationOption, 1);
    EXPECT_EQ(Transfer(), "2160 2.16 sec./inch, 150 150 cel.");
    EXPECT_EQ(Position(), "0 0, 0 0");
    EXPECT_EQ(TakeChanges(), 1);
    Choose(IDC_LAMINATION_TYPE, -1);
    EXPECT_EQ(Record().LaminationOption, 1);
    SendMessageW(Item(IDC_LAMINATION_TYPE), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(TEXT("x")));
    Choose(IDC_LAMINATION_TYPE, 2);
    EXPECT_EQ(Record().LaminationOption, 0);
    EXPECT_EQ(Position(), "2 2, -5 -5");
    EXPECT_EQ(TakeMessages() + Saves(), "..");
    EXPECT_EQ(State(), kLaminator);
    // Filled anew.
    Activate();
    EXPECT_EQ(Looks(IDC_LAMINATION_TYPE), "Mirv Standard Overlay of 2");
}

TEST_F(LaminationPageTest, AFilmIsShownWhateverTheLaminatorAnswers) {
    Start();
    Slide(IDC_TEMPERATURE, 130, TB_THUMBPOSITION);
    Step(IDC_LAMINATION_A_SCROLL, SB_LINEUP);
    ASSERT_EQ(Saves(), "xx");
    Disconnect();
    Choose(IDC_LAMINATION_TYPE, 1);
    EXPECT_EQ(TakeMessages(), kNoReading);
    EXPECT_EQ(Transfer(), "1455 0.   sec./inch, 120 0 cel.");
    EXPECT_EQ(Position(), "0 0, 0 0");
    EXPECT_EQ(Saves(), "xx") << "as they were";
    EXPECT_EQ(Record().LaminationOption, 1);
}

// ---- What is shown ------------------------------------------------------------------------------

TEST_F(LaminationPageTest, ShowsWhatTheLaminatorHas) {
    const struct {
        const char* film;
        const char* transfer;
        const char* position;
    } cases[] = {
        {"180 2000 0 100 0 100", "2400 2.40 sec./inch, 180 180 cel.", "0 0, 0 0"},
        {"120 1999 15 85 0 100", "2398 2.40 sec./inch, 120 120 cel.", "15 15, -15 -15"},
        {"190 1212 -12 115 3 100", "1455 1.45 sec./inch, 190 190 cel.", "-15 -15, 15 15"},
        // Beyond what the controls can show.
        {"119 1211 19 116 3 100", "1455 1.45 sec./inch, 120 119 cel.", "15 15, 15 15"},
        {"191 4788 -13 84 3 100", "5745 5.75 sec./inch, 190 191 cel.", "-15 -15, -15 -15"},
        {"65535 65535 127 65535 -128 0", "5745 7.86 sec./inch, 190 65535 cel.", "-1 -1, -1 -1"},
        {"0 0 -128 5 127 65530", "1455 0.   sec./inch, 120 0 cel.", "1 1, 11 11"},
    };
    Open();
    for (const auto& c : cases) {
        const std::string state = "laminator = 1\nfilm 0 = " + std::string(c.film) + "\n";
        Connect(state);
        Activate();
        EXPECT_EQ(Transfer(), c.transfer);
        EXPECT_EQ(Position(), c.position);
        EXPECT_EQ(TakeMessages() + Saves(), "..") << c.film;
        EXPECT_EQ(State(), state);
    }
    EXPECT_EQ(SendMessageW(Item(IDC_DWELL_TIME), TBM_GETRANGEMIN, 0, 0), 1455);
    EXPECT_EQ(SendMessageW(Item(IDC_DWELL_TIME), TBM_GETRANGEMAX, 0, 0), 5745);
    EXPECT_EQ(SendMessageW(Item(IDC_TEMPERATURE), TBM_GETRANGEMIN, 0, 0), 120);
    EXPECT_EQ(SendMessageW(Item(IDC_TEMPERATURE), TBM_GETRANGEMAX, 0, 0), 190);
}

TEST_F(LaminationPageTest, PaintsThePositionsInTheirFrame) {
    Open();
    for (const SIZE size : {SIZE{225, 117}, SIZE{120, 60}}) {
        SetWindowPos(Item(IDC_LAMINATION_PICTURE), nullptr, 0, 0, size.cx, size.cy,
                     SWP_NOMOVE | SWP_NOZORDER);
        InvalidateRect(page_, nullptr, TRUE);
        UpdateWindow(page_);
        const RECT frame = ControlArea(page_, IDC_LAMINATION_PICTURE);
        const RECT whole = {0, 0, size.cx, size.cy};
        HDC screen = GetDC(page_);
        int different = 0;
        int colored = 0;
        {
            PictureSet pictures;
            const MemoryCanvas canvas(screen, size.cx, size.cy);
            DrawBitmap(pictures, canvas.get(), 0, 0, IDB_LAMINATION_POSITION, &whole);
            // A page by itself has a title, which moves the picture's end over what is below it.
            for (int y = 0; y < size.cy * 3 / 4; ++y) {
                for (int x = 0; x < size.cx; ++x) {
                    const COLORREF pixel = GetPixel(screen, frame.left + x, frame.top + y);
                    different += pixel != GetPixel(canvas.get(), x, y);
                    colored += pixel != 0xFFFFFF;
                }
            }
        }
        ReleaseDC(page_, screen);
        EXPECT_EQ(different, 0) << size.cx;
        EXPECT_GT(colored, size.cx * size.cy / 4);
    }
}

// ---- Dwell time and temperature -----------------------------------------------------------------

TEST_F(LaminationPageTest, ASliderIsFollowedByStepsAndPlacesAlone) {
    for (WORD code = TB_LINEUP; code <= TB_ENDTRACK; ++code) {
        Start();
        TakeChanges();
        const bool followed = code <= 4;
        Slide(IDC_DWELL_TIME, 2399, code);
        EXPECT_EQ(Transfer(), followed ? "2399 2.39 sec./inch, 170 170 cel."
                                       : "2399 2.52 sec./inch, 170 170 cel.")
            << code;
        EXPECT_EQ(Saves(), followed ? "x." : "..") << code;
        Start();
        Slide(IDC_TEMPERATURE, 121, code);
        EXPECT_EQ(Looks(IDC_TEMPERATURE_VALUE), followed ? "121 cel." : "170 cel.") << code;
        EXPECT_EQ(Saves(), followed ? "x." : "..") << code;
        EXPECT_EQ(TakeChanges(), 0);
        EXPECT_EQ(State(), kLaminator);
    }
    // By keyboard: a line, a page, and an end, which is no step.
    const std::pair<int, const char*> keys[] = {{VK_RIGHT, "2521 2.52 sec./inch"},
                                                {VK_NEXT, "2621 2.62 sec./inch"},
                                                {VK_LEFT, "2620 2.62 sec./inch"},
                                                {VK_END, "5745 2.62 sec./inch"}};
    Start();
    for (const auto& [key, shown] : keys) {
        Press(Item(IDC_DWELL_TIME), key);
        EXPECT_EQ(Looks(IDC_DWELL_TIME) + " " + Looks(IDC_DWELL_TIME_VALUE), shown);
    }
}

TEST_F(LaminationPageTest, SavesDwellTimeAndTemperatureOverWhatTheLaminatorHasNow) {
    const struct {
        int dwell, temperature;
        const char* film;
    } cases[] = {{2400, 180, "180 2000 -7 60000 3 100"},
                 {1455, 120, "120 1212 -7 60000 3 100"},
                 {5745, 190, "190 4787 -7 60000 3 100"}};
    for (const BYTE option : {BYTE{0}, BYTE{1}}) {
        for (const auto& c : cases) {
            Record().LaminationOption = option;
            Start();
            Slide(IDC_DWELL_TIME, c.dwell, TB_THUMBPOSITION);
            Slide(IDC_TEMPERATURE, c.temperature, TB_THUMBPOSITION);
            Step(IDC_LAMINATION_A_SCROLL, SB_LINEUP);
            // Meanwhile another computer has set it.
            const std::string name = "film " + std::to_string(option) + " = ";
            Connect("laminator = 1\n" + name + "111 2222 -7 60000 3 100\n");
            SetFocus(Item(IDC_TRANSFER_SAVE));
            Click(IDC_TRANSFER_SAVE);
            EXPECT_EQ(State(), "laminator = 1\n" + name + c.film + "\n");
            EXPECT_EQ(TakeMessages(), "");
            EXPECT_EQ(Saves(), ".x");
            EXPECT_EQ(GetFocus(), Item(IDC_DWELL_TIME));
        }
    }
}

TEST_F(LaminationPageTest, DefaultsAreSentBySaveAlone) {
    Start();
    TakeChanges();
    Click(IDC_TRANSFER_DEFAULT);
    EXPECT_EQ(Transfer(), "2400 2.40 sec./inch, 180 180 cel.");
    EXPECT_EQ(Saves(), "x.");
    Click(IDC_LAMINATION_POSITION_DEFAULT);
    EXPECT_EQ(Position(), "0 0, 0 0");
    EXPECT_EQ(Saves(), "xx");
    EXPECT_EQ(State(), kLaminator);
    Click(IDC_LAMINATION_POSITION_SAVE);
    EXPECT_EQ(Saves(), "x.");
    Click(IDC_TRANSFER_SAVE);
    EXPECT_EQ(State(),
              "laminator = 1\n"
              "film 0 = 180 2000 3 100 3 100\n"
              "film 1 = 150 1800 0 100 0 100\n");
    EXPECT_EQ(TakeChanges(), 0) << "of the record";
    // Activated anew, what was not saved is gone.
    Click(IDC_LAMINATION_POSITION_DEFAULT);
    Step(IDC_LAMINATION_B_SCROLL, SB_LINEDOWN);
    Activate();
    EXPECT_EQ(Position() + Saves(), "0 0, 0 0..");
}

TEST_F(LaminationPageTest, ASaveWithoutLaminatorIsReported) {
    const std::string film = "film 0 = 170 2100 5 95 3 100\n";
    const struct {
        const char* name;
        std::string state;
        std::string messages;
    } cases[] = {
        {"none", "laminator = 0\n" + film, kNotFound},
        {"answers otherwise", "fault = wrong\n" + film, kNotFound},
        {"silent", "fault = silent\n" + film, kNotFound},
        {"without the operation", "fault = no calls\n" + film, kNotFound},
        {"no library", "", std::string(kNoReading) + kNotFound},
    };
    for (const auto& [makeDefault, save] :
         {std::pair{IDC_TRANSFER_DEFAULT, IDC_TRANSFER_SAVE},
          std::pair{IDC_LAMINATION_POSITION_DEFAULT, IDC_LAMINATION_POSITION_SAVE}}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            Start();
            Click(makeDefault);
            if (c.state.empty()) {
                Disconnect();
            } else {
                Connect(c.state);
            }
            Click(save);
            EXPECT_EQ(TakeMessages(), c.messages);
            EXPECT_EQ(Saves(), "..");
            EXPECT_TRUE(c.state.empty() || State() == c.state);
            Click(makeDefault);
            EXPECT_TRUE(IsWindowEnabled(Item(save))) << "the next change";
        }
    }
}

// ---- The film's position ------------------------------------------------------------------------

TEST_F(LaminationPageTest, SavesThePositionOverWhatTheLaminatorHasNow) {
    const struct {
        const char* la;
        const char* lb;
        const char* now;  // references among it
        const char* saved;
    } cases[] = {
        {"-4", "7", "170 2100 99 999 3 100", "170 2100 -1 107 3 100"},
        {"15", "-15", "1 2 0 0 120 10", "1 2 -121 65531 120 10"},
        {"-15", "15", "1 2 0 0 -120 65530", "1 2 121 9 -120 65530"},
        {"", "-", "1 2 9 9 -3 5", "1 2 -3 5 -3 5"},
    };
    for (const auto& c : cases) {
        Start();
        Enter(IDC_LAMINATION_A, c.la);
        Enter(IDC_LAMINATION_B, c.lb);
        Slide(IDC_TEMPERATURE, 188, TB_LINEUP);
        EXPECT_EQ(Saves(), "xx");
        Connect("laminator = 1\nfilm 0 = " + std::string(c.now) + "\n");
        SetFocus(Item(IDC_LAMINATION_POSITION_SAVE));
        Click(IDC_LAMINATION_POSITION_SAVE);
        EXPECT_EQ(State(), "laminator = 1\nfilm 0 = " + std::string(c.saved) + "\n");
        EXPECT_EQ(TakeMessages(), "");
        EXPECT_EQ(Saves(), "x.");
        EXPECT_EQ(GetFocus(), Item(IDC_LAMINATION_A));
    }
}

TEST_F(LaminationPageTest, ArrowsStepTheOffset) {
    Start();
    TakeChanges();
    const struct {
        int arrows;
        WORD code;
        int times;
        const char* position;
        int changes;
    } cases[] = {
        {IDC_LAMINATION_A_SCROLL, SB_LINEUP, 1, "3 3, -5 -5", 1},
        {IDC_LAMINATION_A_SCROLL, SB_LINEDOWN, 4, "-1 -1, -5 -5", 4},
        {IDC_LAMINATION_B_SCROLL, SB_LINEDOWN, 12, "-1 -1, -15 -15", 12},
        {IDC_LAMINATION_A_SCROLL, SB_LINEUP, 20, "15 15, -15 -15", 20},
        {IDC_LAMINATION_A_SCROLL, SB_PAGEDOWN, 1, "15 15, -15 -15", 0},
        {IDC_LAMINATION_B_SCROLL, SB_THUMBPOSITION, 1, "15 15, -15 -15", 0},
    };
    for (const auto& c : cases) {
        for (int i = 0; i < c.times; ++i) {
            Step(c.arrows, c.code);
        }
        EXPECT_EQ(Position(), c.position);
        EXPECT_EQ(TakeChanges(), c.changes);
        EXPECT_EQ(TakeMessages() + Saves(), ".x");
    }
    Step(IDC_LAMINATION_B_SCROLL, SB_ENDSCROLL);
    EXPECT_EQ(GetFocus(), Item(IDC_LAMINATION_B));
    EXPECT_EQ(SendMessageW(Item(IDC_LAMINATION_B), EM_GETSEL, 0, 0), MAKELONG(0, 3));
    // At an end nothing is changed.
    Click(IDC_LAMINATION_POSITION_SAVE);
    Step(IDC_LAMINATION_A_SCROLL, SB_LINEUP);
    EXPECT_EQ(Saves(), "..");
}

TEST_F(LaminationPageTest, FieldsTakeWhatIsLegal) {
    const std::string illegal = "Error: Press up and down button to adjust value ( -15 - 15 ).\n";
    const struct {
        const char* entered;
        const char* position;  // of a field at 2
        bool changed;
        std::string messages;
    } cases[] = {
        {"7", "7 7", true, ""},        {"-15", "-15 -15", true, ""},
        {"15", "15 15", true, ""},     {"2", "2 2", false, ""},
        {"", " 0", true, ""},          {"-", "- 0", true, ""},
        {"20", "2 2", false, illegal}, {"-16", "2 2", false, illegal},
        {"07", "2 2", false, illegal}, {"1x", "2 2", false, illegal},
        {"-0", "2 2", false, illegal},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entered);
        Start();
        TakeChanges();
        Enter(IDC_LAMINATION_A, c.entered);
        EXPECT_EQ(Position(), std::string(c.position) + ", -5 -5");
        EXPECT_EQ(Saves(), c.changed ? ".x" : "..");
        EXPECT_EQ(TakeMessages(), c.messages);
        EXPECT_EQ(TakeChanges(), 0);
    }
    // At the keyboard: three characters, no letters, and Up and Down.
    Start();
    SetFocus(Item(IDC_LAMINATION_B));
    SendMessageW(Item(IDC_LAMINATION_B), EM_SETSEL, 0, -1);
    Type(Item(IDC_LAMINATION_B), "-a1.23");
    EXPECT_EQ(Looks(IDC_LAMINATION_B), "-12");
    EXPECT_EQ(TakeMessages(), "");
    Press(Item(IDC_LAMINATION_B), VK_DOWN);
    EXPECT_EQ(Position(), "2 2, -13 -13");
    Enter(IDC_LAMINATION_B, "15");
    Press(Item(IDC_LAMINATION_B), VK_UP);
    EXPECT_EQ(Position(), "2 2, 15 15");
    EXPECT_EQ(TakeMessages(), "Error: Enter from -15 - 15 .\n");
}

}  // namespace
}  // namespace test
