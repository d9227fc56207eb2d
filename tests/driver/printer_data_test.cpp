// Printer information and the values that the driver keeps in the printer's data store.
#include "core/printer_data.h"
#include "driver_test.h"

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

TEST_F(PrinterDataTest, SizedValueWhoseHalvesDisagreeIsNone) {
    const struct {
        const char* name;
        DWORD sizeType;
        std::vector<BYTE> size;
        DWORD dataType;
        std::vector<BYTE> data;
        bool readable;
    } cases[] = {
        {"as written", REG_DWORD, {4, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, true},
        {"size as bytes", REG_BINARY, {4, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, true},
        {"size 0", REG_DWORD, {0, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, false},
        {"size of two bytes", REG_BINARY, {4, 0}, REG_BINARY, {1, 2, 3, 4}, false},
        {"size of eight bytes",
         REG_BINARY,
         {4, 0, 0, 0, 0, 0, 0, 0},
         REG_BINARY,
         {1, 2, 3, 4},
         false},
        {"size as text", REG_SZ, {'4', 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, false},
        {"enormous", REG_DWORD, {255, 255, 255, 255}, REG_BINARY, {1, 2, 3, 4}, false},
        {"data longer", REG_DWORD, {3, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, false},
        {"data shorter", REG_DWORD, {5, 0, 0, 0}, REG_BINARY, {1, 2, 3, 4}, false},
        {"data of another type", REG_DWORD, {4, 0, 0, 0}, REG_DWORD, {1, 2, 3, 4}, false},
    };
    for (const auto& c : cases) {
        StoreValue(printer_, TEXT("TrayFormSize"), c.sizeType, c.size);
        StoreValue(printer_, TEXT("TrayFormTable"), c.dataType, c.data);
        DWORD size = 77;
        EXPECT_EQ(static_cast<bool>(ReadPrinterBlob(printer_, &size, kTrayFormBlob)), c.readable)
            << c.name;
        EXPECT_EQ(size, c.readable ? 4u : 77u) << c.name;
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
    StoreValue(printer_, TEXT("FreeMem"), REG_SZ, {'2', 0, '0', 0, '0', 0, 0, 0});
    EXPECT_EQ(BuildDefaultPrinterData(printer_)->FreeMemory, 102400u);

    EXPECT_EQ(BuildDefaultPrinterData(printer_)->DataFlags & kPrinterHalftone, 0u);
    StoreValue(printer_, TEXT("PrinterHT"), REG_BINARY, {0, 1, 0, 0});
    const auto record = BuildDefaultPrinterData(printer_);
    EXPECT_NE(record->DataFlags & kPrinterHalftone, 0u);
    EXPECT_EQ(record->RecordVersion, 0x0500);
    EXPECT_EQ(record->RecordSize, 104);
    EXPECT_EQ(record->Value12, 0u);
    EXPECT_EQ(record->Value16, 240u);
}

TEST_F(PrinterDataTest, StoredRecordNeedsItsFixedFields) {
    for (DWORD size : {19u, 20u, 104u, 300u}) {
        const std::vector<BYTE> bytes(size, 9);
        ASSERT_TRUE(WritePrinterBlob(printer_, bytes.data(), size, kPrinterDataBlob));
        PrinterDataRecord record;
        std::memset(&record, 0xA5, sizeof(record));
        EXPECT_EQ(ReadPrinterData(printer_, &record), size >= 20) << size;
        EXPECT_EQ(record.RecordReserved[83], size < 20 ? 0xA5 : size == 20 ? 0 : 9) << size;
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
