// Pixels: what shapes, brushes, pens, raster operations and clipping leave behind, and the life of
// the objects they are drawn with.
#include "pixel_canvas.h"

#include <algorithm>
#include <functional>

namespace {

using test::PixelCanvas;

constexpr COLORREF kRed = RGB(255, 0, 0);

class DrawingTest : public test::PlatformTest {
  protected:
    void TearDown() override {
        for (HGDIOBJ object : objects_) {
            EXPECT_TRUE(DeleteObject(object));
        }
        PlatformTest::TearDown();
    }
    /// Selects a new object, deleted at the end of the test, into a context.
    template <typename Handle>
    Handle Use(HDC context, Handle object) {
        EXPECT_NE(object, nullptr);
        objects_.push_back(object);
        SelectObject(context, object);
        return object;
    }

  private:
    std::vector<HGDIOBJ> objects_;
};

TEST_F(DrawingTest, RoundedRectanglesLeaveTheirPixels) {
    const struct {
        int penWidth;
        RECT place;
        int corner;
        const char* rows;
    } cases[] = {
        {1,
         {0, 0, 12, 8},
         4,
         "\n.##########.\n#rrrrrrrrrr#\n#rrrrrrrrrr#\n#rrrrrrrrrr#\n#rrrrrrrrrr#\n"
         "#rrrrrrrrrr#\n#rrrrrrrrrr#\n.##########.\n"},
        {1,
         {1, 0, 9, 8},
         8,
         "\n...####.....\n..#rrrr#....\n.#rrrrrr#...\n.#rrrrrr#...\n.#rrrrrr#...\n"
         ".#rrrrrr#...\n..#rrrr#....\n...####.....\n"},
        {2,
         {2, 2, 8, 7},
         0,
         "\n............\n.#######....\n.#######....\n.##rrr##....\n.##rrr##....\n"
         ".#######....\n.#######....\n............\n"},
    };
    for (const auto& test : cases) {
        PixelCanvas canvas(12, 8);
        SelectObject(canvas.context, Use(canvas.context, CreateSolidBrush(kRed)));
        Use(canvas.context, CreatePen(PS_SOLID, test.penWidth, 0));
        const RECT& at = test.place;
        EXPECT_TRUE(RoundRect(canvas.context, at.left, at.top, at.right, at.bottom, test.corner,
                              test.corner));
        EXPECT_EQ(canvas.Rows(), test.rows) << test.penWidth << " " << test.corner;
    }
}

TEST_F(DrawingTest, RasterOperationsCombineEachColour) {
    // Target, source and brush have between them every combination of bits.
    constexpr COLORREF kTarget = RGB(0xF0, 0xF0, 0xF0);
    constexpr COLORREF kSource = RGB(0xCC, 0xCC, 0xCC);
    constexpr COLORREF kBrush = RGB(0xAA, 0xAA, 0xAA);
    const std::pair<DWORD, int> cases[] = {
        {SRCCOPY, 0xCC}, {SRCPAINT, 0xFC}, {MERGECOPY, 0x88}, {PATCOPY, 0xAA}, {WHITENESS, 0xFF}};
    PixelCanvas target(1, 1);
    PixelCanvas source(1, 1);
    Use(target.context, CreateSolidBrush(kBrush));
    SetPixel(source.context, 0, 0, kSource);
    for (const auto& [operation, expected] : cases) {
        SetPixel(target.context, 0, 0, kTarget);
        EXPECT_TRUE(BitBlt(target.context, 0, 0, 1, 1, source.context, 0, 0, operation));
        const BYTE part = static_cast<BYTE>(expected);
        EXPECT_EQ(GetPixel(target.context, 0, 0), RGB(part, part, part)) << std::hex << operation;
    }
}

TEST_F(DrawingTest, StretchingTakesTheNearestPixelAndNegativeSizesMirror) {
    const struct {
        int x, width, sourceX, sourceWidth;
        const char* row;
    } cases[] = {
        {1, 4, 0, 4, "\n.rgb#.....\n"},  {4, -4, 0, 4, "\n.#bgr.....\n"},
        {1, 4, 3, -4, "\n.#bgr.....\n"}, {4, -4, 3, -4, "\n.rgb#.....\n"},
        {1, 8, 0, 4, "\n.rrggbb##.\n"},  {8, -8, 0, 4, "\n.##bbggrr.\n"},
        {1, 2, 0, 4, "\n.g#.......\n"},  {1, 3, 0, 3, "\n.rgb......\n"},
        {-1, 4, 0, 4, "\ngb#.......\n"}, {8, 4, 0, 4, "\n........rg\n"},
    };
    PixelCanvas source(4, 1);
    for (int x = 0; x < 3; ++x) {
        SetPixel(source.context, x, 0, RGB(x == 0 ? 255 : 0, x == 1 ? 255 : 0, x == 2 ? 255 : 0));
    }
    SetPixel(source.context, 3, 0, 0);
    for (const auto& test : cases) {
        PixelCanvas canvas(10, 1);
        SetStretchBltMode(canvas.context, COLORONCOLOR);
        EXPECT_TRUE(StretchBlt(canvas.context, test.x, 0, test.width, 1, source.context,
                               test.sourceX, 0, test.sourceWidth, 1, SRCCOPY));
        EXPECT_EQ(canvas.Rows(), test.row) << test.x << " " << test.width << " " << test.sourceX;
    }
    // Within one picture, the source is taken as it was.
    PixelCanvas canvas(6, 1);
    BitBlt(canvas.context, 0, 0, 4, 1, source.context, 0, 0, SRCCOPY);
    BitBlt(canvas.context, 1, 0, 4, 1, canvas.context, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.Rows(), "\nrrgb#.\n");
}

TEST_F(DrawingTest, PackedBitmapsOfEveryDepthAreDrawn) {
    struct Packed {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    };
    const struct {
        WORD bits;
        int height;
        std::vector<BYTE> rows;
        const char* picture;
    } cases[] = {
        {1, 2, {0x40, 0, 0, 0, 0x80, 0, 0, 0}, "\nr###\n#r##\n"},
        {1, -2, {0x40, 0, 0, 0, 0x80, 0, 0, 0}, "\n#r##\nr###\n"},
        {4, 2, {0x12, 0x30, 0, 0, 0x03, 0x21, 0, 0}, "\n#bgr\nrgb#\n"},
        {8, 2, {1, 2, 3, 0, 0, 3, 2, 1}, "\n#bgr\nrgb#\n"},
        {24, 1, {0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0}, "\nrgb#\n....\n"},
        {32, -1, {0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0, 0, 0, 0, 0}, "\nrgb#\n....\n"},
    };
    for (const auto& test : cases) {
        Packed packed = {};
        packed.header.biSize = sizeof(packed.header);
        packed.header.biWidth = 4;
        packed.header.biHeight = test.height;
        packed.header.biPlanes = 1;
        packed.header.biBitCount = test.bits;
        packed.colors[1] = {0, 0, 255, 0};
        packed.colors[2] = {0, 255, 0, 0};
        packed.colors[3] = {255, 0, 0, 0};
        const auto* info = reinterpret_cast<const BITMAPINFO*>(&packed);
        const int height = std::abs(test.height);
        PixelCanvas canvas(4, 2);
        EXPECT_EQ(StretchDIBits(canvas.context, 0, 0, 4, height, 0, 0, 4, height, test.rows.data(),
                                info, DIB_RGB_COLORS, SRCCOPY),
                  height);
        EXPECT_EQ(canvas.Rows(), test.picture) << test.bits;
        canvas.Clear();
        EXPECT_EQ(
            SetDIBitsToDevice(canvas.context, 0, 0, 4, static_cast<DWORD>(height), 0, 0, 0,
                              static_cast<UINT>(height), test.rows.data(), info, DIB_RGB_COLORS),
            height);
        EXPECT_EQ(canvas.Rows(), test.picture) << test.bits;
    }
}

TEST_F(DrawingTest, SectionsAreSeenInTheirOwnFormat) {
    for (const WORD bits : {WORD{24}, WORD{32}}) {
        for (const bool topDown : {false, true}) {
            PixelCanvas canvas(3, 2, bits, topDown);
            SetPixel(canvas.context, 0, 0, kRed);
            SetPixel(canvas.context, 2, 1, RGB(1, 2, 3));
            EXPECT_EQ(canvas.Rows(), "\nr..\n..?\n") << bits;
            EXPECT_EQ(canvas.At(2, 1), 0x010203u);
            // What the program writes is what is there to read.
            const size_t lastRow = static_cast<size_t>(3 * bits / 8 + 3) / 4 * 4;
            std::memset(static_cast<BYTE*>(canvas.memory) + (topDown ? lastRow : 0), 0, 3);
            EXPECT_EQ(GetPixel(canvas.context, 0, 1), 0u);
            BITMAP description;
            EXPECT_EQ(GetObjectW(canvas.bitmap, sizeof(description), &description),
                      static_cast<int>(sizeof(description)));
            EXPECT_EQ(description.bmBits, canvas.memory);
            EXPECT_EQ(description.bmBitsPixel, bits);
            EXPECT_EQ(description.bmWidthBytes, 12);
            EXPECT_EQ(description.bmHeight, 2);
        }
    }
}

TEST_F(DrawingTest, OneBitBitmapsTakeAndGiveTheContextsColours) {
    PixelCanvas canvas(4, 1);
    const BYTE bits[] = {0x50, 0};
    HBITMAP mask = CreateBitmap(4, 1, 1, 1, bits);
    HDC memory = CreateCompatibleDC(canvas.context);
    HGDIOBJ before = SelectObject(memory, mask);
    SetTextColor(canvas.context, kRed);
    SetBkColor(canvas.context, RGB(0, 0, 255));
    BitBlt(canvas.context, 0, 0, 4, 1, memory, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.Rows(), "\nrbrb\n");
    // The other way, the source's background colour becomes white.
    SetBkColor(canvas.context, kRed);
    BitBlt(memory, 0, 0, 4, 1, canvas.context, 0, 0, SRCCOPY);
    EXPECT_EQ(GetPixel(memory, 0, 0), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(memory, 1, 0), 0u);
    SelectObject(memory, before);
    DeleteDC(memory);
    DeleteObject(mask);
}

TEST_F(DrawingTest, PatternsRepeatFromTheBrushesOrigin) {
    PixelCanvas tile(2, 2);
    SetPixel(tile.context, 0, 0, kRed);
    SetPixel(tile.context, 1, 1, 0);
    PixelCanvas canvas(5, 3);
    HBRUSH brush = CreatePatternBrush(tile.bitmap);
    const RECT all = {0, 0, 5, 3};
    EXPECT_TRUE(FillRect(canvas.context, &all, brush));
    EXPECT_EQ(canvas.Rows(), "\nr.r.r\n.#.#.\nr.r.r\n");
    EXPECT_TRUE(SetBrushOrgEx(canvas.context, 1, 0, nullptr));
    const RECT part = {1, 1, 4, 3};
    EXPECT_TRUE(FillRect(canvas.context, &part, brush));
    EXPECT_EQ(canvas.Rows(), "\nr.r.r\n..#..\nrr.rr\n");
    DeleteObject(brush);
}

TEST_F(DrawingTest, ClippingNarrowsAndIsRestored) {
    PixelCanvas canvas(6, 4);
    RECT box;
    EXPECT_EQ(GetClipBox(canvas.context, &box), SIMPLEREGION);
    EXPECT_EQ(box.right, 6);
    EXPECT_EQ(SaveDC(canvas.context), 1);
    EXPECT_EQ(IntersectClipRect(canvas.context, -5, 0, 5, 3), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(canvas.context, 1, 1, 3, 2), COMPLEXREGION);
    EXPECT_EQ(GetClipBox(canvas.context, &box), COMPLEXREGION);
    EXPECT_EQ(box.left, 0);
    EXPECT_EQ(box.right, 5);
    const RECT all = {-1, 0, 10, 10};
    FillRect(canvas.context, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(canvas.Rows(), "\n#####.\n#..##.\n#####.\n......\n");
    EXPECT_EQ(IntersectClipRect(canvas.context, 50, 0, 60, 3), NULLREGION);
    EXPECT_TRUE(RestoreDC(canvas.context, -1));
    EXPECT_FALSE(RestoreDC(canvas.context, -1));
    SetPixel(canvas.context, 5, 3, kRed);
    EXPECT_EQ(canvas.Rows(), "\n#####.\n#..##.\n#####.\n.....r\n");
}

TEST_F(DrawingTest, FramesEdgesAndFocus) {
    PixelCanvas canvas(6, 5);
    HBRUSH red = CreateSolidBrush(kRed);
    RECT rect = {1, 1, 6, 5};
    EXPECT_TRUE(FrameRect(canvas.context, &rect, red));
    EXPECT_EQ(canvas.Rows(), "\n......\n.rrrrr\n.r...r\n.r...r\n.rrrrr\n");
    DeleteObject(red);
    canvas.Clear();
    // Every other pixel of the border, and not one inside; drawing it again takes it away.
    EXPECT_TRUE(DrawFocusRect(canvas.context, &rect));
    const std::string focus = canvas.Rows();
    EXPECT_GE(std::count(focus.begin(), focus.end(), '#'), 6);
    EXPECT_EQ(focus.substr(2 * 7 + 3, 3) + focus.substr(3 * 7 + 3, 3), "......");
    EXPECT_TRUE(DrawFocusRect(canvas.context, &rect));
    EXPECT_EQ(canvas.Rows(), "\n......\n......\n......\n......\n......\n");
    const struct {
        UINT edge;
        UINT sides;
        int topLeft;
        int bottomRight;
        RECT inside;
    } edges[] = {
        {EDGE_RAISED, BF_RECT, COLOR_3DLIGHT, COLOR_3DDKSHADOW, {3, 3, 4, 3}},
        {EDGE_SUNKEN, BF_RECT, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT, {3, 3, 4, 3}},
        {BDR_SUNKENOUTER, BF_RECT, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT, {2, 2, 5, 4}},
        {EDGE_ETCHED, BF_TOP, COLOR_BTNSHADOW, -1, {1, 3, 6, 5}},
    };
    for (const auto& test : edges) {
        canvas.Clear();
        RECT inside = rect;
        EXPECT_TRUE(DrawEdge(canvas.context, &inside, test.edge, test.sides | BF_ADJUST));
        EXPECT_TRUE(EqualRect(&inside, &test.inside)) << test.edge;
        EXPECT_EQ(GetPixel(canvas.context, 1, 1), GetSysColor(test.topLeft)) << test.edge;
        EXPECT_EQ(GetPixel(canvas.context, 5, 4),
                  test.bottomRight < 0 ? RGB(255, 255, 255) : GetSysColor(test.bottomRight));
    }
}

TEST_F(DrawingTest, ObjectsLiveUntilDeletedAndUnselected) {
    HDC first = CreateCompatibleDC(nullptr);
    HDC second = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
    HGDIOBJ before = SelectObject(first, bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr) << "in one context at a time";
    EXPECT_EQ(SelectObject(first, before), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), before) << "all begin with the same bitmap";
    SelectObject(second, before);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_FALSE(DeleteObject(bitmap));
    EXPECT_EQ(SelectObject(first, bitmap), nullptr);
    HBRUSH brush = CreateSolidBrush(kRed);
    SelectObject(first, brush);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_EQ(SelectObject(first, GetStockObject(BLACK_BRUSH)), brush) << "still in use";
    EXPECT_EQ(SelectObject(first, brush), nullptr);
    EXPECT_FALSE(DeleteObject(nullptr));
    EXPECT_TRUE(DeleteObject(GetStockObject(BLACK_PEN)));
    LOGFONTW font;
    EXPECT_EQ(GetObjectW(GetStockObject(DEFAULT_GUI_FONT), 0, nullptr),
              static_cast<int>(sizeof(font)));
    EXPECT_EQ(GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font),
              static_cast<int>(sizeof(font)));
    EXPECT_EQ(font.lfHeight, -11);
    EXPECT_TRUE(DeleteDC(first));
    EXPECT_TRUE(DeleteDC(second));
    EXPECT_FALSE(DeleteDC(second));
}

TEST_F(DrawingTest, ContextsRememberWhatIsSet) {
    PixelCanvas canvas(1, 1);
    HDC context = canvas.context;
    EXPECT_EQ(SetTextColor(context, kRed), 0u);
    EXPECT_EQ(GetTextColor(context), kRed);
    EXPECT_EQ(SetBkColor(context, kRed), RGB(255, 255, 255));
    EXPECT_EQ(SetBkMode(context, TRANSPARENT), OPAQUE);
    EXPECT_EQ(SetStretchBltMode(context, HALFTONE), BLACKONWHITE);
    EXPECT_EQ(SetICMMode(context, ICM_QUERY), ICM_OFF);
    POINT previous = {};
    EXPECT_TRUE(SetBrushOrgEx(context, 3, 4, nullptr));
    EXPECT_TRUE(SetBrushOrgEx(context, 0, 0, &previous));
    EXPECT_EQ(previous.y, 4);
}

TEST_F(DrawingTest, RectanglesAreComputed) {
    const RECT a = {0, 0, 10, 10};
    const RECT b = {5, 5, 20, 8};
    const RECT aside = {10, 0, 12, 10};
    const RECT none = {};
    RECT result;
    EXPECT_TRUE(IntersectRect(&result, &a, &b));
    EXPECT_TRUE(result.left == 5 && result.top == 5 && result.right == 10 && result.bottom == 8);
    EXPECT_FALSE(IntersectRect(&result, &a, &aside));
    EXPECT_TRUE(EqualRect(&result, &none));
    EXPECT_TRUE(UnionRect(&result, &a, &b));
    EXPECT_TRUE(result.right == 20 && result.bottom == 10);
    EXPECT_TRUE(UnionRect(&result, &none, &b));
    EXPECT_TRUE(EqualRect(&result, &b));
    EXPECT_FALSE(UnionRect(&result, &none, &none));
    EXPECT_TRUE(InflateRect(&result, 1, -1) && OffsetRect(&result, 2, 3));
    EXPECT_TRUE(result.left == 1 && result.right == 3 && result.top == 4 && result.bottom == 2);
    EXPECT_TRUE(PtInRect(&a, POINT{0, 9}));
    EXPECT_FALSE(PtInRect(&a, POINT{10, 0}));
}

}  // namespace
