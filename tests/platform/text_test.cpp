// Text: its measures, where it is drawn, and how DrawTextW breaks, places and shortens it. Fonts
// differ between computers, so everything is compared with the font's own measures.
#include "pixel_canvas.h"

#include <algorithm>
#include <memory>

namespace {

using test::PixelCanvas;
using test::WideString;

class TextTest : public test::PlatformTest {
  protected:
    void SetUp() override {
        PlatformTest::SetUp();
        canvas_ = std::make_unique<PixelCanvas>(300, 80);
        SelectObject(canvas_->context, GetStockObject(DEFAULT_GUI_FONT));
        GetTextMetricsW(canvas_->context, &metrics_);
    }
    void TearDown() override {
        canvas_.reset();
        PlatformTest::TearDown();
    }
    HDC context() { return canvas_->context; }
    int Width(const WideString& text) {
        SIZE size = {};
        EXPECT_TRUE(
            GetTextExtentPoint32W(context(), text.c_str(), static_cast<int>(text.size()), &size));
        EXPECT_EQ(size.cy, metrics_.tmHeight);
        return size.cx;
    }
    /// The smallest rectangle around everything that is not white.
    RECT Inked() {
        RECT inked = {300, 80, 0, 0};
        for (int y = 0; y < 80; ++y) {
            for (int x = 0; x < 300; ++x) {
                if (canvas_->At(x, y) != 0xFFFFFF) {
                    const RECT pixel = {x, y, x + 1, y + 1};
                    inked = {std::min(inked.left, pixel.left), std::min(inked.top, pixel.top),
                             std::max(inked.right, pixel.right),
                             std::max(inked.bottom, pixel.bottom)};
                }
            }
        }
        return inked;
    }

    std::unique_ptr<PixelCanvas> canvas_;
    TEXTMETRICW metrics_ = {};
};

TEST_F(TextTest, MeasuresAddUp) {
    EXPECT_EQ(metrics_.tmHeight, 13);
    EXPECT_EQ(metrics_.tmHeight, metrics_.tmAscent + metrics_.tmDescent);
    EXPECT_EQ(metrics_.tmHeight - metrics_.tmInternalLeading, 11);
    EXPECT_EQ(metrics_.tmWeight, FW_NORMAL);
    EXPECT_EQ(Width(TEXT("Card")) + Width(TEXT(" printer")), Width(TEXT("Card printer")));
    // Ideographs come from another font when need be, and are there.
    EXPECT_GT(Width(TEXT("\x65E5\x672C")), 0);
}

TEST_F(TextTest, FontsAreMadeToTheHeightAskedFor) {
    LOGFONTW font = {};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
    const int plainWidth = Width(TEXT("Width"));
    for (const LONG height : {-24, 24, -8}) {
        font.lfHeight = height;
        font.lfWeight = FW_BOLD;
        HFONT made = CreateFontIndirectW(&font);
        HGDIOBJ before = SelectObject(context(), made);
        TEXTMETRICW metrics;
        EXPECT_TRUE(GetTextMetricsW(context(), &metrics));
        EXPECT_EQ(height < 0 ? -(metrics.tmHeight - metrics.tmInternalLeading) : metrics.tmHeight,
                  height);
        EXPECT_EQ(metrics.tmWeight, FW_BOLD);
        SIZE size;
        GetTextExtentPoint32W(context(), TEXT("Width"), 5, &size);
        EXPECT_EQ(size.cx > plainWidth, std::abs(height) > 11);
        EXPECT_EQ(SelectObject(context(), before), made);
        EXPECT_TRUE(DeleteObject(made));
    }
}

TEST_F(TextTest, TextIsDrawnInItsCell) {
    // A capital stands on the base line and is no wider than its cell.
    SetBkMode(context(), TRANSPARENT);
    EXPECT_TRUE(TextOutW(context(), 100, 40, TEXT("H"), 1));
    const RECT inked = Inked();
    EXPECT_EQ(inked.bottom, 40 + metrics_.tmAscent);
    EXPECT_GE(inked.left, 100);
    EXPECT_LE(inked.right, 100 + Width(TEXT("H")));
}

TEST_F(TextTest, BackgroundsFillTheCellOrTheRectangleGiven) {
    SetBkColor(context(), RGB(0, 0, 255));
    SetTextColor(context(), RGB(0, 0, 255));
    EXPECT_TRUE(TextOutW(context(), 10, 10, TEXT("AB"), 2));
    const RECT cell = {10, 10, 10 + Width(TEXT("AB")), 10 + metrics_.tmHeight};
    RECT inked = Inked();
    EXPECT_TRUE(EqualRect(&inked, &cell));
    canvas_->Clear();
    const RECT rect = {20, 20, 60, 50};
    EXPECT_TRUE(ExtTextOutW(context(), 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr));
    inked = Inked();
    EXPECT_TRUE(EqualRect(&inked, &rect)) << "the usual way to fill a rectangle";
    canvas_->Clear();
    const RECT clip = {12, 10, 14, 20};
    EXPECT_TRUE(ExtTextOutW(context(), 10, 10, ETO_CLIPPED, &clip, TEXT("AB"), 2, nullptr));
    inked = Inked();
    EXPECT_TRUE(EqualRect(&inked, &clip));
}

TEST_F(TextTest, RectanglesAreMeasuredAroundText) {
    const int line = metrics_.tmHeight;
    const struct {
        const WCHAR* text;
        UINT format;
        int room;
        WideString widest;
        int lines;
    } cases[] = {
        {TEXT("Hello"), 0, 500, TEXT("Hello"), 1},
        {TEXT("Hello world"), DT_SINGLELINE, 20, TEXT("Hello world"), 1},
        {TEXT("&File && x"), 0, 500, TEXT("File & x"), 1},
        {TEXT("&File && x"), DT_NOPREFIX, 500, TEXT("&File && x"), 1},
        {TEXT("one\nand two\r\n3"), 0, 500, TEXT("and two"), 3},
        {TEXT("one\n\none and two"), 0, 500, TEXT("one and two"), 3},
        {TEXT("one\n"), 0, 500, TEXT("one"), 1},
        {TEXT("wwwww  iii\niii"), DT_WORDBREAK, 500, TEXT("wwwww  iii"), 2},
        {TEXT("wwwwwwwwwwwwww"), DT_WORDBREAK, 30, TEXT("wwwwwwwwwwwwww"), 1},
    };
    for (const auto& test : cases) {
        RECT rect = {10, 20, 10 + test.room, 21};
        EXPECT_EQ(DrawTextW(context(), test.text, -1, &rect, test.format | DT_CALCRECT),
                  test.lines * line)
            << test::Narrow(test.text);
        const RECT expected = {10, 20, 10 + Width(test.widest), 20 + test.lines * line};
        EXPECT_TRUE(EqualRect(&rect, &expected)) << test::Narrow(test.text) << " " << rect.right;
    }
    RECT broken = {0, 0, 60, 1};
    EXPECT_EQ(
        DrawTextW(context(), TEXT("wwwww wwww wwwww"), -1, &broken, DT_CALCRECT | DT_WORDBREAK),
        3 * line);
    EXPECT_GE(broken.right, Width(TEXT("wwwww")));
    EXPECT_LE(broken.right, 60);
    RECT rect = {0, 0, 500, 1};
    DrawTextW(context(), TEXT("a\tb"), -1, &rect, DT_CALCRECT | DT_EXPANDTABS);
    EXPECT_EQ(rect.right, 8 * metrics_.tmAveCharWidth + Width(TEXT("b")));
    rect = {0, 0, 40, 20};
    DrawTextW(context(), TEXT("wwwwwwwwwwwwww"), -1, &rect,
              DT_CALCRECT | DT_SINGLELINE | DT_END_ELLIPSIS);
    EXPECT_LE(rect.right, 40);
    EXPECT_GT(rect.right, Width(TEXT("...")));
}

TEST_F(TextTest, TextIsPlacedInItsRectangle) {
    SetBkMode(context(), TRANSPARENT);
    const int width = Width(TEXT("H"));
    const int line = metrics_.tmHeight;
    const struct {
        UINT format;
        int left;
        int top;
        int result;
    } cases[] = {
        {0, 10, 10, line},
        {DT_CENTER, 10 + (101 - width) / 2, 10, line},
        {DT_RIGHT, 111 - width, 10, line},
        {DT_SINGLELINE | DT_VCENTER, 10, 10 + (41 - line) / 2, (41 - line) / 2 + line},
    };
    for (const auto& test : cases) {
        canvas_->Clear();
        RECT rect = {10, 10, 111, 51};
        EXPECT_EQ(DrawTextW(context(), TEXT("H"), -1, &rect, test.format), test.result);
        const RECT inked = Inked();
        EXPECT_EQ(inked.bottom, test.top + metrics_.tmAscent) << test.format;
        EXPECT_GE(inked.left, test.left) << test.format;
        EXPECT_LE(inked.right, test.left + width) << test.format;
    }
    // Nothing leaves the rectangle.
    canvas_->Clear();
    RECT narrow = {10, 10, 20, 50};
    DrawTextW(context(), TEXT("HHHHHH"), -1, &narrow, 0);
    EXPECT_LE(Inked().right, 20);
    // A mnemonic is underlined below its letter.
    canvas_->Clear();
    RECT rect = {10, 10, 111, 50};
    DrawTextW(context(), TEXT("&H"), -1, &rect, 0);
    EXPECT_GT(Inked().bottom, 10 + metrics_.tmAscent);
}

}  // namespace
