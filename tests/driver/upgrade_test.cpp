// Bringing stored printer data to the current format.
#include "core/driver_ui_contract.h"
#include "core/printer_data.h"
#include "driver_test.h"

#include <cstring>

namespace test {
namespace {

class UpgradeTest : public DriverTest {
  protected:
    void SetUp() override {
        DriverTest::SetUp();
        printer_ = NewPrinter(TEXT("Mirv KP-41"));
    }

    static BOOL Upgrade(DWORD level = 1, const WideString& printer = kPrinterName) {
        WideString name = printer;
        DRIVER_UPGRADE_INFO_1W info = {name.data(), nullptr};
        SetLastError(4242);
        return DrvUpgradePrinter(level, reinterpret_cast<BYTE*>(&info));
    }

    void StoreBlob(PrinterBlobIndex index, const std::vector<BYTE>& bytes) const {
        ASSERT_TRUE(
            WritePrinterBlob(printer_, bytes.data(), static_cast<DWORD>(bytes.size()), index));
    }

    PrinterDataRecord StoredRecord() const {
        const std::vector<BYTE> bytes = StoredValue(printer_, TEXT("PrinterData"));
        EXPECT_EQ(bytes.size(), 104u);
        EXPECT_EQ(StoredNumber(printer_, TEXT("PrinterDataSize")), 104u);
        PrinterDataRecord record = {};
        std::memcpy(&record, bytes.data(), std::min(bytes.size(), sizeof(record)));
        return record;
    }

    HANDLE printer_ = nullptr;
};

std::vector<BYTE> WideBytes(const WideString& text) {
    const BYTE* data = reinterpret_cast<const BYTE*>(text.data());
    return {data, data + text.size() * sizeof(WCHAR)};
}

// Text with '|' for the zero characters.
std::vector<BYTE> Table(const char* text) {
    WideString table = Wide(text);
    for (WCHAR& c : table) {
        c = c == '|' ? 0 : c;
    }
    return WideBytes(table);
}

TEST_F(UpgradeTest, MissingRecordIsBuiltFromThePrintersValues) {
    for (DWORD freeMem : {50, 200}) {
        StoreNumber(printer_, TEXT("FreeMem"), freeMem);
        StoreValue(printer_, TEXT("PrinterDataSize"), REG_DWORD, {0, 0, 0, 0});
        ASSERT_TRUE(Upgrade());
        EXPECT_EQ(StoredRecord().FreeMemory, std::max<DWORD>(freeMem, 100) * 1024);
        EXPECT_EQ(StoredRecord().RecordVersion, 0x0500);
        EXPECT_EQ(StoredNumber(printer_, TEXT("FreeMem")), std::max<DWORD>(freeMem, 100));
    }
}

TEST_F(UpgradeTest, OldRecordKeepsWhatItSaysItFilled) {
    PrinterDataRecord old;
    std::memset(&old, 7, sizeof(old));
    old.RecordVersion = 0x0400;
    old.FreeMemory = 300 * 1024;
    old.DataFlags = kPrinterHalftone;
    const struct {
        WORD recordSize;
        DWORD stored;
        size_t kept;
    } cases[] = {{60, 104, 60}, {60, 60, 60}, {104, 60, 60}, {500, 104, 104}, {104, 12, 12}};
    for (const auto& c : cases) {
        old.RecordSize = c.recordSize;
        const BYTE* bytes = reinterpret_cast<const BYTE*>(&old);
        StoreBlob(kPrinterDataBlob, {bytes, bytes + c.stored});
        ASSERT_TRUE(Upgrade());
        const PrinterDataRecord record = StoredRecord();
        EXPECT_EQ(record.RecordVersion, 0x0500);
        EXPECT_EQ(record.RecordSize, 104);
        const BYTE* upgraded = reinterpret_cast<const BYTE*>(&record);
        EXPECT_EQ(std::memcmp(upgraded + 4, bytes + 4, c.kept - 4), 0);
        EXPECT_EQ(std::count(upgraded + c.kept, upgraded + 104, 0),
                  104 - static_cast<long>(c.kept));
        DWORD type = 0;
        EXPECT_EQ(StoredNumber(printer_, TEXT("FreeMem")), 300u);
        EXPECT_EQ(StoredValue(printer_, TEXT("PrinterHT"), &type), (std::vector<BYTE>{1, 0, 0, 0}));
        EXPECT_EQ(type, DWORD{REG_BINARY});
    }
}

TEST_F(UpgradeTest, CurrentRecordStaysAsItIs) {
    PrinterDataRecord current = {};
    current.RecordVersion = 0x0500;
    current.RecordSize = 60;
    current.FreeMemory = 4096;
    current.RecordReserved[83] = 9;
    const BYTE* bytes = reinterpret_cast<const BYTE*>(&current);
    StoreBlob(kPrinterDataBlob, {bytes, bytes + 104});
    ASSERT_TRUE(Upgrade());
    const PrinterDataRecord record = StoredRecord();
    EXPECT_EQ(std::memcmp(&record, &current, 104), 0);
    EXPECT_EQ(StoredNumber(printer_, TEXT("FreeMem")), 4u);
    EXPECT_EQ(StoredNumber(printer_, TEXT("PrinterHT")), 0u);
}

TEST_F(UpgradeTest, TrayFormTable) {
    const struct {
        const char* name;
        std::vector<BYTE> stored;
        bool succeeds;
        std::vector<BYTE> result;  // empty: as it was
    } cases[] = {
        {"two entries", Table("Auto|CR80|1|Tray|Long||||"), false, {}},
        {"two entries of three", Table("Auto|CR80|1|Tray|Long|||"), true,
         Table("\x36"
               "Auto|CR80|1||Tray|Long||||")},
        {"no entry", Table("|"), true, Table("\x04|")},
        {"current already",
         Table("\x12"
               "a|b|c|||"),
         true,
         {}},
        {"no end", Table("a|b|c|"), false, {}},
        {"last character not zero", Table("a|b|c|x"), false, {}},
        {"cut within an entry", Table("a|b|"), false, {}},
        {"more behind the end", Table("a|b|c||x|"), false, {}},
        {"odd number of bytes", {'a', 0, 0, 0, 0}, false, {}},
        {"one byte", {'a'}, false, {}},
        {"one byte, its size", {1}, false, {}},
        {"odd, but says its size", {3, 0, 9}, true, {}},
    };
    for (const auto& c : cases) {
        StoreBlob(kTrayFormBlob, c.stored);
        EXPECT_EQ(Upgrade(), c.succeeds ? TRUE : FALSE) << c.name;
        const std::vector<BYTE>& expected = c.result.empty() ? c.stored : c.result;
        EXPECT_EQ(StoredValue(printer_, TEXT("TrayFormTable")), expected) << c.name;
        EXPECT_EQ(StoredNumber(printer_, TEXT("TrayFormSize")), expected.size()) << c.name;
        EXPECT_EQ(Upgrade(), c.succeeds ? TRUE : FALSE) << c.name << ", a second time";
        EXPECT_EQ(StoredValue(printer_, TEXT("TrayFormTable")), expected) << c.name;
    }
}

TEST_F(UpgradeTest, TableTooLongForItsOwnSizeIsRefused) {
    WideString table;
    while (table.size() < 32760) {
        table += WideString(TEXT("abcdefg\0h\0i\0"), 12);
    }
    table += WCHAR{0};
    StoreBlob(kTrayFormBlob, WideBytes(table));
    EXPECT_FALSE(Upgrade());
    EXPECT_EQ(StoredValue(printer_, TEXT("TrayFormTable")), WideBytes(table));
}

TEST_F(UpgradeTest, BadCalls) {
    EXPECT_FALSE(Upgrade(2));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_FALSE(Upgrade(1, TEXT("Nowhere")));
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(4242);
    EXPECT_FALSE(DrvUpgradePrinter(1, nullptr));
    EXPECT_EQ(GetLastError(), 87u);
    DRIVER_UPGRADE_INFO_1W nameless = {};
    EXPECT_FALSE(DrvUpgradePrinter(1, reinterpret_cast<BYTE*>(&nameless)));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_TRUE(StoredValue(printer_, TEXT("PrinterData")).empty());
}

}  // namespace
}  // namespace test
