// The About page: where the driver's version comes from, the firmware's answers, the pictures over
// the page's background and the pointer over the link.
#include "ui/pages/about/about_page.h"
#include "lone_page.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "ui/common/controls.h"
#include "ui/common/module.h"
#include "ui/common/page.h"
#include "ui/common/pictures.h"
#include "ui/pages/about/driver_version.h"

#include <map>

namespace test {
namespace {

class AboutPageTest : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        context_.ModelName = model_.data();
        context_.IsRemotePrinter = 1;  // which asks nobody
    }
    void Open() { OpenPage(IDD_ABOUT, PageProc<kAboutPage>); }

    WideString model_ = TEXT("Mirv KP-41");
};

// ---- The driver's version -----------------------------------------------------------------------

std::string SetupFile(const std::string& install, const std::string& version) {
    return "[KP4xx.NTamd64]\r\n" + install + "\r\n[Version]\r\nSignature=\"$Windows NT$\"\r\n" +
           version + "\r\n";
}
const std::string kOurs = "DataFile=KP4xx.gpd";

class AboutVersionTest : public AboutPageTest {
  protected:
    void TearDown() override {
        for (const WideString& file : written_) {
            std::filesystem::remove(DiskPath(file));
        }
        AboutPageTest::TearDown();
    }
    void Write(const WideString& file, const std::string& text) {
        WriteBytes(file, text);
        written_.push_back(file);
    }
    static WideString SetupFolder() {
        WCHAR windows[MAX_PATH];
        GetWindowsDirectoryW(windows, MAX_PATH);
        return windows + WideString(TEXT("\\inf\\"));
    }
    std::string Version() const { return Looks(IDC_DATE) + "|" + Looks(IDC_VERSION); }

  private:
    std::vector<WideString> written_;
};

TEST_F(AboutVersionTest, InstalledHere) {
    const std::string dated = SetupFile(kOurs, "DriverVer=05/20/2003,3.0.1.7");
    const struct {
        const char* name;
        std::map<std::string, std::string> files;
        std::string version;
    } cases[] = {
        {"nothing installed", {}, "Unknown|Unknown"},
        {"a file of ours", {{"oem7.inf", dated}}, "05/20/2003|3.0.1.7"},
        {"the first of ours in the folder's order",
         {{"oem1.inf", SetupFile("Other=1", "DriverVer=01/01/2001,1")},
          {"oem10.inf", SetupFile(kOurs, "DriverVer=02/02/2002,2")},
          {"oem2.inf", dated}},
         "02/02/2002|2"},
        {"no date", {{"oem7.inf", SetupFile(kOurs, "")}}, "05/20/2003|3.0.0.0"},
        {"no comma", {{"oem7.inf", SetupFile(kOurs, "DriverVer=3.1")}}, "3.1|"},
        {"commas",
         {{"oem7.inf", SetupFile(kOurs, "DriverVer=1/2/2003, 3.1,b")}},
         "1/2/2003| 3.1,b"},
        {"nothing before it", {{"oem7.inf", SetupFile(kOurs, "DriverVer=,3.1")}}, "|3.1"},
        {"a date that only the translation cuts",
         {{"oem7.inf", SetupFile(kOurs, "DriverVer=" + std::string(500, '9') + ",3.1")}},
         std::string(259, '9') + "|3.1"},
        {"a longer text than there is room for",
         {{"oem7.inf", SetupFile(kOurs, "DriverVer=" + std::string(509, '9') + ",3.1")}},
         std::string(259, '9') + "|3"},
        {"no data file's name",
         {{"oem7.inf", SetupFile("DataFile=", "DriverVer=05/20/2003,3.0.1.7")}},
         "Unknown|Unknown"},
        {"one in another section",
         {{"oem7.inf", "[KP4xx]\r\nDataFile=a.gpd\r\n[Version]\r\nDriverVer=1,2\r\n"}},
         "Unknown|Unknown"},
        {"a file of the platform's own", {{"kp4xx.inf", dated}}, "Unknown|Unknown"},
    };
    context_.IsRemotePrinter = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        for (const auto& [file, text] : c.files) {
            Write(SetupFolder() + Wide(file), text);
        }
        Open();
        EXPECT_EQ(Version(), c.version);
        for (const auto& [file, text] : c.files) {
            std::filesystem::remove(DiskPath(SetupFolder() + Wide(file)));
        }
    }
}

TEST_F(AboutVersionTest, TextsFillTheirRoom) {
    Write(SetupFolder() + TEXT("oem7.inf"), SetupFile(kOurs, "DriverVer=" + std::string(600, '9')));
    DriverVersion version;
    ASSERT_TRUE(FindDriverVersion(false, 32, version));
    EXPECT_EQ(WideString(version.Date).size(), kVersionLength - 1);
    EXPECT_EQ(WideString(version.Version), TEXT(""));
}

TEST_F(AboutVersionTest, OfARemotePrinter) {
    Write(SetupFolder() + TEXT("oem7.inf"), SetupFile(kOurs, "DriverVer=05/20/2003,3.0.1.7"));
    Open();
    EXPECT_EQ(Version(), "Unknown|Unknown");
    const struct {
        BYTE code;
        const WCHAR* file;
    } files[] = {
        {32, TEXT("KP4xx.in_")}, {1, TEXT("Card001.in_")}, {31, TEXT("Card031.in_")},
        {33, TEXT("Card.in_")},  {0, TEXT("Card.in_")},
    };
    for (const auto& c : files) {
        SCOPED_TRACE(c.code);
        const WideString path = DriverFolder() + TEXT("\\") + c.file;
        Record().ModelCode = c.code;
        Write(path, SetupFile(kOurs, "DriverVer=01/02/2005,4." + std::to_string(c.code)));
        Open();
        EXPECT_EQ(Version(), "01/02/2005|4." + std::to_string(c.code));
        std::filesystem::remove(DiskPath(path));
        Write(path, SetupFile(kOurs, ""));
        Open();
        EXPECT_EQ(Version(), "09/20/2004|3.2.0.22");
        Write(path, SetupFile("", "DriverVer=01/02/2005,4"));
        Open();
        EXPECT_EQ(Version(), "Unknown|Unknown");
        std::filesystem::remove(DiskPath(path));
    }
}

// ---- Texts and the firmware's version -----------------------------------------------------------

TEST_F(AboutPageTest, NamesTheModelAndShowsFirmwareOfPrintersAtHand) {
    Open();
    EXPECT_EQ(Looks(IDC_DRIVER_TITLE), "Mirv KP-41 Driver");
    EXPECT_EQ(Looks(IDC_FIRMWARE_LABEL) + Looks(IDC_FIRMWARE), "--");
    model_ = WideString(300, 'K');
    context_.ModelName = model_.data();
    context_.IsRemotePrinter = 0;
    Open();
    EXPECT_EQ(Looks(IDC_DRIVER_TITLE), std::string(259, 'K'));
    EXPECT_EQ(Looks(IDC_FIRMWARE_LABEL) + Looks(IDC_FIRMWARE), "FW:");
}

TEST_F(AboutPageTest, EveryMessageIsLeftToTheDialog) {
    Open();
    WideString text = TEXT("1");
    COPYDATASTRUCT answer = {1, sizeof(WCHAR), text.data()};
    NMHDR help = {parent_, 0, 1234};
    const std::tuple<UINT, LPARAM> messages[] = {
        {WM_PAINT, 0},
        {WM_COPYDATA, reinterpret_cast<LPARAM>(&answer)},
        {WM_NOTIFY, reinterpret_cast<LPARAM>(&help)},
        {WM_MOUSEMOVE, 0},
        {WM_LBUTTONUP, 0},
        {WM_COMMAND, 0},
    };
    for (const auto& [message, lParam] : messages) {
        EXPECT_EQ(PageProc<kAboutPage>(page_, message, 0, lParam), FALSE) << message;
    }
}

class FirmwareTest : public SheetTest {
  protected:
    static constexpr int kAboutTab = 7;
    static void Send(HWND page, ULONG_PTR number, void* bytes, DWORD size) {
        COPYDATASTRUCT answer = {number, size, bytes};
        SendMessageW(page, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&answer));
    }
    static std::string Stored(HANDLE printer) {
        DWORD type = REG_SZ;
        const std::vector<BYTE> bytes = StoredValue(printer, TEXT("FwVersion"), &type);
        EXPECT_EQ(type, DWORD{REG_SZ});
        return {bytes.begin(), bytes.end()};
    }
};

std::string BytesOfText(const WideString& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

TEST_F(FirmwareTest, AnswersAreShownAndStored) {
    const WideString longText(5000, '7');
    const struct {
        const char* name;
        ULONG_PTR number;
        std::string bytes;
        const char* shown;  // null: ignored
    } cases[] = {
        {"a text", 1, BytesOfText(WideString(TEXT("1.02"), 5)), "1.02"},
        {"a later text", 1, BytesOfText(WideString(TEXT("R & D 2"), 8)), "R & D 2"},
        {"another query's", 5, BytesOfText(WideString(TEXT("9.99"), 5)), nullptr},
        {"one without its end", 1, BytesOfText(TEXT("1.03")), "1.03"},
        {"bytes behind its end", 1, BytesOfText(WideString(TEXT("1.04\0x"), 6)), "1.04"},
        {"an odd number of bytes", 1, BytesOfText(TEXT("1.05")).substr(0, 7), "1.0"},
        {"no number", 0, BytesOfText(TEXT("9.99")), nullptr},
        {"one byte", 1, "1", ""},
        {"a long text", 1, BytesOfText(longText), nullptr},
    };
    const auto check = [&] {
        HWND page = ShowPage(kAboutTab);
        HANDLE printer = PageContext(page)->PrinterHandle;
        EXPECT_EQ(TextOf(GetDlgItem(page, IDC_FIRMWARE)), "");
        std::string shown;
        std::string stored;
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            // Between other bytes, none of which belongs to the answer.
            std::string memory = "????????" + c.bytes + "????????";
            Send(page, c.number, memory.data() + 8, static_cast<DWORD>(c.bytes.size()));
            if (c.number == 1) {
                shown = c.shown != nullptr ? c.shown : Narrow(longText);
                stored = c.bytes;
            }
            WideString text(longText.size() + 10, 0);
            text.resize(static_cast<size_t>(
                GetDlgItemTextW(page, IDC_FIRMWARE, text.data(), static_cast<int>(text.size()))));
            EXPECT_EQ(Narrow(text), shown);
            EXPECT_TRUE(Stored(printer) == stored);
        }
        Send(page, 1, nullptr, 8);
        Send(page, 1, nullptr, 0);
        SendMessageW(page, WM_COPYDATA, 0, 0);
        EXPECT_TRUE(Stored(printer) == stored) << "without bytes";
    };
    RunSheet(TEXT("Mirv KP-41"), {check}, PSBTN_CANCEL);
}

TEST_F(FirmwareTest, AnAnswerShowsItselfOnARemotePrintersPage) {
    RunSheet(TEXT("Mirv KP-43"), {[&] {
                 HWND page = ShowPage(2);
                 const auto isShown = [&](int control) {
                     return IsWindowVisible(GetDlgItem(page, control)) != FALSE;
                 };
                 EXPECT_FALSE(isShown(IDC_FIRMWARE) || isShown(IDC_FIRMWARE_LABEL));
                 WideString text = TEXT("1.06");
                 Send(page, 1, text.data(), 10);
                 EXPECT_TRUE(isShown(IDC_FIRMWARE) && isShown(IDC_FIRMWARE_LABEL));
                 EXPECT_EQ(TextOf(GetDlgItem(page, IDC_FIRMWARE)), "1.06");
             }},
             PSBTN_CANCEL, TEXT("\\\\server\\cards"));
}

// ---- The pictures -------------------------------------------------------------------------------

constexpr COLORREF kPage = RGB(200, 100, 51);
constexpr COLORREF kCorner = RGB(0x31, 0x9A, 0xC6);  // of the pixel that tells the background

WNDPROC pageProcedure;

LRESULT CALLBACK EraseInColors(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_ERASEBKGND) {
        return CallWindowProcW(pageProcedure, window, message, wParam, lParam);
    }
    HDC context = reinterpret_cast<HDC>(wParam);
    RECT whole;
    GetClientRect(window, &whole);
    HBRUSH brush = CreateSolidBrush(kPage);
    FillRect(context, &whole, brush);
    DeleteObject(brush);
    SetPixel(context, 1, 1, kCorner);
    return 1;
}

class AboutPicturesTest : public AboutPageTest {
  protected:
    void SetUp() override {
        AboutPageTest::SetUp();
        Open();
        pageProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(page_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EraseInColors)));
    }
    void Paint(const RECT* part = nullptr) {
        InvalidateRect(page_, part, TRUE);
        UpdateWindow(page_);
    }
    /// The pixels of a frame that are not as its picture is over a ground, of every third.
    int Different(int control, int picture, int mask, COLORREF ground) const {
        const RECT area = ControlArea(page_, control);
        HDC screen = GetDC(page_);
        int different = 0;
        {
            PictureSet pictures;
            const MemoryCanvas pictureCanvas(screen, pictures.Get(picture));
            const MemoryCanvas maskCanvas(screen, pictures.Get(mask));
            BITMAP size = {};
            GetObjectW(pictures.Get(picture), sizeof(size), &size);
            EXPECT_EQ(area.right - area.left, size.bmWidth) << "the picture is not stretched";
            EXPECT_EQ(area.bottom - area.top, size.bmHeight);
            for (int at = 0; at < size.bmWidth * size.bmHeight; at += 3) {
                const int x = at % size.bmWidth;
                const int y = at / size.bmWidth;
                const COLORREF expected = (GetPixel(maskCanvas.get(), x, y) & ground) |
                                          GetPixel(pictureCanvas.get(), x, y);
                different += GetPixel(screen, area.left + x, area.top + y) != expected;
            }
        }
        ReleaseDC(page_, screen);
        return different;
    }
    int DifferentLogo() const { return Different(IDC_LOGO, IDB_LOGO, IDB_LOGO_MASK, kCorner); }
    int DifferentLink() const { return Different(IDC_LINK, IDB_LINK, IDB_LINK_MASK, kCorner); }
};

TEST_F(AboutPicturesTest, StandOverTheBackgroundOfThePage) {
    Paint();
    EXPECT_EQ(DifferentLogo(), 0);
    EXPECT_EQ(DifferentLink(), 0);
}

TEST_F(AboutPicturesTest, APartIsPaintedOverTheSameBackground) {
    Paint();
    const RECT logo = ControlArea(page_, IDC_LOGO);
    Paint(&logo);
    EXPECT_EQ(DifferentLogo(), 0);
}

// What the way of blending needs of the bitmaps.
TEST_F(AboutPicturesTest, PicturesAreBlackWhereThePageShowsThrough) {
    constexpr std::pair<int, int> kBitmaps[] = {{IDB_LOGO, IDB_LOGO_MASK},
                                                {IDB_LINK, IDB_LINK_MASK}};
    HDC screen = GetDC(page_);
    for (const auto& [picture, mask] : kBitmaps) {
        PictureSet pictures;
        const MemoryCanvas pictureCanvas(screen, pictures.Get(picture));
        const MemoryCanvas maskCanvas(screen, pictures.Get(mask));
        BITMAP size = {};
        GetObjectW(pictures.Get(mask), sizeof(size), &size);
        EXPECT_GT(size.bmBitsPixel, 1) << "its format is the blended picture's";
        int open = 0;
        int wrong = 0;
        for (int at = 0; at < size.bmWidth * size.bmHeight; ++at) {
            const COLORREF through =
                GetPixel(maskCanvas.get(), at % size.bmWidth, at / size.bmWidth);
            const COLORREF color =
                GetPixel(pictureCanvas.get(), at % size.bmWidth, at / size.bmWidth);
            open += through != 0;
            wrong += through != 0 && (through != RGB(255, 255, 255) || color != 0);
        }
        EXPECT_EQ(wrong, 0) << picture;
        EXPECT_GT(open, 100) << picture;
        EXPECT_LT(open, size.bmWidth * size.bmHeight / 2) << picture;
    }
    ReleaseDC(page_, screen);
}

// ---- The link -----------------------------------------------------------------------------------

class AboutLinkTest : public AboutPageTest {
  protected:
    /// The pointer over that place of the page becomes the link's.
    bool IsLink(int x, int y) const {
        const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
        const HCURSOR link = LoadCursorW(ModuleHandle, MAKEINTRESOURCEW(IDCUR_LINK));
        EXPECT_NE(link, nullptr);
        SetCursor(arrow);
        SendMessageW(page_, WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
        return SetCursor(arrow) == link;
    }
};

TEST_F(AboutLinkTest, IsItsFramesRectangle) {
    Open();
    SetWindowPos(page_, nullptr, 7, 9, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const RECT link = ControlArea(page_, IDC_LINK);
    const struct {
        const char* name;
        LONG x, y;
        bool inside;
    } cases[] = {
        {"its first pixel", link.left, link.top, true},
        {"its last pixel", link.right - 1, link.bottom - 1, true},
        {"left of it", link.left - 1, link.top + 5, false},
        {"above it", link.left + 5, link.top - 1, false},
        {"right of it", link.right, link.top + 5, false},
        {"below it", link.left + 5, link.bottom, false},
        {"the logo", ControlArea(page_, IDC_LOGO).left + 9, ControlArea(page_, IDC_LOGO).top + 9,
         false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IsLink(c.x, c.y), c.inside) << c.name;
    }
}

TEST_F(AboutLinkTest, PlacesHaveNoSign) {
    Open();
    SetWindowPos(GetDlgItem(page_, IDC_LINK), nullptr, -40, -20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_TRUE(IsLink(10, 10));
    EXPECT_FALSE(IsLink(-10, 10));
    EXPECT_FALSE(IsLink(10, -10));
}

}  // namespace
}  // namespace test
