// The Printing Area page by itself, over a parent that stands for the sheet.
#include "area_page.h"
#include "pixel_canvas.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/pages/print_area/area_preview.h"
#include "ui/pages/print_area/printing_area_page.h"

#include <commctrl.h>
#include <functional>

namespace test {
namespace {

const WCHAR* const kValues[] = {
    TEXT("OvercoatFrontPrintArea"),   TEXT("OvercoatBackPrintArea"),
    TEXT("ResinFrontPrintArea"),      TEXT("ResinBackPrintArea"),
    TEXT("LaminationFrontPrintArea"), TEXT("LaminationBackPrintArea"),
};
const std::string kStandard = "1:520:Standard+252z";

class PrintingAreaTest : public AreaPageTest {
  protected:
    void SetUp() override {
        AreaPageTest::SetUp();
        context_.IsDuplexModel = 1;
    }

    void Open() { OpenPage(IDD_PRINTING_AREA, PageProc<kPrintingAreaPage>); }
    void ShowTab(int tab) {
        SendDlgItemMessageW(page_, IDC_AREA_TAB, TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
        Notify(TCN_SELCHANGE, IDC_AREA_TAB);
    }
    std::string Front() const { return Looks(IDC_AREA_FRONT_LIST); }
    std::string Back() const { return Looks(IDC_AREA_BACK_LIST); }

    // What is stored of the six names.
    std::string Stored() const {
        std::string stored;
        for (const WCHAR* value : kValues) {
            stored += key_->Stored(value) + "\n";
        }
        return stored;
    }
};

// ---- Names --------------------------------------------------------------------------------------

TEST_F(PrintingAreaTest, NamesBeginAsStandard) {
    Open();
    EXPECT_TRUE(key_->IsThere());
    EXPECT_EQ(key_->Stored(kValues[0]), "none") << "the key was missing";
    Apply();
    std::string all;
    for (int i = 0; i < 6; ++i) {
        all += kStandard + "\n";
    }
    EXPECT_EQ(Stored(), all);
}

TEST_F(PrintingAreaTest, NamesThatCannotBeReadAreStoredAsStandard) {
    const auto wide = [](const WideString& text) {
        return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR));
    };
    key_->StoreText(kValues[0], TEXT("Mine"));
    key_->Store(kValues[1], REG_BINARY, wide(WideString(TEXT("Of bytes\0behind"), 15)));
    key_->Store(kValues[2], REG_SZ, wide(WideString(260, 'x')));  // without an end
    key_->Store(kValues[3], REG_SZ, wide(WideString(261, 'x')));
    key_->Store(kValues[4], REG_SZ, "");
    Open();
    EXPECT_EQ(key_->Stored(kValues[3]), kStandard);
    EXPECT_EQ(key_->Stored(kValues[5]), kStandard);
    EXPECT_EQ(key_->Stored(kValues[4]), "1:0:");
    Apply();
    EXPECT_EQ(Stored(), "1:520:Mine+256z\n1:520:Of bytes+252z\n1:520:" + std::string(259, 'x') +
                            "+1z\n" + kStandard + "\n1:520:+260z\n" + kStandard + "\n");
}

TEST_F(PrintingAreaTest, APrinterNameMayBeLong) {
    printer_ = WideString(220, 'n') + TEXT(" of room 7");
    key_.emplace(printer_);
    context_.PrinterName = printer_.data();
    key_->StoreText(kValues[0], TEXT("Mine"));
    Open();
    Apply();
    EXPECT_EQ(key_->Stored(kValues[0]), "1:520:Mine+256z");
}

// ---- Lists --------------------------------------------------------------------------------------

TEST_F(PrintingAreaTest, ListsChooseByName) {
    Connect("");
    KeepAreas({"First", "Twice", "tWICE"});
    const struct {
        const WCHAR* name;
        const char* chosen;
    } cases[] = {
        {TEXT("first"), "First of 3"},
        {TEXT("TWICE"), "tWICE of 3"},  // the later one
        {TEXT("None"), "First of 3"},
        {TEXT(""), "First of 3"},
    };
    for (const auto& c : cases) {
        Connect("standard = no\n");
        key_->StoreText(kValues[0], c.name);
        Open();
        EXPECT_EQ(Front(), c.chosen) << Narrow(c.name);
        EXPECT_EQ(SendDlgItemMessageW(page_, IDC_AREA_FRONT_LIST, CB_GETITEMDATA, 2, 0), 2);
        Apply();
        EXPECT_EQ(key_->Stored(kValues[0]).substr(0, 6 + WideString(c.name).size()),
                  "1:520:" + Narrow(c.name))
            << "a name that is not listed stays";
        ClosePage();
        EXPECT_EQ(Noted("complaint"), "");
    }
}

TEST_F(PrintingAreaTest, TabsHaveNamesOfTheirOwn) {
    Connect("");
    Record().PrintSides = kFrontSide | kBackSide;
    Record().ColorSides = kFrontSide | kBackSide;
    Record().ResinOptions = 0xFF;
    key_->StoreText(kValues[2], TEXT("photo window"));
    key_->StoreText(kValues[1], TEXT("Signature Panel"));
    Open();
    EXPECT_EQ(Front() + ", " + Back(), "Standard of 3, Signature Panel of 3");
    ShowTab(1);
    EXPECT_EQ(Front() + ", " + Back(), "Photo Window of 3, Standard of 3");
    EXPECT_EQ(TakeChanges(), 0);
    Choose(IDC_AREA_BACK_LIST, 2);
    EXPECT_EQ(TakeChanges(), 1);
    ShowTab(0);
    EXPECT_EQ(Front() + ", " + Back(), "Standard of 3, Signature Panel of 3");
    Choose(IDC_AREA_FRONT_LIST, 1);
    ShowTab(1);
    EXPECT_EQ(Front() + ", " + Back(), "Photo Window of 3, Signature Panel of 3");
    EXPECT_EQ(key_->Stored(kValues[0]), kStandard) << "nothing is stored before the sheet applies";
    Apply();
    EXPECT_EQ(Stored(), "1:520:Photo Window+248z\n1:520:Signature Panel+245z\n" +
                            ("1:520:photo window+248z\n1:520:Signature Panel+245z\n" + kStandard) +
                            "\n" + kStandard + "\n");
}

TEST_F(PrintingAreaTest, AnEmptyListAsksForTheFirstArea) {
    Connect("standard = no\n");
    Open();
    EXPECT_EQ(Front(), " of 0");
    EXPECT_NE(Noted("call").find("GetPrintAreaData enumeration 1 index 0 gives none\n"),
              std::string::npos);
    Choose(IDC_AREA_FRONT_LIST, -1);
    Apply();
    EXPECT_EQ(key_->Stored(kValues[0]), kStandard);
}

TEST_F(PrintingAreaTest, ASideThatCannotBeListedIsEmpty) {
    const struct {
        const char* fault;
        const char* lists;
    } cases[] = {
        {"no front enumeration", " of 0, Standard of 3"},
        {"no back enumeration", "Standard of 3,  of 0"},
        {"no enumeration", " of 0,  of 0"},
        {"no entry point", " of 0,  of 0"},
    };
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    for (const auto& c : cases) {
        Connect(std::string("dialog = cancel\nfault = ") + c.fault + "\n");
        Open();
        EXPECT_EQ(Front() + ", " + Back(), c.lists) << c.fault;
        Click(IDC_AREA_BACK_EDIT);
        ClosePage();
        EXPECT_EQ(Noted("complaint"), "") << c.fault;
    }
    Connect("");
    applicationData_->Store(WideString(260, 'x'));  // longer than a path may be
    Open();
    EXPECT_EQ(Front() + ", " + Back(), " of 0,  of 0") << "without a folder";
    Click(IDC_AREA_FRONT_EDIT);
    ClosePage();
    EXPECT_EQ(Noted("call"), "unloading\n");
}

TEST_F(PrintingAreaTest, NamesOfAreasAreNotTranslated) {
    WriteWideText(LanguageFilePath,
                  TEXT("[PrintingArea]\r\nStandard=Norm\r\nResin K=Harz K\r\nFront Side=Vorn\r\n"));
    Connect("");
    Open();
    EXPECT_EQ(Front(), "Standard of 3");
    EXPECT_EQ(TextOf(GetDlgItem(page_, IDC_AREA_FRONT)), "Vorn");
    WCHAR text[64] = {};
    TCITEMW tab = {};
    tab.mask = TCIF_TEXT | TCIF_PARAM;
    tab.pszText = text;
    tab.cchTextMax = 64;
    SendDlgItemMessageW(page_, IDC_AREA_TAB, TCM_GETITEMW, 1, reinterpret_cast<LPARAM>(&tab));
    EXPECT_EQ(Narrow(tab.pszText), "Harz K");
    EXPECT_EQ(tab.lParam, 1);
}

// ---- The designer -------------------------------------------------------------------------------

TEST_F(PrintingAreaTest, TheDesignerChangesTheNameOfItsSide) {
    const struct {
        const char* state;
        int edit;
        const char* lists;
    } cases[] = {
        {"dialog = accept 2\n", IDC_AREA_FRONT_EDIT, "Signature Panel of 3, Standard of 3"},
        {"dialog = accept 1\n", IDC_AREA_BACK_EDIT, "Standard of 3, Photo Window of 3"},
        {"dialog = cancel\n", IDC_AREA_FRONT_EDIT, "Standard of 3, Standard of 3"},
        {"dialog = accept 1\nfault = no name\n", IDC_AREA_FRONT_EDIT,
         "Standard of 3, Standard of 3"},
        {"dialog = accept 1\nfault = foreign index\n", IDC_AREA_FRONT_EDIT,
         "Standard of 3, Standard of 3"},
        {"dialog = accept 1\nfault = no designer\n", IDC_AREA_FRONT_EDIT,
         "Standard of 3, Standard of 3"},
        {"dialog = accept 1\nfault = no data\n", IDC_AREA_FRONT_EDIT,
         "Photo Window of 3, Standard of 3"},
    };
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    for (const auto& c : cases) {
        Connect(c.state);
        Open();
        Click(c.edit);
        EXPECT_EQ(Front() + ", " + Back(), c.lists) << c.state;
        EXPECT_EQ(TakeChanges(), 0);
        ClosePage();
        EXPECT_EQ(Noted("complaint"), "") << c.state;
    }
}

TEST_F(PrintingAreaTest, TheDesignerIsToldOfItsSideAndChosenArea) {
    Connect("dialog = cancel\n");
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    Record().CardType = k8PinChipCard;
    Paper().dmOrientation = DMORIENT_PORTRAIT;
    Open();
    Choose(IDC_AREA_FRONT_LIST, 2);
    Click(IDC_AREA_FRONT_EDIT);
    const std::string calls = Noted("call");
    EXPECT_NE(calls.find("ShowDoModalDialog designer 1 surface 1 orientation 1 index 2 extents 642 "
                         "1014 "),
              std::string::npos)
        << calls;
    EXPECT_NE(calls.find("CreateEnumPrntAreaClass surface 1 orientation 1 index 0 extents 1014 "
                         "642 "),
              std::string::npos)
        << calls;
    EXPECT_NE(calls.find("CreateEnumPrntAreaClass surface 3 orientation 1 index 0 extents 1014 "
                         "642 "),
              std::string::npos)
        << calls;
}

// Until the sheet applies: another sheet begins with what is stored.
TEST_F(PrintingAreaTest, NamesOutliveTheirAreasAndNoSheet) {
    Connect("standard = no\n");
    KeepAreas({"Mine", "Badge"});
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    Record().ResinOptions = 0xFF;
    Open();
    Choose(IDC_AREA_FRONT_LIST, 1);
    Apply();
    Choose(IDC_AREA_BACK_LIST, 1);
    ShowTab(1);
    Choose(IDC_AREA_FRONT_LIST, 1);
    KeepAreas({"Visitor", "Mine"});
    Notify(PSN_SETACTIVE);
    EXPECT_EQ(Front() + ", " + Back(), "Visitor of 2, Visitor of 2");
    KeepAreas({"Visitor", "badge"});
    ShowTab(0);
    EXPECT_EQ(Front() + ", " + Back(), "badge of 2, badge of 2");
    Open();  // the sheet before was cancelled
    EXPECT_EQ(Front() + ", " + Back(), "badge of 2, Visitor of 2");
    ShowTab(1);
    EXPECT_EQ(Front() + ", " + Back(), "Visitor of 2, Visitor of 2");
}

TEST_F(PrintingAreaTest, EndsWithAllThatItBegan) {
    Connect("calls = no\n");
    for (int i = 0; i < 20; ++i) {
        Open();
        ShowTab(i % 2);
        Notify(PSN_SETACTIVE);
        Choose(IDC_AREA_FRONT_LIST, i % 4);
        if (i % 10 == 0) {  // another page of this kind before the first has gone
            HWND first = std::exchange(page_, nullptr);
            Open();
            DestroyWindow(first);
        }
    }
}

// ---- What is offered ----------------------------------------------------------------------------

// A side's controls: its box, list and "Edit", then its two modes.
TEST_F(PrintingAreaTest, OffersWhatTheRecordPrints) {
    const struct {
        const char* name;
        int tab;
        BYTE printed, colored, resin, resin2, ribbon, mode;
        const char* front;
        const char* back;
        BYTE modeAfter;
    } cases[] = {
        // clang-format off
        {"both sides in colour", 0, 3, 3, 0, 0, 0, 0x00, "~x . . x .", "~x . . x .", 0x05},
        {"colour of a side that is not printed", 0, 1, 3, 0, 0, 0, 0x0A, "~x . . . x", "~. ~. ~. ~. ~x", 0x0A},
        {"no colour on the front", 0, 3, 0xFE, 0xFF, 0xFF, 0, 0x48, "~. ~. ~. ~x ~.", "~x . . . x", 0x49},
        {"a resin ribbon", 0, 3, 3, 0, 0, 1, 0x02, "~x ~. ~. . x", "~x . . x .", 0x06},
        {"another resin ribbon", 0, 3, 3, 0, 0, 3, 0x0F, "~x . . . x", "~x . . . x", 0x0F},
        {"both sides with resin", 1, 3, 0, 0x03, 0, 1, 0x00, "~x . . x .", "~x . . x .", 0x05},
        {"resin of the front", 1, 3, 3, 0x40, 0, 0, 0x08, "~x . . x .", "~. ~. ~. ~. ~x", 0x09},
        {"resin of the back", 1, 3, 3, 0x20, 0, 0, 0x02, "~. ~. ~. ~. ~x", "~x . . x .", 0x06},
        {"black and white", 1, 2, 3, 0, 0x03, 0, 0xF1, "~. ~. ~. ~x ~.", "~x . . x .", 0xF5},
        {"other options of resin", 1, 3, 3, 0, 0xFC, 0, 0x05, "~. ~. ~. ~x ~.", "~. ~. ~. ~x ~.", 0x05},
        // clang-format on
    };
    const auto looks = [&](std::initializer_list<int> controls) {
        std::string text;
        for (const int control : controls) {
            const std::string shown = Looks(control);
            text += (text.empty() ? "" : " ") + (shown.starts_with("~") ? std::string("~") : "") +
                    (shown.ends_with("x") ? "x" : ".");
        }
        return text;
    };
    Open();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        DevModePrivate& record = Record();
        record.PrintSides = c.printed;
        record.ColorSides = c.colored;
        record.ResinOptions = c.resin;
        record.ResinOptions2 = c.resin2;
        record.RibbonType = c.ribbon;
        record.OvercoatMode = record.ResinKMode = c.mode;
        const DevModeRecord before = context_.WorkingDevMode;
        ShowTab(c.tab);
        EXPECT_EQ(looks({IDC_AREA_FRONT, IDC_AREA_FRONT_LIST, IDC_AREA_FRONT_EDIT,
                         IDC_AREA_FRONT_WHOLE, IDC_AREA_FRONT_DESIGNED}),
                  c.front);
        EXPECT_EQ(looks({IDC_AREA_BACK, IDC_AREA_BACK_LIST, IDC_AREA_BACK_EDIT, IDC_AREA_BACK_WHOLE,
                         IDC_AREA_BACK_DESIGNED}),
                  c.back);
        EXPECT_EQ(std::exchange(c.tab == 0 ? record.OvercoatMode : record.ResinKMode, c.mode),
                  c.modeAfter);
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, before)) << "nothing else";
    }
}

TEST_F(PrintingAreaTest, AModeIsASidesOfATab) {
    const struct {
        int tab, control;
        BYTE before, after;
    } cases[] = {
        {0, IDC_AREA_FRONT_DESIGNED, 0xF5, 0xF6}, {0, IDC_AREA_FRONT_WHOLE, 0x0A, 0x09},
        {0, IDC_AREA_BACK_DESIGNED, 0x05, 0x09},  {0, IDC_AREA_BACK_WHOLE, 0xFA, 0xF6},
        {1, IDC_AREA_FRONT_DESIGNED, 0x06, 0x06}, {1, IDC_AREA_BACK_WHOLE, 0x09, 0x05},
    };
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    Record().ResinOptions = 0xFF;
    Open();
    for (const auto& c : cases) {
        Record().OvercoatMode = Record().ResinKMode = c.before;
        ShowTab(c.tab);
        DevModeRecord expected = context_.WorkingDevMode;
        (c.tab == 0 ? expected.Private.OvercoatMode : expected.Private.ResinKMode) = c.after;
        Notify(PSN_SETACTIVE);
        SendMessageW(page_, WM_COMMAND, MAKEWPARAM(c.control, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Item(c.control)));
        EXPECT_TRUE(IsSame(context_.WorkingDevMode, expected)) << c.control;
        EXPECT_EQ(Looks(c.control), "x");
        EXPECT_EQ(TakeChanges(), 1);
    }
}

TEST_F(PrintingAreaTest, APrinterOfOneSideShowsTheFront) {
    context_.IsDuplexModel = 0;
    Open();
    for (int control = IDC_AREA_FRONT_GROUP; control <= IDC_AREA_FRONT_EDIT; ++control) {
        EXPECT_TRUE(IsShown(control)) << control;
    }
    for (int tab = 0; tab < 2; ++tab) {
        ShowTab(tab);
        Notify(PSN_SETACTIVE);
        for (int control = IDC_AREA_BACK_GROUP; control <= IDC_AREA_BACK_EDIT; ++control) {
            EXPECT_FALSE(IsShown(control)) << control;
        }
    }
}

// ---- Pictures -----------------------------------------------------------------------------------

TEST_F(PrintingAreaTest, TheBoardHasCellsOfFivePixels) {
    PixelCanvas canvas(14, 9);
    PaintAreaPreview(canvas.context, {1, 1, 13, 8}, true, nullptr);
    EXPECT_EQ(canvas.Rows(), R"(
..............
......?????...
......?????...
......?????...
......?????...
......?????...
.?????.....??.
.?????.....??.
..............
)");
    EXPECT_EQ(canvas.At(6, 1), 0x808080u);
}

// The board, the card upon it with round corners and a dark edge, and the blocks, of which those of
// kind 1 are left white. Lengths are rounded down, each by itself.
TEST_F(PrintingAreaTest, AreasArePaintedToThePixel) {
    const RECT preview = {5, 3, 108, 99};
    const struct {
        const char* name;
        bool portrait;
        BYTE orientation;
        DWORD width, height;
        RECT card;
        RECT block, white;  // x 100, y 50, 300 by 200, and 0, 350, 99 by 33
    } cases[] = {
        {"lying", false, 2, 1014, 642, {5, 24, 108, 89}, {15, 64, 45, 84}, {5, 51, 15, 54}},
        {"lying, for an upright card",
         false,
         1,
         1014,
         642,
         {5, 24, 108, 89},
         {15, 64, 45, 84},
         {5, 51, 15, 54}},
        {"upright", true, 1, 642, 1014, {38, 3, 98, 99}, {47, 77, 75, 95}, {38, 63, 47, 66}},
        {"turned", true, 2, 1014, 642, {38, 3, 98, 99}, {42, 12, 60, 40}, {71, 3, 74, 12}},
        {"in units of its own",
         false,
         0,
         777,
         555,
         {5, 24, 108, 89},
         {18, 61, 57, 84},
         {5, 46, 18, 49}},
    };
    PixelCanvas painted(120, 110);
    PixelCanvas expected(120, 110);
    const COLORREF kCard = RGB(10, 200, 30);
    const COLORREF kArea = RGB(40, 50, 160);
    for (const auto& c : cases) {
        PrintAreaBlock white = {};
        white.Kind = 1;
        white.Y = 350;
        white.Width = 99;
        white.Height = 33;
        PrintAreaBlock block = {};
        block.X = 100;
        block.Y = 50;
        block.Width = 300;
        block.Height = 200;
        block.Next = &white;
        PrintAreaData area = {};
        area.Orientation = c.orientation;
        area.Width = c.width;
        area.Height = c.height;
        area.CardColor = 0x77000000 | kCard;  // the colours have 24 bits, whatever is above them
        area.AreaColor = 0x55000000 | kArea;
        area.FirstBlock = &block;
        painted.Clear();
        PaintAreaPreview(painted.context, preview, c.portrait, &area);

        expected.Clear();
        PaintAreaPreview(expected.context, preview, c.portrait, nullptr);
        HBRUSH cardBrush = CreateSolidBrush(kCard);
        HBRUSH areaBrush = CreateSolidBrush(kArea);
        HBRUSH whiteBrush = CreateSolidBrush(RGB(255, 255, 255));
        HGDIOBJ before = SelectObject(expected.context, cardBrush);
        RoundRect(expected.context, c.card.left, c.card.top, c.card.right, c.card.bottom, 10, 10);
        SelectObject(expected.context, before);
        FillRect(expected.context, &c.block, areaBrush);
        FillRect(expected.context, &c.white, whiteBrush);
        for (HBRUSH brush : {cardBrush, areaBrush, whiteBrush}) {
            DeleteObject(brush);
        }
        EXPECT_EQ(std::memcmp(painted.memory, expected.memory, size_t{120} * 110 * 4), 0) << c.name;
    }
}

TEST_F(PrintingAreaTest, LayoutsWithoutSizeAndBlocksAnywhereStayInTheirPreview) {
    const RECT preview = {10, 10, 110, 110};
    PixelCanvas canvas(120, 120);
    PrintAreaBlock block = {};
    PrintAreaData area = {};
    area.FirstBlock = &block;
    block.Width = block.Height = block.X = block.Y = 0xFFFF;
    for (const DWORD size : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        for (const BYTE orientation : {1, 2}) {
            for (const bool portrait : {false, true}) {
                area.Width = size;
                area.Height = 0xFFFFFFFF - size;
                area.Orientation = orientation;
                canvas.Clear();
                PaintAreaPreview(canvas.context, preview, portrait, &area);
                for (int at = 0; at < 120; ++at) {
                    ASSERT_EQ(canvas.At(at, 9) & canvas.At(at, 110) & canvas.At(9, at) &
                                  canvas.At(110, at),
                              0xFFFFFFu)
                        << size;
                }
            }
        }
    }
}

TEST_F(PrintingAreaTest, OnlyPrintedSidesShowTheirArea) {
    Connect("");
    PixelCanvas canvas(480, 400);
    const auto shown = [&](int preview) {
        const RECT place = ControlArea(page_, preview);
        const unsigned pixel = canvas.At((place.left + place.right) / 2, place.bottom - 14);
        return pixel == 0xFFFFFF || pixel == 0x808080 ? '.' : 'c';
    };
    const struct {
        DWORD isDuplex;
        BYTE printed, colored, ribbon;
        int tab;
        const char* previews;
    } cases[] = {
        {1, 3, 3, 0, 0, "cc"}, {1, 3, 1, 0, 0, "c."}, {1, 1, 3, 0, 0, "c."},
        {1, 3, 1, 1, 0, "c."}, {1, 3, 3, 0, 1, ".."}, {0, 3, 3, 0, 0, "c."},
    };
    for (const auto& c : cases) {
        context_.IsDuplexModel = c.isDuplex;
        Record().PrintSides = c.printed;
        Record().ColorSides = c.colored;
        Record().RibbonType = c.ribbon;
        Record().ResinOptions = Record().ResinOptions2 = 0;
        Open();
        ShowTab(c.tab);
        canvas.Clear();
        kPrintingAreaPage.Paint(page_, context_, canvas.context, {0, 0, 480, 400});
        EXPECT_EQ(std::string({shown(IDC_AREA_FRONT_PREVIEW), shown(IDC_AREA_BACK_PREVIEW)}),
                  c.previews)
            << &c - cases;
    }
}

TEST_F(PrintingAreaTest, PreviewsArePaintedAnew) {
    Connect("dialog = accept 1\n");
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    Open();
    const auto around = [&](int preview) {
        RECT area = ControlArea(page_, preview);
        InflateRect(&area, 2, 2);
        return area;
    };
    const RECT front = around(IDC_AREA_FRONT_PREVIEW);
    const RECT back = around(IDC_AREA_BACK_PREVIEW);
    const struct {
        const char* what;
        std::function<void()> use;
        RECT asked;
    } cases[] = {
        {"the front's list", [&] { Choose(IDC_AREA_FRONT_LIST, 2); }, front},
        {"the back's list", [&] { Choose(IDC_AREA_BACK_LIST, 1); }, back},
        {"the back's designer", [&] { Click(IDC_AREA_BACK_EDIT); }, back},
        {"another tab", [&] { ShowTab(1); }, {front.left, front.top, back.right, front.bottom}},
        {"the page shown again", [&] { Notify(PSN_SETACTIVE); }, {}},
    };
    for (const auto& c : cases) {
        HandlePosted();
        UpdateWindow(page_);
        c.use();
        RECT asked = {};
        GetUpdateRect(page_, &asked, FALSE);
        EXPECT_TRUE(EqualRect(&asked, &c.asked)) << c.what << ": " << asked.left << " " << asked.top
                                                 << " " << asked.right << " " << asked.bottom;
    }
}

// The colour in the middle of a preview, as the page paints it.
TEST_F(PrintingAreaTest, APreviewShowsWhatIsChosen) {
    const PixelCanvas canvas(480, 400);
    const auto middle = [&] {
        kPrintingAreaPage.Paint(page_, context_, canvas.context, {0, 0, 480, 400});
        const RECT place = ControlArea(page_, IDC_AREA_FRONT_PREVIEW);
        return canvas.At((place.left + place.right) / 2, place.bottom - 30);
    };
    const WideString folder = TestFolder() + TEXT("\\Mirv\\PrtArea\\");
    std::filesystem::create_directories(DiskPath(folder));
    const char* const colors[] = {"255 0 0", "0 255 0"};
    for (int i = 0; i < 2; ++i) {
        WriteBytes(folder + Wide(std::to_string(i)) + TEXT(".txt"),
                   "name = " + std::to_string(i) +
                       "\norientation = landscape\nlayout = 100 100\ncard = 9 9 9\narea = " +
                       colors[i] + "\nblock = 2 0 0 100 100\n");
    }
    Connect("standard = no\n");
    Open();
    EXPECT_EQ(middle(), 0xFF0000u);
    Choose(IDC_AREA_FRONT_LIST, 1);
    EXPECT_EQ(middle(), 0x00FF00u);
    // What the designer has accepted stays where the areas can no longer be listed.
    WriteBytes(DriverFolder() + TEXT("\\SampleDesigner.txt"),
               "standard = no\ndialog = accept 0\nfault = no enumeration\n");
    Click(IDC_AREA_FRONT_EDIT);
    EXPECT_EQ(Front(), " of 0");
    EXPECT_EQ(middle(), 0xFF0000u);
}

}  // namespace
}  // namespace test
