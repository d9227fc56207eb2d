// Numeric fields driven by real key and scroll messages, with the messages they show.
#include "ui/common/numeric_field.h"

#include "message_boxes.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "window_test.h"

#include <prsht.h>

#include <algorithm>
#include <climits>

namespace test {
namespace {

// Fields of every kind and range that the pages have.
constexpr const WCHAR* kRange = kIntegerRange;
constexpr NumberKind kInteger = NumberKind::kInteger;
// clang-format off
constexpr NumericField kNumericFields[] = {
    // control, arrows, kind, range, extra character, key's message and section, validation's, steps
    {IDC_COPIES, IDC_COPIES_SCROLL, kInteger, 1, 9999, 0, TEXT("Press up and down button to adjust copies (1-9999)."), kDeviceOptionSection, kToolsSection},
    {IDC_BRIGHTNESS, 0, kInteger, -100, 100, '-', kRange, kSettingSection, kSettingSection},
    {IDC_CYAN, 0, kInteger, -100, 100, '-', kRange, kSettingSection, kSettingSection},
    {IDC_SHARPNESS, 0, kInteger, 0, 100, 0, kRange, kSettingSection, kSettingSection},
    {IDC_GAMMA, 0, NumberKind::kHundredths, kHundredthsMinimum, kHundredthsMaximum, '.', TEXT("Enter from 0.10 - 9.99 ."), kSettingSection, kSettingSection},
    {IDC_POSITION_A, IDC_POSITION_A_SCROLL, kInteger, -10, 10, '-', kRange, kToolsSection, kSettingSection, true},
    {IDC_POSITION_B, IDC_POSITION_B_SCROLL, kInteger, -20, 20, '-', kRange, kToolsSection, kSettingSection, true},
    {IDC_RETRY_CARDS, IDC_RETRY_CARDS_SCROLL, kInteger, 0, 10, 0, kRange, kMagneticEncodingSection, kToolsSection},
    {IDC_START_RECORD, IDC_START_RECORD_SCROLL, kInteger, 1, 2147483647, 0, kRange, kMagneticEncodingSection, kToolsSection},
    {IDC_LAMINATION_B, IDC_LAMINATION_B_SCROLL, kInteger, -15, 15, '-', kRange, kLaminationSection, kSettingSection},
};
// clang-format on

const NumericField& FieldRow(int control) {
    return *std::ranges::find_if(kNumericFields,
                                 [&](const NumericField& row) { return row.Control == control; });
}

class NumericFieldTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        InitLanguageFile();
        StartMessageBoxes();
    }
    void TearDown() override {
        StopMessageBoxes();
        std::filesystem::remove(DiskPath(LanguageFilePath));
        WindowTest::TearDown();
    }

    /// The field's edit control with a text, and its arrows when it has them.
    HWND Field(int id, const char* text) {
        const NumericField& field = FieldRow(id);
        HWND edit = Control(TEXT("Edit"), Wide(text).c_str(), ES_AUTOHSCROLL | WS_TABSTOP, id);
        SubclassNumericField(edit, field);
        if (field.Arrows != 0) {
            HWND arrows = Control(TEXT("ScrollBar"), TEXT(""), SBS_VERT, field.Arrows, 140);
            SetScrollRange(arrows, SB_CTL, field.Minimum, field.Maximum, FALSE);
            SetScrollPos(arrows, SB_CTL, std::atoi(text), FALSE);
        }
        SetFocus(edit);
        HandlePosted();
        Told();
        return edit;
    }

    int Arrows(int id) { return GetScrollPos(GetDlgItem(parent_, FieldRow(id).Arrows), SB_CTL); }

    static bool AllSelected(HWND edit) {
        DWORD start = 99;
        DWORD end = 99;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        return start == 0 && end == static_cast<DWORD>(GetWindowTextLengthW(edit)) &&
               GetFocus() == edit;
    }

    /// The texts shown since the last call.
    std::vector<std::string> Shown() {
        std::vector<std::string> texts;
        const auto messages = ShownMessages();
        for (; shown_ < messages.size(); ++shown_) {
            EXPECT_EQ(Narrow(messages[shown_].title), "Error");
            EXPECT_FALSE(messages[shown_].hasOwner);
            texts.push_back(Narrow(messages[shown_].text));
        }
        return texts;
    }

  private:
    size_t shown_ = 0;
};

using Texts = std::vector<std::string>;

TEST_F(NumericFieldTest, UpAndDownStepWithinTheRange) {
    const struct {
        int id;
        const char* before;
        int key;
        const char* after;
        Texts shown;
    } cases[] = {
        {IDC_COPIES, "5", VK_UP, "6", {}},
        {IDC_COPIES,
         "9999",
         VK_UP,
         "9999",
         {"Press up and down button to adjust copies (1-9999)."}},
        {IDC_COPIES, "1", VK_DOWN, "1", {"Press up and down button to adjust copies (1-9999)."}},
        {IDC_COPIES, "", VK_UP, "1", {}},
        {IDC_COPIES,
         "99999999999999999999999999999999999999999999999999999999999999999999999",
         VK_DOWN,
         "9999",
         {"Press up and down button to adjust copies (1-9999)."}},
        {IDC_BRIGHTNESS, "-100", VK_DOWN, "-100", {"Enter from -100 - 100 ."}},
        {IDC_BRIGHTNESS, "-", VK_DOWN, "-1", {}},
        {IDC_SHARPNESS, "0", VK_DOWN, "0", {"Enter from 0 - 100 ."}},
        {IDC_GAMMA, "1.00", VK_DOWN, "0.99", {}},
        {IDC_GAMMA, "9.99", VK_UP, "9.99", {"Enter from 0.10 - 9.99 ."}},
        {IDC_GAMMA, "", VK_UP, "0.10", {"Enter from 0.10 - 9.99 ."}},
        {IDC_START_RECORD, "2147483647", VK_UP, "2147483647", {"Enter from 1 - 2147483647 ."}},
        {IDC_LAMINATION_B, "15", VK_UP, "15", {"Enter from -15 - 15 ."}},
    };
    for (const auto& c : cases) {
        HWND edit = Field(c.id, c.before);
        Press(edit, c.key);
        EXPECT_EQ(TextOf(edit), c.after) << c.before;
        EXPECT_EQ(Shown(), c.shown) << c.before;
        EXPECT_TRUE(AllSelected(edit)) << c.before;
        DestroyWindow(edit);
        DestroyWindow(GetDlgItem(parent_, FieldRow(c.id).Arrows));
    }
}

TEST_F(NumericFieldTest, PositionFieldsStepFromTheirArrows) {
    HWND edit = Field(IDC_POSITION_B, "3");
    SetWindowTextW(edit, TEXT("12"));  // the text alone does not count
    Press(edit, VK_UP);
    EXPECT_EQ(TextOf(edit), "4");
    EXPECT_EQ(Arrows(IDC_POSITION_B), 4);
    SetScrollPos(GetDlgItem(parent_, IDC_POSITION_B_SCROLL), SB_CTL, -20, FALSE);
    Press(edit, VK_DOWN);
    EXPECT_EQ(TextOf(edit), "-20");
    EXPECT_EQ(Arrows(IDC_POSITION_B), -20);
    EXPECT_EQ(Shown(), Texts{"Enter from -20 - 20 ."});
}

TEST_F(NumericFieldTest, OtherKeysAndTypedCharacters) {
    const struct {
        int id;
        const char* typed;
        const char* text;
    } cases[] = {
        {IDC_COPIES, "a+1-.x2/~", "12"},     {IDC_SHARPNESS, "-.5", "5"},
        {IDC_BRIGHTNESS, "-+.7Z", "-7"},     {IDC_GAMMA, "1-.a5", "1.5"},
        {IDC_RETRY_CARDS, "-1", "1"},        {IDC_POSITION_A, "-a3", "-3"},
        {IDC_START_RECORD, "1 2\b3", "1 3"},
    };
    for (const auto& c : cases) {
        HWND edit = Field(c.id, "");
        Type(edit, c.typed);
        EXPECT_EQ(TextOf(edit), c.text) << c.typed;
        DestroyWindow(edit);
    }
    HWND edit = Field(IDC_COPIES, "12");
    SendMessageW(edit, EM_SETSEL, 2, 2);
    Press(edit, VK_HOME);
    DWORD start = 99;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    EXPECT_EQ(start, 0u);
}

TEST_F(NumericFieldTest, EachFieldGoesBackToItsOwnProcedure) {
    HWND first = Field(IDC_BRIGHTNESS, "1");
    HWND second = Field(IDC_GAMMA, "1.00");
    DestroyWindow(first);
    Press(second, VK_UP);
    EXPECT_EQ(TextOf(second), "1.01");
    HWND other = Control(TEXT("Edit"), TEXT(""), 0, 500);
    Type(other, "x+");
    EXPECT_EQ(TextOf(other), "x+");
}

TEST_F(NumericFieldTest, ArrowsStepWithinTheRange) {
    HWND edit = Field(IDC_COPIES, "9998");
    const NumericField& field = FieldRow(IDC_COPIES);
    const struct {
        WORD request;
        int value;
        bool steps;
    } steps[] = {{SB_LINEUP, 9999, true},
                 {SB_LINEUP, 9999, true},
                 {SB_LINEDOWN, 9998, true},
                 {SB_PAGEUP, 9998, false},
                 {SB_THUMBTRACK, 9998, false}};
    for (const auto& s : steps) {
        const std::optional<int> stepped = StepField(parent_, field, s.request);
        EXPECT_EQ(stepped, s.steps ? std::optional(s.value) : std::nullopt) << s.request;
        EXPECT_EQ(TextOf(edit), std::to_string(s.value));
        EXPECT_EQ(Arrows(IDC_COPIES), s.value);
    }
    SetScrollPos(GetDlgItem(parent_, IDC_COPIES_SCROLL), SB_CTL, 1, FALSE);
    EXPECT_EQ(StepField(parent_, field, SB_LINEDOWN), 1);
    SetFocus(parent_);
    EXPECT_EQ(StepField(parent_, field, SB_ENDSCROLL), std::nullopt);
    EXPECT_TRUE(AllSelected(edit));
    EXPECT_TRUE(Shown().empty());
}

TEST_F(NumericFieldTest, ValidationOfIntegers) {
    const char* kCopies = "Press up and down button to adjust value ( 1 - 9999 ).";
    const struct {
        int minimum, maximum, previous;
        const char* text;
        int value;
        Texts shown;
    } cases[] = {
        {1, 9999, 7, "12", 12, {}},
        {1, 9999, 7, "0", 7, {kCopies}},
        {1, 9999, 7, "", 7, {kCopies}},
        {1, 9999, 7, "10000", 7, {kCopies}},
        {1, 9999, 7, "012", 7, {kCopies}},
        {1, 9999, 7, "4294967301", 7, {kCopies}},
        {-100, 100, 5, "-", 0, {}},
        {-100, 100, 5, "", 0, {}},
        {-100, 100, 5, "-100", -100, {}},
        {-100, 100, -5, "-0", -5, {"Press up and down button to adjust value ( -100 - 100 )."}},
        {1,
         INT_MAX,
         9,
         "2147483648",
         9,
         {"Press up and down button to adjust value ( 1 - 2147483647 )."}},
    };
    HWND edit = Control(TEXT("Edit"), TEXT(""), ES_AUTOHSCROLL, 100);
    for (const auto& c : cases) {
        SetWindowTextW(edit, Wide(c.text).c_str());
        EXPECT_EQ(ValidateIntField(parent_, 100, c.minimum, c.maximum, c.previous, TEXT("Tools")),
                  c.value)
            << c.text;
        EXPECT_EQ(Shown(), c.shown) << c.text;
        EXPECT_EQ(TextOf(edit), c.shown.empty() ? c.text : std::to_string(c.previous));
        EXPECT_TRUE(c.shown.empty() || AllSelected(edit)) << c.text;
    }
    EXPECT_EQ(Narrow(CurrentSection), "Tools");
}

TEST_F(NumericFieldTest, ValidationOfHundredths) {
    const Texts refused = {"Press up and down button to adjust value ( 0.10 - 9.99 )."};
    const struct {
        const char* text;
        int whileTyping, atTheEnd;  // -1: refused
    } cases[] = {
        {"1.5", 150, 150}, {"0.0", 0, -1},     {"0.05", -1, -1}, {".25", 25, 25},
        {"2", 200, 200},   {"9.99", 999, 999}, {"10", -1, -1},   {"", 0, -1},
        {"0.1", 10, 10},   {"99.", 990, 990},  {"0.009", 9, -1},
    };
    HWND edit = Control(TEXT("Edit"), TEXT(""), ES_AUTOHSCROLL, 100);
    for (const auto& c : cases) {
        for (bool typing : {true, false}) {
            const int expected = typing ? c.whileTyping : c.atTheEnd;
            SetWindowTextW(edit, Wide(c.text).c_str());
            const int value = typing ? ValidateHundredthsWhileTyping(parent_, 100, 345)
                                     : ValidateHundredthsField(parent_, 100, 345);
            EXPECT_EQ(value, expected < 0 ? 345 : expected) << c.text << typing;
            EXPECT_EQ(Shown(), expected < 0 ? refused : Texts{}) << c.text << typing;
            EXPECT_EQ(TextOf(edit), expected < 0 ? "3.45" : c.text) << typing;
        }
    }
}

TEST_F(NumericFieldTest, Hundredths) {
    const struct {
        const char* text;
        LONG value;
    } cases[] = {
        {"", 0},
        {"7", 700},
        {".", 0},
        {".5", 50},
        {".25", 25},
        {".123", 12},
        {".1234", 1234},
        {"1.", 100},
        {"1.5", 150},
        {"1.25", 125},
        {"1.234", 1234},
        {"12.", 120},
        {"12.5", 1250},
        {"-1.5", -150},
        {"-", 0},
        {"0.05", 5},
        {"99999999999", INT_MAX},
        {"!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!.99999999999999999999999999", INT_MIN},
        {"!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!999999999999999999999999999.", INT_MIN},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ParseHundredths(Wide(c.text).c_str()), c.value) << c.text;
    }
    EXPECT_EQ(ParseDecimalText(TEXT("-2147483649")), INT_MIN);
    WCHAR text[kNumberLength];
    FormatHundredths(1005, text);
    EXPECT_EQ(Narrow(text), "10.05");
}

TEST_F(NumericFieldTest, MessagesAreLookedUpAfterFormatting) {
    WriteWideText(LanguageFilePath,
                  TEXT("[Setting]\r\nEnter from -100 - 100 .=Von -100 bis 100.\r\n")
                      TEXT("Error=Fehler\r\n"));
    HWND edit = Field(IDC_CYAN, "100");
    Press(edit, VK_UP);
    const auto messages = ShownMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(Narrow(messages[0].text), "Von -100 bis 100.");
    EXPECT_EQ(Narrow(messages[0].title), "Fehler");
}

}  // namespace
}  // namespace test
