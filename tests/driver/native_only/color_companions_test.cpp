// What the Color page has of the driver package: the colour chart's program, which a real computer
// would start, and the tone-mapping library, held while the page is open.
#include "color_page.h"
#include "platform/host.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "ui/pages/color/color_page.h"

namespace test {
namespace {

class ColorChartTest : public SheetTest {};

TEST_F(ColorChartTest, TheProgramIsToldThePrinterAndItsCard) {
    const WideString kShared = TEXT("\\\\server\\Badges");
    const struct {
        const char* name;
        DWORD attributes;
        WideString sharedName;
        SHORT paperSize, orientation;
        const char* parameters;
    } cases[] = {
        {"a local printer", PRINTER_ATTRIBUTE_LOCAL, kShared, 560, DMORIENT_LANDSCAPE,
         " -p \"Badge room\" -w 642 -h 1014"},
        {"a long card",
         PRINTER_ATTRIBUTE_LOCAL,
         {},
         561,
         DMORIENT_PORTRAIT,
         " -p \"Badge room\" -w 642 -h 1700"},
        {"another paper",
         PRINTER_ATTRIBUTE_LOCAL,
         {},
         1,
         DMORIENT_PORTRAIT,
         " -p \"Badge room\" -w 642 -h 1014"},
        {"a server's printer", PRINTER_ATTRIBUTE_NETWORK, kShared, 560, DMORIENT_PORTRAIT,
         " -p \"\\\\server\\Badges\" -w 642 -h 1014"},
        {"one whose name is not known",
         PRINTER_ATTRIBUTE_NETWORK,
         {},
         560,
         DMORIENT_PORTRAIT,
         " -p \"Badge room\" -w 642 -h 1014"},
        {"one whose name is too long", PRINTER_ATTRIBUTE_NETWORK, WideString(130, 'x'), 560,
         DMORIENT_PORTRAIT, " -p \"Badge room\" -w 642 -h 1014"},
        {"one whose name just fits", PRINTER_ATTRIBUTE_NETWORK, WideString(129, 'x'), 560,
         DMORIENT_PORTRAIT, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        host::AddPrinter({.name = kPrinterName,
                          .model = TEXT("Mirv KP-41"),
                          .port = TEXT("LPT1:"),
                          .attributes = c.attributes,
                          .defaultRecord = {},
                          .sharedName = c.sharedName});
        HANDLE printer = nullptr;
        WideString name = kPrinterName;
        ASSERT_TRUE(OpenPrinterW(name.data(), &printer, nullptr));
        const size_t calls = host::ShellCalls().size();
        RunInLoop([&] {
            HWND page = ShowPage(2);
            DEVMODEW& record = PageContext(page)->WorkingDevMode.Public;
            record.dmPaperSize = c.paperSize;
            record.dmOrientation = c.orientation;
            SendDlgItemMessageW(page, IDC_COLOR_CHART, BM_CLICK, 0, 0);
        });
        RunOn(printer, PSBTN_CANCEL);
        ClosePrinter(printer);
        ASSERT_EQ(host::ShellCalls().size(), calls + 1);
        const host::ShellCall& call = host::ShellCalls().back();
        EXPECT_EQ(Narrow(call.file), "C:\\Windows\\system32\\spool\\drivers\\x64\\3\\Chartkpd.exe");
        EXPECT_EQ(Narrow(call.parameters),
                  c.parameters != nullptr ? c.parameters
                                          : " -p \"" + Narrow(c.sharedName) + "\" -w 642 -h 1014");
        EXPECT_EQ(Narrow(call.verb + TEXT("|") + call.folder), "open|");
        EXPECT_EQ(call.show, SW_SHOWNORMAL);
    }
}

using ColorLibraryTest = ColorPageTest;

TEST_F(ColorLibraryTest, ItIsLoadedOnceForAPage) {
    std::filesystem::copy_file(KPD_TONE_COMPANION,
                               DiskPath(DriverFolder() + TEXT("\\ToneKit.dll")));
    const unsigned before = host::CurrentHoldings().modules;
    for (int time = 0; time < 2; ++time) {
        InitColorPage(nullptr, context_);
        EXPECT_EQ(host::CurrentHoldings().modules, before) << "without a page";
        Open();
        EXPECT_EQ(host::CurrentHoldings().modules, before + 1);
        const unsigned calls = host::CallCount(host::Call::kModule);
        FillPage(kColorPage, context_);
        EXPECT_EQ(host::CallCount(host::Call::kModule), calls);
        DestroyWindow(std::exchange(page_, nullptr));
        EXPECT_EQ(host::CurrentHoldings().modules, before);
    }
}

}  // namespace
}  // namespace test
