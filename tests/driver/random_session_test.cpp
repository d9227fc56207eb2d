// Whatever a user does on the Device Options and Color pages, their record and controls agree.
#include "color_page.h"
#include "core/merge.h"
#include "options_page.h"
#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/pages/color/adjustment_rows.h"
#include "ui/pages/color/color_page.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace test {
namespace {

constexpr int kLists[] = {IDC_RIBBON, IDC_CARD_TYPE, IDC_THICKNESS, IDC_FRONT_RESIN,
                          IDC_BACK_RESIN};
constexpr int kBoxes[] = {IDC_K_ONLY_ON_BACK, IDC_TRANSPARENT_CARD, IDC_FRONT_IMAGE,
                          IDC_FRONT_ROTATE,   IDC_FRONT_FLIP,       IDC_FRONT_COLOR,
                          IDC_BACK_IMAGE,     IDC_BACK_ROTATE,      IDC_BACK_FLIP,
                          IDC_BACK_COLOR,     IDC_NO_WHITE_SKIP,    IDC_PORTRAIT};

// Choices at random among what is shown and enabled.
class RandomUser {
  public:
    explicit RandomUser(unsigned seed) : random_(seed) {}
    int Below(size_t count) { return static_cast<int>(random_() % count); }

    void Spoil(DevModePrivate& record) {
        for (BYTE* field : {&record.PrintSides, &record.ColorSides, &record.KOnlyOnBack,
                            &record.RotateSides, &record.FlipSides, &record.BlackByYmcK,
                            &record.TransparentCard, &record.CardThickness}) {
            *field = static_cast<BYTE>(Below(4));
        }
        constexpr BYTE kClassed[] = {0, 1, 2, 3, 4, 5, 9, 10, 11, 12, 14};
        // Often one that may leave the back to K, which most depends on.
        record.RibbonType =
            Below(2) == 0 ? BYTE{kRibbonYMCKO} : kClassed[Below(std::size(kClassed))];
        record.CardType = static_cast<BYTE>(Below(6));
        record.ResinOptions = static_cast<BYTE>(Below(256));
        record.ResinOptions2 = static_cast<BYTE>(Below(8));
        // Never without black by resin and colour.
        record.BlackByYmcK &= record.ResinOptions & record.ColorSides;
    }

  private:
    std::mt19937 random_;
};

// Where the rules and the beginning of the page differ by design; docs/decisions.md names them.
bool MayDiffer(const DevModePrivate& record, bool choseRibbon) {
    const bool greyAndBlack = (record.ResinOptions2 & kFront.Grey) != 0 &&
                              (record.ResinOptions & kFront.BlackByResin) != 0;
    return record.KOnlyOnBack != 0 || (record.BlackByYmcK != 0 && choseRibbon) || greyAndBlack;
}

class RandomSessionTest : public OptionsPageTest {
  protected:
    /// Acts on a control if it is shown and enabled; gives the control, 0 when it is not.
    int ActAtRandom(RandomUser& user) {
        const size_t which = static_cast<size_t>(user.Below(std::size(kLists) + std::size(kBoxes)));
        const bool isList = which < std::size(kLists);
        const int control = isList ? kLists[which] : kBoxes[which - std::size(kLists)];
        if (!IsShown(control) || !IsWindowEnabled(GetDlgItem(page_, control))) {
            return 0;
        }
        const LRESULT count = SendDlgItemMessageW(page_, control, CB_GETCOUNT, 0, 0);
        if (!isList) {
            Click(control);
        } else if (count > 0) {
            Choose(control, user.Below(static_cast<size_t>(count)));
        } else {
            return 0;
        }
        return control;
    }

    /// The resin lists, also those that are hidden for now, begin with the entry that their first
    /// place stands for. (Under ribbons that have no list there is none.)
    bool OffersWhatChoicesDo() const {
        const auto first = [&](int list) {
            WCHAR text[kTextLength] = {};
            SendDlgItemMessageW(page_, list, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text));
            return Narrow(text);
        };
        const std::string front = first(IDC_FRONT_RESIN);
        const std::string back = first(IDC_BACK_RESIN);
        const BYTE ribbon = Record().RibbonType;
        if (ribbon == kRibbonK || ribbon == kRibbonKO) {
            return front == "Black/White" && back == "Black/White";
        }
        return front.empty() ||
               (front == "Disable" &&
                back == (Record().KOnlyOnBack != 0 ? "Black by Resin K" : "Disable"));
    }
};

TEST_F(RandomSessionTest, WhateverTheUserDoesThePageAgreesWithTheRecord) {
    const ModelFlags models[] = {{}, kDuplexOnly, kSimplex, kKP43};
    int compared = 0;
    for (int seed = 0; seed < Rounds(40); ++seed) {
        RandomUser user(static_cast<unsigned>(seed));
        SCOPED_TRACE(seed);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        SetModel(models[seed % 4]);
        user.Spoil(Record());
        Open();
        std::string done;
        bool choseRibbon = false;
        for (int action = 0; action < 20; ++action) {
            const int control = ActAtRandom(user);
            done += std::to_string(control) + " ";
            choseRibbon = choseRibbon || control == IDC_RIBBON;
            EXPECT_TRUE(OffersWhatChoicesDo()) << Options() << " after " << done;
        }
        DevModeRecord merged;
        BuildDefaultDevMode(&merged, nullptr, nullptr);
        ASSERT_EQ(MergeDevMode(&merged, &context_.WorkingDevMode.Public, nullptr), 1);
        EXPECT_EQ(std::memcmp(&merged.Private, &Record(), sizeof(merged.Private)), 0);
        const std::string options = Options();
        const std::string looks = LooksOfAll();
        Open();
        if (Options() == options && !MayDiffer(Record(), choseRibbon)) {
            ++compared;
            EXPECT_EQ(LooksOfAll(), looks) << options << " after " << done;
        }
    }
    EXPECT_GT(compared, Rounds(8));
}

// ---- Colours ----------------------------------------------------------------------------------

class RandomColorsTest : public ColorPageTest {
  protected:
    void Spoil(RandomUser& user) {
        Paper().dmICMMethod = static_cast<DWORD>(user.Below(4));
        DevModePrivate& record = Record();
        for (BYTE* field :
             {&record.ColorPreference, &record.ColorStyle, &record.AutoEnhance, &record.SharpenMode,
              &record.BitBltInvert, &record.SkinTone, &record.ColorFlag, &record.SkinSliderV}) {
            *field = static_cast<BYTE>(user.Below(4));
        }
        for (const AdjustmentRow& row : kAdjustmentRows) {
            row.Value.Write(record,
                            user.Below(3) == 0 ? user.Below(0x10000) : user.Below(201) - 100);
        }
    }

    void ActAtRandom(RandomUser& user) {
        constexpr int kButtons[] = {IDC_BASIC_COLOR,   IDC_CLASSIC_COLOR, IDC_WINDOWS_COLOR,
                                    IDC_AUTO_ENHANCE,  IDC_EDGES_ONLY,    IDC_NO_COLOR_PREFERENCE,
                                    IDC_BITBLT_INVERT, IDC_COLOR_RESET};
        constexpr int kKeys[] = {VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_HOME, VK_END};
        constexpr const char* kTexts[] = {"-", "",   "0",    "-100", "100", "101", "07", "1.5",
                                          ".", "9.", "0.05", "9.99", "10",  "-1",  "x",  ".5"};
        const AdjustmentRow& row = kAdjustmentRows[user.Below(std::size(kAdjustmentRows))];
        HWND field = Item(row.Field.Control);
        switch (user.Below(6)) {
            case 0:
                Click(kButtons[user.Below(std::size(kButtons))]);
                break;
            case 1:
                Press(Item(row.Slider), kKeys[user.Below(std::size(kKeys))]);
                break;
            case 2:
                SendMessageW(Item(row.Slider), TBM_SETPOS, TRUE, user.Below(2000) - 100);
                SendMessageW(page_, WM_HSCROLL, TB_THUMBTRACK,
                             reinterpret_cast<LPARAM>(Item(row.Slider)));
                break;
            case 3:
                Press(field, user.Below(2) == 0 ? VK_UP : VK_DOWN);
                break;
            case 4:
                SetFocus(field);
                Type(field, kTexts[user.Below(std::size(kTexts))]);
                break;
            default:
                SetFocus(field);
                SetWindowTextW(field, Wide(kTexts[user.Below(std::size(kTexts))]).c_str());
        }
    }

    /// Every number in its range, and shown by its slider. (A gamma that is still being typed is
    /// shown by its field alone.)
    void CheckRows() const {
        std::string positions;
        for (const AdjustmentRow& row : kAdjustmentRows) {
            const int value = row.Value.Read(Record());
            EXPECT_EQ(std::clamp(value, row.Field.Minimum, row.Field.Maximum), value);
            const int position = std::max(row.ToPosition(value), row.SliderMinimum);
            positions += (positions.empty() ? "" : " ") + std::to_string(position);
        }
        EXPECT_EQ(Sliders(), positions);
        if (GetFocus() != Item(IDC_GAMMA)) {
            EXPECT_EQ(Fields(), Adjustments());
        }
    }
};

TEST_F(RandomColorsTest, WhateverTheUserDoesThePageAgreesWithTheRecord) {
    int kept = 0;
    for (int seed = 0; seed < Rounds(40); ++seed) {
        RandomUser user(static_cast<unsigned>(seed));
        SCOPED_TRACE(seed);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        Spoil(user);
        Open();
        CheckRows();
        for (int action = 0; action < 20; ++action) {
            const BYTE style = Record().ColorStyle;
            ActAtRandom(user);
            CheckRows();
            const bool chosen = Preference().find('x') != std::string::npos;
            EXPECT_EQ(chosen, Record().ColorPreference != kPrinterColor || Record().ColorStyle < 2);
            kept += !chosen && style == Record().ColorStyle;
        }
        SetFocus(Item(IDC_COLOR_RESET));  // ends what is being typed
        EXPECT_EQ(Fields(), Adjustments());
        DevModeRecord merged;
        BuildDefaultDevMode(&merged, nullptr, nullptr);
        ASSERT_EQ(MergeDevMode(&merged, &context_.WorkingDevMode.Public, nullptr), 1);
        EXPECT_EQ(std::memcmp(&merged.Private, &Record(), sizeof(merged.Private)), 0);
        EXPECT_EQ(merged.Public.dmICMMethod, Paper().dmICMMethod);
        // Opened again it shows the same, but for how a number is written.
        const auto shown = [&] {
            return Preference() + Looks(IDC_AUTO_ENHANCE) + Looks(IDC_EDGES_ONLY) +
                   Looks(IDC_BITBLT_INVERT) + Fields() + Sliders();
        };
        const std::string before = shown();
        DevModeRecord left = context_.WorkingDevMode;
        Open();
        EXPECT_EQ(shown(), before);
        left.Private.SkinSliderV = Record().SkinSliderV;  // by opening alone
        EXPECT_EQ(std::memcmp(&left, &context_.WorkingDevMode, sizeof(left)), 0);
    }
    EXPECT_GT(kept, Rounds(8));
}

}  // namespace
}  // namespace test
