// Settings files, byte by byte: what is written, what is made of files of any content.
#include "core/settings_file.h"

#include "driver_test.h"

#include <cstring>

namespace test {
namespace {

using namespace std::string_literals;

const std::string kMark = "\xAA\x00"s;
const std::string kKeyword = "Mirv LIRA 700/700i";
const std::string kEnd = "\xAA\xFF"s;

std::string Word(unsigned value) {
    return {static_cast<char>(value), static_cast<char>(value >> 8)};
}

// A body that is `length` bytes long whether it is all there or not.
std::string Record(unsigned type, const std::string& body, int length = -1) {
    return Word(type) + Word(length < 0 ? static_cast<unsigned>(body.size()) : length) + body;
}
std::string File(unsigned count, const std::string& records) {
    return kMark + kKeyword + Word(count) + records;
}

// `count` bytes that go up from `first`.
std::string Ascending(int first, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) {
        bytes += static_cast<char>(first + i);
    }
    return bytes;
}

constexpr unsigned kDevice = 0x01AA;
constexpr unsigned kColor = 0x02AA;
const std::string kDeviceBody = Ascending(1, 16);
const std::string kColorBody = Ascending(101, 47);

// The fields as a file has them. The printing mode, which both parts have, can be left out.
std::string DeviceOptions(const DevModeRecord& record, bool withMode = true) {
    const DevModePrivate& p = record.Private;
    const BYTE mode = withMode ? p.PrintingMode : BYTE{0};
    std::string bytes;
    for (const BYTE byte : {p.RibbonType, p.CardType, p.PrintSides, p.ColorSides, p.ResinOptions,
                            p.TransparentCard, mode}) {
        bytes += static_cast<char>(byte);
    }
    bytes += Word(static_cast<WORD>(record.Public.dmCopies));
    bytes += Word(static_cast<WORD>(record.Public.dmOrientation));
    for (const BYTE byte :
         {p.Reserved106, p.Reserved112, p.Reserved113, p.Reserved114, p.Reserved115}) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}
std::string Colors(const DevModeRecord& record, bool withMode = true) {
    const DevModePrivate& p = record.Private;
    const BYTE mode = withMode ? p.PrintingMode : BYTE{0};
    std::string bytes(reinterpret_cast<const char*>(&p.Brightness), 32);
    for (const BYTE byte : {p.SkinTone, p.ColorStyle, p.ColorFlag}) {
        bytes += static_cast<char>(byte);
    }
    bytes += Word(p.Reserved100);
    for (const BYTE byte : {p.ColorPreference, p.Reserved104, mode, p.AutoEnhance}) {
        bytes += static_cast<char>(byte);
    }
    bytes += Word(LOWORD(record.Public.dmICMMethod)) + Word(HIWORD(record.Public.dmICMMethod));
    bytes += static_cast<char>(p.SkinSliderV);
    bytes += static_cast<char>(p.SkinSliderH);
    return bytes;
}

// Every byte another, so that fields that changed places show.
DevModeRecord DistinctRecord(int seed) {
    DevModeRecord record;
    auto* bytes = reinterpret_cast<BYTE*>(&record);
    for (size_t i = 0; i < sizeof(record); ++i) {
        bytes[i] = static_cast<BYTE>(i * 7 + i / 256 + static_cast<size_t>(seed));
    }
    return record;
}

// What a record of a file leaves of the bytes there were. The printing mode is out of account.
std::string Overlaid(const std::string& before, const std::string& body, size_t size) {
    std::string after = body.substr(0, size) + before.substr(size);
    after[body == kDeviceBody ? 6 : 39] = 0;
    return after;
}

class SettingsFileTest : public DriverTest {
  protected:
    // The file's bytes end where readable memory does.
    void Scan(const std::string& file) {
        const GuardedBuffer bytes(file.size(), file);
        scanned_ = ScanSettings({bytes.data(), file.size()}, &offered_);
    }
    void Apply(const std::string& file, DWORD parts = kDeviceOptionSettings | kColorSettings) {
        const GuardedBuffer bytes(file.size(), file);
        record_ = DistinctRecord(0);
        told_.clear();
        applied_ = ApplySettings({bytes.data(), file.size()}, parts, record_, Note, this);
    }
    static void Note(SettingsParts part, void* self) {
        auto& test = *static_cast<SettingsFileTest*>(self);
        test.told_.push_back(part);
        test.ribbonWhenTold_ = test.record_.Private.RibbonType;
    }

    SettingsStatus scanned_ = {};
    DWORD offered_ = 0;
    SettingsStatus applied_ = {};
    DevModeRecord record_ = {};
    std::vector<DWORD> told_;
    BYTE ribbonWhenTold_ = 0;
};

TEST_F(SettingsFileTest, IsWrittenWithTheChosenParts) {
    const DevModeRecord record = DistinctRecord(3);
    const std::string device = Record(kDevice, DeviceOptions(record));
    const std::string color = Record(kColor, Colors(record));
    const struct {
        DWORD parts;
        std::string file;
        size_t size;
    } cases[] = {{1, File(2, device + kEnd), 44},
                 {2, File(2, color + kEnd), 75},
                 {3, File(2, device + color + kEnd), 95}};
    for (const auto& c : cases) {
        BYTE file[kLargestSettingsFile];
        const size_t size = WriteSettings(record, c.parts, file);
        EXPECT_EQ(size, c.size);
        EXPECT_EQ(std::string(file, file + size), c.file) << c.parts;
    }
}

TEST_F(SettingsFileTest, CarriesItsFieldsAndNoOthers) {
    const DevModeRecord source = DistinctRecord(99);
    for (const DWORD parts : {1u, 2u, 3u}) {
        BYTE file[kLargestSettingsFile];
        const size_t size = WriteSettings(source, parts, file);
        Apply({file, file + size});
        EXPECT_EQ(applied_, SettingsStatus::kDone);
        DevModeRecord expected = DistinctRecord(0);
        DevModePrivate& p = expected.Private;
        const DevModePrivate& s = source.Private;
        if ((parts & kDeviceOptionSettings) != 0) {
            expected.Public.dmCopies = source.Public.dmCopies;
            expected.Public.dmOrientation = source.Public.dmOrientation;
            std::memcpy(&p.RibbonType, &s.RibbonType, 12);  // to PrintingMode
        }
        if ((parts & kColorSettings) != 0) {
            expected.Public.dmICMMethod = source.Public.dmICMMethod;
            std::memcpy(&p.SkinTone, &s.SkinTone, 2);
            p.ColorFlag = s.ColorFlag;
            std::memcpy(&p.Brightness, &s.Brightness, 32);
            p.Reserved100 = s.Reserved100;
            p.ColorPreference = s.ColorPreference;
            p.Reserved104 = s.Reserved104;
            p.PrintingMode = s.PrintingMode;
            p.AutoEnhance = s.AutoEnhance;
            std::memcpy(&p.SkinSliderV, &s.SkinSliderV, 2);
        }
        EXPECT_EQ(std::memcmp(&record_, &expected, sizeof(expected)), 0) << parts;
    }
}

// What each file offers, and what of it is applied with both parts chosen: the bytes of each part
// that came from the file.
TEST_F(SettingsFileTest, FilesOfEveryKind) {
    using enum SettingsStatus;
    const std::string device = Record(kDevice, kDeviceBody);
    const std::string color = Record(kColor, kColorBody);
    const std::string other = Record(0x03AA, Ascending(0, 300));
    struct Case {
        const char* what;
        std::string file;
        SettingsStatus status;
        DWORD offered;
        size_t deviceBytes;
        size_t colorBytes;
    };
    const Case cases[] = {
        {"nothing", "", kNoHeader, 0, 0, 0},
        {"half a mark", "\xAA", kNoHeader, 0, 0, 0},
        {"another mark", "\xAA\x01"s + kKeyword + Word(2) + device, kNoHeader, 0, 0, 0},
        {"the mark alone", kMark, kNoKeyword, 0, 0, 0},
        {"17 of the keyword", kMark + kKeyword.substr(0, 17), kNoKeyword, 0, 0, 0},
        {"its last letter", kMark + "Mirv LIRA 700/700I" + Word(2) + device, kNoKeyword, 0, 0, 0},
        {"its first letter", kMark + "mirv LIRA 700/700i" + Word(2) + device, kNoKeyword, 0, 0, 0},
        {"no count", kMark + kKeyword, kDone, 0, 0, 0},
        {"half a count", kMark + kKeyword + "\x02", kDone, 0, 0, 0},
        {"no records", File(2, kEnd), kDone, 0, 0, 0},
        {"both", File(2, device + color + kEnd), kDone, 3, 16, 47},
        {"both, the other way round", File(2, color + device + kEnd), kDone, 3, 16, 47},
        {"no end mark", File(2, device + color), kDone, 3, 16, 47},
        {"count 0", File(0, device + color + kEnd), kDone, 0, 0, 0},
        {"count 1", File(1, device + color + kEnd), kDone, 1, 16, 0},
        {"count 65535", File(65535, device + color), kDone, 3, 16, 47},
        {"another between, count 3", File(3, device + other + color + kEnd), kDone, 3, 16, 47},
        {"another between, count 2", File(2, device + other + color + kEnd), kDone, 1, 16, 0},
        {"an empty one between", File(3, device + Record(0, "") + color), kDone, 3, 16, 47},
        {"another that is cut short", File(3, device + Record(7, "ab", 3) + ""), kDone, 1, 16, 0},
        {"behind the end mark", File(3, device + kEnd + color), kDone, 1, 16, 0},
        {"an end mark with a length", File(3, device + kEnd + Word(0) + color), kDone, 1, 16, 0},
        {"device 10", File(2, Record(kDevice, Ascending(1, 10)) + color), kBadRecord, 0, 0, 0},
        {"device 10 behind", File(2, color + Record(kDevice, Ascending(1, 10))), kBadRecord, 2, 0,
         47},
        {"device 0 at the end", File(2, Word(kDevice) + Word(0)), kBadRecord, 0, 0, 0},
        {"device 11", File(2, Record(kDevice, Ascending(1, 11)) + color), kDone, 3, 11, 47},
        {"device 12", File(2, Record(kDevice, Ascending(1, 12)) + color), kDone, 3, 12, 47},
        {"device 15", File(2, Record(kDevice, Ascending(1, 15)) + color), kDone, 3, 15, 47},
        {"device 20", File(2, Record(kDevice, Ascending(1, 20)) + color), kDone, 3, 16, 47},
        {"color 46", File(2, device + Record(kColor, Ascending(101, 46))), kBadRecord, 1, 16, 0},
        {"color 60", File(2, Record(kColor, Ascending(101, 60)) + device), kDone, 3, 16, 47},
        {"a type alone", File(2, device + Word(kColor)), kDone, 1, 16, 0},
        {"half a length", File(2, device + Word(kColor) + "\x2F"), kDone, 1, 16, 0},
        {"no body", File(2, device + Word(kColor) + Word(47)), kDone, 3, 16, 0},
        {"a body cut short", File(2, device + Record(kColor, Ascending(101, 46), 47)), kDone, 3, 16,
         0},
        {"too long a length", File(2, Record(kDevice, kDeviceBody, 17)), kDone, 1, 0, 0},
        {"another within one that is cut short", File(2, Record(kDevice, color, 0xFFFF)), kDone, 1,
         0, 0},
        {"one that swallows another", File(2, Record(kDevice, kDeviceBody + color, 0xFFFF)), kDone,
         1, 0, 0},
    };
    const std::string untouchedDevice = DeviceOptions(DistinctRecord(0), false);
    const std::string untouchedColors = Colors(DistinctRecord(0), false);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Scan(c.file);
        EXPECT_EQ(scanned_, c.status);
        EXPECT_EQ(offered_, c.offered);
        Apply(c.file);
        EXPECT_EQ(applied_, c.status);
        EXPECT_EQ(told_.size(), size_t{c.deviceBytes != 0} + size_t{c.colorBytes != 0});
        EXPECT_EQ(DeviceOptions(record_, false),
                  Overlaid(untouchedDevice, kDeviceBody, c.deviceBytes));
        EXPECT_EQ(Colors(record_, false), Overlaid(untouchedColors, kColorBody, c.colorBytes));
    }
}

TEST_F(SettingsFileTest, OnlyTheChosenPartsAreApplied) {
    const std::string file =
        File(2, Record(kColor, kColorBody) + Record(kDevice, kDeviceBody) + kEnd);
    Apply(file, kDeviceOptionSettings);
    EXPECT_EQ(told_, std::vector<DWORD>{1});
    EXPECT_EQ(DeviceOptions(record_), kDeviceBody);
    EXPECT_EQ(record_.Private.SkinTone, DistinctRecord(0).Private.SkinTone);
    Apply(file, kColorSettings);
    EXPECT_EQ(told_, std::vector<DWORD>{2});
    EXPECT_EQ(Colors(record_), kColorBody);
    Apply(file, 0);
    EXPECT_EQ(told_, std::vector<DWORD>{});
    // A bad record is bad also when nobody asks for it.
    Apply(File(2, Record(kDevice, Ascending(1, 10))), kColorSettings);
    EXPECT_EQ(applied_, SettingsStatus::kBadRecord);
}

// The page shows each record when it is in, so a second one of a type finds the first corrected.
TEST_F(SettingsFileTest, EachRecordIsToldWhenItIsIn) {
    Apply(File(2, Record(kDevice, kDeviceBody) + Record(kColor, kColorBody)));
    EXPECT_EQ(Colors(record_), kColorBody);  // the printing mode is that of the later one
    Apply(File(3, Record(kDevice, kDeviceBody) + Record(kColor, kColorBody) +
                      Record(kDevice, Ascending(50, 16))));
    EXPECT_EQ(told_, (std::vector<DWORD>{1, 2, 1}));
    EXPECT_EQ(ribbonWhenTold_, 50);
    EXPECT_EQ(DeviceOptions(record_), Ascending(50, 16));
}

}  // namespace
}  // namespace test
