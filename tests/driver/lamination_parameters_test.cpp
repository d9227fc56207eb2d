// A laminator's parameters against their formulas written out otherwise, over the whole range.
#include "ui/pages/lamination/lamination_parameters.h"
#include "platform_test.h"

#include <cstring>

namespace test {
namespace {

TEST(LaminationParametersTest, DwellTimesAndPositions) {
    LaminationRecord record = {};
    const std::pair<int, int> read[] = {{2000, 2400}, {1999, 2398}, {0, 0}, {65535, 78642}};
    for (const auto& [dwell, position] : read) {
        record.DwellTime = static_cast<WORD>(dwell);
        EXPECT_EQ(DwellPosition(record), position);
    }
    const std::pair<int, int> sent[] = {{2400, 2000}, {1455, 1212}, {5745, 4787}, {2399, 1999}};
    for (const auto& [position, dwell] : sent) {
        SetDwellPosition(record, position);
        EXPECT_EQ(record.DwellTime, dwell);
    }
    for (int dwell = 0; dwell <= 65535; ++dwell) {
        record.DwellTime = static_cast<WORD>(dwell);
        ASSERT_EQ(DwellPosition(record), dwell + dwell / 5);
    }
    for (int position = 0; position <= 78642; ++position) {
        SetDwellPosition(record, position);
        const double dwell = static_cast<double>(position) * 250.0 / 300.0;
        ASSERT_EQ(record.DwellTime, static_cast<int>(dwell)) << position;
    }
}

TEST(LaminationParametersTest, DwellTimesAsText) {
    const std::pair<int, const char*> cases[] = {
        {0, "0.  "},    {5, "0.  "},    {45, "0. 4"},    {150, "0.15"},   {999, "0.99"},
        {1000, "1.00"}, {2399, "2.39"}, {2400, "2.40"},  {2403, "2.40"},  {2405, "2.40"},
        {5745, "5.74"}, {9999, "9.99"}, {10000, "1.00"}, {78647, "7.86"},
    };
    for (const auto& [thousandths, expected] : cases) {
        WCHAR text[kDwellTextLength];
        FormatDwell(thousandths, text);
        EXPECT_EQ(Narrow(text), expected) << thousandths;
    }
}

TEST(LaminationParametersTest, OffsetsWrapAroundAsThePositionsDo) {
    const auto wrapped = [](int number, int range) {
        const int rest = ((number % range) + range) % range;
        return rest < range / 2 ? rest : rest - range;
    };
    for (int reference = -128; reference < 128; ++reference) {
        for (int position = -128; position < 128; ++position) {
            LaminationRecord record = {};
            record.LaReference = static_cast<std::int8_t>(reference);
            record.LaPosition = static_cast<std::int8_t>(position);
            const int offset = LaOffset(record);
            ASSERT_EQ(offset, wrapped(position - reference, 256));
            SetLaOffset(record, offset);
            ASSERT_EQ(record.LaPosition, position);
        }
    }
    for (const int reference : {0, 1, 100, 32767, 32768, 65520, 65535}) {
        for (int position = 0; position <= 65535; ++position) {
            LaminationRecord record = {};
            record.LbReference = static_cast<WORD>(reference);
            record.LbPosition = static_cast<WORD>(position);
            const int offset = LbOffset(record);
            ASSERT_EQ(offset, wrapped(position - reference, 65536));
            SetLbOffset(record, offset);
            ASSERT_EQ(record.LbPosition, position);
        }
    }
}

// What is set is all that changes.
TEST(LaminationParametersTest, EveryValueHasItsOwnPlace) {
    const struct {
        void (*set)(LaminationRecord& record, int value);
        int value;
        const char* bytes;  // in hexadecimal digits, of a record of 11h
    } cases[] = {
        {SetTemperature, 0x0BB, "BB001111111111111111111111111111"},
        {SetDwellPosition, 2400, "1111D007111111111111111111111111"},
        {SetLbOffset, -2, "111111110F1111111111111111111111"},
        {SetLaOffset, -4, "1111111111110D111111111111111111"},
    };
    for (const auto& c : cases) {
        LaminationRecord record;
        std::memset(&record, 0x11, sizeof(record));
        c.set(record, c.value);
        std::string bytes;
        for (size_t i = 0; i < sizeof(record); ++i) {
            constexpr char kDigits[] = "0123456789ABCDEF";
            const BYTE byte = reinterpret_cast<const BYTE*>(&record)[i];
            bytes += {kDigits[byte >> 4], kDigits[byte & 15]};
        }
        EXPECT_EQ(bytes, c.bytes);
    }
}

}  // namespace
}  // namespace test
