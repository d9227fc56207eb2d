// The spooler's client interface: what its calls give and how they fail.
#include "driver_test.h"

#include <winspool.h>

namespace test {
namespace {

class SpoolerTest : public DriverTest {};

TEST_F(SpoolerTest, PrintersAreOpenedByName) {
    NewPrinter(TEXT("Mirv KP-41"));
    const struct {
        WideString name;
        DWORD error;  // 0: it opens
    } cases[] = {{TEXT("Badge room"), 0},
                 {TEXT("BADGE ROOM"), 0},
                 {TEXT("Nowhere"), ERROR_INVALID_PRINTER_NAME},
                 {TEXT(""), ERROR_INVALID_PARAMETER}};
    for (const auto& c : cases) {
        WideString name = c.name;
        HANDLE printer = nullptr;
        SetLastError(0);
        EXPECT_EQ(OpenPrinterW(name.data(), &printer, nullptr), c.error == 0) << Narrow(name);
        if (c.error != 0) {
            EXPECT_EQ(GetLastError(), c.error) << Narrow(name);
        } else {
            EXPECT_TRUE(ClosePrinter(printer));
        }
    }
    // A null name is the print server, which has none of a printer's information.
    HANDLE server = nullptr;
    ASSERT_TRUE(OpenPrinterW(nullptr, &server, nullptr));
    DWORD size = 0;
    EXPECT_FALSE(GetPrinterW(server, 2, nullptr, 0, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_TRUE(ClosePrinter(server));
}

TEST_F(SpoolerTest, InformationIsAskedForTwice) {
    HANDLE printer = NewPrinter(TEXT("Mirv KP-45"), TEXT("IP_10.0.0.5"));
    DWORD size = 0;
    EXPECT_FALSE(GetPrinterW(printer, 2, nullptr, 0, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    std::vector<BYTE> info(size);
    EXPECT_FALSE(GetPrinterW(printer, 2, info.data(), size - 1, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    ASSERT_TRUE(GetPrinterW(printer, 2, info.data(), size, &size));
    const auto* level2 = reinterpret_cast<const PRINTER_INFO_2W*>(info.data());
    EXPECT_EQ(WideString(level2->pPortName), TEXT("IP_10.0.0.5"));
    EXPECT_EQ(level2->pDevMode->dmDriverExtra, 364);

    EXPECT_FALSE(GetPrinterDriverW(printer, nullptr, 2, nullptr, 0, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    info.resize(size);
    ASSERT_TRUE(GetPrinterDriverW(printer, nullptr, 2, info.data(), size, &size));
    const auto* driver = reinterpret_cast<const DRIVER_INFO_2W*>(info.data());
    EXPECT_EQ(WideString(driver->pName), TEXT("Mirv KP-45"));
    EXPECT_TRUE(WideString(driver->pConfigFile).ends_with(TEXT("\\3\\kpdui.dll")));
    EXPECT_FALSE(GetPrinterDriverW(nullptr, nullptr, 2, nullptr, 0, &size));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(SpoolerTest, APrintersRecordIsAskedForTwice) {
    DevModeRecord stored = DefaultRecord();
    stored.Public.dmCopies = 17;
    HANDLE printer = NewPrinter(TEXT("Mirv KP-41"), {}, BytesOf(stored.Public));
    WideString name = kPrinterName;
    ASSERT_EQ(DocumentPropertiesW(nullptr, printer, name.data(), nullptr, nullptr, 0), kRecordSize);
    DevModeRecord record = {};
    ASSERT_EQ(
        DocumentPropertiesW(nullptr, printer, name.data(), &record.Public, nullptr, DM_OUT_BUFFER),
        IDOK);
    EXPECT_EQ(record.Public.dmCopies, 17);
    EXPECT_EQ(record.Public.dmDriverExtra, kPrivateSize);
}

TEST_F(SpoolerTest, PrinterDataIsKeptByName) {
    HANDLE printer = NewPrinter(TEXT("Mirv KP-41"));
    StoreValue(printer, TEXT("FreeMem"), REG_BINARY, {1, 2, 3, 4, 5, 6});
    const struct {
        HANDLE printer;
        const WCHAR* name;
        DWORD room, error, needed;
    } cases[] = {{printer, TEXT("FreeMem"), 6, ERROR_SUCCESS, 6},
                 {printer, TEXT("FREEMEM"), 8, ERROR_SUCCESS, 6},
                 {printer, TEXT("FreeMem"), 5, ERROR_MORE_DATA, 6},
                 {printer, TEXT("Other"), 8, ERROR_FILE_NOT_FOUND, 0},
                 {nullptr, TEXT("FreeMem"), 8, ERROR_INVALID_HANDLE, 99}};
    for (const auto& c : cases) {
        BYTE data[8] = {};
        DWORD type = 0;
        DWORD needed = 99;
        EXPECT_EQ(
            GetPrinterDataW(c.printer, const_cast<WCHAR*>(c.name), &type, data, c.room, &needed),
            c.error);
        if (c.error != ERROR_FILE_NOT_FOUND) {  // what is missing has no size
            EXPECT_EQ(needed, c.needed) << Narrow(c.name) << " " << c.room;
        }
        EXPECT_EQ(data[5], c.error == ERROR_SUCCESS ? 6 : 0);
        EXPECT_EQ(GetPrinterDataExW(c.printer, TEXT("PrinterDriverData"), c.name, &type, data,
                                    c.room, &needed),
                  c.error);
    }
    BYTE value = 1;
    EXPECT_EQ(SetPrinterDataW(nullptr, const_cast<WCHAR*>(TEXT("FreeMem")), REG_BINARY, &value, 1),
              DWORD{ERROR_INVALID_HANDLE});
}

}  // namespace
}  // namespace test
