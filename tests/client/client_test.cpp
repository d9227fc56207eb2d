// The built library as its real caller uses it: the platform's spooler client loads it as the
// configuration file of the printer's driver. Nothing here calls the driver directly.
#include <windows.h>
#include <gtest/gtest.h>

#include <prsht.h>
#include <winspool.h>

#include "core/device_mode.h"
#include "resources/resource.h"
#include "sheet_session.h"
#include "tools/computer/computer.h"

#include <cstring>

namespace test {
namespace {

using WideString = std::basic_string<WCHAR>;

class ClientTest : public ::testing::Test {
  protected:
    void SetUp() override { UsePrinter(TEXT("Mirv KP-41")); }
    void TearDown() override {
        ClosePrinter(printer_);
        computer::RemovePrinter(name_);
    }

    void UsePrinter(const WideString& model, std::vector<BYTE> defaultRecord = {}) {
        if (printer_ != nullptr) {
            ClosePrinter(printer_);
        }
        ASSERT_EQ(computer::InstallPrinter({name_, model, {}, defaultRecord}), "");
        ASSERT_TRUE(OpenPrinterW(name_.data(), &printer_, nullptr));
    }

    DWORD Capability(WORD index, void* output = nullptr, const DEVMODEW* record = nullptr) {
        return DeviceCapabilitiesW(name_.c_str(), TEXT("FILE:"), index, static_cast<WCHAR*>(output),
                                   record);
    }

    LONG Properties(DEVMODEW* output, DEVMODEW* input, DWORD mode) {
        return DocumentPropertiesW(nullptr, printer_, name_.data(), output, input, mode);
    }

    WideString name_ = TEXT("Client's card printer");
    HANDLE printer_ = nullptr;
};

TEST_F(ClientTest, CapabilitiesReachTheApplication) {
    EXPECT_EQ(Capability(DC_COPIES), 9999u);
    EXPECT_EQ(Capability(DC_SIZE), 220u);
    EXPECT_EQ(Capability(DC_EXTRA), 364u);
    EXPECT_EQ(Capability(DC_NUP), 0xFFFFFFFFu);
    WORD paper = 0;
    EXPECT_EQ(Capability(DC_PAPERS, &paper), 1u);
    EXPECT_EQ(paper, 560);
    WCHAR form[64] = {};
    EXPECT_EQ(Capability(DC_PAPERNAMES, form), 1u);
    EXPECT_EQ(WideString(form), TEXT("CR-80 Card"));
    WCHAR bin[24] = {};
    EXPECT_EQ(Capability(DC_BINNAMES, bin), 1u);
    EXPECT_EQ(WideString(bin), TEXT("Auto-Feed"));
}

TEST_F(ClientTest, DefaultRecordOfEachExceptionalModel) {
    const struct {
        const WCHAR* model;
        BYTE ribbon, printingMode, cardType;
    } cases[] = {{TEXT("Mirv KP-41"), 0, 1, 0},
                 {TEXT("Mirv KP-511"), 0, 0, 0},
                 {TEXT("Mirv KP-430e"), 1, 1, 5}};
    for (const auto& c : cases) {
        UsePrinter(c.model);
        EXPECT_EQ(Properties(nullptr, nullptr, 0), 584);
        DevModeRecord record = {};
        ASSERT_EQ(Properties(&record.Public, nullptr, DM_OUT_BUFFER), IDOK);
        EXPECT_EQ(record.Public.dmSize, 220);
        EXPECT_EQ(record.Public.dmDriverExtra, 364);
        EXPECT_EQ(record.Public.dmLogPixels, 300);
        EXPECT_EQ(record.Private.ModelCode, 32);
        EXPECT_EQ(record.Private.RibbonType, c.ribbon);
        EXPECT_EQ(record.Private.PrintingMode, c.printingMode);
        EXPECT_EQ(record.Private.CardType, c.cardType);
    }
}

TEST_F(ClientTest, ApplicationsRecordIsMergedInItsOwnBuffer) {
    DevModeRecord record = {};
    ASSERT_EQ(Properties(&record.Public, nullptr, DM_OUT_BUFFER), IDOK);
    record.Public.dmCopies = 10000;
    record.Public.dmOrientation = 1;
    record.Private.RibbonType = 15;
    record.Private.CardThickness = 3;
    ASSERT_EQ(Properties(&record.Public, &record.Public, DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(record.Public.dmCopies, 1);
    EXPECT_EQ(record.Public.dmOrientation, 1);
    EXPECT_EQ(record.Private.RibbonType, 0);
    EXPECT_EQ(record.Private.CardThickness, 3);
}

TEST_F(ClientTest, OldApplicationGetsItsOwnLayoutBack) {
    DEVMODEW old = {};
    old.dmSize = 188;
    old.dmDriverVersion = 1;
    old.dmFields = DM_COPIES;
    old.dmCopies = 4;
    BYTE output[584];
    std::memset(output, 0xA5, sizeof(output));
    auto* record = reinterpret_cast<DEVMODEW*>(output);
    ASSERT_EQ(Properties(record, &old, DM_IN_BUFFER | DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(record->dmSize, 188);
    EXPECT_EQ(record->dmDriverExtra, 0);
    EXPECT_EQ(record->dmCopies, 4);
    for (size_t i = 188; i < sizeof(output); ++i) {
        ASSERT_EQ(output[i], 0xA5) << "written behind the layout asked for, at " << i;
    }
}

TEST_F(ClientTest, PrintersDefaultRecordIsTheStartingPoint) {
    DevModeRecord stored;
    BuildDefaultDevMode(&stored, name_.c_str(), TEXT("Mirv KP-41"));
    stored.Public.dmScale = 55;
    stored.Private.MagRetryTimes = 9;
    const BYTE* bytes = reinterpret_cast<const BYTE*>(&stored);
    UsePrinter(TEXT("Mirv KP-41"), {bytes, bytes + sizeof(stored)});
    DevModeRecord record = {};
    ASSERT_EQ(Properties(&record.Public, nullptr, DM_OUT_BUFFER), IDOK);
    EXPECT_EQ(record.Public.dmScale, 55);
    EXPECT_EQ(record.Private.MagRetryTimes, 9);
}

TEST_F(ClientTest, UnusableRecordIsRefused) {
    DEVMODEW zeroed = {};
    DevModeRecord output = {};
    EXPECT_LT(Properties(&output.Public, &zeroed, DM_IN_BUFFER | DM_OUT_BUFFER), 0);
    EXPECT_EQ(output.Public.dmSize, 0);
}

// Run in processes started with different user languages.
TEST_F(ClientTest, UserLanguageReachesTheRecord) {
    DevModeRecord record = {};
    ASSERT_EQ(Properties(&record.Public, nullptr, DM_OUT_BUFFER), IDOK);
    const WORD language = PRIMARYLANGID(GetUserDefaultUILanguage());
    const bool eastAsian = language == LANG_JAPANESE || language == LANG_KOREAN ||
                           (language == LANG_CHINESE && SUBLANGID(GetUserDefaultUILanguage()) <= 2);
    const bool simplified =
        eastAsian && language == LANG_CHINESE && SUBLANGID(GetUserDefaultUILanguage()) == 2;
    EXPECT_EQ(record.Private.Reserved100, eastAsian ? 1 : 3);
    EXPECT_EQ(record.Private.SkinTone, simplified ? 2 : 1);
}

TEST_F(ClientTest, TheSheetOpensForAnApplication) {
    for (const bool accepts : {true, false}) {
        DevModeRecord record = {};
        RunSheetOf(
            name_, record, [](HWND) {}, accepts ? PSBTN_OK : PSBTN_CANCEL);
        EXPECT_EQ(record.Public.dmSize, accepts ? kPublicSize : 0);
    }
}

// A message box belongs to no window and leaves the sheet to the user. What is pressed there then
// is of no effect.
TEST_F(ClientTest, TheSheetDoesNotEndBehindAMessage) {
    constexpr int kMessageText = 0xFFFF;
    const struct {
        int behind;
        int last;
        WORD size;
    } cases[] = {{PSBTN_CANCEL, PSBTN_OK, kPublicSize}, {PSBTN_OK, PSBTN_CANCEL, 0}};
    for (const auto& c : cases) {
        DevModeRecord record = {};
        bool shown = false;
        const auto answerMessage = [&](HWND sheet, HWND box) {
            shown = true;
            SendMessageW(sheet, PSM_PRESSBUTTON, static_cast<WPARAM>(c.behind), 0);
            SendMessageW(box, WM_COMMAND, IDOK, 0);
        };
        const auto typeTooMany = [&](HWND sheet) {
            HWND page = ShowPage(sheet, IDD_DEVICE_OPTIONS);
            InNextWindowWith(kMessageText, [&](HWND box) { answerMessage(sheet, box); });
            SetFocus(GetDlgItem(page, IDC_COPIES));
            SetDlgItemTextW(page, IDC_COPIES, TEXT("10000"));
            SetFocus(GetDlgItem(page, IDC_RIBBON));
            EXPECT_TRUE(shown);
        };
        RunSheetOf(name_, record, typeTooMany, c.last);
        EXPECT_EQ(record.Public.dmSize, c.size);
    }
}

}  // namespace
}  // namespace test
