// What the Tools page starts, which a real computer would: the maintenance programs, and the query
// for the calibration table each time the page is shown.
#include "platform/host.h"
#include "resources/resource.h"
#include "sheet_test.h"
#include "tools_page.h"
#include "ui/pages/tools/calibration_preview.h"

namespace test {
namespace {

constexpr const char* kFolder = "C:\\Windows\\system32\\spool\\drivers\\x64\\3";

using ToolsProgramsTest = ToolsPageTest;

TEST_F(ToolsProgramsTest, EachButtonStartsItsProgramForThePrinter) {
    const struct {
        int button;
        const char* program;
        const char* parameters;
    } cases[] = {
        {IDC_CLEANING_TOOL, "Cleaner.exe", "-n\"Badge room\""},
        {IDC_CLEAN_MAGNETIC_HEAD, "Cleaner.exe", "-n\"Badge room\" -T1"},
        {IDC_CORRECT_RIBBON_SENSOR, "FilmAlign.exe", "-n\"Badge room\""},
        {IDC_FEED_CHIP_CARD, "UnitDiag.exe", "-n\"Badge room\""},
        {IDC_TEST_MAGNETIC_READING, "StripeDiag.exe", "-n\"Badge room\""},
    };
    for (const DWORD network : {0u, 1u}) {
        for (const DWORD rewritable : {0u, 1u}) {
            context_.IsNetworkPort = network;
            context_.IsKP43Family = rewritable;
            Open();
            for (const auto& c : cases) {
                if (!IsShown(c.button)) {
                    continue;
                }
                const size_t before = host::ShellCalls().size();
                Click(c.button);
                ASSERT_EQ(host::ShellCalls().size(), before + 1) << c.program;
                const host::ShellCall& call = host::ShellCalls().back();
                EXPECT_EQ(Narrow(call.file), std::string(kFolder) + "\\" + c.program);
                EXPECT_EQ(Narrow(call.parameters), c.parameters);
                EXPECT_EQ(Narrow(call.verb + TEXT("|") + call.folder), "open|");
                EXPECT_EQ(call.show, SW_SHOWNORMAL);
            }
        }
    }
    EXPECT_EQ(host::ShellCalls().size(), 2 * 5u + 2 * 1u);
    EXPECT_EQ(TakeChanges(), 0);
}

TEST_F(ToolsProgramsTest, APrinterWithoutANameIsAskedForNone) {
    context_.PrinterName = nullptr;
    Open();
    Click(IDC_CLEAN_MAGNETIC_HEAD);
    EXPECT_EQ(Narrow(host::ShellCalls().back().parameters), "-n\"\" -T1");
}

TEST_F(ToolsProgramsTest, AProgramThatCannotBeStartedIsNotSpokenOf) {
    Open();
    host::FailCall(host::Call::kShell, 1, ERROR_FILE_NOT_FOUND);
    Click(IDC_CLEANING_TOOL);
    EXPECT_TRUE(host::MessageBoxes().empty());
}

TEST_F(ToolsProgramsTest, AClickAloneStartsThem) {
    Open();
    for (const int notification : {BN_DOUBLECLICKED, EN_CHANGE, EN_KILLFOCUS}) {
        SendMessageW(page_, WM_COMMAND, MAKEWPARAM(IDC_CLEANING_TOOL, notification), 0);
    }
    EXPECT_TRUE(host::ShellCalls().empty());
}

TEST_F(ToolsProgramsTest, OnePictureIsHeldWhileThePageIsOpen) {
    const unsigned closed = host::CurrentHoldings().drawingObjects;
    Open();
    const unsigned withoutPicture = host::CurrentHoldings().drawingObjects;
    std::filesystem::copy_file(
        std::filesystem::path(KPD_SOURCE_DIR) / "package/pictures/CalPrvEn.bmp",
        DiskPath(DriverFolder() + TEXT("\\CalPrvEn.bmp")));
    for (int time = 0; time < 2; ++time) {
        Open();
        EXPECT_EQ(host::CurrentHoldings().drawingObjects, withoutPicture + 1);
    }
    LoadCalibrationPreview();  // as another sheet's page does
    EXPECT_EQ(host::CurrentHoldings().drawingObjects, withoutPicture + 1);
    DestroyWindow(std::exchange(page_, nullptr));
    EXPECT_EQ(host::CurrentHoldings().drawingObjects, closed);
}

class ToolsQueryTest : public SheetTest {};

TEST_F(ToolsQueryTest, ThePrinterIsAskedEachTimeThePageIsShown) {
    constexpr int kTools = 3;
    HWND page = nullptr;
    RunSheet(TEXT("Mirv KP-41"),
             {[] { EXPECT_TRUE(host::ShellCalls().empty()); }, [&] { page = ShowPage(kTools); },
              [&] {
                  ShowPage(0);
                  EXPECT_EQ(ShowPage(kTools), page);
              }},
             PSBTN_CANCEL);
    ASSERT_EQ(host::ShellCalls().size(), 2u);
    const auto window = static_cast<int>(reinterpret_cast<LONG_PTR>(page));
    for (const host::ShellCall& call : host::ShellCalls()) {
        EXPECT_EQ(Narrow(call.file), "rundll32.exe");
        EXPECT_EQ(Narrow(call.parameters), "PrnBridge.dll,DrvUI_GetDeviceInfo -T5 -W" +
                                               std::to_string(window) + " -P\"Badge room\"");
        EXPECT_EQ(Narrow(call.folder), kFolder);
    }
}

}  // namespace
}  // namespace test
