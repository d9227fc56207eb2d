// Printers, records and printer data for the driver's tests.
#include "driver_test.h"

#include <winspool.h>

#include <algorithm>
#include <cstring>

namespace test {

HANDLE DriverTest::NewPrinter(const WideString& model, const WideString& port,
                              const std::vector<BYTE>& defaultRecord) {
    EXPECT_EQ(computer::InstallPrinter({kPrinterName, model, port, defaultRecord}), "");
    WideString name = kPrinterName;
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    EXPECT_TRUE(OpenPrinterW(name.data(), &printer, &defaults));
    opened_.push_back(printer);
    return printer;
}

void DriverTest::SetUp() {
    PlatformTest::SetUp();
    language_ = GetUserDefaultUILanguage();
}

void DriverTest::TearDown() {
    for (HANDLE printer : opened_) {
        ClosePrinter(printer);
    }
    computer::RemovePrinter(kPrinterName);
    computer::SetUiLanguage(language_);
    PlatformTest::TearDown();
}

std::vector<BYTE> BytesOf(const DEVMODEW& record) {
    const BYTE* bytes = reinterpret_cast<const BYTE*>(&record);
    return {bytes, bytes + record.dmSize + record.dmDriverExtra};
}

DevModeRecord DefaultRecord(const WideString& model) {
    DevModeRecord record;
    BuildDefaultDevMode(&record, kPrinterName.c_str(), model.c_str());
    return record;
}

void StoreValue(HANDLE printer, const WCHAR* name, DWORD type, const std::vector<BYTE>& bytes) {
    std::vector<BYTE> copy = bytes;
    ASSERT_EQ(SetPrinterDataW(printer, const_cast<WCHAR*>(name), type, copy.data(),
                              static_cast<DWORD>(copy.size())),
              DWORD{ERROR_SUCCESS});
}

void StoreNumber(HANDLE printer, const WCHAR* name, DWORD number) {
    std::vector<BYTE> bytes(sizeof(number));
    std::memcpy(bytes.data(), &number, sizeof(number));
    StoreValue(printer, name, REG_DWORD, bytes);
}

std::vector<BYTE> StoredValue(HANDLE printer, const WCHAR* name, DWORD* type) {
    std::vector<BYTE> bytes(0x20000);
    DWORD size = 0;
    DWORD found = 0;
    if (GetPrinterDataW(printer, const_cast<WCHAR*>(name), &found, bytes.data(),
                        static_cast<DWORD>(bytes.size()), &size) != ERROR_SUCCESS) {
        return {};
    }
    if (type != nullptr) {
        *type = found;
    }
    bytes.resize(size);
    return bytes;
}

DWORD StoredNumber(HANDLE printer, const WCHAR* name) {
    const std::vector<BYTE> bytes = StoredValue(printer, name);
    DWORD number = 0;
    EXPECT_EQ(bytes.size(), sizeof(number)) << Narrow(name);
    std::memcpy(&number, bytes.data(), std::min(bytes.size(), sizeof(number)));
    return number;
}

}  // namespace test
