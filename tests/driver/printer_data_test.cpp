// Printer information and the values that the driver keeps in the printer's data store.
#include "core/printer_data.h"
#include "driver_test.h"

#include <algorithm>
#include <cstring>

namespace test {
namespace {

class PrinterDataTest : public DriverTest {
  protected:
    void SetUp() override {
        DriverTest::SetUp();
        printer_ = NewPrinter(TEXT("Mirv KP-41"));
    }
    HANDLE printer_ = nullptr;
};

TEST_F(PrinterDataTest, LevelTwoInformation) {
    const auto info = GetPrinterInfo2(printer_);
    ASSERT_TRUE(info);
    EXPECT_EQ(WideString(info->pPrinterName), kPrinterName);
    EXPECT_EQ(WideString(info->pDriverName), TEXT("Mirv KP-41"));
    ASSERT_NE(info->pDevMode, nullptr);
    EXPECT_EQ(info->pDevMode->dmDriverExtra, 364);
    EXPECT_FALSE(GetPrinterInfo2(nullptr));
}

TEST_F(PrinterDataTest, SizedValueRoundTrip) {
    const std::vector<BYTE> bytes = {1, 2, 3, 4, 5};
    ASSERT_TRUE(WritePrinterBlob(printer_, bytes.data(), 5, kTrayFormBlob));
    DWORD type = 0;
    EXPECT_EQ(StoredNumber(printer_, TEXT("TrayFormSize")), 5u);
    EXPECT_EQ(StoredValue(printer_, TEXT("TrayFormTable"), &type), bytes);
    EXPECT_EQ(type, DWORD{REG_BINARY});

    DWORD size = 0;
    const auto read = ReadPrinterBlob(printer_, &size, kTrayFormBlob);
    ASSERT_TRUE(read);
    EXPECT_EQ(size, 5u);
    EXPECT_EQ(std::vector<BYTE>(read.get(), read.get() + 5), bytes);
    EXPECT_TRUE(ReadPrinterBlob(printer_, nullptr, kTrayFormBlob));
    EXPECT_FALSE(ReadPrinterBlob(printer_, nullptr, kFontSubstitutionBlob));
}

TEST_F(PrinterDataTest, SizedValueIsAsLongAsItsSizeSaysWhateverIsStored) {
    constexpr DWORD kNone = 77;
    const struct {
        const char* name;
        DWORD sizeType;
        std::vector<BYTE> size;
        DWORD dataType;
        std::vector<BYTE> data;
        DWORD expected;
    } cases[] = {
        {"as written", REG_DWORD, {4, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, 4},
        {"other types", REG_SZ, {4, 0, 0, 0}, REG_DWORD, {1, 2, 3, 4}, 4},
        {"size of one byte", REG_BINARY, {4}, REG_BINARY, {1, 2, 3, 4}, 4},
        {"size of three bytes", REG_BINARY, {4, 1, 0}, REG_BINARY, {1, 2, 3, 4}, 260},
        {"data shorter", REG_DWORD, {5, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, 5},
        {"data much shorter", REG_DWORD, {0, 0, 32, 0}, REG_BINARY, {1, 2, 3, 4}, 0x200000},
        {"size 0", REG_DWORD, {0, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, kNone},
        {"size of five bytes", REG_BINARY, {4, 0, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, kNone},
        {"data longer", REG_DWORD, {3, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, kNone},
    };
    for (const auto& c : cases) {
        StoreValue(printer_, TEXT("TrayFormSize"), c.sizeType, c.size);
        StoreValue(printer_, TEXT("TrayFormTable"), c.dataType, c.data);
        DWORD size = kNone;
        const auto read = ReadPrinterBlob(printer_, &size, kTrayFormBlob);
        EXPECT_EQ(size, c.expected) << c.name;
        ASSERT_EQ(static_cast<bool>(read), c.expected != kNone) << c.name;
        if (read) {
            std::vector<BYTE> expected = c.data;
            expected.resize(size);
            EXPECT_EQ(std::memcmp(read.get(), expected.data(), size), 0) << c.name;
        }
    }
}

TEST_F(PrinterDataTest, DefaultRecordFollowsTheStoredValues) {
    const struct {
        DWORD freeMem, expected;
    } cases[] = {
        {50, 102400},  {80, 102400},          {100, 102400},         {101, 103424},
        {200, 204800}, {4194303, 0xFFFFFC00}, {4194304, 0xFFFFFC00}, {0xFFFFFFFF, 0xFFFFFC00}};
    for (const auto& c : cases) {
        StoreNumber(printer_, TEXT("FreeMem"), c.freeMem);
        EXPECT_EQ(BuildDefaultPrinterData(printer_)->FreeMemory, c.expected) << c.freeMem;
    }
    StoreValue(printer_, TEXT("FreeMem"), REG_BINARY, {200});
    EXPECT_EQ(BuildDefaultPrinterData(printer_)->FreeMemory, 204800u) << "fewer than four bytes";
    StoreValue(printer_, TEXT("FreeMem"), REG_SZ, {'2', 0, '0', 0, '0', 0, 0, 0});
    EXPECT_EQ(BuildDefaultPrinterData(printer_)->FreeMemory, 102400u) << "more than four bytes";

    EXPECT_EQ(BuildDefaultPrinterData(printer_)->DataFlags & kPrinterHalftone, 0u);
    for (const std::vector<BYTE>& bytes : {std::vector<BYTE>{0, 1, 0, 0}, {0, 1}, {1}, {0}}) {
        StoreValue(printer_, TEXT("PrinterHT"), REG_BINARY, bytes);
        EXPECT_EQ((BuildDefaultPrinterData(printer_)->DataFlags & kPrinterHalftone) != 0,
                  std::ranges::count(bytes, 1) != 0)
            << bytes.size();
    }
    const auto record = BuildDefaultPrinterData(printer_);
    EXPECT_EQ(record->RecordVersion, 0x0500);
    EXPECT_EQ(record->RecordSize, 104);
    EXPECT_EQ(record->Value12, 0u);
    EXPECT_EQ(record->Value16, 240u);
}

TEST_F(PrinterDataTest, StoredRecordOfAnyLengthIsFilledUpWithZeros) {
    for (size_t size : {1u, 19u, 103u, 104u, 300u}) {
        const std::vector<BYTE> bytes(size, 9);
        ASSERT_TRUE(
            WritePrinterBlob(printer_, bytes.data(), static_cast<DWORD>(size), kPrinterDataBlob));
        BYTE record[sizeof(PrinterDataRecord)];
        std::memset(record, 0xA5, sizeof(record));
        EXPECT_TRUE(ReadPrinterData(printer_, reinterpret_cast<PrinterDataRecord*>(record)));
        const size_t kept = std::min<size_t>(size, sizeof(record));
        EXPECT_EQ(std::count(record, record + kept, 9), static_cast<long>(kept)) << size;
        EXPECT_EQ(std::count(record + kept, record + sizeof(record), 0),
                  static_cast<long>(sizeof(record) - kept))
            << size;
    }
}

// The user's country and code page: changed from inside where the computer allows it, else checked
// in processes started with them, of which this is one.
class LocaleDataTest : public PrinterDataTest {};

TEST_F(LocaleDataTest, CountryDecidesAboutMillimetres) {
    const struct {
        int country, metric;
    } cases[] = {{1, 0},   {2, 0},   {3, 1},   {7, 1},   {49, 1},  {50, 0},
                 {55, 0},  {59, 0},  {60, 1},  {81, 1},  {82, 1},  {86, 1},
                 {499, 1}, {500, 0}, {599, 0}, {600, 1}, {852, 1}, {886, 1}};
    int checked = 0;
    for (const auto& c : cases) {
        if (SetCountry(c.country)) {
            ++checked;
            EXPECT_EQ(IsMetricLocale(), c.metric) << c.country;
            EXPECT_EQ(BuildDefaultPrinterData(printer_)->DataFlags & kMetricLocale,
                      static_cast<DWORD>(c.metric))
                << c.country;
        }
    }
    EXPECT_GT(checked, 0) << "a country that the table lacks";
}

TEST_F(LocaleDataTest, CodePageOtherThanWesternIsNoted) {
    int checked = 0;
    for (UINT codePage : {1252u, 932u, 936u, 949u, 950u, 1251u}) {
        if (SetCodePage(codePage)) {
            ++checked;
            EXPECT_EQ(BuildDefaultPrinterData(printer_)->DataFlags & kNotCodePage1252,
                      codePage == 1252 ? 0u : DWORD{kNotCodePage1252})
                << codePage;
        }
    }
    EXPECT_GT(checked, 0) << "a code page that the table lacks";
}

}  // namespace
}  // namespace test
