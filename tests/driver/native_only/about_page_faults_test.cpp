// The About page as the stand-in sees it: what the shell is asked for, answers at the end of their
// memory, and calls of the platform that fail.
#include "guarded_buffer.h"
#include "lone_page.h"
#include "native_only.h"
#include "resources/resource.h"
#include "ui/common/controls.h"
#include "ui/pages/about/about_page.h"

namespace test {
namespace {

class AboutFaults : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        host::AddPrinter({.name = printer_, .model = model_, .defaultRecord = {}});
        PRINTER_DEFAULTSW all = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterW(printer_.data(), &context_.PrinterHandle, &all));
        context_.ModelName = model_.data();
        context_.PrinterName = printer_.data();
        WriteBytes(TEXT("C:\\Windows\\inf\\oem1.inf"), "[KP4xx.NTamd64]\r\nDataFile=a\r\n");
    }
    void TearDown() override {
        ClosePrinter(context_.PrinterHandle);
        LonePageTest::TearDown();
    }
    void Open() { OpenPage(IDD_ABOUT, PageProc<kAboutPage>); }
    void Paint() {
        InvalidateRect(page_, nullptr, TRUE);
        UpdateWindow(page_);
    }
    void Answer(const std::string& bytes) {
        const GuardedBuffer buffer(bytes.size(), bytes);
        COPYDATASTRUCT answer = {1, static_cast<DWORD>(bytes.size()), buffer.data()};
        SendMessageW(page_, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&answer));
    }
    /// The colours of a frame, row by row.
    std::vector<COLORREF> Pixels(int control) const {
        const RECT area = ControlArea(page_, control);
        std::vector<COLORREF> pixels;
        HDC screen = GetDC(page_);
        for (int y = area.top; y < area.bottom; y += 2) {
            for (int x = area.left; x < area.right; x += 2) {
                pixels.push_back(GetPixel(screen, x, y));
            }
        }
        ReleaseDC(page_, screen);
        return pixels;
    }
    WideString model_ = TEXT("Mirv KP-41");
    WideString printer_ = TEXT("Badge room");
};

TEST_F(AboutFaults, AskTheShellForFirmwareAndWebSite) {
    context_.IsRemotePrinter = 1;
    Open();
    EXPECT_TRUE(host::ShellCalls().empty());
    context_.IsRemotePrinter = 0;
    Open();
    const RECT link = ControlArea(page_, IDC_LINK);
    for (const POINT& at : {POINT{link.left, link.top}, POINT{link.right, link.top}}) {
        SendMessageW(page_, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
        SendMessageW(page_, WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
        SendMessageW(page_, WM_LBUTTONDOWN, 0, MAKELPARAM(at.x, at.y));
    }
    ASSERT_EQ(host::ShellCalls().size(), 2u);
    const host::ShellCall& request = host::ShellCalls()[0];
    EXPECT_EQ(Narrow(request.verb + TEXT(" ") + request.file), "open rundll32.exe");
    EXPECT_EQ(Narrow(request.parameters),
              "PrnBridge.dll,DrvUI_GetDeviceInfo -T1 -W" +
                  std::to_string(static_cast<int>(reinterpret_cast<LONG_PTR>(page_))) +
                  " -P\"Badge room\"");
    EXPECT_EQ(request.folder, DriverFolder());
    EXPECT_EQ(request.show, SW_SHOWNORMAL);
    const host::ShellCall& site = host::ShellCalls()[1];
    EXPECT_EQ(Narrow(site.verb + TEXT(" ") + site.file), "open https://www.example.com/");
    EXPECT_EQ(Narrow(site.parameters + site.folder), "");
    EXPECT_EQ(site.show, SW_SHOWNORMAL);
}

TEST_F(AboutFaults, AnswersAreNotReadBeyondTheirEnd) {
    Open();
    Answer(std::string("1\0.\0", 4));
    EXPECT_EQ(Looks(IDC_FIRMWARE), "1.");
    Answer(std::string("2\0", 2));
    EXPECT_EQ(Looks(IDC_FIRMWARE), "2");
}

TEST_F(AboutFaults, TextsStayAsTheyWereWhateverFails) {
    Open();
    EXPECT_EQ(Looks(IDC_DATE), "05/20/2003");
    const auto open = [&] { Open(); };
    const auto look = [&](unsigned n) {
        EXPECT_EQ(Looks(IDC_DRIVER_TITLE), "Mirv KP-41 Driver") << n;
        EXPECT_TRUE(Looks(IDC_DATE) == "05/20/2003" || Looks(IDC_DATE) == "Unknown") << n;
        EXPECT_EQ(Looks(IDC_FIRMWARE), "") << n;
    };
    for (const host::Call kind : {host::Call::kFile, host::Call::kShell, host::Call::kProfile}) {
        EXPECT_GT(FailEach(kind, open, look), 0u);
    }
    // Without its memory a text is not shown, without a spooler it is not stored; the next one is.
    Answer(std::string("1\0", 2));
    host::FailCall(host::Call::kGlobal, 1);
    host::FailCall(host::Call::kSpooler, 1);
    Answer(std::string("2\0", 2));
    EXPECT_EQ(Looks(IDC_FIRMWARE), "1");
    Answer(std::string("3\0", 2));
    EXPECT_EQ(Looks(IDC_FIRMWARE), "3");
    EXPECT_TRUE(host::MessageBoxes().empty());
}

TEST_F(AboutFaults, AFrameIsPaintedWholeOrNotAtAll) {
    Open();
    Paint();
    const std::vector<COLORREF> logo = Pixels(IDC_LOGO);
    const std::vector<COLORREF> link = Pixels(IDC_LINK);
    const std::vector<COLORREF> bareLogo(logo.size(), GetSysColor(COLOR_BTNFACE));
    const std::vector<COLORREF> bareLink(link.size(), GetSysColor(COLOR_BTNFACE));
    for (const host::Call kind : {host::Call::kDrawing, host::Call::kResource}) {
        int without = 0;
        const unsigned calls = FailEach(
            kind, [&] { Paint(); },
            [&](unsigned n) {
                const std::vector<COLORREF> nowLogo = Pixels(IDC_LOGO);
                const std::vector<COLORREF> nowLink = Pixels(IDC_LINK);
                EXPECT_TRUE(nowLogo == logo || nowLogo == bareLogo) << n;
                EXPECT_TRUE(nowLink == link || nowLink == bareLink) << n;
                without += nowLogo == bareLogo;
                without += nowLink == bareLink;
            });
        // Each bitmap is one of two frames', as are three canvases and one bitmap of their own.
        EXPECT_GE(without, kind == host::Call::kResource ? 4 : 8) << calls;
        Paint();
    }
}

}  // namespace
}  // namespace test
