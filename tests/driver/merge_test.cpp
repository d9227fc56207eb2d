// Merging and copying device mode records of every origin.
#include "core/merge.h"
#include "core/card_terms.h"
#include "driver_test.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <random>

namespace test {
namespace {

class MergeTest : public DriverTest {};

// An application's record with nothing but the bit and value under test.
DevModeRecord Incoming(DWORD fields = 0) {
    DevModeRecord record = DefaultRecord();
    record.Public.dmFields = fields;
    return record;
}

DevModeRecord Merged(const DevModeRecord& incoming, DevModeRecord current = DefaultRecord()) {
    EXPECT_EQ(MergeDevMode(&current, &incoming.Public, nullptr), 1);
    return current;
}

TEST_F(MergeTest, PublicFieldsAreTakenUnderTheirBitWithinLegalValues) {
    const struct {
        const char* name;
        DWORD bit;
        SHORT DEVMODEW::*field;
        SHORT incoming, merged;
        bool claims;  // the bit is set in a current record that lacks it
    } cases[] = {
        {"source", DM_DEFAULTSOURCE, &DEVMODEW::dmDefaultSource, -3, -3, true},
        {"orientation", DM_ORIENTATION, &DEVMODEW::dmOrientation, 1, 1, true},
        {"orientation", DM_ORIENTATION, &DEVMODEW::dmOrientation, 0, 2, true},
        {"orientation", DM_ORIENTATION, &DEVMODEW::dmOrientation, 3, 2, true},
        {"scale", DM_SCALE, &DEVMODEW::dmScale, 1000, 1000, true},
        {"scale", DM_SCALE, &DEVMODEW::dmScale, 1001, 100, true},
        {"scale", DM_SCALE, &DEVMODEW::dmScale, 0, 100, true},
        {"copies", DM_COPIES, &DEVMODEW::dmCopies, 9999, 9999, true},
        {"copies", DM_COPIES, &DEVMODEW::dmCopies, 10000, 1, true},
        {"copies", DM_COPIES, &DEVMODEW::dmCopies, 0, 1, true},
        {"copies", DM_COPIES, &DEVMODEW::dmCopies, -1, 1, true},
        {"quality", DM_PRINTQUALITY, &DEVMODEW::dmPrintQuality, 600, 300, true},
        {"y resolution", DM_YRESOLUTION, &DEVMODEW::dmYResolution, -4, 300, true},
        {"color", DM_COLOR, &DEVMODEW::dmColor, 1, 1, true},
        {"color", DM_COLOR, &DEVMODEW::dmColor, 7, 1, true},
        {"duplex", DM_DUPLEX, &DEVMODEW::dmDuplex, 3, 3, true},
        {"duplex", DM_DUPLEX, &DEVMODEW::dmDuplex, 4, 1, false},
        {"duplex", DM_DUPLEX, &DEVMODEW::dmDuplex, 0, 1, false},
        {"collate", DM_COLLATE, &DEVMODEW::dmCollate, 0, 0, true},
        {"collate", DM_COLLATE, &DEVMODEW::dmCollate, 2, 0, false},
    };
    for (const auto& c : cases) {
        DevModeRecord incoming = Incoming(c.bit);
        incoming.Public.*c.field = c.incoming;
        DevModeRecord current = DefaultRecord();
        current.Public.dmFields &= ~(DM_PRINTQUALITY | DM_YRESOLUTION | c.bit);
        const DevModeRecord merged = Merged(incoming, current);
        EXPECT_EQ(merged.Public.*c.field, c.merged) << c.name << " " << c.incoming;
        EXPECT_EQ((merged.Public.dmFields & c.bit) != 0, c.claims) << c.name << " " << c.incoming;

        incoming.Public.dmFields = 0;
        EXPECT_EQ(Merged(incoming).Public.*c.field, DefaultRecord().Public.*c.field)
            << c.name << " without its bit";
    }
}

TEST_F(MergeTest, ColourManagementIsTakenAndResolutionAndMediaTypeAreClaimed) {
    DevModeRecord incoming = Incoming(DM_ICMMETHOD | DM_ICMINTENT | DM_YRESOLUTION | DM_MEDIATYPE);
    incoming.Public.dmICMMethod = 2;
    incoming.Public.dmICMIntent = 77;
    incoming.Public.dmMediaType = 999;
    DevModeRecord current = DefaultRecord();
    current.Public.dmFields = 0;
    const DEVMODEW mode = Merged(incoming, current).Public;
    const DWORD fromCardForm = DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME;
    EXPECT_EQ(mode.dmFields, incoming.Public.dmFields | DM_PRINTQUALITY | fromCardForm);
    EXPECT_EQ(mode.dmICMMethod, 2u);
    EXPECT_EQ(mode.dmICMIntent, 77u);
    EXPECT_EQ(mode.dmMediaType, 401u);
    EXPECT_EQ(mode.dmLogPixels, 300);
    EXPECT_EQ(mode.dmBitsPerPel, 24u);
}

TEST_F(MergeTest, OneOfTheTwoCardFormsResults) {
    const struct {
        DWORD fields;     // claimed by the incoming record: DM_PAPERSIZE or none
        SHORT paperSize;  // the incoming dmPaperSize
        BYTE kind;        // and its CardSizeKind
        SHORT mergedPaper;
        BYTE mergedKind;
        DWORD media;   // dmMediaType after the merge, 55 before
        SHORT length;  // dmPaperLength after the merge
        const WCHAR* form;
    } cases[] = {
        {DM_PAPERSIZE, 561, 0, 560, 0, 401, 859, TEXT("CR-80 Card")},
        {DM_PAPERSIZE, 9, 0, 560, 0, 401, 859, TEXT("CR-80 Card")},
        {DM_PAPERSIZE, 560, 1, 0, 1, 0, 859, TEXT("CR-80 Card")},
        {DM_PAPERSIZE, 560, 2, 0, 2, 0, 1441, TEXT("CR-80 Long Card")},
        {DM_PAPERSIZE, 560, 200, 0, 1, 0, 859, TEXT("CR-80 Card")},
        {0, 561, 2, 560, 0, 55, 859, TEXT("CR-80 Card")},
    };
    for (const auto& c : cases) {
        DevModeRecord incoming = Incoming(c.fields);
        incoming.Public.dmPaperSize = c.paperSize;
        incoming.Private.CardSizeKind = c.kind;
        incoming.Private.Reserved04 = 4711;
        DevModeRecord current = DefaultRecord();
        current.Public.dmFields = 0;
        current.Public.dmMediaType = 55;
        const DevModeRecord merged = Merged(incoming, current);
        SCOPED_TRACE(testing::Message() << "fields " << c.fields << " kind " << int{c.kind});
        EXPECT_EQ(merged.Public.dmPaperSize, c.mergedPaper);
        EXPECT_EQ(merged.Public.dmPaperWidth, 544);
        EXPECT_EQ(merged.Public.dmPaperLength, c.length);
        EXPECT_EQ(merged.Public.dmMediaType, c.media);
        EXPECT_EQ(WideString(merged.Public.dmFormName), c.form);
        EXPECT_EQ(merged.Private.CardSizeKind, c.mergedKind);
        EXPECT_EQ(merged.Private.Reserved04, 4711);
        const DWORD claimed = c.fields != 0 ? 0 : 0x1000E;
        EXPECT_EQ(merged.Public.dmFields, claimed);
    }
}

TEST_F(MergeTest, WholePrivatePartIsTakenButForAFewBytes) {
    DevModeRecord incoming = Incoming();
    std::memset(&incoming.Private, 1, sizeof(incoming.Private));
    DevModeRecord current = DefaultRecord();
    std::memset(&current.Private, 0, sizeof(current.Private));
    const DevModeRecord merged = Merged(incoming, current);
    const BYTE* bytes = reinterpret_cast<const BYTE*>(&merged.Private);
    for (size_t i = 0; i < sizeof(merged.Private); ++i) {
        // 12 CardSizeKind, which the card form decides; 55 the end of ReservedText, which is always
        // terminated; 94 to 264 the bytes that are never taken; 15 ModelCode.
        const bool keeps = i == 12 || i == 55 || (i >= 94 && i <= 96) || i == 98 || i == 99 ||
                           (i >= 262 && i <= 264);
        EXPECT_EQ(bytes[i], i == 15 ? 32 : (keeps ? 0 : 1)) << "private offset " << i;
    }
}

TEST_F(MergeTest, FourPrivateFieldsAreChecked) {
    const struct {
        BYTE DevModePrivate::*field;
        BYTE incoming, merged;
    } cases[] = {
        {&DevModePrivate::ColorPreference, 2, 2}, {&DevModePrivate::ColorPreference, 3, 0},
        {&DevModePrivate::Reserved103, 1, 1},     {&DevModePrivate::Reserved103, 2, 0},
        {&DevModePrivate::AdvanceToolFlag, 0, 0}, {&DevModePrivate::AdvanceToolFlag, 9, 1},
        {&DevModePrivate::RibbonType, 14, 14},    {&DevModePrivate::RibbonType, 15, 0},
        {&DevModePrivate::ModelCode, 7, 32},
    };
    for (const auto& c : cases) {
        DevModeRecord incoming = Incoming();
        incoming.Private.*c.field = c.incoming;
        EXPECT_EQ(Merged(incoming).Private.*c.field, c.merged) << int{c.incoming};
    }
}

TEST_F(MergeTest, ForeignRecordBringsItsPublicFieldsOnly) {
    const struct {
        const char* name;
        std::function<void(DEVMODEW&)> make;
    } cases[] = {
        {"188 bytes",
         [](DEVMODEW& m) {
             m.dmSize = 188;
             m.dmDriverExtra = 0;
             m.dmSpecVersion = 0;
         }},
        {"212 bytes",
         [](DEVMODEW& m) {
             m.dmSize = 212;
             m.dmSpecVersion = 0x0400;
         }},
        {"no private part", [](DEVMODEW& m) { m.dmDriverExtra = 0; }},
        {"other driver", [](DEVMODEW& m) { m.dmDriverVersion = 0x0600; }},
        {"just its first fields",
         [](DEVMODEW& m) {
             m.dmSize = 88;
             m.dmSpecVersion = 1;
             m.dmDriverExtra = 0;
         }},
    };
    for (const auto& c : cases) {
        DevModeRecord incoming = Incoming(DM_COPIES | DM_ORIENTATION);
        incoming.Public.dmCopies = 12;
        incoming.Public.dmOrientation = 1;
        incoming.Private.RibbonType = 4;
        c.make(incoming.Public);
        GuardedBuffer buffer(incoming.Public.dmSize + incoming.Public.dmDriverExtra);
        std::memcpy(buffer.data(), &incoming,
                    std::min<size_t>(sizeof(incoming),
                                     incoming.Public.dmSize + incoming.Public.dmDriverExtra));
        DevModeRecord current = DefaultRecord();
        current.Private.RibbonType = 3;
        ASSERT_EQ(MergeDevMode(&current, buffer.record(), nullptr), 1) << c.name;
        EXPECT_EQ(current.Public.dmCopies, 12) << c.name;
        EXPECT_EQ(current.Public.dmOrientation, 1) << c.name;
        EXPECT_EQ(current.Private.RibbonType, 3) << c.name;
    }
}

// A record of that public size, bytes counting up but for its identification.
std::string RecordOfSize(WORD size, WORD driver, WORD extra) {
    std::string bytes(std::max<size_t>(size + extra, kHeaderSize), 0);
    for (size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i + 1);
    }
    const WORD identification[] = {0x0401, driver, size, extra};
    std::memcpy(bytes.data() + 64, identification, sizeof(identification));
    return bytes;
}

TEST_F(MergeTest, PublicPartShorterThanItsFirstFieldsGivesWhatItHas) {
    for (WORD size = 1; size <= 75; ++size) {
        SCOPED_TRACE(size);
        for (const BYTE paperBit : {0, 2}) {
            std::string bytes = RecordOfSize(size, 0x0123, 0);
            if (size > 72) {
                bytes[72] = static_cast<char>(paperBit);
            }
            const GuardedBuffer source(bytes.size(), bytes);
            std::string expected = RecordOfSize(220, 0x0500, 364);
            std::reverse(expected.begin() + 72, expected.end());
            const GuardedBuffer out(expected.size(), expected);
            std::memcpy(expected.data(), bytes.data(), std::min<size_t>(size, 64));
            if (size > 72) {
                std::memcpy(expected.data() + 72, bytes.data() + 72, size - 72);
                std::memcpy(expected.data() + 78, paperBit != 0 ? "\x30\x02" : &expected[78], 2);
            }
            EXPECT_EQ(ConvertDevModeCopy(source.record(), out.record()), size);
            EXPECT_EQ(std::memcmp(out.data(), expected.data(), expected.size()), 0);
        }
    }
}

TEST_F(MergeTest, RecordShorterThanItsFirstFieldsIsMerged) {
    for (WORD size = 1; size <= 75; ++size) {
        const std::string bytes = RecordOfSize(size, 0x0123, 0);
        const GuardedBuffer incoming((bytes.size() + 3) / 4 * 4, bytes);
        DevModeRecord expected = Merged(DefaultRecord());
        CopyWideBounded(expected.Public.dmDeviceName, incoming.record()->dmDeviceName, 32);
        DevModeRecord current = DefaultRecord();
        EXPECT_EQ(MergeDevMode(&current, incoming.record(), nullptr), 1) << size;
        EXPECT_EQ(BytesOf(current.Public), BytesOf(expected.Public)) << size;
    }
}

TEST_F(MergeTest, PrivatePartBeginsWhereverThePublicPartEnds) {
    for (WORD size : {WORD{0}, WORD{40}, WORD{71}, WORD{73}, WORD{260}}) {
        const std::string bytes = RecordOfSize(size, 0x0500, 364);
        const GuardedBuffer source(bytes.size(), bytes);
        const std::string before = RecordOfSize(220, 0x0500, 364);
        const GuardedBuffer out(before.size(), before);
        EXPECT_EQ(ConvertDevModeCopy(source.record(), out.record()),
                  std::min<WORD>(size, 220) + 364);
        EXPECT_EQ(std::memcmp(out.data() + 220, bytes.data() + size, 364), 0) << size;
    }
    // Without a private part to give, a public part of no bytes gives nothing.
    const GuardedBuffer empty(kHeaderSize, RecordOfSize(0, 0x0500, 0));
    DevModeRecord record = DefaultRecord();
    EXPECT_EQ(ConvertDevModeCopy(empty.record(), &record.Public), 0);
    EXPECT_EQ(BytesOf(record.Public), BytesOf(DefaultRecord().Public));
}

TEST_F(MergeTest, UnusableRecordLeavesAllButTheName) {
    const struct {
        WORD size, specVersion;
    } cases[] = {{0, 0}, {0, 0x0401}, {1, 0}, {75, 0}, {100, 0}, {219, 0}, {65535, 0}};
    for (const auto& c : cases) {
        DevModeRecord incoming = Incoming(DM_COPIES);
        incoming.Public.dmCopies = 9;
        incoming.Public.dmSize = c.size;
        incoming.Public.dmSpecVersion = c.specVersion;
        incoming.Public.dmDriverExtra = 0;
        CopyWideBounded(incoming.Public.dmDeviceName, TEXT("Theirs"), CCHDEVICENAME);
        DevModeRecord current = DefaultRecord();
        DevModeRecord expected = current;
        CopyWideBounded(expected.Public.dmDeviceName, TEXT("Theirs"), CCHDEVICENAME);
        EXPECT_EQ(MergeDevMode(&current, &incoming.Public, nullptr), 0) << c.size;
        EXPECT_EQ(BytesOf(current.Public), BytesOf(expected.Public)) << c.size;
    }
    DevModeRecord current = DefaultRecord();
    EXPECT_EQ(MergeDevMode(&current, nullptr, nullptr), 1);
    EXPECT_EQ(BytesOf(current.Public), BytesOf(DefaultRecord().Public));
}

TEST_F(MergeTest, CurrentRecordOfAnotherDriverGetsModelDefaults) {
    DevModeRecord current = DefaultRecord();
    current.Public.dmDriverVersion = 0x0400;
    current.Private.RibbonType = 4;
    const DevModeRecord incoming = Incoming();
    EXPECT_EQ(MergeDevMode(&current, &incoming.Public, TEXT("Mirv KP-430e")), 1);
    EXPECT_EQ(current.Private.RibbonType, 1);
}

TEST_F(MergeTest, SecondMergeChangesNothingMore) {
    std::mt19937 random(20261122);
    for (int round = 0; round < 500; ++round) {
        DevModeRecord incoming;
        BYTE* bytes = reinterpret_cast<BYTE*>(&incoming);
        for (size_t i = 0; i < sizeof(incoming); ++i) {
            bytes[i] = static_cast<BYTE>(random());
        }
        incoming.Public.dmSize = 220;
        incoming.Public.dmSpecVersion = 0x0401;
        incoming.Public.dmDriverVersion = 0x0500;
        incoming.Public.dmDriverExtra = 364;
        const DevModeRecord once = Merged(incoming);
        EXPECT_EQ(BytesOf(Merged(incoming, once).Public), BytesOf(once.Public));
    }
}

// ---- Handing the working record out ------------------------------------------------------------

TEST_F(MergeTest, CopyOutGivesTheCallersLayout) {
    const struct {
        const char* name;
        WORD size, spec, driver, extra;  // of the caller's input record
        WORD outSize, outSpec, outDriver, outExtra;
        bool privatePart;  // the working record's is given out
    } cases[] = {
        {"own", 220, 0x0401, 0x0500, 364, 220, 0x0401, 0x0500, 364, true},
        {"larger", 300, 0x0402, 0x0700, 900, 220, 0x0401, 0x0500, 364, true},
        {"other driver's", 220, 0x0401, 0x0600, 364, 220, 0x0401, 0x0500, 364, true},
        {"no private part", 220, 0x0401, 0x0123, 0, 220, 0x0401, 0x0123, 0, false},
        {"188", 188, 0x0320, 0x0350, 112, 188, 0x0320, 0x0350, 112, false},
        {"212 without version", 212, 0, 0x0500, 364, 212, 0x0400, 0x0500, 364, true},
        {"100 with version", 100, 0x0200, 0x0500, 12, 100, 0x0200, 0x0500, 12, false},
        {"copies and no more", 88, 0x0401, 0x0500, 364, 88, 0x0401, 0x0500, 364, true},
    };
    DevModeRecord working = DefaultRecord();
    working.Public.dmCopies = 42;
    working.Private.RibbonType = 12;
    for (const auto& c : cases) {
        DEVMODEW input = {};
        input.dmSize = c.size;
        input.dmSpecVersion = c.spec;
        input.dmDriverVersion = c.driver;
        input.dmDriverExtra = c.extra;
        GuardedBuffer out(c.outSize + c.outExtra);
        SCOPED_TRACE(c.name);
        ASSERT_EQ(CopyDevModeOut(&working, &input, out.record()), 1);
        EXPECT_EQ(out.record()->dmSize, c.outSize);
        EXPECT_EQ(out.record()->dmSpecVersion, c.outSpec);
        EXPECT_EQ(out.record()->dmDriverVersion, c.outDriver);
        EXPECT_EQ(out.record()->dmDriverExtra, c.outExtra);
        EXPECT_EQ(out.record()->dmCopies, 42);
        const BYTE* part = out.data() + c.outSize;
        if (c.privatePart) {
            EXPECT_EQ(std::memcmp(part, &working.Private, sizeof(working.Private)), 0);
        } else {
            EXPECT_EQ(std::count(part, part + c.outExtra, 0xA5), c.outExtra) << "written over";
        }
    }
}

TEST_F(MergeTest, LayoutThatEndsWithinItsHeaderIsNotWrittenTo) {
    const DevModeRecord working = DefaultRecord();
    for (WORD size : {WORD{1}, WORD{40}, WORD{71}}) {
        DEVMODEW input = {};
        input.dmSize = size;
        input.dmSpecVersion = 0x0401;
        const GuardedBuffer out((size + 3) / 4 * 4);
        EXPECT_EQ(CopyDevModeOut(&working, &input, out.record()), 0) << size;
        EXPECT_EQ(std::count(out.data(), out.data() + size, 0xA5), size);
        DEVMODEW target = input;
        EXPECT_EQ(ConvertDevModeCopy(&working.Public, &target), -1) << size;
        EXPECT_EQ(std::memcmp(&target, &input, sizeof(input)), 0);
    }
}

TEST_F(MergeTest, CopyOutWithoutInputIsWholeAndWithoutOutputIsNothing) {
    const DevModeRecord working = DefaultRecord();
    GuardedBuffer out(584);
    EXPECT_EQ(CopyDevModeOut(&working, nullptr, out.record()), 1);
    EXPECT_EQ(std::memcmp(out.data(), &working, 584), 0);
    EXPECT_EQ(CopyDevModeOut(&working, nullptr, nullptr), 0);
}

}  // namespace
}  // namespace test
