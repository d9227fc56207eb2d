// Capability answers and the print query.
#include "core/driver_ui_contract.h"
#include "core/merge.h"
#include "driver_test.h"

#include <cstring>

namespace test {
namespace {

class CapabilitiesTest : public DriverTest {};

DWORD Ask(WORD capability, void* output = nullptr, DEVMODEW* record = nullptr) {
    WCHAR name[] = TEXT("Badge room");
    return DrvDeviceCapabilities(nullptr, name, capability, output, record);
}

std::vector<BYTE> Bytes(const void* data, size_t size) {
    const BYTE* bytes = static_cast<const BYTE*>(data);
    return {bytes, bytes + size};
}

template <typename T>
std::vector<BYTE> Bytes(std::initializer_list<T> values) {
    return Bytes(values.begin(), values.size() * sizeof(T));
}

std::vector<BYTE> TextBytes(const WideString& text) {
    return Bytes(text.c_str(), (text.size() + 1) * sizeof(WCHAR));
}

TEST_F(CapabilitiesTest, EveryAnswerAndWhatItWrites) {
    constexpr DWORD kNone = 0xFFFFFFFF;
    const struct {
        WORD first, last;
        DWORD answer;
        std::vector<BYTE> written;
    } cases[] = {
        {0, 0, kNone, {}},
        {DC_FIELDS, DC_FIELDS, 0x0781FF5F, {}},
        {DC_PAPERS, DC_PAPERS, 1, Bytes<WORD>({560})},
        {DC_PAPERSIZE, DC_PAPERSIZE, 1, Bytes<LONG>({544, 859})},
        {DC_MINEXTENT, DC_MAXEXTENT, 544 + 859 * 65536, {}},
        {DC_BINS, DC_BINS, 1, Bytes<WORD>({7})},
        {DC_DUPLEX, DC_DUPLEX, 1, {}},
        {DC_SIZE, DC_SIZE, 220, {}},
        {DC_EXTRA, DC_EXTRA, 364, {}},
        {DC_VERSION, DC_VERSION, 0x0401, {}},
        {DC_DRIVER, DC_DRIVER, 0x0500, {}},
        {DC_BINNAMES, DC_BINNAMES, 1, TextBytes(TEXT("Auto-Feed"))},
        {DC_ENUMRESOLUTIONS, DC_ENUMRESOLUTIONS, 1, Bytes<LONG>({300, 300})},
        {DC_FILEDEPENDENCIES, DC_FILEDEPENDENCIES, 0, TextBytes({})},
        {DC_TRUETYPE, DC_TRUETYPE, 1, {}},
        {DC_PAPERNAMES, DC_PAPERNAMES, 1, TextBytes(TEXT("CR-80 Card"))},
        {DC_ORIENTATION, DC_ORIENTATION, 90, {}},
        {DC_COPIES, DC_COPIES, 9999, {}},
        {19, 21, kNone, {}},
        {DC_COLLATE, DC_COLLATE, 0, {}},
        {23, 28, kNone, {}},
        {DC_MEDIAREADY, DC_MEDIAREADY, 1, TextBytes(TEXT("CR-80 Card"))},
        {DC_STAPLE, DC_STAPLE, 0, {}},
        {31, 31, kNone, {}},
        {DC_COLORDEVICE, DC_COLORDEVICE, 1, {}},
        {33, 40, kNone, {}},
        {65535, 65535, kNone, {}},
    };
    for (const auto& c : cases) {
        for (unsigned capability = c.first; capability <= c.last; ++capability) {
            SCOPED_TRACE(capability);
            const WORD index = static_cast<WORD>(capability);
            EXPECT_EQ(Ask(index), c.answer);
            std::vector<BYTE> buffer(256, 0xA5);
            EXPECT_EQ(Ask(index, buffer.data()), c.answer);
            std::vector<BYTE> expected(256, 0xA5);
            std::copy(c.written.begin(), c.written.end(), expected.begin());
            EXPECT_EQ(buffer, expected);
        }
    }
}

TEST_F(CapabilitiesTest, AnswersRefuseAnUnusableRecordOnly) {
    DevModeRecord record = DefaultRecord();
    record.Public.dmCopies = 0;
    EXPECT_EQ(Ask(DC_COPIES, nullptr, &record.Public), 9999u);
    record.Public.dmSize = 100;
    record.Public.dmSpecVersion = 0;
    EXPECT_EQ(Ask(DC_COPIES, nullptr, &record.Public), 0xFFFFFFFFu);
}

TEST_F(CapabilitiesTest, QueryAcceptsWhateverAMergeCanRepair) {
    DevModeRecord repairable = DefaultRecord();
    repairable.Public.dmCopies = 0;
    DevModeRecord unusable = DefaultRecord();
    unusable.Public.dmSize = 0;
    unusable.Public.dmSpecVersion = 0;
    const struct {
        DEVMODEW* record;
        BOOL printable;
    } cases[] = {{&repairable.Public, TRUE}, {&unusable.Public, FALSE}, {nullptr, FALSE}};
    for (const auto& c : cases) {
        WCHAR text[4] = TEXT("abc");
        DEVQUERYPRINT_INFO info = {};
        info.cbSize = sizeof(info);
        info.pDevMode = c.record;
        info.pszErrorStr = text;
        info.cchErrorStr = 4;
        EXPECT_EQ(DevQueryPrintEx(&info), c.printable);
        EXPECT_EQ(WideString(text), TEXT("abc"));
    }
    EXPECT_FALSE(DevQueryPrintEx(nullptr));
}

TEST_F(CapabilitiesTest, AnswersAreGivenForWhateverAMergeAccepts) {
    std::vector<BYTE> buffer(2 * 65536, 0xFF);  // every bit of dmFields is set
    auto* record = reinterpret_cast<DEVMODEW*>(buffer.data());
    int accepted = 0;
    for (WORD size : {0, 1, 71, 72, 73, 75, 76, 188, 212, 219, 220, 300, 65535}) {
        for (WORD spec : {0, 1, 0x0401}) {
            for (WORD driver : {0x0350, 0x0500}) {
                for (WORD extra : {0, 112, 364, 65535}) {
                    record->dmSize = size;
                    record->dmSpecVersion = spec;
                    record->dmDriverVersion = driver;
                    record->dmDriverExtra = extra;
                    SCOPED_TRACE(testing::Message() << size << " + " << extra << ", version "
                                                    << spec << ", driver " << driver);
                    DevModeRecord merged = DefaultRecord();
                    const int merges = MergeDevMode(&merged, record, nullptr);
                    DEVQUERYPRINT_INFO info = {};
                    info.pDevMode = record;
                    EXPECT_EQ(DevQueryPrintEx(&info), merges);
                    EXPECT_EQ(Ask(DC_FIELDS, nullptr, record),
                              merges ? merged.Public.dmFields : DWORD(-1));
                    EXPECT_EQ(Ask(DC_COPIES, nullptr, record), merges ? 9999 : DWORD(-1));
                    accepted += merges;
                }
            }
        }
    }
    EXPECT_EQ(accepted, 12 * 2 * 8 + 3 * 8 + 1) << "of 312, one for its private part alone";
}

TEST_F(CapabilitiesTest, ColourProfileIsNeverNamed) {
    const DevModeRecord own = DefaultRecord();
    DevModeRecord systems = own;
    systems.Public.dmICMMethod = DMICMMETHOD_SYSTEM;
    DevModeRecord old = systems;
    old.Public.dmSize = 188;
    DevModeRecord partial = systems;
    partial.Public.dmSize = 189;
    const struct {
        const char* name;
        const DevModeRecord* record;
        ULONG mode;
        BOOL result;
    } cases[] = {
        {"device", &own, 0, TRUE},        {"target", &own, 1, TRUE},
        {"other mode", &own, 2, FALSE},   {"system colour", &systems, 0, FALSE},
        {"no such field", &old, 0, TRUE}, {"one byte of it", &partial, 0, FALSE},
    };
    for (const auto& c : cases) {
        DevModeRecord record = *c.record;
        std::vector<BYTE> profile(12, 0xA5);
        ULONG size = 10;
        ULONG flags = 77;
        EXPECT_EQ(
            DrvQueryColorProfile(nullptr, &record.Public, c.mode, profile.data(), &size, &flags),
            c.result)
            << c.name;
        EXPECT_EQ(flags, c.result ? 2u : 77u) << c.name;
        std::vector<BYTE> expected(12, 0xA5);
        std::fill_n(expected.begin(), c.result ? 10 : 0, 0);
        EXPECT_EQ(profile, expected) << c.name;
    }
    DevModeRecord record = own;
    BYTE profile[4];
    ULONG size = 4;
    EXPECT_TRUE(DrvQueryColorProfile(nullptr, &record.Public, 0, profile, &size, nullptr));
    EXPECT_FALSE(DrvQueryColorProfile(nullptr, &record.Public, 0, nullptr, &size, nullptr));
    EXPECT_FALSE(DrvQueryColorProfile(nullptr, &record.Public, 0, profile, nullptr, nullptr));
    EXPECT_FALSE(DrvQueryColorProfile(nullptr, nullptr, 0, profile, &size, nullptr));
    EXPECT_TRUE(DrvPrinterEvent(nullptr, 99, 0, 0));
}

}  // namespace
}  // namespace test
