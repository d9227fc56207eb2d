// The default record: its bytes, the two models that differ, and the user's language.
#include "core/ui_language.h"
#include "driver_test.h"

#include <cstring>
#include <map>

namespace test {
namespace {

class DeviceModeTest : public DriverTest {};

// Every byte behind the name that is not zero, by its offset in the record, but for the form's
// name. Spoolers store these bytes and the rendering half reads them.
const std::map<size_t, int> kDefaultBytes = {
    {64, 0x01}, {65, 0x04}, {67, 0x05}, {68, 220},   {70, 0x6C},  {71, 0x01}, {72, 0x5F},
    {73, 0xFF}, {74, 0x81}, {75, 0x07}, {76, 2},     {78, 0x30},  {79, 0x02}, {80, 0x5B},
    {81, 0x03}, {82, 0x20}, {83, 0x02}, {84, 100},   {86, 1},     {88, 7},    {90, 0x2C},
    {91, 0x01}, {92, 2},    {94, 1},    {96, 0x2C},  {97, 0x01},  {98, 1},    {100, 1},
    {180, 1},   {188, 1},   {192, 3},   {196, 0x91}, {197, 0x01}, {200, 1},   {224, 100},
    {226, 1},   {227, 1},   {235, 32},  {280, 100},  {282, 100},  {308, 2},   {317, 1},
    {320, 3},   {323, 1},   {324, 5},   {326, 1},    {328, 1},    {329, 1},   {332, 1},
    {333, 1},   {336, 1},   {419, 1},   {422, 128},  {423, 128},  {424, 1},   {429, 5},
    {430, 5},   {432, 5},   {433, 5},   {487, 1},    {561, 128},
};

std::map<size_t, int> NonzeroBytes(const DevModeRecord& record) {
    std::map<size_t, int> bytes;
    const BYTE* data = reinterpret_cast<const BYTE*>(&record);
    for (size_t i = 64; i < sizeof(record); ++i) {
        const bool inFormName = i >= 102 && i < 166;
        if (data[i] != 0 && !inFormName) {
            bytes[i] = data[i];
        }
    }
    return bytes;
}

TEST_F(DeviceModeTest, DefaultRecordHasTheseBytes) {
    const DevModeRecord record = DefaultRecord();
    EXPECT_EQ(NonzeroBytes(record), kDefaultBytes);
    EXPECT_EQ(WideString(record.Public.dmFormName, 32), TEXT("CR-80 Card") + WideString(22, 0));
    EXPECT_EQ(WideString(record.Public.dmDeviceName), kPrinterName);
}

TEST_F(DeviceModeTest, TwoModelsDifferByTheirWholeNames) {
    // PrintingMode; RibbonType, CardType, ColorSides, ResinOptions.
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
        std::map<size_t, int> expected = kDefaultBytes;
        for (const auto& [offset, value] : c.changes) {
            expected[offset] = value;
        }
        std::erase_if(expected, [](const auto& byte) { return byte.second == 0; });
        EXPECT_EQ(NonzeroBytes(DefaultRecord(c.model)), expected) << Narrow(c.model);
    }
}

TEST_F(DeviceModeTest, UserLanguageSetsSkinToneAndItsWord) {
    const struct {
        LANGID language;
        int index, skinTone, word;  // UiLanguageIndex, SkinTone, Reserved100
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
        // Behind the largest there is no room in the record, and nothing is written.
        EXPECT_EQ(std::memcmp(part, &usual.Private, 300) == 0, size <= 220) << size;
    }
}

}  // namespace
}  // namespace test
