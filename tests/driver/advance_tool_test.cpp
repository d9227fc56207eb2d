// The Advance Tool dialog over a parent that stands for the Tools page.
#include "ui/pages/tools/advance_tool.h"
#include "lone_page.h"
#include "resources/resource.h"
#include "sheet_pages.h"
#include "tools/computer/sample_library.h"
#include "ui/common/language.h"

#include <commctrl.h>

#include <cstring>
#include <optional>

namespace test {
namespace {

class AdvanceToolTest : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        Connect("");
        context_.PrinterName = printer_.data();
    }
    void TearDown() override {
        sample_.reset();
        LonePageTest::TearDown();
    }

    void Connect(const std::string& state) {
        sample_.reset();
        sample_.emplace(state);
        ASSERT_EQ(sample_->Reason(), "");
    }
    /// Opens the dialog, in which page_ is the dialog, and closes it unless the user did.
    void Run(const std::function<void()>& use) {
        RunInLoop([&] {
            page_ = DialogWith(IDC_MOTOR_1);
            ASSERT_NE(page_, nullptr);
            use();
            PostMessageW(page_, WM_CLOSE, 0, 0);
        });
        RunAdvanceTool(parent_, context_);
        EXPECT_FALSE(IsWindow(page_));
        EXPECT_TRUE(IsWindowEnabled(parent_));
        page_ = nullptr;
        EXPECT_EQ(TakeChanges(), 0) << "the sheet is not told";
    }
    void RunClicks(const std::vector<int>& controls) {
        Run([&] {
            for (const int control : controls) {
                Click(control);
            }
        });
    }
    void SetModel(DWORD kp41, DWORD kp43, DWORD kp49) {
        context_.IsKP41Family = kp41;
        context_.IsKP43Family = kp43;
        context_.IsKP49 = kp49;
    }
    void Key(WPARAM key) const {
        MSG pressed = {GetFocus(), WM_KEYDOWN, key, 1, 0, {0, 0}};
        IsDialogMessageW(page_, &pressed);
    }
    std::string Motors() const {
        return Looks(IDC_MOTOR_1) + " " + Looks(IDC_MOTOR_1_VALUE) + ", " + Looks(IDC_MOTOR_2) +
               " " + Looks(IDC_MOTOR_2_VALUE);
    }
    std::string Feed() const { return Looks(IDC_PLUS_R_APPLICATION) + Looks(IDC_FEED_FROM_OUTPUT); }

    WideString printer_ = TEXT("Badge room");
    std::optional<computer::SamplePrinter> sample_;
};

TEST_F(AdvanceToolTest, ShowsWhatTheModelHas) {
    const std::vector<int> groups[] = {
        {IDC_MOTOR_GROUP, IDC_MOTOR_1_LABEL, IDC_MOTOR_1, IDC_MOTOR_1_VALUE, IDC_MOTOR_2_LABEL,
         IDC_MOTOR_2, IDC_MOTOR_2_VALUE, IDC_MOTOR_APPLY, IDC_MOTOR_DESCRIPTION},
        {IDC_OPTIONS_GROUP, IDC_MOVE_TO_STANDBY, IDC_NO_ERROR_DIALOG, IDC_NO_CLEANING_MODE,
         IDC_NO_EJECT, IDOK},
        {IDC_WATERMARK_GROUP, IDC_WATERMARK_LABEL, IDC_WATERMARK, IDC_WATERMARK_APPLY},
        {IDC_PLUS_R_APPLICATION},
        {IDC_FEED_FROM_OUTPUT},
        {IDC_NO_OVERCOAT},
    };
    const struct {
        const char* model;
        DWORD kp41, kp43, kp49;
        BYTE plusR;
        const char* shown;  // by group
    } cases[] = {{"neither family", 0, 0, 0, 1, "xx...."},
                 {"KP-41", 1, 0, 0, 1, "xxx..."},
                 {"KP-43", 0, 1, 0, 1, ".x...."},
                 {"KP-49", 1, 0, 1, 0, "xxxx.."},
                 {"KP-49, P+R", 1, 0, 1, 1, "xxxxx."}};
    Record().PrinterOptionFlags = kNoOvercoat;
    for (const auto& c : cases) {
        SetModel(c.kp41, c.kp43, c.kp49);
        Record().PlusRApplication = c.plusR;
        Run([&] {
            std::string shown;
            for (const std::vector<int>& group : groups) {
                const bool first = IsShown(group.front());
                shown += first ? "x" : ".";
                for (const int control : group) {
                    EXPECT_EQ(IsShown(control), first) << control;
                }
            }
            EXPECT_EQ(shown, c.shown) << c.model;
        });
    }
}

TEST_F(AdvanceToolTest, StandsInTheMiddleOfTheScreenOverThePage) {
    WriteWideText(LanguageFilePath,
                  TEXT("[Tools]\r\nAdvance Tool for KP4xx=Extras\r\nExit=Ende\r\n"));
    SetSection(kColorSection);
    Run([&] {
        EXPECT_EQ(GetWindow(page_, GW_OWNER), parent_);
        EXPECT_FALSE(IsWindowEnabled(parent_));
        EXPECT_EQ(TextOf(page_), "Extras");
        EXPECT_EQ(TextOf(Item(IDOK)), "Ende");
        EXPECT_EQ(TextOf(Item(IDC_MOTOR_1_LABEL)), "#1:");
        RECT area;
        GetWindowRect(page_, &area);
        EXPECT_NEAR(area.left, GetSystemMetrics(SM_CXSCREEN) - area.right, 1);
        EXPECT_NEAR(area.top, GetSystemMetrics(SM_CYSCREEN) - area.bottom, 1);
    });
}

// ---- Options ------------------------------------------------------------------------------------

TEST_F(AdvanceToolTest, ABoxIsOneBitAndExitTakesItOver) {
    const struct {
        int box;
        WORD DevModePrivate::*field;
        WORD bit;
    } cases[] = {{IDC_MOVE_TO_STANDBY, &DevModePrivate::CardHandlingFlags, 0x0001},
                 {IDC_FEED_FROM_OUTPUT, &DevModePrivate::CardHandlingFlags, 0x0020},
                 {IDC_NO_ERROR_DIALOG, &DevModePrivate::PrinterOptionFlags, 0x0001},
                 {IDC_NO_CLEANING_MODE, &DevModePrivate::PrinterOptionFlags, 0x0100},
                 {IDC_NO_EJECT, &DevModePrivate::PrinterOptionFlags, 0x8000}};
    SetModel(1, 0, 1);
    for (const WORD flags : {WORD{0}, WORD{0xFFFF}}) {
        for (const auto& c : cases) {
            Record().CardHandlingFlags = Record().PrinterOptionFlags = flags;
            Record().PlusRApplication = 1;
            const DevModeRecord before = context_.WorkingDevMode;
            const auto looks = [&](bool checked) { EXPECT_EQ(Looks(c.box), checked ? "x" : "."); };
            Run([&] {
                looks(flags != 0);
                Click(c.box);
                looks(flags == 0);
            });
            EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << c.box << " closed otherwise";
            RunClicks({c.box, IDCANCEL});
            EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << c.box << " cancelled";
            RunClicks({c.box, c.box, IDOK});
            EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << c.box << " twice";
            RunClicks({c.box, IDOK});
            DevModeRecord after = before;
            after.Private.*c.field ^= c.bit;
            EXPECT_TRUE(IsSame(context_.WorkingDevMode, after)) << c.box;
        }
    }
}

TEST_F(AdvanceToolTest, ExitTakesOverFourFieldsOfTheCopy) {
    Record().AdvanceToolFlag = 1;
    Record().PlusRApplication = 7;  // as it came
    Record().CardHandlingFlags = 0x1234;
    Record().PrinterOptionFlags = 0x4321;
    const DevModeRecord before = context_.WorkingDevMode;
    for (const bool exits : {false, true}) {
        context_.WorkingDevMode = before;
        DevModeRecord after = before;
        Run([&] {
            std::memset(&context_.WorkingDevMode, 0x55, sizeof(before));
            std::memset(&after, 0x55, sizeof(after));
            if (exits) {
                Click(IDOK);
                after.Private.AdvanceToolFlag = 1;
                after.Private.PlusRApplication = 7;
                after.Private.CardHandlingFlags = 0x1234;
                after.Private.PrinterOptionFlags = 0x4321;
            }
        });
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, after)) << exits;
    }
}

TEST_F(AdvanceToolTest, CardsAreFedFromTheOutputSideForPlusRAlone) {
    constexpr int kBox = IDC_PLUS_R_APPLICATION;
    constexpr int kFeed = IDC_FEED_FROM_OUTPUT;
    const struct {
        BYTE plusR;
        WORD flags;
        std::vector<int> clicks;
        const char* looks;  // of both boxes
        BYTE plusRAfter;
        WORD flagsAfter;
    } cases[] = {
        {0, 0x00, {}, ".-", 0, 0x00},
        {0, 0x21, {}, ".-", 0, 0x21},
        {0, 0x21, {kBox}, "xx", 1, 0x21},
        {0, 0x01, {kBox}, "x.", 1, 0x01},
        {0, 0x01, {kBox, kFeed}, "xx", 1, 0x21},
        {0, 0x21, {kBox, kBox}, ".-", 0, 0x01},
        {1, 0x21, {}, "xx", 1, 0x21},
        {1, 0x39, {kBox}, ".-", 0, 0x19},
        {1, 0x39, {kBox, kBox}, "x.", 1, 0x19},
        {7, 0x20, {kFeed}, "x.", 7, 0x00},
        {7, 0x00, {kBox, kBox}, "x.", 1, 0x00},
    };
    SetModel(1, 0, 1);
    for (const auto& c : cases) {
        Record().PlusRApplication = c.plusR;
        Record().CardHandlingFlags = c.flags;
        Run([&] {
            for (const int control : c.clicks) {
                Click(control);
            }
            EXPECT_EQ(Feed(), c.looks);
            Click(IDOK);
        });
        EXPECT_EQ(Record().PlusRApplication, c.plusRAfter) << c.looks;
        EXPECT_EQ(Record().CardHandlingFlags, c.flagsAfter) << c.looks;
    }
}

// ---- The watermark ------------------------------------------------------------------------------

TEST_F(AdvanceToolTest, TheWatermarkIsTakenOverAtOnce) {
    WriteWideText(LanguageFilePath, TEXT("[Tools]\r\nDefault water mark 2=Zeichen 2\r\n"));
    const struct {
        BYTE stored;
        const char* offered;
        int chosen;  // -1: the list is left alone
        int button;
        BYTE after;
    } cases[] = {
        {0, "None of 5", 2, IDC_WATERMARK_APPLY, 2},
        {2, "Zeichen 2 of 5", -1, IDC_WATERMARK_APPLY, 2},
        {4, "Default water mark 4 of 5", 0, IDC_WATERMARK_APPLY, 0},
        {1, "Default water mark 1 of 5", 3, IDC_MOTOR_APPLY, 1},
        {1, "Default water mark 1 of 5", 3, IDOK, 1},
        {5, " of 5", -1, IDC_WATERMARK_APPLY, 5},
        {255, " of 5", 1, IDC_WATERMARK_APPLY, 1},
    };
    SetModel(1, 0, 0);
    for (const auto& c : cases) {
        Record().WatermarkIndex = c.stored;
        Run([&] {
            EXPECT_EQ(Looks(IDC_WATERMARK), c.offered);
            if (c.chosen >= 0) {
                SendDlgItemMessageW(page_, IDC_WATERMARK, CB_SETCURSEL,
                                    static_cast<WPARAM>(c.chosen), 0);
            }
            Click(c.button);
            EXPECT_EQ(Record().WatermarkIndex, c.after) << c.offered << " " << c.button;
        });
        EXPECT_EQ(Record().WatermarkIndex, c.after) << c.offered << " closed";
    }
    // "Exit" takes nothing of it from the copy.
    RunClicks({IDC_WATERMARK_APPLY, IDOK});
    EXPECT_EQ(Record().WatermarkIndex, 1);
}

// ---- The motors ---------------------------------------------------------------------------------

TEST_F(AdvanceToolTest, MotorSpeedsAreThePrinters) {
    const struct {
        const char* speeds;
        const char* shown;
        const char* sent;  // by "Apply"
    } cases[] = {{"0 0", "0 0, 0 0", "0 0"},
                 {"-3 4", "-3 -3, 4 4", "-3 4"},
                 {"7 -128", "5 7, -5 -128", "5 -5"}};
    for (const auto& c : cases) {
        const auto state = [](const std::string& speeds) {
            return "printer = Badge room\nmotors = " + speeds + "\n";
        };
        Connect(state(c.speeds));
        Run([&] {
            EXPECT_EQ(Motors(), c.shown);
            EXPECT_EQ(sample_->State(), state(c.speeds));
            Click(IDC_MOTOR_APPLY);
        });
        EXPECT_EQ(sample_->State(), state(c.sent));
    }
}

TEST_F(AdvanceToolTest, AMovedSliderShowsItsValueAndIsSentByApply) {
    Connect("motors = 1 -1\n");
    Run([&] {
        const std::pair<WPARAM, const char*> keys[] = {{VK_RIGHT, "2 2, -1 -1"},
                                                       {VK_NEXT, "4 4, -1 -1"},
                                                       {VK_LEFT, "3 3, -1 -1"},
                                                       {VK_HOME, "-5 -5, -1 -1"}};
        for (const auto& [key, shown] : keys) {
            Press(Item(IDC_MOTOR_1), static_cast<int>(key));
            EXPECT_EQ(Motors(), shown);
        }
        Press(Item(IDC_MOTOR_2), VK_PRIOR);
        EXPECT_EQ(Motors(), "-5 -5, -3 -3");
        EXPECT_EQ(sample_->State(), "motors = 1 -1\n");
        Click(IDC_MOTOR_APPLY);
        EXPECT_EQ(sample_->State(), "motors = -5 -3\n");
    });
    context_.PrinterName = nullptr;  // memory was short
    Run([&] { EXPECT_EQ(Motors(), "-5 -5, -3 -3"); });
}

TEST_F(AdvanceToolTest, ALibraryThatCannotBeLoadedIsReported) {
    const std::string missing = "Error: Can't load library\n";
    for (const bool isThere : {false, true}) {
        sample_.reset();
        if (isThere) {
            Connect("fault = no calls\nmotors = 1 -1\n");
        }
        Run([&] {
            EXPECT_EQ(Motors(), "0 0, 0 0");
            Click(IDC_MOTOR_APPLY);
        });
        EXPECT_EQ(TakeMessages(), isThere ? "" : missing + missing);
    }
}

// ---- The keyboard -------------------------------------------------------------------------------

TEST_F(AdvanceToolTest, EnterIsExitAndEscapeIsNot) {
    for (const auto& [key, after] : {std::pair{VK_RETURN, WORD{0x0100}}, {VK_ESCAPE, WORD{0}}}) {
        Record().PrinterOptionFlags = 0;
        Run([&, pressed = static_cast<WPARAM>(key)] {
            HWND box = Item(IDC_NO_CLEANING_MODE);
            SetFocus(box);
            Press(box, VK_SPACE);
            EXPECT_EQ(Looks(IDC_NO_CLEANING_MODE), "x");
            Key(pressed);
        });
        EXPECT_EQ(Record().PrinterOptionFlags, after);
    }
}

}  // namespace
}  // namespace test
