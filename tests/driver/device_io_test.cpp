// The device I/O library's calls, made to the sample printer, and what is believed of answers.
#include "companions/device_io.h"

#include "message_boxes.h"
#include "platform_test.h"
#include "tools/computer/sample_library.h"

#include <cstring>
#include <vector>

namespace test {
namespace {

const WCHAR* const kName = TEXT("Badge room");

class DeviceIoTest : public PlatformTest {
  protected:
    void SetUp() override {
        PlatformTest::SetUp();
        StartMessageBoxes();
    }
    void TearDown() override {
        StopMessageBoxes();
        PlatformTest::TearDown();
    }
};

// Of the boxes shown, those behind the first few.
std::string MessagesFrom(size_t first) {
    std::string texts;
    const std::vector<ShownMessage> shown = ShownMessages();
    for (size_t i = first; i < shown.size(); ++i) {
        texts += Narrow(shown[i].title) + ": " + Narrow(shown[i].text) + "\n";
    }
    return texts;
}

TEST_F(DeviceIoTest, TellsThePrinterAndAsksIt) {
    const computer::SamplePrinter printer(
        "printer = Badge room\n"
        "ribbon = 97 250\n"
        "motors = 7 -5\n"
        "film 0 = 180 2000 -5 95 3 100\n"
        "film 1 = 150 65535 127 65000 -128 0\n"
        "laminator = 1\n");
    ASSERT_EQ(printer.Reason(), "");

    const RibbonStatus ribbon = QueryRibbonStatus(kName);
    EXPECT_EQ(ribbon.Code, 97);
    EXPECT_EQ(ribbon.Remaining, 250u);

    const MotorSpeeds speeds = ReadMotorSpeeds(kName);
    EXPECT_EQ(speeds.First, 7);
    EXPECT_EQ(speeds.Second, -5);
    WriteMotorSpeeds(kName, {-4, 3});

    LaminationRecord record;
    EXPECT_EQ(ReadLaminationParameters(kName, 0, record), 1);
    EXPECT_EQ(record.LaPosition, -5);
    EXPECT_EQ(record.LbReference, 100);
    EXPECT_EQ(ReadLaminationParameters(kName, 1, record), 1);
    EXPECT_EQ(record.DwellTime, 65535);
    EXPECT_EQ(record.LaReference, -128);
    record.Temperature = 155;
    record.Film = 77;  // what the caller says counts
    WriteLaminationParameters(kName, 1, record);
    EXPECT_EQ(record.Film, 77);

    CalibrationTable table;
    for (size_t i = 0; i < sizeof(table); ++i) {
        reinterpret_cast<BYTE*>(&table)[i] = static_cast<BYTE>(i * 7);
    }
    SetCalibrationValues(kName, table);
    DumpReportFile(kName);
    DumpReportFile(TEXT("another printer"));
    DumpReportFile(nullptr);

    EXPECT_EQ(
        printer.State(),
        "printer = Badge room\n"
        "ribbon = 97 250\n"
        "motors = -4 3\n"
        "film 0 = 180 2000 -5 95 3 100\n"
        "film 1 = 155 65535 127 65000 -128 0\n"
        "laminator = 1\n"
        "calibration 0 = 7 28 0 5390 63 84 56 19782 35 42 49 91 98 105 112 119 126 133 140 147 "
        "154 161 168 175 182 189 196 203 210 217\n"
        "calibration 1 = -25 -4 -32 62958 31 52 24 11558 3 10 17 59 66 73 80 87 94 101 108 115 "
        "122 129 136 143 150 157 164 171 178 185\n"
        "calibration 2 = -57 -36 -64 54734 -1 20 -8 3334 227 234 241 27 34 41 48 55 62 69 76 83 "
        "90 97 104 111 118 125 132 139 146 153\n"
        "calibration 3 = -89 -68 -96 46510 -33 -12 -40 60902 195 202 209 251 2 9 16 23 30 37 44 "
        "51 58 65 72 79 86 93 100 107 114 121\n"
        "reports = 1\n");
    EXPECT_EQ(MessagesFrom(0), "");
}

// Nothing is known and nobody is told, but for the two texts about a missing library.
TEST_F(DeviceIoTest, GoesOnWithoutAnswers) {
    struct Case {
        const char* state;  // none: no library
        const char* messages;
        BYTE film;  // left in the record: as preset where the library was never asked
    };
    const char* const kMissing =
        "Error: Can't load library\n"
        "Error: Can't load library\n"
        "Error: Can't load library\n"
        "Error: Can't load library\n"
        "Error: Can't load PrnBridge.dll\n"
        "Error: Can't load library\n";
    const Case cases[] = {
        {nullptr, kMissing, 1}, {"fault = silent\n", "", 1}, {"fault = no calls\n", "", 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.state == nullptr ? "no library" : c.state);
        const size_t before = ShownMessages().size();
        std::optional<computer::SamplePrinter> printer;
        if (c.state != nullptr) {
            printer.emplace(c.state);
        }
        const RibbonStatus ribbon = QueryRibbonStatus(kName);
        EXPECT_EQ(ribbon.Code, 0);
        EXPECT_EQ(ribbon.Remaining, 0u);
        const MotorSpeeds speeds = ReadMotorSpeeds(kName);
        EXPECT_EQ(speeds.First, 0);
        EXPECT_EQ(speeds.Second, 0);
        DumpReportFile(kName);
        SetCalibrationValues(kName, {});
        LaminationRecord record;
        std::memset(&record, 0xFF, sizeof(record));
        EXPECT_EQ(ReadLaminationParameters(kName, 1, record), 0);
        EXPECT_EQ(record.Film, c.film);
        record.Film = 0;
        const LaminationRecord nothing = {};
        EXPECT_EQ(std::memcmp(&record, &nothing, sizeof(record)), 0);
        if (c.state == nullptr || std::string(c.state) != "fault = silent\n") {
            WriteLaminationParameters(kName, 1, record);
        }
        EXPECT_EQ(MessagesFrom(before), c.messages);
        if (printer) {
            EXPECT_EQ(printer->State(), c.state);
        }
    }
}

// ---- Answers ------------------------------------------------------------------------------------

COPYDATASTRUCT Answer(ULONG_PTR number, const std::vector<BYTE>& bytes, DWORD size) {
    COPYDATASTRUCT data = {};
    data.dwData = number;
    data.cbData = size;
    data.lpData = bytes.empty() ? nullptr : const_cast<BYTE*>(bytes.data());
    return data;
}

COPYDATASTRUCT Answer(ULONG_PTR number, const std::vector<BYTE>& bytes) {
    return Answer(number, bytes, static_cast<DWORD>(bytes.size()));
}

TEST(DeviceAnswersTest, FirmwareVersionEndsWhereItsTextOrItsBytesEnd) {
    struct Case {
        const char* what;
        ULONG_PTR number;
        std::vector<BYTE> bytes;
        const char* text;  // none: no answer
    };
    const Case cases[] = {
        {"terminated", 1, {'1', 0, '.', 0, 0, 0, '9', 0}, "1."},
        {"unterminated", 1, {'1', 0, '.', 0}, "1."},
        {"odd", 1, {'1', 0, '.'}, "1"},
        {"empty", 1, {0, 0}, ""},
        {"one byte", 1, {'1'}, ""},
        {"null", 1, {}, nullptr},
        {"another number", 2, {'1', 0, 0, 0}, nullptr},
        {"a number beyond 32 bits", (ULONG_PTR{1} << 32) + 1, {'1', 0, 0, 0}, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto text = ReadFirmwareAnswer(Answer(c.number, c.bytes));
        ASSERT_EQ(text.has_value(), c.text != nullptr);
        if (text) {
            EXPECT_EQ(Narrow(WideString(*text)), c.text);
        }
    }
    EXPECT_FALSE(ReadFirmwareAnswer(Answer(1, {}, 100)));
}

TEST(DeviceAnswersTest, CalibrationNeedsItsMarkAndAllOfItsBytes) {
    std::vector<BYTE> bytes(130);
    for (size_t i = 2; i < bytes.size(); ++i) {
        bytes[i] = static_cast<BYTE>(i);
    }
    bytes[0] = 99;
    bytes[1] = 4;
    auto table = ReadCalibrationAnswer(Answer(5, bytes));
    ASSERT_TRUE(table);
    EXPECT_EQ(std::memcmp(&*table, bytes.data() + 2, 128), 0);
    EXPECT_EQ((*table)[1].Current.A, 2 + 32 + 1);
    bytes.resize(1000);
    EXPECT_TRUE(ReadCalibrationAnswer(Answer(5, bytes)));
    EXPECT_FALSE(ReadCalibrationAnswer(Answer(5, bytes, 129)));
    EXPECT_FALSE(ReadCalibrationAnswer(Answer(6, bytes)));
    EXPECT_FALSE(ReadCalibrationAnswer(Answer(5, {}, 130)));
    bytes[1] = 5;
    EXPECT_FALSE(ReadCalibrationAnswer(Answer(5, bytes)));
}

TEST(DeviceAnswersTest, EncoderIsThereForExactlyOne) {
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {1, 9, 9})), true);
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {1})), true);
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {0, 1, 1})), false);
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {2, 1, 1})), false);
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {})), std::nullopt);
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {}, 3)), std::nullopt);
    EXPECT_EQ(ReadEncoderAnswer(Answer(6, {1}, 0)), std::nullopt);
    EXPECT_EQ(ReadEncoderAnswer(Answer(5, {1, 0, 0})), std::nullopt);
}

}  // namespace
}  // namespace test
