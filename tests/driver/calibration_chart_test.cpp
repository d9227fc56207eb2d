// The record of the position calibration chart's job, from the spooler's default record on.
#include "ui/pages/tools/calibration_chart.h"

#include "driver_test.h"

#include <cstring>
#include <random>

namespace test {
namespace {

using Bytes = std::vector<BYTE>;

class ChartJobTest : public DriverTest {
  protected:
    static Bytes RecordOf(const JobRecord& record) {
        const BYTE* bytes = reinterpret_cast<const BYTE*>(record.get());
        return {bytes, bytes + kRecordSize};
    }
};

// Written out by the bytes of the record.
void Put(Bytes& record, size_t offset, size_t width, DWORD value) {
    for (size_t i = 0; i < width; ++i) {
        record[offset + i] = static_cast<BYTE>(value >> (8 * i));
    }
}

Bytes Expected(Bytes record, BYTE thickness, const CalibrationTable& table, bool isKP43) {
    constexpr struct {
        size_t offset, width;
        DWORD value;
    } kPlain[] = {
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
    for (const auto& field : kPlain) {
        Put(record, field.offset, field.width, field.value);
    }
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

TEST_F(ChartJobTest, ThePrintersRecordIsChangedFieldByField) {
    std::mt19937 random(20);
    const auto fill = [&](auto& block) {
        for (size_t i = 0; i < sizeof(block); ++i) {
            reinterpret_cast<BYTE*>(&block)[i] = static_cast<BYTE>(random());
        }
    };
    for (int round = 0; round < 24; ++round) {
        DevModeRecord stored = DefaultRecord();
        fill(stored.Private);
        constexpr BYTE kRibbons[] = {0, 1, 2, 3, 4, 12};
        stored.Private.RibbonType = kRibbons[round % 6];
        stored.Private.ModelCode = kModelCode;
        stored.Public.dmOrientation = DMORIENT_LANDSCAPE;
        stored.Public.dmCopies = 77;
        stored.Public.dmICMMethod = 2;
        NewPrinter(TEXT("Mirv KP-41"), {}, BytesOf(stored.Public));
        WideString name = kPrinterName;
        JobRecord record(name.data());
        ASSERT_TRUE(record);
        ASSERT_EQ(record.get()->dmSize + record.get()->dmDriverExtra, kRecordSize);
        const Bytes before = RecordOf(record);
        ASSERT_EQ(before[325], stored.Private.RibbonType) << "of the printer's own default";

        DriverContext context = {};
        fill(context.WorkingDevMode);
        context.WorkingDevMode.Private.CardThickness =
            static_cast<BYTE>(round % 2 == 0 ? round % 5 : random());
        context.IsKP43Family = round % 3 == 0;
        CalibrationTable table;
        fill(table);
        SetUpChartJob(record, context, table);
        EXPECT_EQ(Difference(RecordOf(record),
                             Expected(before, context.WorkingDevMode.Private.CardThickness, table,
                                      context.IsKP43Family != 0)),
                  "")
            << round;
    }
}

TEST_F(ChartJobTest, APrinterThatIsNotThereGivesNone) {
    WideString nowhere = TEXT("Nowhere");
    for (WCHAR* name : {static_cast<WCHAR*>(nullptr), nowhere.data()}) {
        const JobRecord record(name);
        EXPECT_FALSE(record);
        EXPECT_EQ(record.get(), nullptr);
        DriverContext context = {};
        context.PrinterName = name;
        PrintCalibrationChart(context, {});
    }
}

}  // namespace
}  // namespace test
