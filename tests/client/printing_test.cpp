// The driver's own print jobs on their way through the platform's spooler: our library is the
// configuration file of a driver whose other half is the platform's PostScript driver.
#include <windows.h>
#include <gtest/gtest.h>

#include <winspool.h>

#include "bench/post_script_printer.h"
#include "core/context.h"
#include "core/driver_files.h"
#include "ui/pages/print_area/erase_job.h"
#include "ui/pages/tools/calibration_chart.h"

#include <filesystem>
#include <fstream>

namespace test {
namespace {

using WideString = std::basic_string<WCHAR>;

std::string Read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::filesystem::path DriverFile(const WCHAR* name) {
    WCHAR path[kDriverPathLength];
    DriverFilePath(path, name);
    return path;
}

// ---- The PostScript driver's pictures --------------------------------------------------------

/// What the two filters of its pictures make of the text behind `at`, up to the end mark.
std::string Decode85(const std::string& text, size_t at) {
    std::string bytes;
    std::uint32_t group = 0;
    int digits = 0;
    for (; text[at] != '~'; ++at) {
        if (text[at] == 'z') {
            bytes.append(4, '\0');
        } else if (text[at] >= '!') {
            group = group * 85 + static_cast<std::uint32_t>(text[at] - '!');
            if (++digits == 5) {
                for (int shift = 24; shift >= 0; shift -= 8) {
                    bytes += static_cast<char>(group >> shift);
                }
                group = 0;
                digits = 0;
            }
        }
    }
    return bytes;  // the last, shorter group has no dots
}

std::string DecodeRuns(const std::string& runs) {
    std::string bytes;
    for (size_t at = 0; at + 1 < runs.size();) {
        const auto length = static_cast<BYTE>(runs[at]);
        if (length > 128) {
            bytes.append(257 - length, runs[at + 1]);
            at += 2;
        } else {
            bytes += runs.substr(at + 1, length + size_t{1});
            at += length + size_t{2};
        }
    }
    return bytes;
}

// ---- Printing ---------------------------------------------------------------------------------

class PrintingTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::remove(printed_);
        std::filesystem::copy_file(
            std::filesystem::path(KPD_SOURCE_DIR) / "package/pictures/CalChart.bmp",
            DriverFile(TEXT("CalChart.bmp")), std::filesystem::copy_options::overwrite_existing);
        ASSERT_TRUE(InstallPostScriptPrinter(name_, PostScriptUi::kOurs, printed_));
        ASSERT_TRUE(OpenPrinterW(name_.data(), &printer_, nullptr));
    }
    void TearDown() override {
        ClosePrinter(printer_);
        computer::RemovePrinter(name_);
        std::filesystem::remove(DriverFile(TEXT("CalChart.bmp")));
        std::filesystem::remove(printed_);
    }

    WideString name_ = TEXT("Client's printing card printer");
    WideString printed_ = TEXT("C:\\windows\\temp\\chart.ps");
    HANDLE printer_ = nullptr;
};

TEST_F(PrintingTest, TheCalibrationChartComesOutOfTheSpooler) {
    const OwnedContext context(CreateDriverContext(printer_, nullptr));
    ASSERT_TRUE(context);
    PrintCalibrationChart(*context, {});
    const std::string document = Read(printed_);
    for (const char* part : {"%!PS", "%%Title: Position Calibration Chart", "%%Pages: 1",
                             "72 300 div", "/Width 642", "/Height 1014", "0 0 translate"}) {
        EXPECT_NE(document.find(part), std::string::npos) << part;
    }
    // Dot for dot: its rows and the file's go from the last to the first.
    const std::string mark = "imagemask";
    const size_t picture = document.find(mark);
    ASSERT_NE(picture, std::string::npos);
    const std::string dots = DecodeRuns(Decode85(document, picture + mark.size()));
    const std::string chart = Read(DriverFile(TEXT("CalChart.bmp")));
    constexpr size_t kBits = 62;
    constexpr size_t kRow = (642 + 7) / 8;
    constexpr size_t kFileRow = 84;
    int different = 0;
    for (size_t row = 0; row < 1013; ++row) {
        for (size_t byte = 0; byte + 1 < kRow; ++byte) {
            const size_t at = row * kRow + byte;
            different += at >= dots.size() || dots[at] != chart[kBits + row * kFileRow + byte];
        }
    }
    EXPECT_EQ(different, 0);
}

TEST_F(PrintingTest, TheEraseJobComesOutOfTheSpooler) {
    const struct {
        BYTE area;
        const char* rectangle;
    } cases[] = {{kEraseStripe, "\n58 0 moveto\n132 0 rlineto\n0 1014 rlineto\n"},
                 {kEraseWholeCard, "\n0 0 moveto\n642 0 rlineto\n0 1014 rlineto\n"}};
    const OwnedContext context(CreateDriverContext(printer_, nullptr));
    ASSERT_TRUE(context);
    for (const auto& c : cases) {
        std::filesystem::remove(printed_);
        context->WorkingDevMode.Private.EraseAreaMode = c.area;
        EraseCard(*context, 5);
        const std::string document = Read(printed_);
        for (const char* part : {"%!PS", "%%Title: Erase Card", "%%Pages: 1", c.rectangle,
                                 "\n0.00 0.00 0.00 setrgbcolor\nfill\n"}) {
            EXPECT_NE(document.find(part), std::string::npos) << part;
        }
    }
}

// The spooler's record comes from our library, whose layout the other half's is not.
TEST_F(PrintingTest, TheJobsRecordIsOurs) {
    JobRecord record(name_.data());
    ASSERT_TRUE(record);
    EXPECT_EQ(record.get()->dmDriverExtra, kPrivateSize);
    EXPECT_EQ(record.Read(RECORD_FIELD(Private.ModelCode)), kModelCode);
}

// As after the complete driver has been installed, whose printers must go on printing.
TEST_F(PrintingTest, ATemporaryPrinterLeavesTheOtherHalfInPlace) {
    const WideString other = TEXT("Client's temporary printer");
    EXPECT_EQ(computer::InstallPrinter({other, TEXT("Mirv KP-41 PS")}), "");
    computer::RemovePrinter(other);
    BYTE buffer[4096];
    DWORD size = 0;
    ASSERT_TRUE(GetPrinterDriverW(printer_, nullptr, 3, buffer, sizeof(buffer), &size));
    const auto* driver = reinterpret_cast<const DRIVER_INFO_3W*>(buffer);
    EXPECT_EQ(std::filesystem::path(driver->pDriverPath).filename(), "wineps.drv");
}

}  // namespace
}  // namespace test
