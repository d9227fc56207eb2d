// The Printing Area page by itself, over a parent that stands for the sheet.
#include "area_page.h"
#include "pixel_canvas.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/pages/print_area/area_preview.h"
#include "ui/pages/print_area/printing_area_page.h"

#include <commctrl.h>
#include <algorithm>
#include <cctype>
#include <functional>
#include <random>

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
    Notify(PSN_APPLY);
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
    Notify(PSN_APPLY);
    EXPECT_EQ(Stored(), "1:520:Mine+256z\n1:520:Of bytes+252z\n1:520:" + std::string(259, 'x') +
                            "+1z\n" + kStandard + "\n1:520:+260z\n" + kStandard + "\n");
}

TEST_F(PrintingAreaTest, APrinterNameMayBeLong) {
    printer_ = WideString(220, 'n') + TEXT(" of room 7");
    key_.emplace(printer_);
    context_.PrinterName = printer_.data();
    key_->StoreText(kValues[0], TEXT("Mine"));
    Open();
    Notify(PSN_APPLY);
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
        Notify(PSN_APPLY);
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
    Notify(PSN_APPLY);
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
    Notify(PSN_APPLY);
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

// What is chosen, by the rules written down once more.
struct ChosenAreas {
    std::vector<std::string> listed;
    std::string names[2][2];  // of a tab's side
    int tab = 0;
    size_t shown[2] = {};

    static std::string Folded(std::string name) {
        for (char& c : name) {
            c = static_cast<char>(std::toupper(c));
        }
        return name;
    }
    void List() {
        for (int side = 0; side < 2; ++side) {
            shown[side] = 0;
            for (size_t i = 0; i < listed.size(); ++i) {
                if (Folded(listed[i]) == Folded(names[tab][side])) {
                    shown[side] = i;
                }
            }
        }
    }
    void Choose(int side, size_t index) {
        names[tab][side] = listed[index];
        shown[side] = index;
    }
    std::string Shown(int side) const {
        return listed[shown[side]] + " of " + std::to_string(listed.size());
    }
};

TEST_F(PrintingAreaTest, KeepsWhatAnyUseHasChosen) {
    const std::vector<std::string> standard = {"Standard", "Photo Window", "Signature Panel"};
    const char* const own[] = {"Mine", "mINE", "Badge", "Visitor", "BADGE"};
    const int lists[] = {IDC_AREA_FRONT_LIST, IDC_AREA_BACK_LIST};
    const int edits[] = {IDC_AREA_FRONT_EDIT, IDC_AREA_BACK_EDIT};
    std::mt19937 random(11);
    const auto below = [&](size_t end) { return static_cast<size_t>(random() % end); };
    Connect("calls = no\n");
    Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    Record().ResinOptions = 0xFF;
    ChosenAreas areas = {standard, {{"Standard", "Standard"}, {"Standard", "Standard"}}};
    ChosenAreas stored = areas;
    Open();
    for (int i = 0; i < Rounds(150); ++i) {
        const int side = static_cast<int>(below(2));
        switch (below(7)) {
            case 0:
                ShowTab(areas.tab = 1 - areas.tab);
                areas.List();
                break;
            case 1: {  // areas come and go
                std::filesystem::remove_all(DiskPath(TestFolder() + TEXT("\\Mirv")));
                const std::vector<std::string> kept(own + below(3), own + 3 + below(3));
                KeepAreas(kept);
                areas.listed = standard;
                areas.listed.insert(areas.listed.end(), kept.begin(), kept.end());
                Notify(PSN_SETACTIVE);
                areas.List();
                break;
            }
            case 2:
            case 3: {
                const size_t index = below(areas.listed.size());
                Choose(lists[side], static_cast<int>(index));
                areas.Choose(side, index);
                break;
            }
            case 4: {
                const size_t index = below(areas.listed.size());
                const bool accepts = below(2) == 0;
                WriteBytes(DriverFolder() + TEXT("\\SampleDesigner.txt"),
                           (accepts ? "dialog = accept " + std::to_string(index)
                                    : std::string("dialog = cancel")) +
                               "\ncalls = no\n");
                Click(edits[side]);
                if (accepts) {
                    areas.Choose(side, index);
                }
                areas.List();
                break;
            }
            case 5:
                Notify(PSN_APPLY);
                stored = areas;
                break;
            default:  // the sheet is cancelled, and another opened
                Open();
                std::copy_n(&stored.names[0][0], 4, &areas.names[0][0]);
                areas.tab = 0;
                areas.List();
        }
        ASSERT_EQ(Front(), areas.Shown(0)) << i;
        ASSERT_EQ(Back(), areas.Shown(1)) << i;
    }
    Notify(PSN_APPLY);
    for (int value = 0; value < 4; ++value) {
        EXPECT_EQ(key_->Stored(kValues[value]).find(":" + areas.names[value / 2][value % 2] + "+"),
                  5u)
            << key_->Stored(kValues[value]);
    }
}

TEST_F(PrintingAreaTest, EndsWithAllThatItBegan) {
    Connect("calls = no\n");
    for (int i = 0; i < Rounds(100); ++i) {
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

// The rules once more: what a side's controls show of the record on a tab.
std::string ExpectedSide(const DevModePrivate& record, int tab, int side, BYTE mode) {
    const bool printed = (record.PrintSides >> side & 1) != 0;
    const bool active =
        printed && (tab == 0 ? (record.ColorSides >> side & 1) != 0
                             : (record.ResinOptions & (side == 0 ? 0x55 : 0xAA)) != 0 ||
                                   (record.ResinOptions2 >> side & 1) != 0);
    const bool areas = active && !(tab == 0 && side == 0 && record.RibbonType == 1);
    const bool designed = (mode >> (2 * side + 1) & 1) != 0;
    return std::string("~") + (active ? "x" : ".") + (areas ? "" : "~") + (areas ? "" : "~") +
           (active ? "" : "~") + (designed ? "." : "x") + (active ? "" : "~") +
           (designed ? "x" : ".");
}

TEST_F(PrintingAreaTest, OffersWhatTheRecordPrints) {
    std::mt19937 random(5);
    Open();
    for (int i = 0; i < Rounds(3000); ++i) {
        const int tab = static_cast<int>(random() % 2);
        DevModePrivate& record = Record();
        record.PrintSides = static_cast<BYTE>(random() % 4);
        record.ColorSides = static_cast<BYTE>(random());
        record.ResinOptions = random() % 3 == 0 ? BYTE{0} : static_cast<BYTE>(random());
        record.ResinOptions2 = static_cast<BYTE>(random());
        record.RibbonType = static_cast<BYTE>(random() % 4);
        record.OvercoatMode = static_cast<BYTE>(random());
        record.ResinKMode = static_cast<BYTE>(random());
        DevModePrivate expected = record;
        BYTE& mode = tab == 0 ? expected.OvercoatMode : expected.ResinKMode;
        mode = static_cast<BYTE>(mode | ((mode & 2) == 0 ? 1 : 0) | ((mode & 8) == 0 ? 4 : 0));
        SendDlgItemMessageW(page_, IDC_AREA_TAB, TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
        Notify(random() % 2 == 0 ? PSN_SETACTIVE : TCN_SELCHANGE, IDC_AREA_TAB);
        const struct {
            int box, list, edit, whole, designed;
        } controls[] = {
            {IDC_AREA_FRONT, IDC_AREA_FRONT_LIST, IDC_AREA_FRONT_EDIT, IDC_AREA_FRONT_WHOLE,
             IDC_AREA_FRONT_DESIGNED},
            {IDC_AREA_BACK, IDC_AREA_BACK_LIST, IDC_AREA_BACK_EDIT, IDC_AREA_BACK_WHOLE,
             IDC_AREA_BACK_DESIGNED},
        };
        for (int side = 0; side < 2; ++side) {
            const auto& c = controls[side];
            const auto off = [&](int id) {
                return IsWindowEnabled(GetDlgItem(page_, id)) ? "" : "~";
            };
            ASSERT_EQ(Looks(c.box) + off(c.list) + off(c.edit) + Looks(c.whole) + Looks(c.designed),
                      ExpectedSide(record, tab, side, mode))
                << i << " side " << side;
        }
        // The user's choice of a mode.
        if (random() % 2 == 0) {
            const int side = static_cast<int>(random() % 2);
            const bool designed = random() % 2 == 0;
            const int control = designed ? controls[side].designed : controls[side].whole;
            SendMessageW(page_, WM_COMMAND, MAKEWPARAM(control, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(page_, control)));
            mode = static_cast<BYTE>((mode & ~(3 << 2 * side)) | (designed ? 2 : 1) << 2 * side);
            ASSERT_EQ(TakeChanges(), 1);
            ASSERT_EQ(Looks(control).back(), 'x');
        }
        ASSERT_EQ(std::memcmp(&expected, &record, sizeof(record)), 0) << i;
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

// The picture of an area, by the rules written down once more.
void PaintAsStated(HDC target, const RECT& preview, bool portrait, const PrintAreaData& area) {
    const LONG width = preview.right - preview.left;
    const LONG height = preview.bottom - preview.top;
    for (LONG y = 0; y < height; ++y) {
        for (LONG x = 0; x < width; ++x) {
            const bool white = (x / 5 % 2 == 0) == (y / 5 % 2 == 0);
            SetPixel(target, preview.left + x, preview.top + y,
                     white ? RGB(255, 255, 255) : RGB(128, 128, 128));
        }
    }
    const LONG cardWidth = portrait ? 642 * height / 1014 : width;
    const LONG cardHeight = portrait ? height : 642 * width / 1014;
    const LONG left = portrait ? preview.right - 10 - cardWidth : preview.left;
    const LONG top = portrait ? preview.top : preview.bottom - 10 - cardHeight;
    HBRUSH card = CreateSolidBrush(area.CardColor & 0xFFFFFF);
    HBRUSH colored = CreateSolidBrush(area.AreaColor & 0xFFFFFF);
    HBRUSH white = CreateSolidBrush(RGB(255, 255, 255));
    HGDIOBJ before = SelectObject(target, card);
    RoundRect(target, left, top, left + cardWidth, top + cardHeight, 10, 10);
    SelectObject(target, before);
    const LONG layoutWidth = static_cast<LONG>(area.Width);
    const LONG layoutHeight = static_cast<LONG>(area.Height);
    for (const PrintAreaBlock* b = area.FirstBlock; b != nullptr; b = b->Next) {
        RECT place;
        if (portrait && area.Orientation != 1) {
            place.left = left + b->Y * cardHeight / layoutWidth;
            place.right = place.left + b->Height * cardHeight / layoutWidth;
            place.top = top + b->X * cardWidth / layoutHeight;
            place.bottom = place.top + b->Width * cardWidth / layoutHeight;
        } else {
            place.left = left + b->X * cardWidth / layoutWidth;
            place.right = place.left + b->Width * cardWidth / layoutWidth;
            place.bottom = top + cardHeight - b->Y * cardHeight / layoutHeight;
            place.top = place.bottom - b->Height * cardHeight / layoutHeight;
        }
        FillRect(target, &place, b->Kind == 1 ? white : colored);
    }
    DeleteObject(card);
    DeleteObject(colored);
    DeleteObject(white);
}

std::vector<unsigned> PixelsOf(const PixelCanvas& canvas) {
    std::vector<unsigned> pixels;
    for (int at = 0; at < 130 * 130; ++at) {
        pixels.push_back(canvas.At(at % 130, at / 130));
    }
    return pixels;
}

TEST_F(PrintingAreaTest, AreasArePaintedToThePixel) {
    std::mt19937 random(7);
    PixelCanvas painted(130, 130);
    PixelCanvas stated(130, 130);
    for (int i = 0; i < Rounds(300); ++i) {
        const LONG width = 90 + static_cast<LONG>(random() % 30);
        const LONG height = 90 + static_cast<LONG>(random() % 30);
        const RECT preview = {5, 3, 5 + width, 3 + height};
        PrintAreaBlock blocks[3] = {};
        PrintAreaData area = {};
        area.Orientation = static_cast<BYTE>(random() % 4);
        area.Width = 800 + random() % 1200;
        area.Height = 400 + random() % 1200;
        area.CardColor = random();  // the colours have 24 bits, whatever is above them
        area.AreaColor = random();
        for (int block = 0; block < 3; ++block) {
            // On the card, so that nothing is painted outside the preview.
            const WORD x = static_cast<WORD>(random() % 200);
            const WORD y = static_cast<WORD>(random() % 200);
            blocks[block].Kind = static_cast<BYTE>(random() % 3);
            blocks[block].X = x;
            blocks[block].Y = y;
            blocks[block].Width = static_cast<WORD>(random() % (400 - x));
            blocks[block].Height = static_cast<WORD>(random() % (400 - y));
            blocks[block].Next = block == 2 ? nullptr : &blocks[block + 1];
        }
        area.FirstBlock = blocks;
        const bool portrait = random() % 2 == 0;
        painted.Clear();
        stated.Clear();
        PaintAreaPreview(painted.context, preview, portrait, &area);
        PaintAsStated(stated.context, preview, portrait, area);
        ASSERT_EQ(PixelsOf(painted), PixelsOf(stated)) << i;
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
