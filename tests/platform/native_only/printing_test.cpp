// What only the stand-in shows of drawing: printed documents, icons, means, ordered failures,
// files.
#include "native_only.h"
#include "platform/src/drawing/drawing.h"

#include <functional>

namespace {

using host::Call;

class DrawnNatively : public NativeOnly {
  protected:
    void SetUp() override {
        NativeOnly::SetUp();
        host::AddPrinter({.name = TEXT("P"), .model = TEXT("M"), .defaultRecord = {}});
        record_.dmSize = sizeof(record_);
    }
    HDC Open(const DEVMODEW* record = nullptr) {
        HDC context = CreateDCW(TEXT("WINSPOOL"), TEXT("P"), nullptr, record);
        EXPECT_NE(context, nullptr);
        return context;
    }
    DEVMODEW record_ = {};
    const DOCINFOW document_ = {sizeof(document_), TEXT("Badge"), nullptr, nullptr, 0};
};

TEST_F(DrawnNatively, PagesAreKeptAsDrawn) {
    record_.dmDriverExtra = 0;
    HDC context = Open(&record_);
    const RECT corner = {0, 0, 2, 2};
    HBRUSH black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    FillRect(context, &corner, black);  // before any page: nowhere
    EXPECT_GT(StartDocW(context, &document_), 0);
    EXPECT_GT(StartPage(context), 0);
    EXPECT_GT(EndPage(context), 0);
    EXPECT_GT(StartPage(context), 0);
    FillRect(context, &corner, black);
    EXPECT_GT(EndPage(context), 0);
    EXPECT_GT(EndDoc(context), 0);
    ASSERT_EQ(host::PrintedDocuments().size(), 1u);
    const host::PrintedDocument& printed = host::PrintedDocuments()[0];
    EXPECT_EQ(printed.printer, TEXT("P"));
    EXPECT_EQ(printed.name, TEXT("Badge"));
    EXPECT_EQ(printed.record.size(), sizeof(record_));
    EXPECT_TRUE(printed.ended);
    ASSERT_EQ(printed.pages.size(), 2u);
    EXPECT_EQ(printed.pages[0].At(1, 1), 0xFFFFFFu);
    EXPECT_EQ(printed.pages[1].At(1, 1), 0u);
    EXPECT_EQ(printed.pages[1].At(2, 1), 0xFFFFFFu);
    // The rest of an unfinished document goes with its context.
    EXPECT_GT(StartDocW(context, &document_), 0);
    EXPECT_TRUE(DeleteDC(context));
    ASSERT_EQ(host::PrintedDocuments().size(), 2u);
    EXPECT_FALSE(host::PrintedDocuments()[1].ended);
}

TEST_F(DrawnNatively, CallsOutOfTurnAndOrderedFailuresAreRefused) {
    HDC context = Open();
    EXPECT_EQ(StartPage(context), SP_ERROR);
    EXPECT_EQ(EndPage(context), SP_ERROR);
    EXPECT_EQ(EndDoc(context), SP_ERROR);
    EXPECT_EQ(AbortDoc(context), SP_ERROR);
    host::FailCall(Call::kPrinting, 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(StartDocW(context, &document_), SP_ERROR);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_GT(StartDocW(context, &document_), 0);
    EXPECT_EQ(StartDocW(context, &document_), SP_ERROR);
    EXPECT_GT(StartPage(context), 0);
    EXPECT_EQ(StartPage(context), SP_ERROR);
    EXPECT_GT(AbortDoc(context), 0);
    EXPECT_FALSE(host::PrintedDocuments()[0].ended);
    EXPECT_TRUE(DeleteDC(context));
    EXPECT_EQ(CreateDCW(TEXT("WINSPOOL"), TEXT("Nobody"), nullptr, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PRINTER_NAME});
}

TEST_F(DrawnNatively, ThePaperDecidesTheSize) {
    const struct {
        DWORD fields;
        SHORT width, length, orientation;
        int pixelsWide, pixelsHigh;
    } cases[] = {
        {0, 0, 0, 0, 643, 1015},
        {DM_PAPERWIDTH | DM_PAPERLENGTH, 254, 508, 0, 300, 600},
        {DM_PAPERWIDTH | DM_PAPERLENGTH | DM_ORIENTATION, 254, 508, DMORIENT_LANDSCAPE, 600, 300},
        {DM_ORIENTATION, 0, 0, DMORIENT_LANDSCAPE, 1015, 643},
    };
    for (const auto& test : cases) {
        record_.dmFields = test.fields;
        record_.dmPaperWidth = test.width;
        record_.dmPaperLength = test.length;
        record_.dmOrientation = test.orientation;
        HDC context = Open(&record_);
        EXPECT_EQ(GetDeviceCaps(context, LOGPIXELSY), 300);
        StartDocW(context, &document_);
        StartPage(context);
        EndDoc(context);
        EXPECT_TRUE(DeleteDC(context));
        const host::Picture& page = host::PrintedDocuments().back().pages.at(0);
        EXPECT_EQ(page.width, test.pixelsWide);
        EXPECT_EQ(page.height, test.pixelsHigh);
    }
}

TEST_F(DrawnNatively, DrawingFailsToOrderAndHoldsNothing) {
    HDC context = CreateCompatibleDC(nullptr);
    const LOGFONTW font = {};
    const std::function<bool()> cases[] = {
        [] { return CreateCompatibleDC(nullptr) == nullptr; },
        [] { return CreateSolidBrush(0) == nullptr; },
        [] { return CreatePen(PS_SOLID, 1, 0) == nullptr; },
        [&] { return CreateFontIndirectW(&font) == nullptr; },
        [&] { return CreateCompatibleBitmap(context, 2, 2) == nullptr; },
        [] { return CreateDCW(nullptr, TEXT("P"), nullptr, nullptr) == nullptr; },
    };
    for (const auto& failed : cases) {
        host::FailCall(Call::kDrawing, 1);
        EXPECT_TRUE(failed());
    }
    EXPECT_EQ(host::CurrentHoldings().contexts, 1u);
    EXPECT_EQ(host::CurrentHoldings().drawingObjects, 0u);
    // A bitmap deleted while it is selected is not, which shows in the count.
    HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
    HGDIOBJ before = SelectObject(context, bitmap);
    EXPECT_FALSE(DeleteObject(bitmap));
    EXPECT_EQ(host::CurrentHoldings().drawingObjects, 1u);
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    EXPECT_DEATH(GetDeviceCaps(CreateCompatibleDC(nullptr), 36), "GetDeviceCaps");
}

TEST_F(DrawnNatively, IconsAreDrawnThroughTheirMasks) {
    // Two by two: red, black; then a transparent place and one that inverts. One bit, bottom up.
    struct {
        BITMAPINFOHEADER header = {sizeof(BITMAPINFOHEADER), 2, 4, 1, 1, BI_RGB, 0, 0, 0, 0, 0};
        RGBQUAD colors[2] = {{0, 0, 0, 0}, {0, 0, 255, 0}};
        BYTE picture[8] = {0x40, 0, 0, 0, 0x80};
        BYTE mask[8] = {0xC0, 0, 0, 0, 0x00};
    } resource;
    const auto* bytes = reinterpret_cast<const BYTE*>(&resource);
    HICON icon = host::IconFromDib(bytes, sizeof(resource));
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(host::CurrentHoldings().drawingObjects, 0u) << "it is the system's";
    host::Picture picture = {40, 32, std::vector<std::uint32_t>(40 * 32, 0xFFFF00)};
    HDC context = host::NewPictureContext(&picture, {4, 0}, {{0, 0, 40, 32}});
    EXPECT_TRUE(DrawIcon(context, 0, 0, icon));
    const std::uint32_t expected[][3] = {{3, 8, 0xFFFF00},   {4, 8, 0xFF0000},  {19, 15, 0xFF0000},
                                         {20, 8, 0x000000},  {36, 8, 0xFFFF00}, {12, 24, 0xFFFF00},
                                         {28, 24, 0x00FF00}, {36, 24, 0xFFFF00}};
    for (const auto& [x, y, color] : expected) {
        EXPECT_EQ(picture.At(static_cast<int>(x), static_cast<int>(y)), color) << x << "," << y;
    }
    host::DeletePictureContext(context);
    for (size_t size = 0; size < sizeof(resource); ++size) {
        EXPECT_EQ(host::IconFromDib(bytes, size) != nullptr, false) << size;
    }
}

TEST_F(DrawnNatively, ShrinkingInHalftonesTakesMeans) {
    host::Picture from = {4, 2, {0, 0xFFFFFF, 0x102030, 0x102030, 0xFFFFFF, 0, 0x304050, 0x304050}};
    host::Picture to = {2, 1, {0, 0}};
    HDC source = host::NewPictureContext(&from, {0, 0}, {{0, 0, 4, 2}});
    HDC target = host::NewPictureContext(&to, {0, 0}, {{0, 0, 2, 1}});
    SetStretchBltMode(target, HALFTONE);
    EXPECT_TRUE(StretchBlt(target, 0, 0, 2, 1, source, 0, 0, 4, 2, SRCCOPY));
    EXPECT_EQ(to.pixels, (std::vector<std::uint32_t>{0x808080, 0x203040}));
    host::DeletePictureContext(source);
    host::DeletePictureContext(target);
}

TEST_F(DrawnNatively, PicturesAreWritten) {
    const std::filesystem::path path = host::DriveFolder() / "picture.png";
    EXPECT_TRUE(host::WritePng(path, {2, 1, {0x102030, 0xFFFFFF}}));
    const std::string bytes = test::ReadBytes(TEXT("C:\\picture.png"));
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    EXPECT_EQ(bytes.substr(16, 8), std::string("\0\0\0\2\0\0\0\1", 8));
    EXPECT_FALSE(host::WritePng(host::DriveFolder() / "none" / "picture.png", {1, 1, {0}}));
}

}  // namespace
