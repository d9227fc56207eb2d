// Resources of a program and the pictures that are made of them, or of files.
#include "resources/resource.h"
#include "tests.h"
#include "window_test.h"

namespace {

class ResourcesTest : public test::PlatformTest {
  protected:
    HINSTANCE module_ = GetModuleHandleW(nullptr);

    std::string BytesOf(LPCWSTR name, LPCWSTR type) {
        HRSRC resource = FindResourceW(module_, name, type);
        if (resource == nullptr) {
            return "error " + std::to_string(GetLastError());
        }
        const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module_, resource)));
        return {bytes, SizeofResource(module_, resource)};
    }
};

// The pixels of a bitmap's rows, one letter each.
std::string Letters(HBITMAP bitmap, int width, int height) {
    const std::pair<COLORREF, char> kLetters[] = {
        {RGB(255, 0, 0), 'R'},     {RGB(0, 255, 0), 'G'},   {RGB(0, 0, 255), 'B'},
        {RGB(255, 255, 255), 'W'}, {RGB(0, 0, 0), 'K'},     {RGB(128, 128, 128), 'g'},
        {RGB(255, 255, 0), 'Y'},   {RGB(0, 255, 255), 'C'},
    };
    HDC context = CreateCompatibleDC(nullptr);
    HGDIOBJ before = SelectObject(context, bitmap);
    std::string letters;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            char letter = '?';
            for (const auto& [color, known] : kLetters) {
                letter = color == GetPixel(context, x, y) ? known : letter;
            }
            letters += letter;
        }
    }
    SelectObject(context, before);
    DeleteDC(context);
    return letters;
}

// Where an icon is visible, and in which colour, on green ground.
std::string Drawn(HICON icon, std::initializer_list<POINT> points) {
    constexpr int kSize = 32;
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, kSize, kSize);
    ReleaseDC(nullptr, screen);
    HDC context = CreateCompatibleDC(nullptr);
    HGDIOBJ before = SelectObject(context, bitmap);
    HBRUSH green = CreateSolidBrush(RGB(0, 255, 0));
    const RECT all = {0, 0, kSize, kSize};
    FillRect(context, &all, green);
    DeleteObject(green);
    EXPECT_TRUE(DrawIcon(context, 0, 0, icon));
    std::string letters;
    for (const POINT& point : points) {
        const COLORREF color = GetPixel(context, point.x, point.y);
        letters += color == RGB(0, 255, 0)   ? 'G'
                   : color == RGB(255, 0, 0) ? 'R'
                   : color == RGB(0, 0, 255) ? 'B'
                                             : '?';
    }
    SelectObject(context, before);
    DeleteDC(context);
    DeleteObject(bitmap);
    return letters;
}

TEST_F(ResourcesTest, AreFoundByNumberAndByName) {
    const std::string missing = "error " + std::to_string(ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(BytesOf(MAKEINTRESOURCEW(IDR_BYTES), RT_RCDATA), "ABCDE");
    EXPECT_EQ(BytesOf(TEXT("#1004"), TEXT("#10")), "ABCDE");
    EXPECT_EQ(BytesOf(TEXT("NAMED"), RT_RCDATA), "\x34\x12");
    EXPECT_EQ(BytesOf(TEXT("named"), RT_RCDATA), "\x34\x12");
    EXPECT_EQ(BytesOf(TEXT("NAME"), RT_RCDATA), missing);
    EXPECT_EQ(BytesOf(MAKEINTRESOURCEW(IDR_BYTES + 999), RT_RCDATA), missing);
    EXPECT_EQ(BytesOf(MAKEINTRESOURCEW(IDR_BYTES), TEXT("NOTYPE")),
              "error " + std::to_string(ERROR_RESOURCE_TYPE_NOT_FOUND));
}

TEST_F(ResourcesTest, BitmapsComeFromTheProgramAndFromFiles) {
    const std::string file = "BM" + std::string("\x4E\0\0\0\0\0\0\0\x36\0\0\0", 12) +
                             BytesOf(MAKEINTRESOURCEW(IDB_COLORS), RT_BITMAP);
    const test::WideString path = test::TestFolder() + TEXT("\\colors.bmp");
    test::WriteBytes(path, file);
    HANDLE bitmaps[] = {
        LoadBitmapW(module_, MAKEINTRESOURCEW(IDB_COLORS)),
        LoadBitmapW(module_, TEXT("byname")),
        LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE),
        LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0,
                   LR_LOADFROMFILE | LR_CREATEDIBSECTION),
    };
    for (HANDLE bitmap : bitmaps) {
        BITMAP shape = {};
        EXPECT_NE(GetObjectW(bitmap, sizeof(shape), &shape), 0);
        EXPECT_EQ(std::pair(shape.bmWidth, shape.bmHeight), std::pair(LONG{4}, LONG{2}));
        EXPECT_EQ(Letters(static_cast<HBITMAP>(bitmap), 4, 2), "RGBWKgYC");
        DeleteObject(bitmap);
    }
    EXPECT_EQ(LoadBitmapW(module_, MAKEINTRESOURCEW(IDI_SIZES)), nullptr);
    const test::WideString missing = test::TestFolder() + TEXT("\\missing.bmp");
    EXPECT_EQ(LoadImageW(nullptr, missing.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    test::WriteBytes(path, "BM" + std::string(60, 'x'));
    EXPECT_EQ(LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE), nullptr);
}

// Of an icon's pictures the one in the system's size is taken. Icons and cursors are the system's:
// asked for again they are the same, and nobody gives them back.
TEST_F(ResourcesTest, IconsAndCursorsAreLoadedOnce) {
    const HICON icon = LoadIconW(module_, MAKEINTRESOURCEW(IDI_SIZES));
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(Drawn(icon, {{1, 1}, {16, 16}, {30, 16}}), "GRG");
    EXPECT_EQ(LoadIconW(module_, MAKEINTRESOURCEW(IDI_SIZES)), icon);
    EXPECT_EQ(LoadIconW(module_, MAKEINTRESOURCEW(IDB_COLORS)), nullptr);
    const HCURSOR cursor = LoadCursorW(module_, MAKEINTRESOURCEW(IDCUR_LINK));
    ASSERT_NE(cursor, nullptr);
    EXPECT_EQ(LoadCursorW(module_, MAKEINTRESOURCEW(IDCUR_LINK)), cursor);
    EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_NE(LoadCursorW(nullptr, IDC_ARROW), LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(LoadCursorW(module_, MAKEINTRESOURCEW(IDB_COLORS)), nullptr);
    SetCursor(cursor);
    EXPECT_EQ(SetCursor(nullptr), cursor);
}

}  // namespace
