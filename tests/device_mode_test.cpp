// The default record: its bytes, the two models that differ, and the user's language.
#include "core/ui_language.h"
#include "driver_test.h"

#include <cstring>
#include <map>

namespace test {
namespace {

class DeviceModeTest : public DriverTest {};

// Every byte of the private part that is not zero, by its offset in the record. The rendering half
// reads these bytes; a change here is a change of a stored format.
const std::map<size_t, int> kDefaultPrivateBytes = {
    {224, 100}, {226, 1}, {227, 1}, {235, 32}, {280, 100}, {282, 100}, {308, 2},
    {317, 1},   {320, 3}, {323, 1}, {324, 5},  {326, 1},   {328, 1},   {329, 1},
    {332, 1},   {333, 1}, {336, 1}, {419, 1},  {422, 128}, {423, 128}, {424, 1},
    {429, 5},   {430, 5}, {432, 5}, {433, 5},  {487, 1},   {561, 128},
};

std::map<size_t, int> NonzeroPrivateBytes(const DevModeRecord& record) {
    std::map<size_t, int> bytes;
    const BYTE* data = reinterpret_cast<const BYTE*>(&record);
    for (size_t i = 220; i < sizeof(record); ++i) {
        if (data[i] != 0) {
            bytes[i] = data[i];
        }
    }
    return bytes;
}

TEST_F(DeviceModeTest, DefaultRecordHasTheseBytes) {
    EXPECT_EQ(NonzeroPrivateBytes(DefaultRecord()), kDefaultPrivateBytes);
}

TEST_F(DeviceModeTest, PublicPartOfDefaultRecord) {
    const DEVMODEW mode = DefaultRecord().Public;
    struct {
        const char* name;
        long long value, expected;
    } const fields[] = {
        {"dmSpecVersion", mode.dmSpecVersion, 0x0401},
        {"dmDriverVersion", mode.dmDriverVersion, 0x0500},
        {"dmSize", mode.dmSize, 220},
        {"dmDriverExtra", mode.dmDriverExtra, 364},
        {"dmFields", static_cast<long long>(mode.dmFields), 0x0781FF5F},
        {"dmOrientation", mode.dmOrientation, 2},
        {"dmPaperSize", mode.dmPaperSize, 560},
        {"dmPaperLength", mode.dmPaperLength, 859},
        {"dmPaperWidth", mode.dmPaperWidth, 544},
        {"dmScale", mode.dmScale, 100},
        {"dmCopies", mode.dmCopies, 1},
        {"dmDefaultSource", mode.dmDefaultSource, 7},
        {"dmPrintQuality", mode.dmPrintQuality, 300},
        {"dmColor", mode.dmColor, 2},
        {"dmDuplex", mode.dmDuplex, 1},
        {"dmYResolution", mode.dmYResolution, 300},
        {"dmTTOption", mode.dmTTOption, 1},
        {"dmCollate", mode.dmCollate, 1},
        {"dmLogPixels", mode.dmLogPixels, 0},
        {"dmBitsPerPel", mode.dmBitsPerPel, 0},
        {"dmNup", mode.dmNup, 1},
        {"dmICMMethod", mode.dmICMMethod, 1},
        {"dmICMIntent", mode.dmICMIntent, 3},
        {"dmMediaType", mode.dmMediaType, 401},
        {"dmDitherType", mode.dmDitherType, 1},
    };
    for (const auto& field : fields) {
        EXPECT_EQ(field.value, field.expected) << field.name;
    }
    EXPECT_EQ(WideString(mode.dmFormName), TEXT("CR-80 Card"));
    EXPECT_EQ(WideString(mode.dmDeviceName), kPrinterName);
}

TEST_F(DeviceModeTest, TwoModelsDifferByTheirWholeNames) {
    const std::map<size_t, int> premium = {{336, 0}};
    const std::map<size_t, int> adhesive = {{325, 1}, {327, 5}, {329, 0}, {330, 4}};
    const struct {
        const WCHAR* model;
        std::map<size_t, int> changes;
    } cases[] = {
        {TEXT("Mirv KP-511"), premium},
        {TEXT("Mirv KP-511e"), {}},
        {TEXT("Mirv KP-510"), {}},
        {TEXT("Mirv KP-430e"), adhesive},
        {TEXT("Mirv KP-430e Plus"), {}},
        {TEXT("mirv kp-430e"), {}},
        {TEXT(""), {}},
    };
    for (const auto& c : cases) {
        std::map<size_t, int> expected = kDefaultPrivateBytes;
        for (const auto& [offset, value] : c.changes) {
            expected[offset] = value;
        }
        std::erase_if(expected, [](const auto& byte) { return byte.second == 0; });
        EXPECT_EQ(NonzeroPrivateBytes(DefaultRecord(c.model)), expected) << Narrow(c.model);
    }
}

TEST_F(DeviceModeTest, UserLanguageSetsSkinToneAndItsWord) {
    const struct {
        LANGID language;
        int index, skinTone, word;
    } cases[] = {
        {0x0409, 1, 1, 3},  {0x0404, 2, 1, 1}, {0x0804, 3, 2, 1},  {0x0C04, 1, 1, 3},
        {0x040C, 4, 1, 3},  {0x0C07, 5, 1, 3}, {0x0410, 6, 1, 3},  {0x0C0A, 7, 1, 3},
        {0x0411, 8, 1, 1},  {0x0412, 9, 1, 1}, {0x0416, 10, 1, 3}, {0x0419, 11, 1, 3},
        {0x0415, 12, 1, 3}, {0x0429, 1, 1, 3},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(computer::SetUiLanguage(c.language), "");
        const DevModePrivate part = DefaultRecord().Private;
        EXPECT_EQ(UiLanguageIndex(c.language), c.index) << std::hex << c.language;
        EXPECT_EQ(part.SkinTone, c.skinTone) << std::hex << c.language;
        EXPECT_EQ(part.Reserved100, c.word) << std::hex << c.language;
    }
}

TEST_F(DeviceModeTest, LongNameIsCutAndShortNameLeavesNoRemains) {
    DevModeRecord record;
    std::memset(&record, 0xA5, sizeof(record));
    const WideString name(40, 'x');
    BuildDefaultDevMode(&record, name.c_str(), nullptr);
    EXPECT_EQ(WideString(record.Public.dmDeviceName), WideString(31, 'x'));
    CopyWideBounded(record.Public.dmDeviceName, TEXT("a"), CCHDEVICENAME);
    EXPECT_EQ(WideString(record.Public.dmDeviceName, 32), TEXT("a") + WideString(31, 0));
}

TEST_F(DeviceModeTest, PrivatePartFollowsThePublicPartOfAnySize) {
    const DevModeRecord usual = DefaultRecord();
    for (WORD size : {WORD{188}, WORD{189}, WORD{220}, WORD{221}}) {
        DevModeRecord record = {};
        record.Public.dmSize = size;
        BuildPrivateDefaults(&record.Public, nullptr);
        const BYTE* part = reinterpret_cast<const BYTE*>(&record) + size;
        if (size <= 220) {
            EXPECT_EQ(std::memcmp(part, &usual.Private, sizeof(usual.Private)), 0) << size;
        } else {
            EXPECT_TRUE(NonzeroPrivateBytes(record).empty()) << "no room, yet written";
        }
    }
}

}  // namespace
}  // namespace test
