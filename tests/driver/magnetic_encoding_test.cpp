// The Magnetic Encoding page: which controls can be used when, what each does to the record, the
// registry and the sheet, and texts that come back as they were typed.
#include "lone_page.h"
#include "printer_user_key.h"
#include "message_boxes.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/pages/magnetic/encoding_rules.h"
#include "ui/pages/magnetic/magnetic_encoding_page.h"

#include <prsht.h>

#include <cstring>
#include <memory>
#include <random>
#include <set>
#include <utility>

namespace test {
namespace {

const WideString kPrinter = TEXT("Kpd magnet");

constexpr const WCHAR* kPathValue = TEXT("UsingDatabaseFileName");
constexpr struct {
    int control;
    const WCHAR* value;
    LRESULT limit;
    bool tells;
} kTyped[] = {
    {IDC_TRACK_1, TEXT("MagneticTrack1"), 76, true},
    {IDC_TRACK_2, TEXT("MagneticTrack2"), 37, true},
    {IDC_TRACK_3, TEXT("MagneticTrack3"), 104, true},
    {IDC_FILTER_PREFIX, TEXT("FilterPrefix"), 12, false},
    {IDC_FILTER_SUFFIX, TEXT("FilterSuffix"), 12, false},
};

const std::set<int> kTracks = {IDC_TRACK_1_BOX, IDC_TRACK_1,     IDC_TRACK_2_BOX,
                               IDC_TRACK_2,     IDC_TRACK_3_BOX, IDC_TRACK_3};
const std::set<int> kDatabase = {IDC_DATABASE_PATH, IDC_BROWSE_DATABASE, IDC_START_RECORD,
                                 IDC_START_RECORD_SCROLL};
const std::set<int> kFilter = {IDC_FILTER_PREFIX, IDC_FILTER_SUFFIX};

class MagneticPageTest : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        key_ = std::make_unique<PrinterUserKey>(kPrinter);
        kPrinter.copy(Paper().dmDeviceName, CCHDEVICENAME);
        Record().CardType = kMagneticStripeCard;
        context_.ComPropSheet = [](HANDLE, UINT, LPARAM, LPARAM) -> LONG_PTR { return 1; };
        StartMessageBoxes();
    }
    void TearDown() override {
        StopMessageBoxes();
        std::filesystem::remove(DiskPath(LanguageFilePath));
        LonePageTest::TearDown();
        key_.reset();
    }

    void Open() {
        OpenPage(IDD_MAGNETIC_ENCODING, PageProc<kMagneticEncodingPage>);
        TakeChanges();
    }
    void Tell(UINT code) {
        PSHNOTIFY notification = {};
        notification.hdr.hwndFrom = parent_;
        notification.hdr.code = code;
        SendMessageW(page_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    void Apply() { Tell(PSN_APPLY); }
    void Answer(const std::string& bytes, ULONG_PTR number = 6) {
        std::string copy = bytes;
        COPYDATASTRUCT answer = {number, static_cast<DWORD>(copy.size()), copy.data()};
        SendMessageW(page_, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&answer));
    }

    HWND Item(int control) const { return GetDlgItem(page_, control); }
    std::string Text(int control) const { return TextOf(Item(control)); }
    int Arrows(int control) const { return GetScrollPos(Item(control), SB_CTL); }
    void Scroll(int arrows, WORD request) {
        SendMessageW(page_, WM_VSCROLL, request, reinterpret_cast<LPARAM>(Item(arrows)));
    }
    /// As if typed at once.
    void Enter(int control, const char* text) { SetWindowTextW(Item(control), Wide(text).c_str()); }

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
    /// Everything but the groups named.
    std::set<int> AllBut(std::initializer_list<const std::set<int>*> groups) const {
        std::set<int> controls;
        for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            controls.insert(GetDlgCtrlID(control));
        }
        for (const std::set<int>* group : groups) {
            for (int control : *group) {
                EXPECT_EQ(controls.erase(control), 1u) << control;
            }
        }
        return controls;
    }
    std::set<int> Usable() const {
        const std::set<int> none;
        const BYTE options = Record().MagOptions;
        return AllBut(
            {(options & 8) != 0 ? &kTracks : &kDatabase, (options & 0x20) != 0 ? &none : &kFilter});
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
    size_t Messages() const { return ShownMessages().size(); }

    std::unique_ptr<PrinterUserKey> key_;
};

// ---- Opening ----------------------------------------------------------------------------------

TEST_F(MagneticPageTest, WhatARecordShows) {
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
    EXPECT_EQ(Messages(), 0u);
}

TEST_F(MagneticPageTest, ArrowsOfRetriesRangeFromOne) {
    Open();
    for (const auto& [arrows, highest] :
         {std::pair{IDC_RETRY_CARDS_SCROLL, 10}, std::pair{IDC_RETRY_TIMES_SCROLL, 10},
          std::pair{IDC_START_RECORD_SCROLL, 2147483647}}) {
        SCROLLINFO range = {};
        range.cbSize = sizeof(range);
        range.fMask = SIF_RANGE;
        ASSERT_TRUE(GetScrollInfo(Item(arrows), SB_CTL, &range));
        EXPECT_EQ(range.nMin, 1);
        EXPECT_EQ(range.nMax, highest);
    }
}

// ---- What can be used ---------------------------------------------------------------------------

// Every card type and every option, the known and the others.
TEST(EncodingRulesTest, AStripeAndAnEncoderAreNeeded) {
    int usable = 0;
    for (unsigned at = 0; at < 4 * 256 * 256; ++at) {
        const bool hasEncoder = (at & 1) != 0;
        const bool isRemote = (at & 2) != 0;
        const BYTE card = static_cast<BYTE>(at >> 2);
        const BYTE options = static_cast<BYTE>(at >> 10);
        unsigned expected = 0;
        if ((card == 3 || card == 4) && (hasEncoder || isRemote)) {
            ++usable;
            expected = 1;
            expected += options & 0x08 ? kDatabaseControls : kTrackControls;
            expected += options & 0x20 ? kFilterControls : kNoControls;
        }
        ASSERT_EQ(EnabledControls({hasEncoder, isRemote, card, options}), expected) << at;
    }
    EXPECT_EQ(usable, 3 * 2 * 256);
}

TEST_F(MagneticPageTest, ControlsFollowPrinterCardAndRecord) {
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
        Answer(hasEncoder ? "\1" : "\2");
        const bool usable = (hasEncoder || context_.IsRemotePrinter != 0) &&
                            (Record().CardType == 3 || Record().CardType == 4);
        EXPECT_EQ(Enabled(), usable ? Usable() : std::set<int>{IDC_COERCIVITY_GROUP});
        EXPECT_EQ(Record().MagCoercivity, usable ? 0 : 7);
    }
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(MagneticPageTest, AnswersThatCountAndOthers) {
    const std::set<int> none = {IDC_COERCIVITY_GROUP};
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
        Answer(answer.bytes, answer.number);
        EXPECT_EQ(Enabled(), answer.usable ? Usable() : none) << answer.name;
    }
    SendMessageW(page_, WM_COPYDATA, 0, 0);
    EXPECT_EQ(Enabled(), none);
}

TEST_F(MagneticPageTest, EachActivationAsksAnew) {
    const std::set<int> none = {IDC_COERCIVITY_GROUP};
    Open();
    Tell(PSN_SETACTIVE);
    EXPECT_EQ(Enabled(), none);
    Answer("\1");
    EXPECT_EQ(Enabled(), Usable());
    Record().CardType = kBlankCard;
    EXPECT_EQ(Enabled(), Usable()) << "while the page is shown";
    Tell(PSN_SETACTIVE);
    Answer("\1");
    EXPECT_EQ(Enabled(), none);
    context_.IsRemotePrinter = 1;
    Record().CardType = kChipMagneticCard;
    Tell(PSN_SETACTIVE);
    EXPECT_EQ(Enabled(), Usable()) << "of a remote printer without an answer";
}

// ---- Boxes and radio buttons --------------------------------------------------------------------

TEST_F(MagneticPageTest, ClicksChangeTheRecordAndTheSheetIsNotTold) {
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
            Answer("\1");
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

TEST_F(MagneticPageTest, NumbersAreTaken) {
    const struct {
        int control;
        const char* text;
        const char* stored;
        const char* arrows;
        const char* shown;
        size_t messages;
    } entries[] = {
        {IDC_RETRY_CARDS, "7", "7 1 1", "7 1 1", "7 1 1", 0},
        {IDC_RETRY_CARDS, "", "0 1 1", "1 1 1", " 1 1", 0},
        {IDC_RETRY_CARDS, "10", "10 1 1", "10 1 1", "10 1 1", 0},
        {IDC_RETRY_CARDS, "11", "10 1 1", "10 1 1", "10 1 1", 1},
        {IDC_RETRY_TIMES, "0", "10 0 1", "10 1 1", "10 0 1", 0},
        {IDC_RETRY_TIMES, "-1", "10 0 1", "10 1 1", "10 0 1", 1},
        {IDC_RETRY_TIMES, "05", "10 0 1", "10 1 1", "10 0 1", 1},
        {IDC_START_RECORD, "2147483647", "10 0 2147483647", "10 1 2147483647", "10 0 2147483647",
         0},
        {IDC_START_RECORD, "2147483648", "10 0 2147483647", "10 1 2147483647", "10 0 2147483647",
         1},
        {IDC_START_RECORD, "4294967297", "10 0 2147483647", "10 1 2147483647", "10 0 2147483647",
         1},
        {IDC_START_RECORD, "12", "10 0 12", "10 1 12", "10 0 12", 0},
        {IDC_START_RECORD, "", "10 0 12", "10 1 12", "10 0 12", 1},
        {IDC_START_RECORD, "0", "10 0 12", "10 1 12", "10 0 12", 1},
    };
    Record().MagRetryCards = Record().MagRetryTimes = 1;
    Open();
    for (const auto& entry : entries) {
        SCOPED_TRACE(entry.text);
        const size_t before = Messages();
        Enter(entry.control, entry.text);
        EXPECT_EQ(Stored(), entry.stored);
        EXPECT_EQ(ArrowPositions(), entry.arrows);
        EXPECT_EQ(Numbers(), entry.shown);
        EXPECT_EQ(Messages() - before, entry.messages);
        EXPECT_GT(TakeChanges(), 0);
    }
    EXPECT_EQ(Narrow(ShownMessages()[0].text),
              "Press up and down button to adjust value ( 0 - 10 ).");
    EXPECT_EQ(Narrow(ShownMessages().back().text),
              "Press up and down button to adjust value ( 1 - 2147483647 ).");
}

TEST_F(MagneticPageTest, ArrowsStepFromTheirOwnPosition) {
    const struct {
        int arrows;
        const char* before;
        WORD request;
        const char* after;
    } steps[] = {
        {IDC_RETRY_CARDS_SCROLL, "0", SB_LINEUP, "2"},
        {IDC_RETRY_CARDS_SCROLL, "0", SB_LINEDOWN, "0"},
        {IDC_RETRY_CARDS_SCROLL, "1", SB_LINEDOWN, "0"},
        {IDC_RETRY_CARDS_SCROLL, "9", SB_LINEUP, "10"},
        {IDC_RETRY_CARDS_SCROLL, "10", SB_LINEUP, "10"},
        {IDC_RETRY_TIMES_SCROLL, "0", SB_LINEUP, "2"},
        {IDC_RETRY_TIMES_SCROLL, "10", SB_LINEDOWN, "9"},
        {IDC_RETRY_TIMES_SCROLL, "3", SB_PAGEUP, "3"},
        {IDC_START_RECORD_SCROLL, "1", SB_LINEDOWN, "1"},
        {IDC_START_RECORD_SCROLL, "1", SB_LINEUP, "2"},
        {IDC_START_RECORD_SCROLL, "2147483646", SB_LINEUP, "2147483647"},
        {IDC_START_RECORD_SCROLL, "2147483647", SB_LINEUP, "2147483647"},
        {IDC_START_RECORD_SCROLL, "2147483647", SB_LINEDOWN, "2147483646"},
    };
    Record().MagOptions = kUsingDatabase;  // or the start field could not have the focus
    Open();
    for (const auto& step : steps) {
        const int field = step.arrows - 1;
        SCOPED_TRACE(step.before + std::string(" of ") + std::to_string(field));
        Enter(field, step.before);
        TakeChanges();
        Scroll(step.arrows, step.request);
        EXPECT_EQ(Text(field), step.after);
        EXPECT_EQ(Stored(), Numbers());
        EXPECT_EQ(Arrows(step.arrows), std::max(std::atoi(step.after), 1));
        EXPECT_EQ(TakeChanges() > 0, step.request != SB_PAGEUP);
        SetFocus(Item(IDC_FILTER));
        Scroll(step.arrows, SB_ENDSCROLL);
        EXPECT_EQ(GetFocus(), Item(field));
        DWORD start = 9;
        DWORD end = 9;
        SendMessageW(Item(field), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0u);
        EXPECT_EQ(end, std::strlen(step.after));
    }
    EXPECT_EQ(Messages(), 0u);
}

TEST_F(MagneticPageTest, KeysStepTheText) {
    const struct {
        int field;
        const char* before;
        int key;
        const char* after;
        const char* message;
    } steps[] = {
        {IDC_RETRY_CARDS, "0", VK_UP, "1", nullptr},
        {IDC_RETRY_CARDS, "0", VK_DOWN, "0", "Enter from 0 - 10 ."},
        {IDC_RETRY_TIMES, "10", VK_UP, "10", "Enter from 0 - 10 ."},
        {IDC_RETRY_TIMES, "1", VK_DOWN, "0", nullptr},
        {IDC_START_RECORD, "1", VK_DOWN, "1", "Enter from 1 - 2147483647 ."},
        {IDC_START_RECORD, "2147483647", VK_UP, "2147483647", "Enter from 1 - 2147483647 ."},
        {IDC_START_RECORD, "2147483647", VK_DOWN, "2147483646", nullptr},
    };
    WriteWideText(LanguageFilePath, TEXT("[MagneticEncoding]\r\nError=Fehler\r\n"));
    Record().MagOptions = kUsingDatabase;
    Open();
    for (const auto& step : steps) {
        Enter(step.field, step.before);
        SetFocus(Item(step.field));
        TakeChanges();
        const size_t before = Messages();
        Press(Item(step.field), step.key);
        EXPECT_EQ(Text(step.field), step.after);
        EXPECT_EQ(Stored(), Numbers());
        EXPECT_EQ(Arrows(step.field + 1), std::max(std::atoi(step.after), 1));
        EXPECT_GT(TakeChanges(), 0);
        ASSERT_EQ(Messages() - before, step.message != nullptr ? 1u : 0u) << step.before;
        if (step.message != nullptr) {
            EXPECT_EQ(Narrow(ShownMessages().back().text), step.message);
            EXPECT_EQ(Narrow(ShownMessages().back().title), "Fehler");
        }
    }
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

TEST_F(MagneticPageTest, EachFieldTakesItsCharacters) {
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
        SetFocus(Item(field));
        Enter(field, "12");
        SendMessageW(Item(field), EM_SETSEL, 2, 2);
        SendMessageW(Item(field), WM_CHAR, VK_BACK, 1);
        EXPECT_EQ(Text(field), "1") << field;
    }
    Enter(IDC_DATABASE_PATH, "");
    Type(Item(IDC_DATABASE_PATH), Between(32, 126).c_str());
    EXPECT_EQ(Text(IDC_DATABASE_PATH), Between(32, 126));
}

// A character that passes is entered, or refused with a message.
TEST_F(MagneticPageTest, NumbersTakeDigits) {
    Open();
    for (const int field : {IDC_RETRY_CARDS, IDC_RETRY_TIMES, IDC_START_RECORD}) {
        std::string taken;
        for (int c = ' '; c < 127; ++c) {
            Enter(field, "9");
            SendMessageW(Item(field), EM_SETSEL, 0, 0);
            const size_t messages = Messages();
            SendMessageW(Item(field), WM_CHAR, static_cast<WPARAM>(c), 1);
            if (Text(field) != "9" || Messages() != messages) {
                taken += static_cast<char>(c);
            }
        }
        EXPECT_EQ(taken, " 0123456789") << field;
    }
}

TEST_F(MagneticPageTest, LengthsAreLimitedAndSomeChangesTold) {
    Open();
    for (const auto& row : kTyped) {
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
TEST_F(MagneticPageTest, TextsComeBackAsTheyWereTyped) {
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
            key_->StoreText(kPathValue, Wide(text));
            Open();
            EXPECT_EQ(Text(IDC_BROWSE_DATABASE), language.empty() ? "Browse" : "Suchen");
            EXPECT_EQ(Text(IDC_DATABASE_PATH), text);
            for (const auto& row : kTyped) {
                Enter(row.control, text);
            }
            Apply();
            Open();
            for (const auto& row : kTyped) {
                EXPECT_EQ(Text(row.control), text) << row.control;
            }
            EXPECT_EQ(Text(IDC_DATABASE_PATH), text);
        }
    }
}

TEST_F(MagneticPageTest, TextsAreStoredOnApplyOnly) {
    Open();
    for (const auto& row : kTyped) {
        Enter(row.control, "12");
    }
    Enter(IDC_DATABASE_PATH, "C:\\typed.txt");
    EXPECT_EQ(key_->Stored(kTyped[0].value), "none");
    Open();
    EXPECT_EQ(Text(IDC_TRACK_1), "");
    for (const auto& row : kTyped) {
        Enter(row.control, "12345");
    }
    Enter(IDC_FILTER_SUFFIX, "");
    Enter(IDC_DATABASE_PATH, "C:\\typed.txt");
    Apply();
    for (const auto& row : kTyped) {
        const bool isTrack = row.control <= IDC_TRACK_3;
        EXPECT_EQ(key_->Stored(row.value), isTrack                            ? "1:256:12345+123z"
                                           : row.control == IDC_FILTER_PREFIX ? "1:10:12345"
                                                                              : "1:0:");
    }
    EXPECT_EQ(key_->Stored(kPathValue), "1:520:+260z") << "what is typed does not count";
    key_->StoreText(kPathValue, TEXT("C:\\stored.txt"));
    Open();
    EXPECT_EQ(Text(IDC_DATABASE_PATH), "C:\\stored.txt");
    Enter(IDC_DATABASE_PATH, "C:\\typed.txt");
    key_->StoreText(kPathValue, TEXT("meanwhile"));
    Apply();
    EXPECT_EQ(key_->Stored(kPathValue), "1:520:C:\\stored.txt+247z");
}

TEST_F(MagneticPageTest, ApplyReportsBeforeItStores) {
    static std::string reports;
    static const PrinterUserKey* key;
    reports.clear();
    key = key_.get();
    context_.ComPropSheet = [](HANDLE, UINT function, LPARAM page, LPARAM result) -> LONG_PTR {
        reports += std::to_string(function) + " " + std::to_string(page) + " " +
                   std::to_string(result) + " " + key->Stored(TEXT("MagneticTrack1"));
        return 1;
    };
    context_.PageHandles[kMagneticEncodingSlot] = reinterpret_cast<HANDLE>(ULONG_PTR{77});
    Open();
    Enter(IDC_TRACK_1, "A");
    Apply();
    EXPECT_EQ(reports, "9 77 1 none");
    EXPECT_EQ(key_->Stored(TEXT("MagneticTrack1")), "1:256:A+127z");
}

// Two printers' sheets in one process.
TEST_F(MagneticPageTest, PagesDoNotMeet) {
    const WideString otherPrinter = TEXT("Kpd magnet 2");
    const PrinterUserKey otherKey(otherPrinter);
    key_->StoreText(kPathValue, TEXT("a"));
    otherKey.StoreText(kPathValue, TEXT("b"));
    Open();
    Answer("\1");
    DriverContext other = context_;
    otherPrinter.copy(other.WorkingDevMode.Public.dmDeviceName, CCHDEVICENAME);
    PROPSHEETPAGEW record = {};
    record.lParam = reinterpret_cast<LPARAM>(&other);
    HWND second = CreateDialogParamW(
        GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MAGNETIC_ENCODING), parent_,
        PageProc<kMagneticEncodingPage>, reinterpret_cast<LPARAM>(&record));
    COPYDATASTRUCT none = {6, 1, const_cast<char*>("")};
    SendMessageW(second, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&none));
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(second, IDC_FILTER)));
    Click(IDC_FILTER);
    EXPECT_EQ(Enabled(), Usable());
    Apply();
    EXPECT_EQ(key_->Stored(kPathValue), "1:520:a+259z");
    EXPECT_EQ(otherKey.Stored(kPathValue), "1:2:b");
    DestroyWindow(second);
}

// ---- Whatever a user does -----------------------------------------------------------------------

class RandomMagneticTest : public MagneticPageTest {
  protected:
    int Below(size_t count) { return static_cast<int>(random_() % count); }

    void ActAtRandom() {
        constexpr int kButtons[] = {IDC_HIGH_COERCIVITY, IDC_LOW_COERCIVITY, IDC_TRACK_1_BOX,
                                    IDC_TRACK_2_BOX,     IDC_TRACK_3_BOX,    IDC_USING_DATABASE,
                                    IDC_FILTER};
        constexpr int kFields[] = {IDC_RETRY_CARDS, IDC_RETRY_TIMES, IDC_START_RECORD};
        constexpr const char* kTyped[] = {"1", "0", "99", "10", " 7", "-", "2147483647", "", "B c"};
        const int field = kFields[Below(std::size(kFields))];
        switch (Below(6)) {
            case 0:
                Click(kButtons[Below(std::size(kButtons))]);
                break;
            case 1:
                Scroll(field + 1, Below(2) == 0 ? SB_LINEUP : SB_LINEDOWN);
                break;
            case 2:
                Press(Item(field), Below(2) == 0 ? VK_UP : VK_DOWN);
                break;
            case 3:
                Enter(field, kTyped[Below(std::size(kTyped))]);
                break;
            case 4:
                Type(Item(field), kTyped[Below(std::size(kTyped))]);
                break;
            default:
                Type(Item(test::kTyped[Below(std::size(test::kTyped))].control),
                     kTyped[Below(std::size(kTyped))]);
        }
    }
    std::string Shown() const {
        std::string shown = Buttons();
        for (const auto& row : kTyped) {
            shown += "|" + Text(row.control);
        }
        return shown + "|" + Text(IDC_DATABASE_PATH) + "|" + ArrowPositions();
    }

    std::mt19937 random_;
};

TEST_F(RandomMagneticTest, OpenedAgainThePageShowsTheSame) {
    for (int seed = 0; seed < Rounds(25); ++seed) {
        SCOPED_TRACE(seed);
        random_.seed(static_cast<unsigned>(seed));
        for (BYTE* field :
             {&Record().MagCoercivity, &Record().MagEncoderSelect, &Record().MagOptions,
              &Record().MagRetryCards, &Record().MagRetryTimes}) {
            *field = static_cast<BYTE>(Below(Below(2) == 0 ? 12 : 256));
        }
        Record().MagStartRecord = static_cast<DWORD>(random_());
        Open();
        for (int action = 0; action < 30; ++action) {
            ActAtRandom();
            const DevModePrivate& record = Record();
            EXPECT_EQ(Enabled(), Usable());
            EXPECT_LE(record.MagRetryCards, 10);
            EXPECT_LE(record.MagRetryTimes, 10);
            EXPECT_GE(record.MagStartRecord, 1u);
            EXPECT_LE(record.MagStartRecord, 2147483647u);
            EXPECT_LE(record.MagCoercivity, 1);
        }
        Apply();
        const std::string shown = Shown();
        const std::string numbers = Stored();
        const DevModeRecord left = context_.WorkingDevMode;
        Open();
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(Numbers(), numbers);
        EXPECT_EQ(std::memcmp(&left, &context_.WorkingDevMode, sizeof(left)), 0);
    }
}

}  // namespace
}  // namespace test
