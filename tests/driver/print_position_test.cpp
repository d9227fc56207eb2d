// The print position adjuster: what a printer's answer, the fields, the arrows and the buttons do
// to its table, to the record, to each other and to the sheet.
#include "ui/pages/tools/print_position.h"

#include "tools_page.h"

#include <prsht.h>

namespace test {
namespace {

constexpr int kFields[] = {IDC_POSITION_A, IDC_POSITION_B, IDC_POSITION_C};

class PrintPositionTest : public ToolsPageTest {
  protected:
    void SetUp() override {
        ToolsPageTest::SetUp();
        Connect();
    }

    void OpenOn(BYTE thickness, const CalibrationTable& table) {
        Record().CardThickness = thickness;
        Open();
        Answer(table);
        TakeChanges();
    }

    /// Current A, B, C and 16 bits of every row of the process's table.
    static std::string Rows() {
        std::string rows;
        for (const CalibrationRow& row : PrintPositions.Table) {
            for (int value : {+row.Current.A, +row.Current.B, +row.Current.C}) {
                rows += std::to_string(value) + " ";
            }
            rows += std::to_string(row.Current.Extra) + "; ";
        }
        return rows;
    }
};

// ---- Answers ------------------------------------------------------------------------------------

// Defaults are A 10, B 20, C 30 and 0x4321 = 17185; the table's own 16 bits are 0x1234 = 4660.
TEST_F(PrintPositionTest, WhatAnAnswerShowsAndStores) {
    const auto untouched = [](CalibrationTable&) {};
    const struct {
        const char* name;
        BYTE thickness;
        void (*before)(CalibrationTable&);
        BYTE thicknessAfter;
        const char* adjuster;
        const char* stored;
        bool isSent;
    } cases[] = {
        // clang-format off
        {"0.3 mm", 0, untouched, 0, "1 2 3 | 1 2 3 | ~Save Default Print", "11 22 33 777", false},
        {"0.5 mm", 1, untouched, 1, "4 5 6 | 4 5 6 | ~Save Default Print", "14 25 36 777", false},
        {"0.8 mm", 2, untouched, 2, "-1 -2 -3 | -1 -2 -3 | ~Save Default Print", "9 18 27 777", false},
        {"1.0 mm", 3, untouched, 3, "-4 -5 -6 | -4 -5 -6 | ~Save Default Print", "6 15 24 777", false},
        {"no thickness that there is", 4, untouched, 0, "1 2 3 | 1 2 3 | ~Save Default Print", "11 22 33 777", false},
        {"nor this", 254, untouched, 0, "1 2 3 | 1 2 3 | ~Save Default Print", "11 22 33 777", false},
        {"at the limits", 2, [](CalibrationTable& t) { t[2] = MakeRow(10, -20, -10); }, 2,
         "10 -20 -10 | 10 -20 -10 | ~Save Default Print", "20 0 20 777", false},
        {"at the other limits", 2, [](CalibrationTable& t) { t[2] = MakeRow(-10, 20, 10); }, 2,
         "-10 20 10 | -10 20 10 | ~Save Default Print", "0 40 40 777", false},
        {"A beyond its limit", 2, [](CalibrationTable& t) { t[2] = MakeRow(11, 1, 1); }, 2,
         "0 1 1 | 0 1 1 | ~Save Default Print", "10 21 31 777", true},
        {"B beyond its limit", 2, [](CalibrationTable& t) { t[2] = MakeRow(1, -21, 1); }, 2,
         "1 0 1 | 1 0 1 | ~Save Default Print", "11 20 31 777", true},
        {"C beyond its limit", 2, [](CalibrationTable& t) { t[2] = MakeRow(1, 1, -11); }, 2,
         "1 1 0 | 1 1 0 | ~Save Default Print", "11 21 30 777", true},
        {"another row beyond its limit", 2, [](CalibrationTable& t) { t[0] = MakeRow(1, 100, 2); }, 2,
         "-1 -2 -3 | -1 -2 -3 | ~Save Default Print", "9 18 27 777", true},
        {"negative places", 1, [](CalibrationTable& t) { t[1].Default = {-50, -60, 1, -70, {}}; t[1].Current = {-51, -58, 1, -90, {}}; }, 1,
         "2 -20 -1 | 2 -20 -1 | ~Save Default Print", "-58 -90 -51 777", false},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Record().PrintPositionExtra = 777;
        Record().CardThickness = c.thickness;
        Connect();
        Open();
        CalibrationTable table = MakeTable();
        c.before(table);
        Answer(table);
        EXPECT_EQ(Adjuster(), c.adjuster);
        EXPECT_EQ(Stored(), c.stored);
        EXPECT_EQ(Record().CardThickness, c.thicknessAfter);
        EXPECT_EQ(TakeChanges(), 0);
        EXPECT_EQ(TakeMessages(), "");
        if (c.isSent) {
            ExpectSent(PrintPositions.Table);
        }
        EXPECT_EQ(State(), "");
    }
}

TEST_F(PrintPositionTest, OtherBytesOfTheTableStayAsTheyCame) {
    CalibrationTable table = MakeTable();
    table[3] = MakeRow(1, 90, 1);
    OpenOn(0, table);
    Enter(IDC_POSITION_B, "-7");
    Click(IDC_POSITION_SAVE);
    table[3].Current.B = table[3].Default.B;
    table[0].Current.B = static_cast<std::int8_t>(table[0].Default.B - 7);
    ExpectSent(table);
}

TEST_F(PrintPositionTest, WhatIsNoAnswerChangesNothing) {
    const auto bytes = [](size_t size, BYTE first, BYTE mark) {
        std::string all(size, 3);
        if (size > 1) {
            all[0] = static_cast<char>(first);
            all[1] = static_cast<char>(mark);
        }
        return all;
    };
    const struct {
        const char* name;
        DWORD query;
        std::string bytes;
        bool taken;
    } cases[] = {
        {"nothing", 5, {}, false},
        {"short", 5, bytes(129, 0, 4), false},
        {"another mark", 5, bytes(130, 0, 5), false},
        {"the mark in the wrong place", 5, bytes(130, 4, 3), false},
        {"another query's", 1, bytes(130, 0, 4), false},
        {"and another's", 6, bytes(130, 0, 4), false},
        {"whatever the first byte is", 5, bytes(130, 255, 4), true},
        {"longer", 5, bytes(500, 0, 4), true},
    };
    for (const bool answered : {false, true}) {
        for (const auto& c : cases) {
            PrintPositions = {};
            Record().CardThickness = 1;
            Open();
            if (answered) {
                Answer(MakeTable());
                Enter(IDC_POSITION_A, "7");
            }
            const std::string before = Adjuster() + Stored() + Rows();
            Answer(c.query, c.bytes);
            EXPECT_EQ(Adjuster() + Stored() + Rows() != before, c.taken) << c.name;
        }
        COPYDATASTRUCT none = {5, 130, nullptr};
        const std::string before = Adjuster() + Stored() + Rows();
        SendMessageW(page_, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&none));
        SendMessageW(page_, WM_COPYDATA, 0, 0);
        EXPECT_EQ(Adjuster() + Stored() + Rows(), before);
    }
    EXPECT_EQ(TakeMessages(), "");
}

TEST_F(PrintPositionTest, WithoutAThicknessTheUserIsWarned) {
    WriteWideText(LanguageFilePath,
                  TEXT("[Tools]\r\nWarning=Warnung\r\nPlease move the card thickness selection "
                       "button to the right position.=Dicke!\r\n"));
    Record().CardThickness = 255;
    Open();
    CalibrationTable table = MakeTable();
    table[0] = MakeRow(100, 0, 0);
    const std::string stored = Stored();
    Answer(table);
    EXPECT_EQ(TakeMessages(), "owned Warnung: Dicke!\n");
    EXPECT_EQ(Adjuster(), "~ ~ ~ | 0 0 0 | ~Save ~Default ~Print");
    EXPECT_EQ(Stored(), stored);
    EXPECT_EQ(Record().CardThickness, 255);
    EXPECT_EQ(State(), "");
    Record().CardThickness = 0;
    Answer(table);
    EXPECT_EQ(Adjuster(), "0 0 0 | 0 0 0 | ~Save Default Print");
    ExpectSent(PrintPositions.Table);
    // One that is lost while the adjuster is in use: it stays as it is, and takes no numbers.
    Enter(IDC_POSITION_C, "8");
    Record().CardThickness = 255;
    Answer(MakeTable());
    EXPECT_EQ(TakeMessages(), "owned Warnung: Dicke!\n");
    const std::string before = Stored() + Rows();
    Enter(IDC_POSITION_A, "9");
    Enter(IDC_POSITION_B, "x");
    EXPECT_EQ(Stored() + Rows(), before);
    EXPECT_EQ(TakeMessages(), "");
    EXPECT_EQ(Adjuster(), "9 x 8 | 0 0 8 | Save Default Print");
    Press(Item(IDC_POSITION_A), VK_UP);
    Step(IDC_POSITION_B, SB_LINEDOWN);
    EXPECT_EQ(Adjuster(), "1 -1 8 | 1 -1 8 | Save Default Print") << "from the arrows' place";
    EXPECT_EQ(Stored() + Rows(), before);
}

TEST_F(PrintPositionTest, AnAnswerTakesWhatWasNotSaved) {
    OpenOn(2, MakeTable());
    Enter(IDC_POSITION_A, "9");
    EXPECT_EQ(Adjuster(), "9 -2 -3 | 9 -2 -3 | Save Default Print");
    Answer(MakeTable());
    EXPECT_EQ(Adjuster(), "-1 -2 -3 | -1 -2 -3 | ~Save Default Print");
    EXPECT_EQ(Stored(), "9 18 27 0");
}

TEST_F(PrintPositionTest, ANewPageWaitsForItsOwnAnswer) {
    OpenOn(2, MakeTable());
    const std::string rows = Rows();
    Open();
    EXPECT_EQ(Adjuster(), "~ ~ ~ | 0 0 0 | ~Save ~Default ~Print");
    EXPECT_EQ(Rows(), rows);
}

// ---- Fields -------------------------------------------------------------------------------------

TEST_F(PrintPositionTest, AFieldChangesItsOwnValueOfTheRow) {
    const char* kStored[] = {"17 18 27 0", "9 27 27 0", "9 18 37 0"};
    const char* kRows[] = {"17 18 27 4660; ", "9 27 27 4660; ", "9 18 37 4660; "};
    for (size_t i = 0; i < std::size(kFields); ++i) {
        OpenOn(2, MakeTable());
        const std::string before = Rows();
        Enter(kFields[i], "7");
        EXPECT_EQ(Stored(), kStored[i]);
        EXPECT_EQ(GetScrollPos(ArrowsOf(kFields[i]), SB_CTL), 7);
        std::string expected = before;
        const std::string row = "9 18 27 4660; ";
        expected.replace(expected.find(row), row.size(), kRows[i]);
        EXPECT_EQ(Rows(), expected);
        EXPECT_TRUE(IsWindowEnabled(Item(IDC_POSITION_SAVE)));
        EXPECT_EQ(TakeChanges(), 0) << "a text is not told to the sheet";
        EXPECT_EQ(State(), "");
    }
}

TEST_F(PrintPositionTest, WhatAFieldRefuses) {
    const struct {
        int field;
        const char* text;
        const char* message;  // empty when it is accepted
        const char* shown;
    } cases[] = {
        {IDC_POSITION_A, "10", "", "10"},
        {IDC_POSITION_A, "-10", "", "-10"},
        {IDC_POSITION_A, "11", "-10 - 10", "-1"},
        {IDC_POSITION_A, "-11", "-10 - 10", "-1"},
        {IDC_POSITION_A, "", "", ""},
        {IDC_POSITION_A, "-", "", "-"},
        {IDC_POSITION_A, "01", "-10 - 10", "-1"},
        {IDC_POSITION_B, "20", "", "20"},
        {IDC_POSITION_B, "-20", "", "-20"},
        {IDC_POSITION_B, "21", "-20 - 20", "-2"},
        {IDC_POSITION_B, "1-", "-20 - 20", "-2"},
        {IDC_POSITION_C, "10", "", "10"},
        {IDC_POSITION_C, "-11", "-10 - 10", "-3"},
        {IDC_POSITION_C, "99999999999999", "-10 - 10", "-3"},
    };
    WriteWideText(LanguageFilePath, TEXT("[Setting]\r\nError=Fehler\r\n"));
    for (const auto& c : cases) {
        OpenOn(2, MakeTable());
        SetFocus(Item(IDC_POSITION_PRINT));
        Enter(c.field, c.text);
        const std::string range = c.message;
        EXPECT_EQ(TakeMessages(),
                  range.empty()
                      ? ""
                      : "Fehler: Press up and down button to adjust value ( " + range + " ).\n");
        EXPECT_EQ(TextOf(Item(c.field)), c.shown) << c.text;
        EXPECT_EQ(GetScrollPos(ArrowsOf(c.field), SB_CTL), std::atoi(c.shown)) << c.text;
        EXPECT_EQ(GetFocus() == Item(c.field), !range.empty());
        EXPECT_EQ(TakeChanges(), 0);
    }
}

// The sum has the table's 8 bits; the user sees his number all the same.
TEST_F(PrintPositionTest, ADefaultNearTheEndOfItsBits) {
    CalibrationTable table = MakeTable();
    table[2].Default = {-128, 127, 0, 120, {}};
    table[2].Current = table[2].Default;
    OpenOn(2, table);
    EXPECT_EQ(Adjuster(), "0 0 0 | 0 0 0 | ~Save Default Print");
    Enter(IDC_POSITION_A, "10");
    Enter(IDC_POSITION_B, "20");
    Enter(IDC_POSITION_C, "-10");
    EXPECT_EQ(Stored(), "-119 -116 118 0");
    for (int field : kFields) {
        Enter(field, "x");
    }
    EXPECT_EQ(Adjuster(), "10 20 -10 | 10 20 -10 | Save Default Print");
    Step(IDC_POSITION_C, SB_LINEUP);
    EXPECT_EQ(Stored(), "-119 -116 119 0");
}

// ---- Keys and arrows ----------------------------------------------------------------------------

TEST_F(PrintPositionTest, KeysStepFromTheArrowsPlace) {
    WriteWideText(LanguageFilePath, TEXT("[Tools]\r\nError=Fehler\r\n"));
    OpenOn(2, MakeTable());
    Enter(IDC_POSITION_B, "-");
    Press(Item(IDC_POSITION_B), VK_DOWN);
    EXPECT_EQ(Adjuster(), "-1 -1 -3 | -1 -1 -3 | Save Default Print");
    Press(Item(IDC_POSITION_A), VK_UP);
    HandlePosted();
    EXPECT_EQ(Adjuster(), "0 -1 -3 | 0 -1 -3 | Save Default Print") << "B does not follow a key";
    EXPECT_EQ(Stored(), "10 19 27 0");
    EXPECT_EQ(TakeChanges(), 0);
    Enter(IDC_POSITION_C, "-10");
    Press(Item(IDC_POSITION_C), VK_DOWN);
    EXPECT_EQ(TakeMessages(), "Fehler: Enter from -10 - 10 .\n");
    EXPECT_EQ(Adjuster(), "0 -1 -10 | 0 -1 -10 | Save Default Print");
    Enter(IDC_POSITION_B, "20");
    Press(Item(IDC_POSITION_B), VK_UP);
    EXPECT_EQ(TakeMessages(), "Fehler: Enter from -20 - 20 .\n");
    EXPECT_EQ(Stored(), "10 40 20 0");
}

TEST_F(PrintPositionTest, WhatAPressOfAnArrowDoes) {
    const struct {
        const char* name;
        int a, b, c;
        int field;
        WORD request;
        const char* adjuster;
        const char* stored;
        int changes;
    } cases[] = {
        // clang-format off
        {"A up, B down", 3, 7, 1, IDC_POSITION_A, SB_LINEUP, "4 6 1 | 4 6 1 | Save Default Print", "14 26 31 0", 2},
        {"A down, B up", 3, 7, 1, IDC_POSITION_A, SB_LINEDOWN, "2 8 1 | 2 8 1 | Save Default Print", "12 28 31 0", 2},
        {"A to its end", 9, 7, 1, IDC_POSITION_A, SB_LINEUP, "10 6 1 | 10 6 1 | Save Default Print", "20 26 31 0", 2},
        {"A beyond its end, B stays", 10, 7, 1, IDC_POSITION_A, SB_LINEUP, "10 7 1 | 10 7 1 | Save Default Print", "20 27 31 0", 1},
        {"A below its end, B stays", -10, 7, 1, IDC_POSITION_A, SB_LINEDOWN, "-10 7 1 | -10 7 1 | Save Default Print", "0 27 31 0", 1},
        {"A moves though B cannot", 3, -20, 1, IDC_POSITION_A, SB_LINEUP, "4 -20 1 | 4 -20 1 | Save Default Print", "14 0 31 0", 2},
        {"A moves down though B cannot", 3, 20, 1, IDC_POSITION_A, SB_LINEDOWN, "2 20 1 | 2 20 1 | Save Default Print", "12 40 31 0", 2},
        {"B alone", 3, 7, 1, IDC_POSITION_B, SB_LINEUP, "3 8 1 | 3 8 1 | Save Default Print", "13 28 31 0", 1},
        {"B beyond its end", 3, 20, 1, IDC_POSITION_B, SB_LINEUP, "3 20 1 | 3 20 1 | Save Default Print", "13 40 31 0", 1},
        {"C alone", 3, 7, 1, IDC_POSITION_C, SB_LINEDOWN, "3 7 0 | 3 7 0 | Save Default Print", "13 27 30 0", 1},
        {"C beyond its end", 3, 7, -10, IDC_POSITION_C, SB_LINEDOWN, "3 7 -10 | 3 7 -10 | Save Default Print", "13 27 20 0", 1},
        {"no step", 3, 7, 1, IDC_POSITION_A, SB_THUMBTRACK, "3 7 1 | 3 7 1 | Save Default Print", "13 27 31 0", 0},
        {"nor this", 3, 7, 1, IDC_POSITION_C, SB_PAGEUP, "3 7 1 | 3 7 1 | Save Default Print", "13 27 31 0", 0},
        {"the end of scrolling", 3, 7, 1, IDC_POSITION_B, SB_ENDSCROLL, "3 7 1 | 3 7 1 | Save Default Print", "13 27 31 0", 0},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CalibrationTable table = MakeTable();
        table[2] = MakeRow(c.a, c.b, c.c);
        OpenOn(2, table);
        Click(IDC_POSITION_SAVE);
        Scroll(c.field, c.request);
        HandlePosted();
        EXPECT_EQ(Adjuster(), c.adjuster);
        EXPECT_EQ(Stored(), c.stored);
        EXPECT_EQ(TakeChanges(), c.changes);
        Scroll(c.field, SB_ENDSCROLL);
        HandlePosted();
        EXPECT_EQ(GetFocus(), Item(c.field));
        DWORD start = 9;
        DWORD end = 9;
        SendMessageW(GetFocus(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0u);
        EXPECT_EQ(end, TextOf(GetFocus()).size());
        EXPECT_EQ(TakeChanges(), 0);
        EXPECT_EQ(TakeMessages(), "");
    }
}

TEST_F(PrintPositionTest, BFollowsLater) {
    OpenOn(0, MakeTable());
    Scroll(IDC_POSITION_A, SB_LINEUP);
    EXPECT_EQ(Adjuster(), "2 2 3 | 2 2 3 | Save Default Print");
    Scroll(IDC_POSITION_A, SB_LINEUP);
    EXPECT_EQ(Stored(), "13 22 33 0");
    HandlePosted();
    EXPECT_EQ(Adjuster(), "3 0 3 | 3 0 3 | Save Default Print");
}

TEST_F(PrintPositionTest, EveryMessageOfTheArrowsOffersSavingAgain) {
    for (const WORD request : {SB_LINEUP, SB_LINEDOWN, SB_ENDSCROLL, SB_THUMBTRACK}) {
        OpenOn(0, MakeTable());
        Click(IDC_POSITION_DEFAULT);
        EXPECT_EQ(Adjuster(), "0 0 0 | 0 0 0 | ~Save ~Default Print");
        Scroll(IDC_POSITION_C, request);
        EXPECT_TRUE(IsWindowEnabled(Item(IDC_POSITION_SAVE))) << request;
        EXPECT_TRUE(IsWindowEnabled(Item(IDC_POSITION_DEFAULT))) << request;
    }
}

// The sheet hears of a step while it is being taken, and may press on.
HWND eagerPage;
int eagerPresses;

LRESULT CALLBACK PressOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == PSM_CHANGED && ++eagerPresses < 10) {
        for (int field : kFields) {
            SendMessageW(eagerPage, WM_VSCROLL, SB_LINEUP,
                         reinterpret_cast<LPARAM>(GetDlgItem(eagerPage, field + 1)));
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(PrintPositionTest, NoArrowIsHandledDuringAnother) {
    OpenOn(0, MakeTable());
    eagerPage = page_;
    eagerPresses = 0;
    const LONG_PTR before =
        SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PressOn));
    Scroll(IDC_POSITION_C, SB_LINEUP);
    EXPECT_EQ(Adjuster(), "1 2 4 | 1 2 4 | Save Default Print");
    Scroll(IDC_POSITION_A, SB_LINEUP);
    HandlePosted();
    EXPECT_EQ(Adjuster(), "2 1 4 | 2 1 4 | Save Default Print");
    EXPECT_EQ(eagerPresses, 3);
    SetWindowLongPtrW(parent_, GWLP_WNDPROC, before);
}

TEST_F(PrintPositionTest, OtherBarsAreNotArrows) {
    OpenOn(0, MakeTable());
    const std::string before = Adjuster() + Stored();
    for (HWND bar : {HWND{}, page_, Item(IDC_POSITION_SAVE)}) {
        SendMessageW(page_, WM_VSCROLL, SB_LINEUP, reinterpret_cast<LPARAM>(bar));
    }
    SendMessageW(page_, WM_HSCROLL, SB_LINEUP, reinterpret_cast<LPARAM>(ArrowsOf(IDC_POSITION_A)));
    EXPECT_EQ(Adjuster() + Stored(), before);
}

// ---- Buttons ------------------------------------------------------------------------------------

TEST_F(PrintPositionTest, SaveSendsTheTable) {
    OpenOn(1, MakeTable());
    Step(IDC_POSITION_C, SB_LINEDOWN);
    TakeChanges();
    SetFocus(Item(IDC_POSITION_SAVE));
    Click(IDC_POSITION_SAVE);
    CalibrationTable expected = MakeTable();
    expected[1].Current.C = 35;
    ExpectSent(expected);
    EXPECT_EQ(Adjuster(), "4 5 5 | 4 5 5 | ~Save Default Print");
    EXPECT_EQ(GetFocus(), Item(IDC_POSITION_PRINT)) << "the keyboard stays in use";
    EXPECT_EQ(TakeChanges(), 0);
    Enter(IDC_POSITION_C, "5");
    EXPECT_TRUE(IsWindowEnabled(Item(IDC_POSITION_SAVE)));
}

TEST_F(PrintPositionTest, DefaultResetsTheRowOfTheThickness) {
    const struct {
        const char* name;
        BYTE thickness;  // when it is pressed; 1 when the printer answered
        size_t row;      // that is reset
    } cases[] = {{"the row that was shown", 1, 1},
                 {"another", 3, 3},
                 {"none that there is", 200, 0},
                 {"no thickness", 255, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Connect();
        Record().PrintPositionExtra = 0;
        OpenOn(1, MakeTable());
        Record().CardThickness = c.thickness;
        CalibrationTable expected = MakeTable();
        expected[c.row].Current = expected[c.row].Default;
        SetFocus(Item(IDC_POSITION_DEFAULT));
        Click(IDC_POSITION_DEFAULT);
        EXPECT_EQ(Adjuster(), "0 0 0 | 0 0 0 | ~Save ~Default Print");
        EXPECT_EQ(Stored(), "10 20 30 17185");
        EXPECT_EQ(Record().CardThickness, c.thickness);
        ExpectSent(expected);
        EXPECT_EQ(GetFocus(), Item(IDC_POSITION_PRINT));
        EXPECT_EQ(TakeChanges(), 0);
    }
}

TEST_F(PrintPositionTest, PrintingSendsAndChangesNothing) {
    OpenOn(1, MakeTable());
    Enter(IDC_POSITION_A, "5");
    const std::string before = Adjuster() + Stored() + Rows();
    Click(IDC_POSITION_PRINT);
    EXPECT_EQ(Adjuster() + Stored() + Rows(), before);
    EXPECT_EQ(State(), "");
    EXPECT_EQ(TakeChanges(), 0);
}

// The row that is shown is the one that fields and arrows change, until the next answer.
TEST_F(PrintPositionTest, AnotherThicknessCountsFromTheNextAnswerOn) {
    OpenOn(1, MakeTable());
    Record().CardThickness = 3;
    Enter(IDC_POSITION_B, "0");
    Step(IDC_POSITION_C, SB_LINEUP);
    EXPECT_EQ(Adjuster(), "4 0 7 | 4 0 7 | Save Default Print");
    Click(IDC_POSITION_SAVE);
    CalibrationTable expected = MakeTable();
    expected[1].Current.B = 20;
    expected[1].Current.C = 37;
    ExpectSent(expected);
    Click(IDC_POSITION_DEFAULT);  // which shows the row that it resets
    Enter(IDC_POSITION_B, "1");
    Click(IDC_POSITION_SAVE);
    expected[3].Current = expected[3].Default;
    expected[3].Current.B = 21;
    ExpectSent(expected);
    Answer(MakeTable());
    EXPECT_EQ(Adjuster(), "-4 -5 -6 | -4 -5 -6 | ~Save Default Print");
}

}  // namespace
}  // namespace test
