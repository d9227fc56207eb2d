// The driver's own jobs as they come out of the printer, records of the spooler that are no good,
// and calls of the platform that fail on the way.
#include "native_only.h"
#include "ui/pages/print_area/erase_job.h"
#include "ui/pages/tools/calibration_chart.h"

#include <algorithm>
#include <cstring>

namespace test {
namespace {

class PrintJobs : public NativeOnly {
  protected:
    void SetUp() override {
        NativeOnly::SetUp();
        record_ = DefaultRecord();
        AddPrinter(BytesOf(record_.Public));
        context_.PrinterName = name_.data();
        context_.WorkingDevMode = record_;
        context_.WorkingDevMode.Private.CardThickness = 3;
        table_[3].Current = {-7, 5, 0x1234, -20, {}};
    }
    static void AddPrinter(const std::vector<BYTE>& record) {
        host::AddPrinter({.name = kPrinterName, .model = TEXT("M"), .defaultRecord = record});
    }
    static void DeliverChart() {
        std::filesystem::copy_file(
            std::filesystem::path(KPD_SOURCE_DIR) / "package/pictures/CalChart.bmp",
            DiskPath(DriverFolder() + TEXT("\\CalChart.bmp")),
            std::filesystem::copy_options::overwrite_existing);
    }

    enum Job { kChart, kErase };
    /// What became of a document: "none" or "ended" or "aborted", with each of its pages, "black"
    /// or "empty".
    std::string Print(Job which = kChart) {
        const size_t before = host::PrintedDocuments().size();
        const host::Holdings held = host::CurrentHoldings();
        if (which == kChart) {
            PrintCalibrationChart(context_, table_);
        } else {
            EraseCard(context_, -5);
        }
        EXPECT_EQ(host::CurrentHoldings(), held);
        if (host::PrintedDocuments().size() == before) {
            return "none";
        }
        const host::PrintedDocument& printed = host::PrintedDocuments().back();
        std::string result = printed.ended ? "ended" : "aborted";
        for (const host::Picture& page : printed.pages) {
            result += std::ranges::count(page.pixels, 0u) == 0 ? " empty" : " black";
        }
        return result;
    }

    WideString name_ = kPrinterName;
    DevModeRecord record_;
    DriverContext context_ = {};
    CalibrationTable table_ = {};
};

TEST_F(PrintJobs, TheChartComesOutPixelForPixel) {
    DeliverChart();
    ASSERT_EQ(Print(), "ended black");
    const host::PrintedDocument& printed = host::PrintedDocuments().back();
    EXPECT_EQ(printed.printer, kPrinterName);
    EXPECT_EQ(Narrow(printed.name + TEXT("|") + printed.dataType),
              "Position Calibration Chart|RAW");
    DevModeRecord job;
    ASSERT_EQ(printed.record.size(), sizeof(job));
    std::memcpy(&job, printed.record.data(), sizeof(job));
    EXPECT_EQ(job.Private.CardThickness, 3);
    EXPECT_EQ(static_cast<std::int8_t>(job.Private.PrintPositionB), -20);
    EXPECT_EQ(job.Private.PrintPositionExtra, 0x1234);

    const std::string file = ReadBytes(DriverFolder() + TEXT("\\CalChart.bmp"));
    const auto number = [&](size_t offset) {
        std::uint32_t value;
        std::memcpy(&value, file.data() + offset, sizeof(value));
        return value;
    };
    const int width = static_cast<int>(number(18));
    const int height = static_cast<int>(number(22));
    EXPECT_EQ(std::pair(width, height), std::pair(642, 1014)) << "a card on end";
    ASSERT_EQ(number(28) & 0xFFFF, 1u) << "dots are read as bits below";
    const host::Picture& page = printed.pages[0];
    ASSERT_GE(page.width, width);
    ASSERT_GE(page.height, height);
    size_t different = 0;
    for (int y = 0; y < page.height; ++y) {
        for (int x = 0; x < page.width; ++x) {
            std::uint32_t dot = 0xFFFFFF;
            if (x < width && y < height) {
                const size_t row = number(10) + static_cast<size_t>(height - 1 - y) * 84;
                const unsigned bits = static_cast<BYTE>(file[row + static_cast<size_t>(x) / 8]);
                dot = number(54 + 4 * (bits >> (7 - x % 8) & 1)) & 0xFFFFFF;
            }
            different += page.At(x, y) != dot;
        }
    }
    EXPECT_EQ(different, 0u);
}

// Rows of six bytes, the lowest first: blue and white over red and green.
TEST_F(PrintJobs, TheChartsColorsStayAsTheyAre) {
    const std::string header("BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\x18\0",
                             30);
    WriteBytes(DriverFolder() + TEXT("\\CalChart.bmp"),
               header + std::string(24, '\0') +
                   std::string("\0\0\xFF\0\xFF\0\0\0\xFF\0\0\xFF\xFF\xFF\0\0", 16));
    ASSERT_EQ(Print(), "ended empty");
    const host::Picture& page = host::PrintedDocuments().back().pages[0];
    EXPECT_EQ(page.At(0, 0), 0x0000FFu);
    EXPECT_EQ(page.At(1, 0), 0xFFFFFFu);
    EXPECT_EQ(page.At(0, 1), 0xFF0000u);
    EXPECT_EQ(page.At(1, 1), 0x00FF00u);
    EXPECT_EQ(page.At(2, 1), 0xFFFFFFu);
}

TEST_F(PrintJobs, WithoutItsPictureTheChartIsEmpty) {
    EXPECT_EQ(Print(), "ended empty");
    WriteBytes(DriverFolder() + TEXT("\\CalChart.bmp"), "no picture");
    EXPECT_EQ(Print(), "ended empty");
}

// Dots of a card on end, also where the printer's own record turns the page.
TEST_F(PrintJobs, TheEraseJobBlackensItsAreaAndNothingElse) {
    const struct {
        BYTE area;
        int left, right;
    } areas[] = {{0, 58, 190}, {1, 0, 642}, {2, 0, 642}, {255, 0, 642}};
    for (const SHORT orientation : {SHORT{DMORIENT_PORTRAIT}, SHORT{DMORIENT_LANDSCAPE}}) {
        record_.Public.dmOrientation = orientation;
        AddPrinter(BytesOf(record_.Public));
        for (const auto& c : areas) {
            context_.WorkingDevMode.Private.EraseAreaMode = c.area;
            ASSERT_EQ(Print(kErase), "ended black");
            const host::PrintedDocument& printed = host::PrintedDocuments().back();
            EXPECT_EQ(printed.printer, kPrinterName);
            EXPECT_EQ(Narrow(printed.name + TEXT("|") + printed.dataType), "Erase Card|RAW");
            DevModeRecord job;
            ASSERT_EQ(printed.record.size(), sizeof(job));
            std::memcpy(&job, printed.record.data(), sizeof(job));
            EXPECT_EQ(job.Public.dmOrientation, orientation);
            EXPECT_EQ(job.Private.EraseEnergyTable[2], -5);
            const host::Picture& page = printed.pages[0];
            EXPECT_EQ(page.width > page.height, orientation == DMORIENT_LANDSCAPE);
            size_t different = 0;
            for (int y = 0; y < page.height; ++y) {
                for (int x = 0; x < page.width; ++x) {
                    const bool isErased = x >= c.left && x < c.right && y < 1014;
                    different += page.At(x, y) != (isErased ? 0 : 0xFFFFFFu);
                }
            }
            EXPECT_EQ(different, 0u) << int{c.area};
        }
    }
}

// Nothing is held, no page is printed with the wrong record, and a document that was begun in vain
// is aborted.
TEST_F(PrintJobs, CallsThatFail) {
    using host::Call;
    DeliverChart();
    const struct {
        Job job;
        Call kind;
        std::vector<const char*> results;  // when the first, second ... fails
    } cases[] = {
        {kChart, Call::kSpooler, {"none", "none", "none", "none"}},
        {kChart, Call::kPages, {"none"}},
        {kChart, Call::kPrinting, {"none", "aborted", "ended black", "aborted black"}},
        {kChart, Call::kResource, {"ended empty"}},
        {kChart, Call::kDrawing, {"none", "ended empty", "ended empty"}},
        {kErase, Call::kSpooler, {"none", "none", "none", "none"}},
        {kErase, Call::kPages, {"none"}},
        {kErase, Call::kPrinting, {"none", "aborted", "ended black", "aborted black"}},
        {kErase, Call::kDrawing, {"none"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.job) + " " + std::to_string(static_cast<int>(c.kind)));
        const unsigned calls = host::CallCount(c.kind);
        EXPECT_EQ(Print(c.job), "ended black");
        EXPECT_EQ(host::CallCount(c.kind) - calls, c.results.size());
        for (unsigned n = 1; n <= c.results.size(); ++n) {
            host::FailCall(c.kind, n);
            EXPECT_EQ(Print(c.job), c.results[n - 1]) << "call " << n;
            host::FailCall(c.kind, 0);
        }
    }
    // A document that does not begin is aborted all the same: the calls of each way.
    for (const auto& [n, made] : {std::pair{1u, 2u}, {2u, 3u}, {3u, 4u}}) {
        const unsigned before = host::CallCount(Call::kPrinting);
        host::FailCall(Call::kPrinting, n);
        Print();
        EXPECT_EQ(host::CallCount(Call::kPrinting) - before, made);
    }
}

// What the spooler gives is believed as far as it is there.
TEST_F(PrintJobs, RecordsThatAreTooShort) {
    constexpr size_t kPage = 4096;
    const struct {
        WORD publicSize, privateSize;
        size_t given;
        bool isTaken;
        int writtenEnd;  // of our layout
    } cases[] = {
        {220, 364, 584, true, 584}, {220, 364, 600, true, 584},  {220, 363, 583, true, 583},
        {220, 100, 320, true, 320}, {220, 0, 220, true, 220},    {188, 0, 188, true, 188},
        {188, 364, 552, true, 188}, {72, 0, 72, true, 72},       {230, 364, 594, true, 220},
        {220, 364, 583, false, 0},  {220, 65535, 584, false, 0}, {71, 0, 72, false, 0},
        {220, 364, 71, false, 0},
    };
    for (const auto& c : cases) {
        DevModeRecord given[2];
        std::memset(given, 0xA5, sizeof(given));
        given[0].Public.dmSize = c.publicSize;
        given[0].Public.dmDriverExtra = c.privateSize;
        const BYTE* bytes = reinterpret_cast<const BYTE*>(given);
        AddPrinter({bytes, bytes + c.given});
        JobRecord record(name_.data());
        ASSERT_EQ(static_cast<bool>(record), c.isTaken) << c.publicSize << " " << c.given;
        if (!c.isTaken) {
            EXPECT_EQ(Print(), "none");
            continue;
        }
        context_.IsKP43Family = 1;
        SetUpChartJob(record, context_, table_);
        const BYTE* after = reinterpret_cast<const BYTE*>(record.get());
        size_t changed = 0;
        for (size_t i = static_cast<size_t>(c.writtenEnd); i < kPage; ++i) {
            changed += after[i] != (i < c.given ? bytes[i] : 0);
        }
        EXPECT_EQ(changed, 0u) << c.publicSize << " " << c.given;
        EXPECT_EQ(after[86] == 1, c.writtenEnd > 86) << "copies";
        EXPECT_EQ(c.given > 574 && after[574] == 0, c.writtenEnd > 574) << "the last field";
    }
    AddPrinter({});
    EXPECT_EQ(Print(), "none");
}

}  // namespace
}  // namespace test
