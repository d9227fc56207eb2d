// The pictures of the Device Options page: what stands where on a card, and where the card stands
// in its preview.
#include "ui/pages/device_options/card_preview.h"
#include "options_page.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/common/module.h"

#include <cstring>
#include <set>

namespace test {
namespace {

constexpr COLORREF kUntouched = RGB(1, 2, 3);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

class CardPreviewTest : public OptionsPageTest {
  protected:
    void SetUp() override {
        OptionsPageTest::SetUp();
        screen_ = GetDC(nullptr);
    }
    void TearDown() override {
        ReleaseDC(nullptr, screen_);
        OptionsPageTest::TearDown();
    }

    /// How much of a picture stands at (x, y) of the canvas, as "all", "some" (others over it) or
    /// "none" of a coarse grid of its pixels.
    std::string Shows(HDC canvas, int picture, int x, int y) const {
        HBITMAP bitmap = LoadBitmapW(ModuleHandle, MAKEINTRESOURCEW(picture));
        BITMAP size = {};
        GetObjectW(bitmap, sizeof(size), &size);
        int same = 0;
        int all = 0;
        {
            const MemoryCanvas original(canvas, bitmap);
            for (int row = 0; row < size.bmHeight; row += 3) {
                for (int column = 0; column < size.bmWidth; column += 3) {
                    same += GetPixel(canvas, x + column, y + row) ==
                            GetPixel(original.get(), column, row);
                    ++all;
                }
            }
        }
        DeleteObject(bitmap);
        return same == all ? "all" : same > all / 2 ? "some" : "none";
    }

    HDC screen_ = nullptr;
};

struct Standing {
    int picture;
    int x;
    int y;
};

TEST_F(CardPreviewTest, WhatStandsWhereOnACard) {
    const struct {
        const char* name;
        bool portrait;
        CardPicture picture;
        std::vector<Standing> standing;
    } cases[] = {
        // clang-format off
        {"colour", false, {.Color = true}, {{IDB_PORTRAIT, 150, 35}}},
        {"colour, rotated", false, {.Rotated = true, .Color = true}, {{IDB_PORTRAIT_ROTATED, 60, 35}}},
        {"colour, flipped", false, {.Flipped = true, .Color = true}, {{IDB_PORTRAIT, 60, 35}}},
        {"colour, rotated and flipped", false, {.Rotated = true, .Flipped = true, .Color = true},
         {{IDB_PORTRAIT_ROTATED, 150, 35}}},
        {"black", false, {.Black = true}, {{IDB_TEXT, 60, 70}}},
        {"black, rotated", false, {.Rotated = true, .Black = true}, {{IDB_TEXT_ROTATED, 145, 40}}},
        {"black, flipped", false, {.Flipped = true, .Black = true}, {{IDB_TEXT_FLIPPED, 145, 70}}},
        {"black, rotated and flipped", false, {.Rotated = true, .Flipped = true, .Black = true},
         {{IDB_TEXT_FLIPPED_ROTATED, 60, 40}}},
        {"stripe", false, {.Color = true, .Black = true, .Stripe = true}, {{IDB_PORTRAIT, 130, 45}, {IDB_TEXT, 40, 80}}},
        {"chip and dither", false, {.Black = true, .Dither = true, .Chip = true},
         {{IDB_DITHER, 142, 52}, {IDB_TEXT, 60, 70}, {IDB_CHIP_LANDSCAPE, 20, 40}}},
        {"portrait", true, {.Color = true, .Black = true, .Chip = true},
         {{IDB_PORTRAIT, 45, 70}, {IDB_TEXT, 40, 170}, {IDB_CHIP_PORTRAIT, 70, 20}}},
        {"portrait, rotated", true, {.Rotated = true, .Color = true, .Black = true},
         {{IDB_PORTRAIT_ROTATED, 45, 120}, {IDB_TEXT_ROTATED, 40, 60}}},
        {"portrait with a stripe", true, {.Color = true, .Black = true, .Stripe = true},
         {{IDB_PORTRAIT, 55, 70}, {IDB_TEXT, 50, 170}}},
        {"portrait, flipped", true, {.Flipped = true, .Black = true}, {{IDB_TEXT_FLIPPED, 40, 170}}},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const SIZE size = c.portrait ? kPortraitCard : kLandscapeCard;
        const MemoryCanvas canvas(screen_, size.cx, size.cy);
        ASSERT_TRUE(canvas);
        PictureSet pictures;
        DrawCard(pictures, canvas.get(), c.portrait, c.picture);
        for (const Standing& each : c.standing) {
            EXPECT_EQ(Shows(canvas.get(), each.picture, each.x, each.y), "all") << each.picture;
            EXPECT_NE(Shows(canvas.get(), each.picture, each.x + 5, each.y + 5), "all");
        }
    }
}

TEST_F(CardPreviewTest, DitherLiesUnderTheTextOnAPortraitCard) {
    const MemoryCanvas canvas(screen_, kPortraitCard.cx, kPortraitCard.cy);
    PictureSet pictures;
    DrawCard(pictures, canvas.get(), true, {.Black = true, .Dither = true});
    EXPECT_EQ(Shows(canvas.get(), IDB_TEXT, 40, 170), "all");
    EXPECT_EQ(Shows(canvas.get(), IDB_DITHER, 52, 142), "some");
}

TEST_F(CardPreviewTest, DitherLeavesTheOutlineOfTheCornerThatItCovers) {
    constexpr int kCorner = 12;
    for (const bool portrait : {false, true}) {
        const SIZE size = portrait ? kPortraitCard : kLandscapeCard;
        const MemoryCanvas blank(screen_, size.cx, size.cy);
        const MemoryCanvas dithered(screen_, size.cx, size.cy);
        PictureSet pictures;
        DrawCard(pictures, blank.get(), portrait, {});
        DrawCard(pictures, dithered.get(), portrait, {.Dither = true});
        for (int y = size.cy - kCorner; y < size.cy; ++y) {
            for (int x = size.cx - kCorner; x < size.cx; ++x) {
                if (GetPixel(blank.get(), x, y) == kBlack) {
                    EXPECT_EQ(GetPixel(dithered.get(), x, y), kBlack) << x << ", " << y;
                }
            }
        }
        EXPECT_EQ(GetPixel(dithered.get(), size.cx - 7, size.cy - 7), kWhite) << "inside the arc";
    }
}

TEST_F(CardPreviewTest, CardsAreRoundedAndStripesReachTheirEdges) {
    for (const bool portrait : {false, true}) {
        const SIZE size = portrait ? kPortraitCard : kLandscapeCard;
        const MemoryCanvas canvas(screen_, size.cx, size.cy);
        const RECT whole = {0, 0, size.cx, size.cy};
        HBRUSH brush = CreateSolidBrush(kUntouched);
        FillRect(canvas.get(), &whole, brush);
        DeleteObject(brush);
        PictureSet pictures;
        DrawCard(pictures, canvas.get(), portrait, {.Stripe = true});
        const auto at = [&](int x, int y) {  // across and along the stripe
            return portrait ? GetPixel(canvas.get(), x, y) : GetPixel(canvas.get(), y, x);
        };
        EXPECT_EQ(GetPixel(canvas.get(), 0, 0), kUntouched);
        EXPECT_EQ(at(80, 0), kBlack) << "the outline";
        EXPECT_EQ(at(80, 4), kWhite);
        const int first = 15;
        const int end = portrait ? 43 : 39;
        EXPECT_EQ(at(first - 1, 5), kWhite);
        EXPECT_EQ(at(first, 0), kBlack);
        EXPECT_EQ(at(first, 120), kBlack);
        EXPECT_EQ(at(end - 1, 239), kBlack);
        EXPECT_EQ(at(end, 120), kWhite);
    }
}

TEST_F(CardPreviewTest, WhatARecordPrints) {
    const struct {
        const char* name;
        void (*before)(DevModePrivate&);
        const CardSide& side;
        CardPicture picture;
    } cases[] = {
        // clang-format off
        {"colour alone", [](DevModePrivate&) {}, kFront, {.Color = true}},
        {"black and white of a resin ribbon", [](DevModePrivate& r) { r.ResinOptions = 3; r.ColorSides = 0; },
         kBack, {.Black = true}},
        {"black/white before dither", [](DevModePrivate& r) { r.ResinOptions = 4; r.ResinOptions2 = 1; r.ColorSides = 0; },
         kFront, {.Black = true}},
        {"dither", [](DevModePrivate& r) { r.ResinOptions = 8; r.ColorSides = 0; }, kBack, {.Black = true, .Dither = true}},
        {"the other side's options", [](DevModePrivate& r) { r.ResinOptions = 0xAA; r.ResinOptions2 = 2; r.RotateSides = r.FlipSides = 2; },
         kFront, {.Color = true}},
        {"grey", [](DevModePrivate& r) { r.ResinOptions2 = 4; r.ColorSides = 0; }, kFront, {.Black = true}},
        {"grey is the front's", [](DevModePrivate& r) { r.ResinOptions2 = 4; r.ColorSides = 0; }, kBack, {}},
        {"a chip is in front", [](DevModePrivate& r) { r.CardType = 4; r.ColorSides = 0; r.RotateSides = 3; },
         kFront, {.Rotated = true, .Chip = true}},
        {"a stripe is behind", [](DevModePrivate& r) { r.CardType = 4; r.ColorSides = 0; r.FlipSides = 3; },
         kBack, {.Flipped = true, .Stripe = true}},
        {"an adhesive card", [](DevModePrivate& r) { r.CardType = 5; r.ColorSides = 0; }, kFront, {}},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        c.before(Record());
        const CardPicture picture = CardPictureOf(Record(), c.side);
        EXPECT_EQ(std::memcmp(&picture, &c.picture, sizeof(picture)), 0);
    }
}

TEST_F(CardPreviewTest, WhereTheCardStands) {
    const RECT landscape = PlaceOfCard({10, 20, 171, 174}, false);  // 161 by 154
    EXPECT_EQ(landscape.left, 10);
    EXPECT_EQ(landscape.right, 171);
    EXPECT_EQ(landscape.bottom, 168);
    EXPECT_EQ(landscape.bottom - landscape.top, 101);             // 100.625
    const RECT portrait = PlaceOfCard({10, 20, 171, 172}, true);  // 152 high
    EXPECT_EQ(portrait.top, 20);
    EXPECT_EQ(portrait.bottom, 172);
    EXPECT_EQ(portrait.right, 161);
    EXPECT_EQ(portrait.right - portrait.left, 95);
}

// ---- On the page ------------------------------------------------------------------------------

class PaintedPageTest : public CardPreviewTest {
  protected:
    COLORREF At(int control, int x, int y) const {
        const RECT area = ControlArea(page_, control);
        HDC context = GetDC(page_);
        const COLORREF color = GetPixel(context, area.left + x, area.top + y);
        ReleaseDC(page_, context);
        return color;
    }
    /// The colour of the card at a share of its preview's place.
    COLORREF OnCard(const SideControls& side, bool portrait, int percentAcross,
                    int percentDown) const {
        const RECT area = ControlArea(page_, side.Preview);
        RECT card = PlaceOfCard(area, portrait);
        OffsetRect(&card, -area.left, -area.top);
        return At(side.Preview, MulDiv(card.right - card.left, percentAcross, 100) + card.left,
                  MulDiv(card.bottom - card.top, percentDown, 100) + card.top);
    }
    void Paint() {
        Open();
        UpdateWindow(page_);
    }
    /// The colour that the tile has at most places.
    static COLORREF TileColor() {
        HBITMAP tile = LoadBitmapW(ModuleHandle, MAKEINTRESOURCEW(IDB_TILE));
        HDC context = CreateCompatibleDC(nullptr);
        HGDIOBJ before = SelectObject(context, tile);
        const COLORREF color = GetPixel(context, 1, 1);
        SelectObject(context, before);
        DeleteDC(context);
        DeleteObject(tile);
        return color;
    }
};

TEST_F(PaintedPageTest, CardsOnTheirTiles) {
    Record().PrintSides = 3;
    Record().ColorSides = 0;
    Record().CardType = kMagneticStripeCard;
    for (const bool portrait : {false, true}) {
        Paper().dmOrientation = portrait ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE;
        Paint();
        // A blank front; the stripe, then white, on the back.
        EXPECT_EQ(OnCard(kFrontControls, portrait, 50, 50), kWhite);
        EXPECT_EQ(OnCard(kBackControls, portrait, portrait ? 19 : 50, portrait ? 50 : 18), kBlack);
        EXPECT_EQ(OnCard(kBackControls, portrait, 60, 60), kWhite);
        // The mark of the back beside the card, and its lack on the front.
        int different = 0;
        for (int i = 8; i < 40; ++i) {
            different += At(IDC_BACK_PREVIEW, i, 26) != At(IDC_FRONT_PREVIEW, i, 26);
        }
        EXPECT_GT(different, 3) << portrait;
    }
}

TEST_F(PaintedPageTest, SidesThatAreNotPrintedShowTheTilesAlone) {
    Record().PrintSides = 0;
    Paint();
    const auto isTile = [](COLORREF color) {
        return GetRValue(color) > 180 && GetBValue(color) > 200 && color != kWhite;
    };
    for (const SideControls* side : kSideControls) {
        for (int x = 2; x < 150; x += 7) {
            EXPECT_TRUE(isTile(At(side->Preview, x, 75))) << x;
        }
    }
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(At(IDC_PAGE_ORDER, 40, 60), face) << "no order of no pages";
    Click(IDC_BACK_IMAGE);
    UpdateWindow(page_);
    EXPECT_EQ(At(IDC_PAGE_ORDER, 1, 1), kWhite);
    EXPECT_TRUE(isTile(TileColor()));
}

TEST_F(PaintedPageTest, AModelWithoutBackLeavesItsPreviewAlone) {
    Record().PrintSides = 3;
    for (const ModelFlags& model :
         {ModelFlags{.duplex = 0}, ModelFlags{.duplex = 1, .kp41 = 0, .kp43 = 1}}) {
        SetModel(model);
        Paint();
        EXPECT_EQ(At(IDC_BACK_PREVIEW, 20, 20), GetSysColor(COLOR_BTNFACE));
        EXPECT_NE(At(IDC_FRONT_PREVIEW, 20, 20), GetSysColor(COLOR_BTNFACE));
    }
}

TEST_F(PaintedPageTest, PageOrderFollowsSidesAndOrientation) {
    std::set<std::string> seen;
    for (const SHORT orientation : {DMORIENT_PORTRAIT, DMORIENT_LANDSCAPE}) {
        for (const BYTE sides : {1, 2, 3}) {
            Paper().dmOrientation = orientation;
            Record().PrintSides = sides;
            Paint();
            std::string picture;
            const RECT area = ControlArea(page_, IDC_PAGE_ORDER);
            for (int y = 0; y < area.bottom - area.top; y += 4) {
                for (int x = 0; x < area.right - area.left; x += 4) {
                    picture += std::to_string(At(IDC_PAGE_ORDER, x, y)) + ' ';
                }
            }
            seen.insert(picture);
        }
    }
    EXPECT_EQ(seen.size(), 6u);
}

}  // namespace
}  // namespace test
