// The Heating Energy page by itself, over a parent that stands for the sheet.
#include "lone_page.h"
#include "pixel_canvas.h"
#include "resources/resource.h"
#include "tools/kpdtool/language/cut_text.h"
#include "ui/common/language.h"
#include "ui/pages/heat_energy/heating_energy_page.h"

#include <commctrl.h>

#include <cstring>
#include <functional>
#include <set>

namespace test {
namespace {

// What each slider shows and stores: one of a table's entries, the front's or the back's of the
// card's thickness.
constexpr struct HeatSlider {
    int id;
    int tab;  // 3 is none
    size_t table;
    size_t firstEntry;
} kSliders[] = {
    {IDC_DENSITY_FRONT_YMC, 0, 0, 0},        {IDC_DENSITY_BACK_YMC, 0, 0, 4},
    {IDC_DENSITY_FRONT_K, 0, 1, 0},          {IDC_DENSITY_BACK_K, 0, 1, 4},
    {IDC_DENSITY_FRONT_O, 0, 2, 0},          {IDC_DENSITY_BACK_O, 0, 2, 4},
    {IDC_SENSITIVITY_FRONT_YMC, 0, 5, 0},    {IDC_SENSITIVITY_BACK_YMC, 0, 5, 4},
    {IDC_SENSITIVITY_FRONT_K, 0, 6, 0},      {IDC_SENSITIVITY_BACK_K, 0, 6, 4},
    {IDC_SENSITIVITY_FRONT_O, 0, 7, 0},      {IDC_SENSITIVITY_BACK_O, 0, 7, 4},
    {IDC_DENSITY_FRONT_RESIN, 1, 3, 0},      {IDC_DENSITY_BACK_RESIN, 1, 3, 4},
    {IDC_SENSITIVITY_FRONT_RESIN, 1, 8, 0},  {IDC_SENSITIVITY_BACK_RESIN, 1, 8, 4},
    {IDC_DENSITY_FRONT_F, 2, 10, 0},         {IDC_DENSITY_BACK_F, 2, 10, 4},
    {IDC_SENSITIVITY_FRONT_F, 2, 11, 0},     {IDC_SENSITIVITY_BACK_F, 2, 11, 4},
    {IDC_DENSITY_FRONT_SPARE, 3, 12, 0},     {IDC_DENSITY_BACK_SPARE, 3, 12, 4},
    {IDC_SENSITIVITY_FRONT_SPARE, 3, 13, 0}, {IDC_SENSITIVITY_BACK_SPARE, 3, 13, 4},
};
constexpr size_t kTables = 15;

signed char& Entry(DevModeRecord& record, size_t table, size_t entry) {
    DevModePrivate& part = record.Private;
    return table < 10 ? part.EnergyTables[table][entry] : part.EnergyTables10[table - 10][entry];
}

class HeatingEnergyTest : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        // A value of its own in every entry.
        for (size_t table = 0; table < kTables; ++table) {
            for (size_t entry = 0; entry < kEnergyTableSize; ++entry) {
                Stored(table, entry) = static_cast<signed char>(table * 8 + entry) - 60;
            }
        }
    }

    signed char& Stored(size_t table, size_t entry) {
        return Entry(context_.WorkingDevMode, table, entry);
    }
    void Open() { OpenPage(IDD_HEATING_ENERGY, PageProc<kHeatingEnergyPage>); }
    void OpenOn(BYTE thickness) {
        Record().CardThickness = thickness;
        Open();
    }

    /// The value text that stands beside the slider.
    HWND TextBeside(int slider) const { return GetWindow(Item(slider), GW_HWNDNEXT); }
    /// Where the slider is and what stands beside it, hidden or not: "5" when they agree.
    std::string Value(int slider) const {
        const std::string at = std::to_string(SendMessageW(Item(slider), TBM_GETPOS, 0, 0));
        const std::string text = TextOf(TextBeside(slider));
        return at == text ? at : at + " but " + text;
    }
    std::string Values() const {
        std::string values;
        for (const HeatSlider& slider : kSliders) {
            values += Value(slider.id) + " ";
        }
        return values;
    }
    void ExpectValues(const std::function<int(const HeatSlider&)>& expected) const {
        for (const HeatSlider& slider : kSliders) {
            EXPECT_EQ(Value(slider.id), std::to_string(expected(slider))) << slider.id;
        }
    }

    void ChooseTab(int tab) {
        HWND tabs = Item(IDC_HEATING_TAB);
        RECT place = {};
        SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab),
                     reinterpret_cast<LPARAM>(&place));
        const LPARAM at =
            MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(tabs, WM_LBUTTONUP, 0, at);
        EXPECT_EQ(SendMessageW(tabs, TCM_GETCURSEL, 0, 0), tab);
    }
    /// As a drag leaves the slider.
    void Slide(int slider, int value) {
        SendMessageW(Item(slider), TBM_SETPOS, TRUE, value);
        Tell(Item(slider), TB_THUMBPOSITION);
    }
    void Tell(HWND bar, WORD code) const {
        SendMessageW(page_, WM_HSCROLL, MAKEWPARAM(code, 0), reinterpret_cast<LPARAM>(bar));
    }
};

// ---- Loading and storing ------------------------------------------------------------------------

constexpr struct {
    BYTE stored;
    size_t counts;  // as this one
} kThicknesses[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 0}, {255, 0}};

TEST_F(HeatingEnergyTest, ShowsAndStoresTheEntriesOfTheThickness) {
    for (const auto& thickness : kThicknesses) {
        OpenOn(thickness.stored);
        ExpectValues([&](const HeatSlider& slider) {
            return Stored(slider.table, slider.firstEntry + thickness.counts);
        });
        EXPECT_EQ(TakeChanges(), 0);
        const DevModeRecord before = context_.WorkingDevMode;
        Apply();
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << "untouched";
        DevModeRecord after = before;
        for (const HeatSlider& slider : kSliders) {
            const int value = slider.id % 2 == 0 ? 100 - slider.id % 97 : slider.id % 89 - 100;
            Slide(slider.id, value);
            Entry(after, slider.table, slider.firstEntry + thickness.counts) =
                static_cast<signed char>(value);
        }
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << "until it is applied";
        Apply();
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, after)) << int{thickness.stored};
        TakeChanges();
    }
}

TEST_F(HeatingEnergyTest, EndsOfTheRange) {
    const struct {
        signed char stored;
        const char* shown;
        signed char after;
    } cases[] = {{-128, "-127", -127}, {-127, "-127", -127}, {127, "127", 127},
                 {-5, "-5", -5},       {-1, "-1", -1},       {0, "0", 0}};
    for (const auto& c : cases) {
        Stored(0, 2) = Stored(13, 6) = c.stored;
        OpenOn(2);
        EXPECT_EQ(Value(IDC_DENSITY_FRONT_YMC), c.shown);
        EXPECT_EQ(Value(IDC_SENSITIVITY_BACK_SPARE), c.shown);
        EXPECT_EQ(Stored(0, 2), c.stored);
        Apply();
        EXPECT_EQ(Stored(0, 2), c.after);
        EXPECT_EQ(Stored(13, 6), c.after);
    }
}

TEST_F(HeatingEnergyTest, AThicknessThatChangesMeanwhileGetsTheValuesShown) {
    for (const auto& [before, after, counts] :
         {std::tuple{BYTE{2}, BYTE{1}, 1}, {1, 3, 3}, {0, 200, 0}}) {
        OpenOn(before);
        const std::string shown = Values();
        DevModeRecord expected = context_.WorkingDevMode;
        Record().CardThickness = expected.Private.CardThickness = after;
        for (const HeatSlider& slider : kSliders) {
            Entry(expected, slider.table, slider.firstEntry + static_cast<size_t>(counts)) =
                Stored(slider.table, slider.firstEntry + before);
        }
        ChooseTab(1);
        ChooseTab(0);
        EXPECT_EQ(Values(), shown);
        Apply();
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, expected)) << int{after};
    }
}

TEST_F(HeatingEnergyTest, DefaultIsZeroInEverySet) {
    for (const auto& thickness : kThicknesses) {
        OpenOn(thickness.stored);
        ChooseTab(2);
        const DevModeRecord before = context_.WorkingDevMode;
        TakeChanges();
        Click(IDC_HEATING_DEFAULT);
        EXPECT_EQ(TakeChanges(), 1);
        ExpectValues([](const HeatSlider&) { return 0; });
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, before));
        DevModeRecord after = before;
        for (const HeatSlider& slider : kSliders) {
            Entry(after, slider.table, slider.firstEntry + thickness.counts) = 0;
        }
        Apply();
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, after)) << int{thickness.stored};
    }
}

// ---- Tabs ---------------------------------------------------------------------------------------

TEST_F(HeatingEnergyTest, ATabShowsItsSlidersAndKeepsTheOthers) {
    constexpr int kLabels[] = {IDC_DENSITY_FRONT_YMC_LABEL,     IDC_DENSITY_FRONT_K_LABEL,
                               IDC_DENSITY_FRONT_O_LABEL,       IDC_DENSITY_BACK_YMC_LABEL,
                               IDC_DENSITY_BACK_K_LABEL,        IDC_DENSITY_BACK_O_LABEL,
                               IDC_SENSITIVITY_FRONT_YMC_LABEL, IDC_SENSITIVITY_FRONT_K_LABEL,
                               IDC_SENSITIVITY_FRONT_O_LABEL,   IDC_SENSITIVITY_BACK_YMC_LABEL,
                               IDC_SENSITIVITY_BACK_K_LABEL,    IDC_SENSITIVITY_BACK_O_LABEL};
    const auto check = [&](int tab) {
        SCOPED_TRACE(tab);
        std::set<int> hidden;
        if (tab != 0) {
            hidden.insert(std::begin(kLabels), std::end(kLabels));
        }
        for (const HeatSlider& slider : kSliders) {
            if (slider.tab != tab) {
                hidden.insert({slider.id, GetDlgCtrlID(TextBeside(slider.id))});
            }
        }
        for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            const int id = GetDlgCtrlID(control);
            EXPECT_EQ(IsShown(id), !hidden.contains(id)) << id;
        }
    };
    OpenOn(1);
    check(0);
    Slide(IDC_DENSITY_FRONT_K, 99);
    for (const int tab : {1, 2, 0, 2, 1}) {
        const std::string before = Values();
        TakeChanges();
        ChooseTab(tab);
        check(tab);
        EXPECT_EQ(Values(), before) << tab;
        EXPECT_EQ(TakeChanges(), 0);
    }
    EXPECT_EQ(Value(IDC_DENSITY_FRONT_K), "99");
    Press(Item(IDC_HEATING_TAB), VK_LEFT);
    check(0);
}

TEST_F(HeatingEnergyTest, WhatATabShowsLiesInTheTabControl) {
    Open();
    RECT inside;
    GetWindowRect(Item(IDC_HEATING_TAB), &inside);
    SendMessageW(Item(IDC_HEATING_TAB), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
    for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(control);
        RECT area;
        RECT common;
        GetWindowRect(control, &area);
        const bool isInside = IntersectRect(&common, &area, &inside) && EqualRect(&common, &area);
        EXPECT_EQ(isInside, id < IDC_HEATING_DEFAULT && id != IDC_HEATING_TAB) << id;
    }
}

// The sets of sliders lie upon each other, and all of them upon the tab control.
TEST_F(HeatingEnergyTest, AnotherTabPaintsThePageAsIfAnew) {
    constexpr int kWidth = 440;
    constexpr int kHeight = 380;
    const auto take = [&](PixelCanvas& picture) {
        HandlePosted();
        HDC screen = GetDC(page_);
        BitBlt(picture.context, 0, 0, kWidth, kHeight, screen, 0, 0, SRCCOPY);
        ReleaseDC(page_, screen);
    };
    Open();
    for (const int tab : {0, 1, 2, 0, 2, 1, 0}) {
        PixelCanvas changed(kWidth, kHeight);
        PixelCanvas anew(kWidth, kHeight);
        ChooseTab(tab);
        take(changed);
        InvalidateRect(page_, nullptr, TRUE);
        take(anew);
        EXPECT_EQ(std::memcmp(changed.memory, anew.memory, size_t{kWidth} * kHeight * 4), 0) << tab;
    }
}

TEST_F(HeatingEnergyTest, TabsAreTranslatedButForTheLetter) {
    WriteWideText(LanguageFilePath, TEXT("[HeatEnergy]\r\nYMCKO=Farbe\r\nResin K=Harz K\r\nF=G\r\n"
                                         "K:=Harz:\r\nHeating Energy for KP4xx=Heizung\r\n"));
    SetSection(kColorSection);
    Open();
    std::string texts;
    for (WPARAM tab = 0; tab < 4; ++tab) {
        WCHAR text[kTextLength] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = kTextLength;
        if (SendDlgItemMessageW(page_, IDC_HEATING_TAB, TCM_GETITEMW, tab,
                                reinterpret_cast<LPARAM>(&item)) != 0) {
            texts += Narrow(text) + "|";
        }
    }
    EXPECT_EQ(texts, "Farbe|Harz K|F|");
    EXPECT_EQ(TextOf(page_), "Heizung");
    EXPECT_EQ(TextOf(Item(IDC_SENSITIVITY_BACK_K_LABEL)), "Harz:");
}

// ---- Sliders ------------------------------------------------------------------------------------

TEST_F(HeatingEnergyTest, KeysStepASlider) {
    Stored(0, 0) = 0;
    OpenOn(0);
    const struct {
        int key;
        const char* value;
    } steps[] = {{VK_RIGHT, "1"},   {VK_NEXT, "11"},   {VK_NEXT, "21"},    {VK_PRIOR, "11"},
                 {VK_LEFT, "10"},   {VK_END, "127"},   {VK_RIGHT, "127"},  {VK_NEXT, "127"},
                 {VK_PRIOR, "117"}, {VK_HOME, "-127"}, {VK_PRIOR, "-127"}, {VK_LEFT, "-127"},
                 {VK_NEXT, "-117"}};
    const std::string others = Values().substr(2);
    for (const auto& step : steps) {
        Press(Item(IDC_DENSITY_FRONT_YMC), step.key);
        EXPECT_EQ(Value(IDC_DENSITY_FRONT_YMC), step.value);
    }
    EXPECT_EQ(Values(), "-117 " + others);
}

TEST_F(HeatingEnergyTest, EveryScrollShowsTheValueAndTellsTheSheet) {
    Open();
    TakeChanges();
    for (const HeatSlider& slider : kSliders) {
        for (const WORD code : {TB_LINEUP, TB_LINEDOWN, TB_PAGEUP, TB_PAGEDOWN, TB_THUMBPOSITION,
                                TB_THUMBTRACK, TB_TOP, TB_BOTTOM, TB_ENDTRACK}) {
            const int value = -20 - code;
            SendMessageW(Item(slider.id), TBM_SETPOS, TRUE, value);
            EXPECT_NE(Value(slider.id), std::to_string(value));
            Tell(Item(slider.id), code);
            EXPECT_EQ(Value(slider.id), std::to_string(value)) << code;
            EXPECT_EQ(TakeChanges(), 1) << code;
        }
    }
    const std::string before = Values();
    for (HWND other :
         {HWND{nullptr}, page_, Item(IDC_HEATING_TAB), Item(IDC_DENSITY_FRONT_K_LABEL)}) {
        Tell(other, TB_THUMBPOSITION);
    }
    Apply();
    EXPECT_EQ(Values(), before);
    EXPECT_EQ(TakeChanges(), 0) << "nothing has changed";
}

TEST_F(HeatingEnergyTest, TheLongestValueHasRoom) {
    for (const HeatSlider& slider : kSliders) {
        Stored(slider.table, slider.firstEntry) = -127;
    }
    OpenOn(0);
    for (const HeatSlider& slider : kSliders) {
        EXPECT_EQ(kpdtool::CutTextOf(TextBeside(slider.id)), kpdtool::CutText()) << slider.id;
    }
}

TEST_F(HeatingEnergyTest, TipsSayWhatASliderAdjusts) {
    const std::pair<int, const char*> cases[] = {
        {IDC_DENSITY_BACK_RESIN, "How dark "},
        {IDC_SENSITIVITY_FRONT_YMC, "How strongly "},
        {IDC_HEATING_DEFAULT, "Sets the values of every tab to 0."}};
    Open();
    HWND tooltip = FindWindowExW(nullptr, nullptr, TOOLTIPS_CLASSW, nullptr);
    ASSERT_NE(tooltip, nullptr);
    for (const auto& [control, begins] : cases) {
        WCHAR text[kTextLength] = {};
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = page_;
        tool.uId = reinterpret_cast<UINT_PTR>(Item(control));
        tool.lpszText = text;
        SendMessageW(tooltip, TTM_GETTEXTW, kTextLength, reinterpret_cast<LPARAM>(&tool));
        EXPECT_TRUE(Narrow(text).starts_with(begins)) << Narrow(text);
    }
}

}  // namespace
}  // namespace test
