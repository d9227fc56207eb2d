// The records of the driver's own jobs, the position calibration chart's and that which erases a
// card, from the spooler's default record on.
#include "driver_test.h"
#include "ui/pages/print_area/erase_job.h"
#include "ui/pages/tools/calibration_chart.h"

#include <cstring>
#include <random>

namespace test {
namespace {

using Bytes = std::vector<BYTE>;

class PrintJobsTest : public DriverTest {
  protected:
    static Bytes RecordOf(const JobRecord& record) {
        const BYTE* bytes = reinterpret_cast<const BYTE*>(record.get());
        return {bytes, bytes + kRecordSize};
    }
    template <typename Block>
    void Spoil(Block& block) {
        for (size_t i = 0; i < sizeof(block); ++i) {
            reinterpret_cast<BYTE*>(&block)[i] = static_cast<BYTE>(random_());
        }
    }
    /// A printer whose default record is at random, but for what a merge would put right.
    void NewRandomPrinter(BYTE ribbon) {
        DevModeRecord stored = DefaultRecord();
        Spoil(stored.Private);
        stored.Private.RibbonType = ribbon;
        stored.Private.ModelCode = kModelCode;
        stored.Public.dmOrientation = DMORIENT_LANDSCAPE;
        stored.Public.dmCopies = 77;
        stored.Public.dmICMMethod = 2;
        NewPrinter(TEXT("Mirv KP-41"), {}, BytesOf(stored.Public));
    }

    WideString name_ = kPrinterName;
    std::mt19937 random_{20};
};

// Written out by the bytes of the record.
void Put(Bytes& record, size_t offset, size_t width, DWORD value) {
    for (size_t i = 0; i < width; ++i) {
        record[offset + i] = static_cast<BYTE>(value >> (8 * i));
    }
}

struct Number {
    size_t offset, width;
    DWORD value;
};

template <size_t Count>
void PutAll(Bytes& record, const Number (&numbers)[Count]) {
    for (const Number& number : numbers) {
        Put(record, number.offset, number.width, number.value);
    }
}

Bytes ChartRecord(Bytes record, BYTE thickness, const CalibrationTable& table, bool isKP43) {
    constexpr Number kAlways[] = {
        {76, 2, 1},  {86, 2, 1},    {188, 4, 1}, {220, 4, 0}, {224, 2, 100}, {226, 1, 2},
        {227, 1, 0}, {228, 2, 0},   {230, 2, 0}, {233, 1, 0}, {234, 1, 0},   {276, 4, 0},
        {280, 2, 0}, {282, 2, 100}, {284, 4, 0}, {288, 4, 0}, {292, 4, 0},   {296, 4, 0},
        {300, 4, 0}, {304, 4, 0},   {320, 2, 1}, {322, 1, 0}, {323, 1, 0},   {324, 1, 254},
        {327, 1, 0}, {328, 1, 1},   {336, 1, 0}, {417, 1, 0}, {418, 1, 0},   {419, 1, 1},
        {420, 1, 0}, {424, 4, 1},   {428, 1, 0}, {429, 1, 5}, {430, 1, 5},   {435, 1, 1},
        {436, 1, 0}, {437, 1, 0},   {438, 1, 0}, {439, 1, 0}, {440, 1, 1},   {482, 3, 0},
        {485, 1, 0}, {486, 1, 0},   {487, 1, 1}, {494, 1, 0}, {565, 1, 0},   {568, 4, 0},
        {572, 2, 0}, {574, 1, 0},
    };
    PutAll(record, kAlways);
    const BYTE row = thickness > 3 ? 0 : thickness;
    BYTE values[32];
    std::memcpy(values, reinterpret_cast<const BYTE*>(&table) + row * 32, sizeof(values));
    record[308] = row;
    record[309] = values[0];  // C
    record[310] = values[1];  // A
    record[311] = values[4];  // B
    record[312] = values[2];
    record[313] = values[3];
    const BYTE ribbon = record[325];
    record[329] = ribbon == 1 || ribbon == 3 ? 0 : 1;
    record[330] = ribbon == 1 || ribbon == 3 ? 4 : 0;
    if (isKP43) {
        record[488] = 1;
        record[492] = static_cast<BYTE>((record[492] & 0xFB) | 8);
    }
    return record;
}

Bytes EraseRecord(Bytes record, int energy, bool quick) {
    constexpr Number kAlways[] = {
        {86, 2, 1},  {188, 4, 1}, {220, 4, 0}, {224, 2, 100}, {226, 1, 2}, {227, 1, 0}, {228, 2, 0},
        {230, 2, 0}, {233, 1, 0}, {234, 1, 0}, {276, 4, 0},   {280, 4, 0}, {284, 4, 0}, {288, 4, 0},
        {292, 4, 0}, {296, 4, 0}, {300, 4, 0}, {304, 4, 0},   {308, 1, 2}, {309, 1, 0}, {310, 1, 0},
        {311, 1, 0}, {312, 2, 0}, {320, 2, 1}, {322, 1, 0},   {323, 1, 0}, {324, 1, 0}, {325, 1, 1},
        {327, 1, 0}, {328, 1, 1}, {329, 1, 0}, {330, 1, 1},   {336, 1, 0}, {417, 1, 0}, {418, 1, 0},
        {419, 1, 1}, {420, 1, 0}, {424, 4, 1}, {428, 1, 0},   {429, 1, 5}, {430, 1, 5}, {435, 1, 1},
        {436, 1, 0}, {437, 1, 0}, {438, 1, 0}, {439, 1, 0},   {440, 1, 1}, {482, 3, 0}, {485, 1, 0},
        {486, 1, 0}, {487, 1, 1}, {494, 1, 0}, {565, 1, 0},   {568, 4, 0}, {572, 2, 0}, {574, 1, 0},
    };
    PutAll(record, kAlways);
    record[578] = static_cast<BYTE>(energy);
    record[492] = static_cast<BYTE>(record[492] | 4 | (quick ? 16 : 0));
    return record;
}

// Where they differ, for people.
std::string Difference(const Bytes& a, const Bytes& b) {
    std::string places;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i]) {
            places +=
                std::to_string(i) + ": " + std::to_string(a[i]) + " " + std::to_string(b[i]) + "; ";
        }
    }
    return places;
}

constexpr BYTE kRibbons[] = {0, 1, 2, 3, 4, 12};

TEST_F(PrintJobsTest, TheChartChangesThePrintersRecordFieldByField) {
    for (int round = 0; round < 24; ++round) {
        NewRandomPrinter(kRibbons[round % 6]);
        JobRecord record(name_.data());
        ASSERT_TRUE(record);
        ASSERT_EQ(record.get()->dmSize + record.get()->dmDriverExtra, kRecordSize);
        const Bytes before = RecordOf(record);
        ASSERT_EQ(before[325], kRibbons[round % 6]) << "of the printer's own default";

        DriverContext context = {};
        Spoil(context.WorkingDevMode);
        context.WorkingDevMode.Private.CardThickness =
            static_cast<BYTE>(round % 2 == 0 ? round % 5 : random_());
        context.IsKP43Family = round % 3 == 0;
        CalibrationTable table;
        Spoil(table);
        SetUpChartJob(record, context, table);
        EXPECT_EQ(Difference(RecordOf(record),
                             ChartRecord(before, context.WorkingDevMode.Private.CardThickness,
                                         table, context.IsKP43Family != 0)),
                  "")
            << round;
    }
}

TEST_F(PrintJobsTest, TheEraseJobChangesThePrintersRecordFieldByField) {
    constexpr int kEnergies[] = {0, -5, 127, -127};
    for (int round = 0; round < 24; ++round) {
        NewRandomPrinter(kRibbons[round % 6]);
        JobRecord record(name_.data());
        ASSERT_TRUE(record);
        const Bytes before = RecordOf(record);
        DriverContext context = {};
        Spoil(context.WorkingDevMode);  // of which the quick erase alone counts
        const bool quick = round % 2 == 0;
        WORD& flags = context.WorkingDevMode.Private.CardHandlingFlags;
        flags = static_cast<WORD>((flags & ~0x10) | (quick ? 0x10 : 0));
        SetUpEraseJob(record, context, kEnergies[round % 4]);
        EXPECT_EQ(Difference(RecordOf(record), EraseRecord(before, kEnergies[round % 4], quick)),
                  "")
            << round;
    }
}

TEST_F(PrintJobsTest, APrinterThatIsNotThereGivesNone) {
    WideString nowhere = TEXT("Nowhere");
    for (WCHAR* name : {static_cast<WCHAR*>(nullptr), nowhere.data()}) {
        const JobRecord record(name);
        EXPECT_FALSE(record);
        EXPECT_EQ(record.get(), nullptr);
        DriverContext context = {};
        context.PrinterName = name;
        PrintCalibrationChart(context, {});
        EraseCard(context, 1);
    }
}

}  // namespace
}  // namespace test
