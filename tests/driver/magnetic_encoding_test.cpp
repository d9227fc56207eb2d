// The Magnetic Encoding page: which controls can be used when, what each does to the record, the
// registry and the sheet, and texts that come back as they were typed.
#include "magnetic_page.h"
#include "ui/common/language.h"

#include <cstring>
#include <random>
#include <set>

namespace test {
namespace {

const std::set<int> kTracks = {IDC_TRACK_1_BOX, IDC_TRACK_1,     IDC_TRACK_2_BOX,
                               IDC_TRACK_2,     IDC_TRACK_3_BOX, IDC_TRACK_3};
const std::set<int> kDatabase = {IDC_DATABASE_PATH, IDC_BROWSE_DATABASE, IDC_START_RECORD,
                                 IDC_START_RECORD_SCROLL};
const std::set<int> kFilter = {IDC_FILTER_PREFIX, IDC_FILTER_SUFFIX};
const std::set<int> kNone = {IDC_COERCIVITY_GROUP};  // a frame that nothing disables

class MagneticEncodingTest : public MagneticPageTest {
  protected:
    int Arrows(int control) const { return GetScrollPos(Item(control), SB_CTL); }
    void Scroll(int arrows, WORD request) {
        SendMessageW(page_, WM_VSCROLL, request, reinterpret_cast<LPARAM>(Item(arrows)));
    }

    std::set<int> Enabled() const {
        std::set<int> enabled;
        for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            if (IsWindowEnabled(control)) {
                enabled.insert(GetDlgCtrlID(control));
            }
        }
        return enabled;
    }
    /// Everything but what the options leave out.
    std::set<int> Usable() const {
        std::set<int> usable;
        for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            const int id = GetDlgCtrlID(control);
            const bool usesDatabase = (Record().MagOptions & 8) != 0;
            const bool filters = (Record().MagOptions & 0x20) != 0;
            if (!(usesDatabase ? kTracks : kDatabase).contains(id) &&
                (filters || !kFilter.contains(id))) {
                usable.insert(id);
            }
        }
        return usable;
    }
    /// The seven buttons in the dialog's order: high, low, tracks, database, filter.
    std::string Buttons() const {
        std::string checks;
        for (int button : {IDC_HIGH_COERCIVITY, IDC_LOW_COERCIVITY, IDC_TRACK_1_BOX,
                           IDC_TRACK_2_BOX, IDC_TRACK_3_BOX, IDC_USING_DATABASE, IDC_FILTER}) {
            checks += IsDlgButtonChecked(page_, button) == BST_CHECKED ? 'x' : '.';
        }
        return checks;
    }
    std::string Numbers() const {
        return Text(IDC_RETRY_CARDS) + " " + Text(IDC_RETRY_TIMES) + " " + Text(IDC_START_RECORD);
    }
    std::string ArrowPositions() const {
        return std::to_string(Arrows(IDC_RETRY_CARDS_SCROLL)) + " " +
               std::to_string(Arrows(IDC_RETRY_TIMES_SCROLL)) + " " +
               std::to_string(Arrows(IDC_START_RECORD_SCROLL));
    }
    std::string Stored() const {
        return std::to_string(Record().MagRetryCards) + " " +
               std::to_string(Record().MagRetryTimes) + " " +
               std::to_string(Record().MagStartRecord);
    }
};

// ---- Opening ----------------------------------------------------------------------------------

TEST_F(MagneticEncodingTest, WhatARecordShows) {
    const struct {
        BYTE select, coercivity, cards, times, options;
        DWORD start;
        const char* buttons;
        const char* numbers;
        const char* arrows;
        const char* record;
    } cases[] = {
        {0, 0, 1, 1, 0, 1, ".x.....", "1 1 1", "1 1 1", "0 0 00 "},
        {1, 1, 0, 10, 0x2F, 2147483647, "x.xxxxx", "0 10 2147483647", "1 10 2147483647", "1 1 2F "},
        {2, 2, 11, 255, 0xD2, 0, ".x.x...", "10 10 1", "10 10 1", "0 0 D2 "},
        {255, 255, 10, 0, 0xC8, 0x80000000, ".x...x.", "10 0 2147483647", "10 1 2147483647",
         "0 0 C8 "},
        {1, 1, 5, 6, 0x24, 0xFFFFFFFF, "x...x.x", "5 6 2147483647", "5 6 2147483647", "1 1 24 "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.record);
        Record().MagEncoderSelect = c.select;
        Record().MagCoercivity = c.coercivity;
        Record().MagRetryCards = c.cards;
        Record().MagRetryTimes = c.times;
        Record().MagOptions = c.options;
        Record().MagStartRecord = c.start;
        OpenPage(IDD_MAGNETIC_ENCODING, PageProc<kMagneticEncodingPage>);
        EXPECT_EQ(TakeChanges(), 0);
        EXPECT_EQ(Buttons(), c.buttons);
        EXPECT_EQ(Numbers(), c.numbers);
        EXPECT_EQ(ArrowPositions(), c.arrows);
        char record[16];
        std::snprintf(record, sizeof(record), "%d %d %02X ", Record().MagEncoderSelect,
                      Record().MagCoercivity, Record().MagOptions);
        EXPECT_STREQ(record, c.record);
        EXPECT_EQ(Stored(), c.numbers);
        EXPECT_EQ(Enabled(), Usable());
        EXPECT_FALSE(IsShown(IDC_ENCODER_PORT_LABEL));
    }
    EXPECT_EQ(TakeMessages(), "");
}

// ---- What can be used ---------------------------------------------------------------------------

TEST_F(MagneticEncodingTest, ControlsFollowPrinterCardAndRecord) {
    context_.IsRemotePrinter = 0;
    Open();
    for (unsigned at = 0; at < 64; ++at) {
        SCOPED_TRACE(at);
        const bool hasEncoder = (at & 1) != 0;
        context_.IsRemotePrinter = (at >> 1) & 1;
        Record().CardType = static_cast<BYTE>(2 + ((at >> 2) & 3));
        Record().MagOptions =
            static_cast<BYTE>(((at & 16) != 0 ? 0x08 : 0) | ((at & 32) != 0 ? 0x20 : 0) | 0x41);
        Record().MagCoercivity = 7;
        Answer(6, hasEncoder ? "\1" : "\2");
        const bool usable = (hasEncoder || context_.IsRemotePrinter != 0) &&
                            (Record().CardType == 3 || Record().CardType == 4);
        EXPECT_EQ(Enabled(), usable ? Usable() : kNone);
        EXPECT_EQ(Record().MagCoercivity, usable ? 0 : 7);
    }
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(MagneticEncodingTest, AnswersThatCountAndOthers) {
    const struct {
        const char* name;
        std::string bytes;
        ULONG_PTR number;
        bool usable;
    } answers[] = {
        {"an encoder", std::string("\1\0\0", 3), 6, true},
        {"nothing", "", 6, true},
        {"another query's", std::string("\0\0\0", 3), 5, true},
        {"no encoder", std::string("\0\1\1", 3), 6, false},
        {"none still", "", 6, false},
        {"another number", "\1", 1, false},
        {"one byte", "\1", 6, true},
        {"two", "\2", 6, false},
    };
    Open();
    EXPECT_EQ(Enabled(), Usable()) << "until it is activated";
    for (const auto& answer : answers) {
        Answer(answer.number, answer.bytes);
        EXPECT_EQ(Enabled(), answer.usable ? Usable() : kNone) << answer.name;
    }
    SendMessageW(page_, WM_COPYDATA, 0, 0);
    EXPECT_EQ(Enabled(), kNone);
}

TEST_F(MagneticEncodingTest, EachActivationAsksAnew) {
    Open();
    Notify(PSN_SETACTIVE);
    EXPECT_EQ(Enabled(), kNone);
    Answer(6, "\1");
    EXPECT_EQ(Enabled(), Usable());
    Record().CardType = kBlankCard;
    EXPECT_EQ(Enabled(), Usable()) << "while the page is shown";
    Notify(PSN_SETACTIVE);
    Answer(6, "\1");
    EXPECT_EQ(Enabled(), kNone);
    context_.IsRemotePrinter = 1;
    Record().CardType = kChipMagneticCard;
    Notify(PSN_SETACTIVE);
    EXPECT_EQ(Enabled(), Usable()) << "of a remote printer without an answer";
}

// ---- Boxes and radio buttons --------------------------------------------------------------------

TEST_F(MagneticEncodingTest, ClicksChangeTheRecordAndTheSheetIsNotTold) {
    const struct {
        int button;
        BYTE coercivity, options;
        const char* buttons;
    } clicks[] = {
        {IDC_HIGH_COERCIVITY, 1, 0xD0, "x......"}, {IDC_TRACK_1_BOX, 1, 0xD1, "x.x...."},
        {IDC_TRACK_2_BOX, 1, 0xD3, "x.xx..."},     {IDC_TRACK_3_BOX, 1, 0xD7, "x.xxx.."},
        {IDC_FILTER, 1, 0xF7, "x.xxx.x"},          {IDC_LOW_COERCIVITY, 0, 0xF7, ".xxxx.x"},
        {IDC_TRACK_2_BOX, 0, 0xF5, ".xx.x.x"},     {IDC_USING_DATABASE, 0, 0xFD, ".xx.xxx"},
        {IDC_FILTER, 0, 0xDD, ".xx.xx."},          {IDC_USING_DATABASE, 0, 0xD5, ".xx.x.."},
        {IDC_LOW_COERCIVITY, 0, 0xD5, ".xx.x.."},
    };
    for (const bool isActive : {false, true}) {
        Record().MagOptions = 0xD0;
        Open();
        if (isActive) {
            Answer(6, "\1");
        }
        for (const auto& click : clicks) {
            Click(click.button);
            EXPECT_EQ(Record().MagCoercivity, click.coercivity) << click.buttons;
            EXPECT_EQ(Record().MagOptions, click.options);
            EXPECT_EQ(Buttons(), click.buttons);
            EXPECT_EQ(Enabled(), Usable()) << click.buttons;
        }
        EXPECT_EQ(TakeChanges(), 0);
    }
}

// ---- Numbers ------------------------------------------------------------------------------------

// As "shown, record and arrows" of cards, times and start; what is refused leaves all three.
TEST_F(MagneticEncodingTest, NumbersAreTaken) {
    const std::string refused = "Error: Press up and down button to adjust value ( 0 - 10 ).\n";
    const std::string refusedStart =
        "Error: Press up and down button to adjust value ( 1 - 2147483647 ).\n";
    const struct {
        int control;
        const char* text;
        const char* numbers;
        const char* record;
        const char* arrows;
        std::string messages;
    } entries[] = {
        {IDC_RETRY_CARDS, "7", "7 1 1", "7 1 1", "7 1 1", ""},
        {IDC_RETRY_CARDS, "", " 1 1", "0 1 1", "1 1 1", ""},
        {IDC_RETRY_CARDS, "10", "10 1 1", "10 1 1", "10 1 1", ""},
        {IDC_RETRY_CARDS, "11", "10 1 1", "10 1 1", "10 1 1", refused},
        {IDC_RETRY_TIMES, "0", "10 0 1", "10 0 1", "10 1 1", ""},
        {IDC_RETRY_TIMES, "-1", "10 0 1", "10 0 1", "10 1 1", refused},
        {IDC_RETRY_TIMES, "05", "10 0 1", "10 0 1", "10 1 1", refused},
        {IDC_START_RECORD, "2147483648", "10 0 1", "10 0 1", "10 1 1", refusedStart},
        {IDC_START_RECORD, "4294967297", "10 0 1", "10 0 1", "10 1 1", refusedStart},
        {IDC_START_RECORD, "12", "10 0 12", "10 0 12", "10 1 12", ""},
        {IDC_START_RECORD, "", "10 0 12", "10 0 12", "10 1 12", refusedStart},
        {IDC_START_RECORD, "0", "10 0 12", "10 0 12", "10 1 12", refusedStart},
    };
    Record().MagRetryCards = Record().MagRetryTimes = 1;
    Open();
    for (const auto& entry : entries) {
        SCOPED_TRACE(entry.text);
        Enter(entry.control, entry.text);
        EXPECT_EQ(Numbers(), entry.numbers);
        EXPECT_EQ(Stored(), entry.record);
        EXPECT_EQ(ArrowPositions(), entry.arrows);
        EXPECT_EQ(TakeMessages(), entry.messages);
        EXPECT_GT(TakeChanges(), 0);
    }
}

// The arrows from their own position, which is never below 1, the keys from the text.
TEST_F(MagneticEncodingTest, ArrowsAndKeysStepTheNumbers) {
    const std::string atEnd = "Fehler: Enter from 0 - 10 .\n";
    const std::string atStartsEnd = "Fehler: Enter from 1 - 2147483647 .\n";
    constexpr WORD kUp = SB_LINEUP;
    constexpr WORD kDown = SB_LINEDOWN;
    const struct {
        int field;
        const char* before;
        WORD request;
        const char* byArrows;
        const char* byKeys;
        std::string messages;  // of a key
    } steps[] = {
        {IDC_RETRY_CARDS, "0", kUp, "2", "1", ""},
        {IDC_RETRY_CARDS, "0", kDown, "0", "0", atEnd},
        {IDC_RETRY_CARDS, "1", kDown, "0", "0", ""},
        {IDC_RETRY_CARDS, "9", kUp, "10", "10", ""},
        {IDC_RETRY_TIMES, "10", kUp, "10", "10", atEnd},
        {IDC_RETRY_TIMES, "0", kUp, "2", "1", ""},
        {IDC_START_RECORD, "1", kDown, "1", "1", atStartsEnd},
        {IDC_START_RECORD, "1", kUp, "2", "2", ""},
        {IDC_START_RECORD, "2147483647", kUp, "2147483647", "2147483647", atStartsEnd},
        {IDC_START_RECORD, "2147483647", kDown, "2147483646", "2147483646", ""},
    };
    WriteWideText(LanguageFilePath, TEXT("[MagneticEncoding]\r\nError=Fehler\r\n"));
    Record().MagOptions = kUsingDatabase;  // or the start field could not have the focus
    Open();
    for (const auto& step : steps) {
        for (const bool byKeys : {false, true}) {
            SCOPED_TRACE(step.before + std::string(byKeys ? " by a key" : " by the arrows"));
            const std::string after = byKeys ? step.byKeys : step.byArrows;
            SetFocus(Item(byKeys ? step.field : IDC_FILTER));
            Enter(step.field, step.before);
            TakeChanges();
            if (byKeys) {
                Press(Item(step.field), step.request == kUp ? VK_UP : VK_DOWN);
            } else {
                Scroll(step.field + 1, step.request);
                Scroll(step.field + 1, SB_ENDSCROLL);
                EXPECT_EQ(SendMessageW(Item(step.field), EM_GETSEL, 0, 0),
                          MAKELONG(0, after.size()));
            }
            EXPECT_EQ(Text(step.field), after);
            EXPECT_EQ(Stored(), Numbers());
            EXPECT_EQ(Arrows(step.field + 1), std::max(std::atoi(after.c_str()), 1));
            EXPECT_EQ(GetFocus(), Item(step.field));
            EXPECT_GT(TakeChanges(), 0);
            EXPECT_EQ(TakeMessages(), byKeys ? step.messages : "");
        }
    }
    Scroll(IDC_RETRY_TIMES_SCROLL, SB_PAGEUP);
    EXPECT_EQ(TakeChanges(), 0);
}

// ---- Texts --------------------------------------------------------------------------------------

std::string Between(int first, int last, const std::string& without = "") {
    std::string text;
    for (int c = first; c <= last; ++c) {
        if (without.find(static_cast<char>(c)) == std::string::npos) {
            text += static_cast<char>(c);
        }
    }
    return text;
}

TEST_F(MagneticEncodingTest, EachFieldTakesItsCharacters) {
    const std::pair<int, std::string> fields[] = {
        {IDC_TRACK_1, Between(32, 122, "%?`")}, {IDC_TRACK_2, Between('0', '>', ";")},
        {IDC_TRACK_3, Between('0', '>', ";")},  {IDC_FILTER_PREFIX, Between(33, 126)},
        {IDC_FILTER_SUFFIX, Between(33, 126)},
    };
    Open();
    for (const auto& [field, accepted] : fields) {
        std::string taken;
        for (int c = 1; c <= 127; ++c) {
            Enter(field, "");
            SendMessageW(Item(field), WM_CHAR, static_cast<WPARAM>(c), 1);
            taken += Text(field);
        }
        EXPECT_EQ(taken, accepted) << field;
        Enter(field, "12");
        SendMessageW(Item(field), EM_SETSEL, 2, 2);
        SendMessageW(Item(field), WM_CHAR, VK_BACK, 1);
        EXPECT_EQ(Text(field), "1") << field;
    }
    Enter(IDC_DATABASE_PATH, "");
    Type(Item(IDC_DATABASE_PATH), Between(32, 126).c_str());
    EXPECT_EQ(Text(IDC_DATABASE_PATH), Between(32, 126));
}

TEST_F(MagneticEncodingTest, LengthsAreLimitedAndSomeChangesTold) {
    Open();
    for (const auto& row : kMagneticTextRows) {
        EXPECT_EQ(SendMessageW(Item(row.control), EM_GETLIMITTEXT, 0, 0), row.limit);
        SetFocus(Item(row.control));
        Type(Item(row.control), std::string(static_cast<size_t>(row.limit) + 5, '1').c_str());
        EXPECT_EQ(Text(row.control).size(), static_cast<size_t>(row.limit));
        EXPECT_EQ(TakeChanges() > 0, row.tells) << row.control;
    }
    EXPECT_EQ(SendMessageW(Item(IDC_DATABASE_PATH), EM_GETLIMITTEXT, 0, 0), 260);
    EXPECT_EQ(SendMessageW(Item(IDC_RETRY_CARDS), EM_GETLIMITTEXT, 0, 0), 2);
    EXPECT_EQ(SendMessageW(Item(IDC_RETRY_TIMES), EM_GETLIMITTEXT, 0, 0), 2);
    EXPECT_GE(SendMessageW(Item(IDC_START_RECORD), EM_GETLIMITTEXT, 0, 0), 10);
    Enter(IDC_DATABASE_PATH, "x");
    EXPECT_GT(TakeChanges(), 0);
}

// What people type is no text of the driver's, whatever the language file has.
TEST_F(MagneticEncodingTest, TextsComeBackAsTheyWereTyped) {
    constexpr const char* kTexts[] = {"Track 1", "Browse", " ", "A  ", "  A", "\"A\"",
                                      "'A'",     "Error",  "1", "A=B", "",    "Prefix:  "};
    const WideString languages[] = {
        TEXT(""),
        TEXT("[MagneticEncoding]\r\nTrack 1=Spur 1\r\nBrowse=Suchen\r\nError=Fehler\r\n1=eins\r\n")
            TEXT("A=B\r\nPrefix:=Vorne:\r\n=nichts\r\n\"A\"=A\r\n"),
    };
    for (const WideString& language : languages) {
        WriteWideText(LanguageFilePath, language);
        for (const char* text : kTexts) {
            SCOPED_TRACE(text);
            key_.StoreText(kStoredPath, Wide(text));
            Open();
            EXPECT_EQ(Text(IDC_BROWSE_DATABASE), language.empty() ? "Browse" : "Suchen");
            EXPECT_EQ(Path(), text);
            for (const auto& row : kMagneticTextRows) {
                Enter(row.control, text);
            }
            Apply();
            Open();
            for (const auto& row : kMagneticTextRows) {
                EXPECT_EQ(Text(row.control), text) << row.control;
            }
            EXPECT_EQ(Path(), text);
        }
    }
}

TEST_F(MagneticEncodingTest, TextsAreStoredOnApplyOnly) {
    Open();
    for (const auto& row : kMagneticTextRows) {
        Enter(row.control, "12");
    }
    Enter(IDC_DATABASE_PATH, "C:\\typed.txt");
    EXPECT_EQ(key_.Stored(kMagneticTextRows[0].value), "none");
    Open();
    EXPECT_EQ(Text(IDC_TRACK_1), "");
    for (const auto& row : kMagneticTextRows) {
        Enter(row.control, "12345");
    }
    Enter(IDC_FILTER_SUFFIX, "");
    Enter(IDC_DATABASE_PATH, "C:\\typed.txt");
    Apply();
    for (const auto& row : kMagneticTextRows) {
        const bool isTrack = row.control <= IDC_TRACK_3;
        EXPECT_EQ(key_.Stored(row.value), isTrack                            ? "1:256:12345+123z"
                                          : row.control == IDC_FILTER_PREFIX ? "1:10:12345"
                                                                             : "1:0:");
    }
    EXPECT_EQ(key_.Stored(kStoredPath), "1:520:+260z") << "what is typed does not count";
    key_.StoreText(kStoredPath, TEXT("C:\\stored.txt"));
    Open();
    EXPECT_EQ(Path(), "C:\\stored.txt");
    Enter(IDC_DATABASE_PATH, "C:\\typed.txt");
    key_.StoreText(kStoredPath, TEXT("meanwhile"));
    Apply();
    EXPECT_EQ(key_.Stored(kStoredPath), "1:520:C:\\stored.txt+247z");
}

TEST_F(MagneticEncodingTest, ApplyReportsBeforeItStores) {
    static std::string reports;
    static const PrinterUserKey* key;
    reports.clear();
    key = &key_;
    context_.ComPropSheet = [](HANDLE, UINT function, LPARAM page, LPARAM result) -> LONG_PTR {
        reports += std::to_string(function) + " " + std::to_string(page) + " " +
                   std::to_string(result) + " " + key->Stored(TEXT("MagneticTrack1"));
        return 1;
    };
    context_.PageHandles[kMagneticEncodingSlot] = reinterpret_cast<HANDLE>(ULONG_PTR{77});
    Open();
    Enter(IDC_TRACK_1, "A");
    Notify(PSN_APPLY);
    EXPECT_EQ(reports, "9 77 1 none");
    EXPECT_EQ(key_.Stored(TEXT("MagneticTrack1")), "1:256:A+127z");
}

// Two printers' sheets in one process.
TEST_F(MagneticEncodingTest, PagesDoNotMeet) {
    const WideString otherPrinter = TEXT("Kpd magnet 2");
    const PrinterUserKey otherKey(otherPrinter);
    key_.StoreText(kStoredPath, TEXT("a"));
    otherKey.StoreText(kStoredPath, TEXT("b"));
    Open();
    Answer(6, "\1");
    DriverContext other = context_;
    otherPrinter.copy(other.WorkingDevMode.Public.dmDeviceName, CCHDEVICENAME);
    PROPSHEETPAGEW record = {};
    record.lParam = reinterpret_cast<LPARAM>(&other);
    HWND second = CreateDialogParamW(
        GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MAGNETIC_ENCODING), parent_,
        PageProc<kMagneticEncodingPage>, reinterpret_cast<LPARAM>(&record));
    std::swap(page_, second);
    Answer(6, std::string(1, '\0'));
    EXPECT_EQ(Enabled(), kNone);
    std::swap(page_, second);
    Click(IDC_FILTER);
    EXPECT_EQ(Enabled(), Usable());
    Apply();
    EXPECT_EQ(key_.Stored(kStoredPath), "1:520:a+259z");
    EXPECT_EQ(otherKey.Stored(kStoredPath), "1:2:b");
    DestroyWindow(second);
}

// ---- Whatever a user does -----------------------------------------------------------------------

TEST_F(MagneticEncodingTest, OpenedAgainThePageShowsTheSame) {
    constexpr int kButtons[] = {IDC_HIGH_COERCIVITY, IDC_LOW_COERCIVITY, IDC_TRACK_1_BOX,
                                IDC_TRACK_2_BOX,     IDC_TRACK_3_BOX,    IDC_USING_DATABASE,
                                IDC_FILTER};
    constexpr int kFields[] = {IDC_RETRY_CARDS, IDC_RETRY_TIMES, IDC_START_RECORD,
                               IDC_TRACK_1,     IDC_TRACK_2,     IDC_FILTER_PREFIX};
    constexpr const char* kTexts[] = {"1", "99", "10", " 7", "-", "2147483647", "", "B c"};
    std::mt19937 random(1);
    const auto below = [&](size_t count) { return random() % count; };
    for (int round = 0; round < Rounds(25); ++round) {
        SCOPED_TRACE(round);
        Record().MagOptions = static_cast<BYTE>(below(256));
        Record().MagStartRecord = static_cast<DWORD>(random());
        Open();
        for (int action = 0; action < 30; ++action) {
            const int field = kFields[below(std::size(kFields))];
            if (below(3) == 0) {
                Click(kButtons[below(std::size(kButtons))]);
            } else if (below(2) == 0) {
                Type(Item(field), kTexts[below(std::size(kTexts))]);
            } else {
                Press(Item(field), below(2) == 0 ? VK_UP : VK_DOWN);
            }
            EXPECT_EQ(Enabled(), Usable());
        }
        for (const int number : {IDC_RETRY_CARDS, IDC_RETRY_TIMES}) {
            if (Text(number).empty()) {
                Enter(number, "0");  // as it is shown again
            }
        }
        Apply();
        const std::string shown = LooksOfAll() + ArrowPositions();
        const DevModeRecord left = context_.WorkingDevMode;
        Open();
        EXPECT_EQ(LooksOfAll() + ArrowPositions(), shown);
        EXPECT_EQ(std::memcmp(&left, &context_.WorkingDevMode, sizeof(left)), 0);
    }
}

}  // namespace
}  // namespace test
