// The spooler's conversion requests, in all modes.
#include "core/card_terms.h"
#include "core/driver_ui_contract.h"
#include "driver_test.h"

#include <cstring>

namespace test {
namespace {

class ConvertTest : public DriverTest {};

constexpr DWORD kUntouched = 4242;

struct Outcome {
    BOOL result;
    DWORD error;
    LONG size;
    bool operator==(const Outcome&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Outcome& o) {
    return out << "result " << o.result << ", error " << o.error << ", size " << o.size;
}

Outcome Convert(DWORD mode, DEVMODEW* input, DEVMODEW* output, LONG size,
                const WideString& printer = kPrinterName) {
    WideString name = printer;
    SetLastError(kUntouched);
    const BOOL result = DrvConvertDevMode(name.data(), input, output, &size, mode);
    return {result, GetLastError(), size};
}

TEST_F(ConvertTest, IntoTheDeclaredLayout) {
    DevModeRecord input = DefaultRecord();
    input.Public.dmCopies = 7;
    input.Private.RibbonType = 4;
    const struct {
        WORD size, extra;
        LONG given;
        Outcome expected;
        bool privatePart;
    } cases[] = {
        {220, 364, 584, {TRUE, kUntouched, 584}, true},
        {220, 364, 583, {FALSE, 87, 583}, false},
        {188, 112, 4000, {TRUE, kUntouched, 300}, false},
        {212, 0, 212, {TRUE, kUntouched, 212}, false},
        {92, 0, 92, {TRUE, kUntouched, 92}, false},
        {220, 400, 620, {TRUE, kUntouched, 620}, false},
        {60, 0, 90, {FALSE, 87, 90}, false},
        {220, 364, 0, {FALSE, 87, 0}, false},
        {220, 364, -1, {FALSE, 87, -1}, false},
        {65532, 65532, 131063, {FALSE, 87, 131063}, false},
    };
    for (const auto& c : cases) {
        GuardedBuffer output(std::max<size_t>(c.size + c.extra, 76));
        output.record()->dmSize = c.size;
        output.record()->dmDriverExtra = c.extra;
        output.record()->dmSpecVersion = 0x0300;
        output.record()->dmDriverVersion = 0x0777;
        SCOPED_TRACE(testing::Message() << c.size << " + " << c.extra << ", given " << c.given);
        ASSERT_EQ(Convert(CDM_CONVERT, &input.Public, output.record(), c.given), c.expected);
        if (!c.expected.result) {
            continue;
        }
        EXPECT_EQ(output.record()->dmSize, c.size);
        EXPECT_EQ(output.record()->dmDriverVersion, 0x0777);
        EXPECT_EQ(output.record()->dmSpecVersion, c.size == 188   ? 0x0320
                                                  : c.size == 212 ? 0x0400
                                                  : c.size == 220 ? 0x0401
                                                                  : 0x0300);
        EXPECT_EQ(output.record()->dmCopies, 7);
        if (c.privatePart) {
            EXPECT_EQ(std::memcmp(output.data() + 220, &input.Private, 364), 0);
        } else {
            EXPECT_EQ(std::count(output.data() + c.size, output.data() + c.size + c.extra, 0xA5),
                      c.extra);
        }
    }
}

TEST_F(ConvertTest, OutputThatEndsEarlyIsNotWrittenBehind) {
    DevModeRecord input = DefaultRecord();
    for (WORD size = 60; size < 82; ++size) {
        const LONG given = (size + 3) / 4 * 4;
        GuardedBuffer output(given);
        if (size >= 72) {
            output.record()->dmSize = size;
            output.record()->dmDriverExtra = 0;
        }
        const Outcome refused = {FALSE, 87, given};
        const Outcome done = {TRUE, kUntouched, size};
        EXPECT_EQ(Convert(CDM_CONVERT, &input.Public, output.record(), given),
                  size < 72 ? refused : done)
            << size;
        BYTE* written = output.data() + (size < 72 ? 0 : size);
        EXPECT_EQ(std::count(written, output.data() + given, 0xA5), output.data() + given - written)
            << size;
    }
}

TEST_F(ConvertTest, PaperSizeBecomesTheOneCardForm) {
    DevModeRecord input = DefaultRecord();
    input.Public.dmPaperSize = 9;
    DevModeRecord output = DefaultRecord();
    EXPECT_TRUE(Convert(CDM_CONVERT, &input.Public, &output.Public, 584).result);
    EXPECT_EQ(output.Public.dmPaperSize, 560);
    output.Public.dmPaperSize = 9;
    EXPECT_TRUE(Convert(CDM_CONVERT, &output.Public, &output.Public, 584).result) << "in place";
    EXPECT_EQ(output.Public.dmPaperSize, 560);
    input.Public.dmFields &= ~DM_PAPERSIZE;
    EXPECT_TRUE(Convert(CDM_CONVERT, &input.Public, &output.Public, 584).result);
    EXPECT_EQ(output.Public.dmPaperSize, 9);
}

TEST_F(ConvertTest, IntoTheFirstGeneration) {
    DevModeRecord input = DefaultRecord();
    input.Public.dmCopies = 7;
    GuardedBuffer output(300);
    EXPECT_EQ(Convert(CDM_CONVERT351, &input.Public, output.record(), 299),
              (Outcome{FALSE, 122, 300}));
    EXPECT_EQ(Convert(CDM_CONVERT351, &input.Public, nullptr, 900), (Outcome{FALSE, 122, 300}));
    EXPECT_EQ(output.data()[0], 0xA5) << "written without room";

    EXPECT_EQ(Convert(CDM_CONVERT351, &input.Public, output.record(), 900),
              (Outcome{TRUE, kUntouched, 300}));
    const DEVMODEW* record = output.record();
    EXPECT_EQ(record->dmSize, 188);
    EXPECT_EQ(record->dmDriverExtra, 112);
    EXPECT_EQ(record->dmSpecVersion, 0x0320);
    EXPECT_EQ(record->dmDriverVersion, 0x0350);
    EXPECT_EQ(record->dmCopies, 7);
    EXPECT_EQ(std::count(output.data() + 188, output.data() + 300, 0xA5), 112);
}

TEST_F(ConvertTest, FirstGenerationNeverGetsAPrivatePart) {
    const struct {
        WORD size, extra;
        Outcome expected;
    } cases[] = {
        {220, 112, {TRUE, kUntouched, 300}},
        {188, 112, {TRUE, kUntouched, 300}},
        {74, 112, {TRUE, kUntouched, 300}},
        {0, 112, {FALSE, 87, 300}},
    };
    for (const auto& c : cases) {
        DevModeRecord input = DefaultRecord();
        input.Public.dmSize = c.size;
        input.Public.dmDriverExtra = c.extra;
        GuardedBuffer output(300);
        EXPECT_EQ(Convert(CDM_CONVERT351, &input.Public, output.record(), 300), c.expected)
            << c.size;
        EXPECT_EQ(std::count(output.data() + 188, output.data() + 300, 0xA5), 112) << c.size;
        EXPECT_EQ(output.record()->dmDriverExtra, 112);
    }
}

TEST_F(ConvertTest, DriverDefaultIsNamedAfterTheDriver) {
    NewPrinter(TEXT("Mirv KP-511"));
    GuardedBuffer output(584);
    EXPECT_EQ(Convert(CDM_DRIVER_DEFAULT, nullptr, output.record(), 583),
              (Outcome{FALSE, 122, 584}));
    EXPECT_EQ(Convert(CDM_DRIVER_DEFAULT, nullptr, nullptr, 584), (Outcome{FALSE, 122, 584}));
    EXPECT_EQ(Convert(CDM_DRIVER_DEFAULT, nullptr, output.record(), 600, TEXT("Nowhere")),
              (Outcome{FALSE, 1801, 584}));
    EXPECT_EQ(output.data()[0], 0xA5) << "written for no printer";

    const Outcome done = Convert(CDM_DRIVER_DEFAULT, nullptr, output.record(), 600);
    EXPECT_TRUE(done.result);
    EXPECT_EQ(done.size, 584);
    const auto& record = *reinterpret_cast<const DevModeRecord*>(output.data());
    EXPECT_EQ(WideString(record.Public.dmDeviceName), TEXT("Mirv KP-511"));
    EXPECT_EQ(record.Private.PrintingMode, 0);
}

TEST_F(ConvertTest, BadCalls) {
    DevModeRecord record = DefaultRecord();
    SetLastError(kUntouched);
    EXPECT_FALSE(DrvConvertDevMode(nullptr, &record.Public, &record.Public, nullptr, CDM_CONVERT));
    EXPECT_EQ(GetLastError(), 87u);

    for (DWORD mode : {0u, 3u, 5u, 8u}) {
        EXPECT_EQ(Convert(mode, &record.Public, &record.Public, 584),
                  (Outcome{FALSE, kUntouched, 584}))
            << mode;
    }
    EXPECT_EQ(Convert(CDM_CONVERT, nullptr, &record.Public, 584), (Outcome{FALSE, 87, 584}));
    EXPECT_EQ(Convert(CDM_CONVERT, &record.Public, nullptr, 584), (Outcome{FALSE, 87, 584}));
    EXPECT_EQ(Convert(CDM_CONVERT351, nullptr, &record.Public, 584), (Outcome{FALSE, 87, 584}));
    LONG size = 584;
    EXPECT_FALSE(DrvConvertDevMode(nullptr, nullptr, &record.Public, &size, CDM_DRIVER_DEFAULT));
    EXPECT_EQ(GetLastError(), 1801u);

    DevModeRecord unusable = DefaultRecord();
    unusable.Public.dmSize = 100;
    unusable.Public.dmSpecVersion = 0;
    EXPECT_EQ(Convert(CDM_CONVERT, &unusable.Public, &record.Public, 584),
              (Outcome{FALSE, 87, 584}));
}

}  // namespace
}  // namespace test
