// The dialogs at the keyboard: Tab and the arrows lead to everything that can be operated and to
// nothing else.
#include "color_page.h"
#include "options_page.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "tools/kpdtool/sheet/resource_names.h"
#include "tools_page.h"
#include "ui/pages/color/color_page.h"

#include <algorithm>
#include <set>

namespace test {
namespace {

std::string NameOf(HWND control) {
    return kpdtool::ControlName(GetDlgCtrlID(control));
}

bool IsOfClass(HWND control, const WCHAR* wanted) {
    WCHAR name[32] = {};
    GetClassNameW(control, name, 32);
    return WideString(name) == wanted;
}

// The arrows beside a field are not: the field's own keys step it as they do.
bool IsOperated(HWND control) {
    if (IsOfClass(control, TEXT("Static"))) {
        return false;
    }
    if (IsOfClass(control, TEXT("Button"))) {
        return (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX;
    }
    return !IsOfClass(control, TEXT("ScrollBar")) ||
           !IsOfClass(GetWindow(control, GW_HWNDPREV), TEXT("Edit"));
}

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        controls.push_back(control);
    }
    return controls;
}

// The control that has the focus or whose part has it; the dialog where none has.
HWND Focused(HWND dialog) {
    HWND focus = GetFocus();
    while (IsChild(dialog, focus) && GetParent(focus) != dialog) {
        focus = GetParent(focus);
    }
    return IsChild(dialog, focus) ? focus : dialog;
}

// Who moves the focus: of a page it is the sheet.
HWND Manager(HWND dialog) {
    const bool isPage = (GetWindowLongW(dialog, GWL_STYLE) & WS_CHILD) != 0 &&
                        (GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0;
    return isPage ? GetParent(dialog) : dialog;
}

// As a message loop does it.
void PressIn(HWND dialog, WPARAM key) {
    MSG pressed = {GetFocus(), WM_KEYDOWN, key, 1, 0, {0, 0}};
    EXPECT_TRUE(IsDialogMessageW(Manager(dialog), &pressed));
    HandlePosted();
}

// What the key leads to from that control on, itself the first, until it leads nowhere new or out.
std::vector<HWND> Round(HWND dialog, HWND from, WPARAM key) {
    std::vector<HWND> reached;
    SetFocus(from);
    for (HWND focus = from; focus != dialog && std::ranges::find(reached, focus) == reached.end();
         focus = Focused(dialog)) {
        reached.push_back(focus);
        PressIn(dialog, key);
    }
    return reached;
}

std::vector<HWND> Stops(HWND dialog) {
    HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    return IsChild(dialog, first) ? Round(dialog, first, VK_TAB) : std::vector<HWND>{};
}

bool HasArrows(HWND control) {
    return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS) == 0;
}

std::vector<HWND> Group(HWND dialog, HWND stop, WPARAM key) {
    return HasArrows(stop) ? Round(dialog, stop, key) : std::vector{stop};
}

std::string Names(const std::vector<HWND>& controls) {
    std::string names;
    for (HWND control : controls) {
        names += (names.empty() ? "" : " ") + NameOf(control);
    }
    return names;
}

void CheckReached(HWND dialog, const std::string& where) {
    std::set<std::string> operated;
    for (HWND control : ControlsOf(dialog)) {
        if (IsOperated(control) && IsWindowVisible(control) && IsWindowEnabled(control)) {
            operated.insert(NameOf(control));
        }
    }
    std::set<std::string> reached;
    const std::vector<HWND> stops = Stops(dialog);
    for (HWND stop : stops) {
        reached.insert(NameOf(stop));
        for (WPARAM key : {VK_DOWN, VK_UP}) {
            for (HWND next : Group(dialog, stop, key)) {
                reached.insert(NameOf(next));
            }
        }
    }
    EXPECT_EQ(reached, operated) << where;
    for (size_t i = 1; i < stops.size(); ++i) {
        HWND back = GetNextDlgTabItem(Manager(dialog), stops[i], TRUE);
        EXPECT_EQ(NameOf(back), NameOf(stops[i - 1])) << where << ": backwards";
    }
}

// ---- Templates ----------------------------------------------------------------------------------

using TemplateKeysTest = WindowTest;

INT_PTR CALLBACK DoNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

TEST_F(TemplateKeysTest, EveryControlOfEveryDialogIsReached) {
    size_t controls = 0;
    for (const kpdtool::ResourceName& row : kpdtool::ResourceNames()) {
        if (!row.name.starts_with("IDD_")) {
            continue;
        }
        const std::string name(row.name);
        HWND dialog = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(row.number),
                                         parent_, DoNothing, 0);
        ASSERT_NE(dialog, nullptr) << name;
        EnableWindow(dialog, TRUE);
        ShowWindow(dialog, SW_SHOW);
        CheckReached(dialog, name + " as it is");
        for (HWND control : ControlsOf(dialog)) {
            ShowWindow(control, SW_SHOW);
            EnableWindow(control, TRUE);
            ++controls;
        }
        CheckReached(dialog, name + ", all shown");
        DestroyWindow(dialog);
        HandlePosted();
    }
    EXPECT_GT(controls, 40u);
}

// ---- Pages --------------------------------------------------------------------------------------

using PageKeysTest = SheetTest;

TEST_F(PageKeysTest, EveryControlOfEveryPageIsReached) {
    for (const WCHAR* model : {TEXT("Mirv KP-41"), TEXT("Mirv KP-43")}) {
        RunSheet(model, {[&] {
                     for (size_t i = 0; i < Tabs().size(); ++i) {
                         CheckReached(ShowPage(static_cast<int>(i)),
                                      Narrow(model) + ", " + Tabs()[i]);
                     }
                 }},
                 PSBTN_CANCEL);
    }
}

using DeviceOptionsKeysTest = OptionsPageTest;

TEST_F(DeviceOptionsKeysTest, StopsComeInReadingOrder) {
    Record().PrintSides = kFrontSide | kBackSide;
    Record().TransparentCard = 1;
    Open();
    EXPECT_EQ(Names(Stops(page_)),
              "IDC_RIBBON IDC_CARD_TYPE "
              "IDC_THICKNESS IDC_K_ONLY_ON_BACK IDC_TRANSPARENT_CARD "
              "IDC_LANDSCAPE IDC_ORIENTATION_LOCK IDC_COPIES "
              "IDC_FRONT_IMAGE IDC_FRONT_ROTATE IDC_FRONT_FLIP "
              "IDC_FRONT_COLOR IDC_FRONT_RESIN IDC_NO_WHITE_SKIP "
              "IDC_BACK_IMAGE IDC_BACK_ROTATE IDC_BACK_FLIP "
              "IDC_BACK_COLOR IDC_BACK_RESIN");
    const std::pair<int, const char*> groups[] = {
        {IDC_LANDSCAPE, "IDC_LANDSCAPE IDC_PORTRAIT"},
        {IDC_K_ONLY_ON_BACK, "IDC_K_ONLY_ON_BACK IDC_TRANSPARENT_CARD"},
        {IDC_ORIENTATION_LOCK, "IDC_ORIENTATION_LOCK"},
        {IDC_FRONT_IMAGE, "IDC_FRONT_IMAGE IDC_FRONT_ROTATE IDC_FRONT_FLIP"},
        {IDC_FRONT_COLOR, "IDC_FRONT_COLOR"},
        {IDC_NO_WHITE_SKIP, "IDC_NO_WHITE_SKIP"},
        {IDC_BACK_IMAGE, "IDC_BACK_IMAGE IDC_BACK_ROTATE IDC_BACK_FLIP"},
        {IDC_BACK_COLOR, "IDC_BACK_COLOR"},
    };
    for (const auto& [stop, group] : groups) {
        EXPECT_EQ(Names(Group(page_, GetDlgItem(page_, stop), VK_DOWN)), group);
    }
    SetModel({.duplex = 0, .kp41 = 0, .kp43 = 1});
    Record().RibbonType = kRibbonK;
    Open();
    EXPECT_EQ(Names(Stops(page_)),
              "IDC_THICKNESS IDC_LANDSCAPE IDC_ORIENTATION_LOCK IDC_COPIES IDC_FRONT_IMAGE "
              "IDC_FRONT_ROTATE IDC_FRONT_RESIN IDC_NO_WHITE_SKIP");
}

// The checked one is the stop of its group, and the arrow that leads to another one chooses it.
TEST_F(DeviceOptionsKeysTest, ArrowsChooseTheOrientation) {
    for (const auto& [before, stop, key, after] :
         {std::tuple{DMORIENT_LANDSCAPE, IDC_LANDSCAPE, VK_DOWN, DMORIENT_PORTRAIT},
          std::tuple{DMORIENT_PORTRAIT, IDC_PORTRAIT, VK_LEFT, DMORIENT_LANDSCAPE}}) {
        Paper().dmOrientation = static_cast<SHORT>(before);
        Open();
        SetFocus(GetDlgItem(page_, IDC_TRANSPARENT_CARD));
        PressIn(page_, VK_TAB);
        EXPECT_EQ(NameOf(GetFocus()), kpdtool::ControlName(stop));
        EXPECT_EQ(Paper().dmOrientation, before) << "only the focus was moved";
        PressIn(page_, static_cast<WPARAM>(key));
        EXPECT_EQ(Paper().dmOrientation, after);
    }
}

using ToolsKeysTest = ToolsPageTest;

TEST_F(ToolsKeysTest, StopsComeInReadingOrder) {
    const std::string kButtons =
        "IDC_CLEANING_TOOL IDC_MAINTENANCE_INFO IDC_ADVANCE_TOOL IDC_RIBBON_STATUS "
        "IDC_CLEAN_MAGNETIC_HEAD IDC_CORRECT_RIBBON_SENSOR IDC_FEED_CHIP_CARD "
        "IDC_TEST_MAGNETIC_READING";
    Open();
    EXPECT_EQ(Names(Stops(page_)), kButtons);
    Answer(MakeTable());
    Enter(IDC_POSITION_A, "5");
    EXPECT_EQ(Names(Stops(page_)),
              "IDC_POSITION_A IDC_POSITION_B IDC_POSITION_C IDC_POSITION_SAVE "
              "IDC_POSITION_DEFAULT IDC_POSITION_PRINT " +
                  kButtons);
    EXPECT_EQ(Names(Group(page_, GetDlgItem(page_, IDC_POSITION_SAVE), VK_DOWN)),
              "IDC_POSITION_SAVE IDC_POSITION_DEFAULT IDC_POSITION_PRINT");
    context_.IsKP43Family = 1;
    Open();
    EXPECT_EQ(Names(Stops(page_)), "IDC_CLEANING_TOOL IDC_MAINTENANCE_INFO IDC_ADVANCE_TOOL");
}

class ColorKeysTest : public ColorPageTest {
  protected:
    void OpenWithStyle(BYTE style) {
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        Record().ColorStyle = style;
        Record().Contrast = 7;
        Open();
        SetFocus(Item(IDC_COLOR_RESET));
    }
};

TEST_F(ColorKeysTest, StopsComeInReadingOrder) {
    for (const BYTE style : {BYTE{1}, BYTE{3}}) {
        OpenWithStyle(style);
        EXPECT_EQ(Names(Stops(page_)),
                  "IDC_BASIC_COLOR IDC_AUTO_ENHANCE IDC_BITBLT_INVERT IDC_COLOR_CHART "
                  "IDC_BRIGHTNESS_SLIDER IDC_BRIGHTNESS IDC_CONTRAST_SLIDER IDC_CONTRAST "
                  "IDC_SHARPNESS_SLIDER IDC_SHARPNESS IDC_EDGES_ONLY "
                  "IDC_SATURATION_SLIDER IDC_SATURATION "
                  "IDC_CYAN_SLIDER IDC_CYAN IDC_MAGENTA_SLIDER IDC_MAGENTA "
                  "IDC_YELLOW_SLIDER IDC_YELLOW IDC_GAMMA_SLIDER IDC_GAMMA IDC_COLOR_RESET");
        EXPECT_EQ(Record().ColorStyle, style);
        EXPECT_EQ(Record().Contrast, 7);
    }
}

// With none checked the focus alone chooses none, wherever it comes from.
TEST_F(ColorKeysTest, OnlyAUserChoosesAPreference) {
    OpenWithStyle(3);
    const std::string before = Settings() + LooksOfAll();
    TakeChanges();
    PressIn(page_, VK_TAB);
    EXPECT_EQ(NameOf(GetFocus()), "IDC_BASIC_COLOR");
    for (int button : {IDC_NO_COLOR_PREFERENCE, IDC_CLASSIC_COLOR, IDC_WINDOWS_COLOR}) {
        SetFocus(Item(button));
        HandlePosted();
    }
    SetFocus(parent_);
    FillPage(kColorPage, context_);
    SetFocus(Item(IDC_CLASSIC_COLOR));
    EXPECT_EQ(Settings() + LooksOfAll(), before);
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(ColorKeysTest, KeysChooseAPreference) {
    const struct {
        const char* name;
        BYTE style;
        std::vector<WPARAM> keys;
        const char* chosen;
    } cases[] = {
        {"the space bar", 3, {VK_TAB, VK_SPACE}, "x..."},
        {"an arrow to the next", 3, {VK_TAB, VK_DOWN}, ".x.."},
        {"an arrow to the last", 3, {VK_TAB, VK_UP}, "...x"},
        {"arrows", 1, {VK_TAB, VK_DOWN, VK_DOWN}, "..x."},
        {"and back", 1, {VK_TAB, VK_DOWN, VK_UP}, "x..."},
        {"a letter", 3, {'c'}, ".x.."},
        {"another", 0, {'b'}, "x..."},
    };
    for (const auto& c : cases) {
        OpenWithStyle(c.style);
        for (const WPARAM key : c.keys) {
            if (key == VK_SPACE) {
                Press(GetFocus(), VK_SPACE);
            } else if (key > VK_SPACE + 32) {
                MSG letter = {GetFocus(), WM_CHAR, key, 1, 0, {0, 0}};
                IsDialogMessageW(page_, &letter);
            } else {
                PressIn(page_, key);
            }
        }
        EXPECT_EQ(Preference(), c.chosen) << c.name;
        EXPECT_EQ(Record().Contrast, 0) << c.name;
        // A button that keys have led to is as quiet as before.
        SetFocus(Item(IDC_COLOR_RESET));
        const std::string settings = Settings();
        for (int button = IDC_BASIC_COLOR; button <= IDC_NO_COLOR_PREFERENCE; ++button) {
            SetFocus(Item(button));
        }
        EXPECT_EQ(Settings(), settings) << c.name;
    }
}

}  // namespace
}  // namespace test
