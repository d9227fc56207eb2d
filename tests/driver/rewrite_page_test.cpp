// The Rewrite page by itself: its energies, its choices, its designed area, its texts and pictures.
#include "ui/pages/print_area/rewrite_page.h"
#include "area_page.h"
#include "pixel_canvas.h"
#include "resources/resource.h"
#include "tools/kpdtool/language/cut_text.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/pictures.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>

namespace test {
namespace {

class RewritePageTest : public AreaPageTest {
  protected:
    void SetUp() override {
        AreaPageTest::SetUp();
        // A value of its own in every entry.
        for (int entry = 0; entry < 8; ++entry) {
            Record().EnergyTables10[4][entry] = static_cast<signed char>(100 + entry);
            Record().EraseEnergyTable[entry] = static_cast<signed char>(-100 - entry);
        }
    }

    void Open() { OpenPage(IDD_REWRITE, PageProc<kRewritePage>); }

    void UsePrinter(const WideString& name) {
        printer_ = name;
        context_.PrinterName = printer_.data();
        key_.emplace(printer_);
    }

    std::string Energies() const {
        return "write " + Looks(IDC_WRITE_ENERGY) + " " + Looks(IDC_WRITE_ENERGY_VALUE) +
               ", erase " + Looks(IDC_ERASE_ENERGY) + " " + Looks(IDC_ERASE_ENERGY_VALUE);
    }
    std::string Choices() const {
        return Looks(IDC_ERASE_BEFORE_WRITE) + Looks(IDC_QUICK_ERASE) + " " +
               Looks(IDC_ERASE_STRIPE) + Looks(IDC_ERASE_CARD);
    }
    void Slide(int slider, int value, WORD code = TB_THUMBPOSITION) {
        SendMessageW(Item(slider), TBM_SETPOS, TRUE, value);
        Tell(Item(slider), code);
    }
    void Tell(HWND bar, WORD code) const {
        SendMessageW(page_, WM_HSCROLL, MAKEWPARAM(code, 0), reinterpret_cast<LPARAM>(bar));
    }
};

// ---- Energies -----------------------------------------------------------------------------------

TEST_F(RewritePageTest, TheEnergiesAreThoseOfTheThickness) {
    constexpr struct {
        BYTE thickness;
        int entry;
    } kCases[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 0}, {255, 0}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(int{c.thickness});
        Record().CardThickness = c.thickness;
        const DevModeRecord before = context_.WorkingDevMode;
        Open();
        const std::string write = std::to_string(before.Private.EnergyTables10[4][c.entry]);
        const std::string erase = std::to_string(before.Private.EraseEnergyTable[c.entry]);
        EXPECT_EQ(Energies(), "write " + write + " " + write + ", erase " + erase + " " + erase);
        Apply();
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << "untouched";
        EXPECT_EQ(TakeChanges(), 0);
        Slide(IDC_WRITE_ENERGY, 10 + c.thickness % 7);
        Slide(IDC_ERASE_ENERGY, -5);
        EXPECT_EQ(TakeChanges(), 2);
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << "until it is applied";
        Apply();
        DevModeRecord after = before;
        after.Private.EnergyTables10[4][c.entry] = static_cast<signed char>(10 + c.thickness % 7);
        after.Private.EraseEnergyTable[c.entry] = -5;
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, after));
    }
}

TEST_F(RewritePageTest, TheEndsOfTheRange) {
    const struct {
        signed char stored;
        const char* shown;
        signed char after;
    } cases[] = {{-128, "write -127 -127, erase -127 -127", -127},
                 {-127, "write -127 -127, erase -127 -127", -127},
                 {127, "write 127 127, erase 127 127", 127},
                 {0, "write 0 0, erase 0 0", 0}};
    Record().CardThickness = kThickness10;
    for (const auto& c : cases) {
        Record().EnergyTables10[4][3] = Record().EraseEnergyTable[3] = c.stored;
        Open();
        EXPECT_EQ(Energies(), c.shown);
        EXPECT_EQ(kpdtool::CutTextOf(Item(IDC_ERASE_ENERGY_VALUE)), kpdtool::CutText());
        EXPECT_EQ(kpdtool::CutTextOf(Item(IDC_WRITE_ENERGY_VALUE)), kpdtool::CutText());
        Apply();
        EXPECT_EQ(Record().EnergyTables10[4][3], c.after);
        EXPECT_EQ(Record().EraseEnergyTable[3], c.after);
    }
    for (const int slider : {IDC_WRITE_ENERGY, IDC_ERASE_ENERGY}) {
        EXPECT_EQ(SendMessageW(Item(slider), TBM_GETRANGEMIN, 0, 0), -127);
        EXPECT_EQ(SendMessageW(Item(slider), TBM_GETRANGEMAX, 0, 0), 127);
    }
}

TEST_F(RewritePageTest, EveryScrollShowsTheValueAndTellsTheSheet) {
    Open();
    for (const int slider : {IDC_WRITE_ENERGY, IDC_ERASE_ENERGY}) {
        for (const WORD code : {TB_LINEUP, TB_LINEDOWN, TB_PAGEUP, TB_PAGEDOWN, TB_THUMBPOSITION,
                                TB_THUMBTRACK, TB_TOP, TB_BOTTOM, TB_ENDTRACK}) {
            const std::string value = std::to_string(-20 - code);
            Slide(slider, -20 - code, code);
            EXPECT_NE(Energies().find(value + " " + value), std::string::npos) << Energies();
            EXPECT_EQ(TakeChanges(), 1) << code;
        }
    }
    for (HWND other : {HWND{nullptr}, page_, Item(IDC_ERASE_NOW)}) {
        Tell(other, TB_THUMBPOSITION);
    }
    EXPECT_EQ(TakeChanges(), 0);
}

// ---- Choices ------------------------------------------------------------------------------------

TEST_F(RewritePageTest, ABoxIsItsBitAndLeavesTheOthers) {
    const struct {
        int box;
        WORD bit;
        const char* looks;
    } cases[] = {{IDC_ERASE_BEFORE_WRITE, 0x0008, "x. x."}, {IDC_QUICK_ERASE, 0x0010, ".x x."}};
    for (const auto& c : cases) {
        for (const WORD others : {WORD{0}, WORD{0xFFE7}}) {
            Record().CardHandlingFlags = others;
            Open();
            EXPECT_EQ(Choices(), ".. x.");
            for (const bool isSet : {true, false, true}) {
                Click(c.box);
                EXPECT_EQ(Record().CardHandlingFlags, others | (isSet ? c.bit : 0));
                EXPECT_EQ(Choices(), isSet ? c.looks : ".. x.");
                EXPECT_EQ(TakeChanges(), 1);
            }
            Open();
            EXPECT_EQ(Choices(), c.looks);
        }
    }
}

TEST_F(RewritePageTest, AnAreaThatIsNoneStaysUntilTheUserChooses) {
    constexpr struct {
        BYTE stored;
        const char* looks;
    } kCases[] = {{0, ".. x."}, {1, ".. .x"}, {2, ".. x."}, {255, ".. x."}};
    constexpr struct {
        int button;
        BYTE stored;
        const char* looks;
    } kChoices[] = {{IDC_ERASE_STRIPE, 0, ".. x."}, {IDC_ERASE_CARD, 1, ".. .x"}};
    for (const auto& c : kCases) {
        for (const auto& choice : kChoices) {
            Record().EraseAreaMode = c.stored;
            Open();
            EXPECT_EQ(Choices(), c.looks) << int{c.stored};
            Apply();
            EXPECT_EQ(Record().EraseAreaMode, c.stored);
            EXPECT_EQ(TakeChanges(), 0);
            Click(choice.button);
            EXPECT_EQ(Record().EraseAreaMode, choice.stored);
            EXPECT_EQ(Choices(), choice.looks);
            EXPECT_GE(TakeChanges(), 1);
        }
    }
}

// ---- The designed area --------------------------------------------------------------------------

constexpr const WCHAR* kStored = TEXT("EraseAreaFront");

TEST_F(RewritePageTest, TheAreasNameIsStoredWithItsOwnLength) {
    EXPECT_FALSE(key_->IsThere());
    Open();
    EXPECT_EQ(key_->Stored(kStored), "1:18:Standard+1z") << "the key was made";
    Connect("");
    Open();
    EXPECT_EQ(Looks(IDC_ERASE_AREA_LIST), "Standard of 3");
    TakeChanges();
    Choose(IDC_ERASE_AREA_LIST, 1);
    EXPECT_EQ(TakeChanges(), 1);
    EXPECT_EQ(key_->Stored(kStored), "1:18:Standard+1z") << "until it is applied";
    Apply();
    EXPECT_EQ(key_->Stored(kStored), "1:26:Photo Window+1z");
    ClosePage();
    Open();
    EXPECT_EQ(Looks(IDC_ERASE_AREA_LIST), "Photo Window of 3");
    UsePrinter(TEXT("Room without a key"));
    EXPECT_FALSE(key_->IsThere());
    Apply();
    EXPECT_EQ(key_->Stored(kStored), "1:26:Photo Window+1z");
    for (const WideString& name : {WideString(TEXT("not listed")), WideString(259, 'x')}) {
        key_->StoreText(kStored, name);
        Open();
        EXPECT_EQ(Looks(IDC_ERASE_AREA_LIST), "Standard of 3");
        Apply();
        EXPECT_EQ(key_->Stored(kStored),
                  "1:" + std::to_string(2 * name.size() + 2) + ":" + Narrow(name) + "+1z");
    }
    key_->Store(kStored, REG_SZ, std::string(522, 'x'));  // which is no name
    Open();
    EXPECT_EQ(key_->Stored(kStored), "1:18:Standard+1z");
    EXPECT_EQ(Looks(IDC_ERASE_AREA_LIST), "Standard of 3");
}

TEST_F(RewritePageTest, AreasAreListedAnewForTheFrontAlone) {
    Connect("");
    Record().CardType = kChipMagneticCard;
    Open();
    for (int i = 0; i < 3; ++i) {
        Notify(PSN_SETACTIVE);
    }
    ClosePage();
    const std::string calls = Noted("call");
    size_t lists = 0;
    size_t ends = 0;
    for (size_t at = 0; (at = calls.find("CreateEnumPrntAreaClass", at)) != calls.npos; ++at) {
        ++lists;
        EXPECT_EQ(calls.compare(at, 34, "CreateEnumPrntAreaClass surface 1 "), 0);
    }
    for (size_t at = 0; (at = calls.find("DelPrntAreaDlgOrEnumClass", at)) != calls.npos; ++at) {
        ++ends;
    }
    EXPECT_EQ(lists, 4u) << calls;
    EXPECT_EQ(ends, 4u) << calls;
}

TEST_F(RewritePageTest, TheDesignerChangesTheAreasName) {
    const struct {
        const char* state;
        const char* list;
        const char* stored;
    } cases[] = {
        {"dialog = accept 2\n", "Signature Panel of 3", "1:32:Signature Panel+1z"},
        {"dialog = cancel\n", "Standard of 3", "1:18:Standard+1z"},
        {"dialog = accept 1\nfault = no designer\n", "Standard of 3", "1:18:Standard+1z"},
    };
    for (const auto& c : cases) {
        UsePrinter(TEXT("Room ") + Wide(std::to_string(&c - cases)));
        Connect(c.state);
        Open();
        TakeChanges();
        Click(IDC_ERASE_AREA_EDIT);
        EXPECT_EQ(Looks(IDC_ERASE_AREA_LIST), c.list) << c.state;
        EXPECT_EQ(TakeChanges(), 0);
        Apply();
        EXPECT_EQ(key_->Stored(kStored), c.stored) << c.state;
        ClosePage();
        EXPECT_EQ(Noted("complaint"), "") << c.state;
    }
}

TEST_F(RewritePageTest, WithoutADesignerTheListIsEmpty) {
    key_->StoreText(kStored, TEXT("Mine"));
    Open();
    Click(IDC_ERASE_AREA_EDIT);
    Notify(PSN_SETACTIVE);
    EXPECT_EQ(Looks(IDC_ERASE_AREA_LIST), " of 0");
    Apply();
    EXPECT_EQ(key_->Stored(kStored), "1:10:Mine+1z");
}

TEST_F(RewritePageTest, ThePreviewShowsTheAreaWhateverIsPrinted) {
    Record().PrintSides = Record().ColorSides = Record().ResinOptions = 0;
    const auto middle = [&] {
        UpdateWindow(page_);
        const RECT place = ControlArea(page_, IDC_ERASE_AREA_PREVIEW);
        return POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    };
    const auto shown = [&] {
        const POINT at = middle();
        HDC screen = GetDC(page_);
        const COLORREF pixel = GetPixel(screen, at.x, at.y);
        ReleaseDC(page_, screen);
        return pixel;
    };
    const auto mark = [&] {
        const POINT at = middle();
        HDC screen = GetDC(page_);
        SetPixel(screen, at.x, at.y, RGB(1, 2, 3));
        ReleaseDC(page_, screen);
    };
    const COLORREF board[] = {RGB(255, 255, 255), RGB(128, 128, 128)};
    Open();
    EXPECT_NE(std::find(board, board + 2, shown()), board + 2);
    KeepAreas({"One", "Two"});
    Connect("standard = no\ndialog = accept 1\n");
    for (const SHORT orientation : {SHORT{DMORIENT_PORTRAIT}, SHORT{DMORIENT_LANDSCAPE}}) {
        Paper().dmOrientation = orientation;
        Open();
        const COLORREF area = shown();
        EXPECT_EQ(std::find(board, board + 2, area), board + 2);
        mark();
        EXPECT_EQ(shown(), COLORREF{RGB(1, 2, 3)});
        Choose(IDC_ERASE_AREA_LIST, 1);
        EXPECT_EQ(shown(), area) << "drawn anew";
        mark();
        Click(IDC_ERASE_AREA_EDIT);
        EXPECT_EQ(shown(), area) << "drawn anew";
    }
}

// ---- Texts and pictures -------------------------------------------------------------------------

TEST_F(RewritePageTest, TextsAreOfTwoSections) {
    WriteWideText(LanguageFilePath,
                  TEXT("[PrintingArea]\r\nEdit Area=Bearbeiten\r\nQuick erase=Rasch\r\n"
                       "The whole card=A stripe of the card\r\n")
                      TEXT("[Rewritable]\r\nErase Now=Weg\r\nQuick erase=Eilig\r\n"
                           "A stripe of the card=Streifen\r\nRasch=Schnell\r\n"
                           "Re-writable card=Karte\r\n") TEXT("[Rewrite]\r\nErase Now=Falsch\r\n"));
    Open();
    EXPECT_EQ(TextOf(page_), "Karte");
    EXPECT_EQ(TextOf(Item(IDC_ERASE_AREA_EDIT)), "Bearbeiten");
    EXPECT_EQ(TextOf(Item(IDC_ERASE_NOW)), "Weg");
    // The first section's translation is what the second is asked for.
    EXPECT_EQ(TextOf(Item(IDC_QUICK_ERASE)), "Schnell");
    EXPECT_EQ(TextOf(Item(IDC_ERASE_CARD)), "Streifen");
    EXPECT_EQ(TextOf(Item(IDC_ERASE_BEFORE_WRITE)), "Erase before write");
}

// Of the page's own painting, since a page by itself has a title that moves its end out of sight.
TEST_F(RewritePageTest, ThePicturesShowWhatIsErased) {
    constexpr std::pair<int, int> kPictures[] = {{IDC_ERASE_STRIPE_PICTURE, IDB_ERASE_STRIPE},
                                                 {IDC_ERASE_CARD_PICTURE, IDB_ERASE_CARD}};
    Open();
    PixelCanvas painted(700, 700);
    kRewritePage.Paint(page_, context_, painted.context, {0, 0, 700, 700});
    for (const auto& [control, number] : kPictures) {
        const RECT frame = ControlArea(page_, control);
        PixelCanvas expected(700, 700);
        PictureSet loaded;
        DrawBitmap(loaded, expected.context, frame.left, frame.top, number, &frame);
        int different = 0;
        int orange = 0;
        for (int y = frame.top; y < frame.bottom; ++y) {
            for (int x = frame.left; x < frame.right; ++x) {
                different += painted.At(x, y) != expected.At(x, y);
                orange += painted.At(x, y) == 0xE5803A;
            }
        }
        const int size = static_cast<int>((frame.right - frame.left) * (frame.bottom - frame.top));
        EXPECT_EQ(different, 0) << control;
        EXPECT_GT(orange, size / (number == IDB_ERASE_CARD ? 2 : 8)) << control;
    }
}

}  // namespace
}  // namespace test
