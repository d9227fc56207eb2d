// Any stored printer data: the upgrade either refuses a tray-to-form table and leaves it, or leaves
// a current one; a second upgrade changes nothing.
#include "core/context.h"
#include "core/printer_data.h"
#include "fuzz_support.h"
#include "platform/host.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using Bytes = std::vector<BYTE>;

struct OpenPrinter {
    HANDLE handle = nullptr;
    OpenPrinter() {
        WCHAR name[] = TEXT("Printer");
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        Require(OpenPrinterW(name, &handle, &defaults), "printer opens");
    }
    ~OpenPrinter() { ClosePrinter(handle); }

    void Store(const WCHAR* name, DWORD type, Bytes bytes) const {
        SetPrinterDataW(handle, const_cast<WCHAR*>(name), type, bytes.data(),
                        static_cast<DWORD>(bytes.size()));
    }
    Bytes Stored(const WCHAR* name) const {
        Bytes bytes(0x1000);
        DWORD size = 0;
        const DWORD error =
            GetPrinterDataW(handle, const_cast<WCHAR*>(name), nullptr, bytes.data(), 0x1000, &size);
        bytes.resize(error == ERROR_SUCCESS ? size : 0);
        return bytes;
    }
};

Bytes Number(DWORD value) {
    Bytes bytes(sizeof(value));
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

// A size of any length, below 16 MiB: more is no different, but is taken for a leak here.
Bytes AnySize(FuzzedDataProvider& input) {
    Bytes bytes = input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange(0, 8));
    if (bytes.size() == sizeof(DWORD)) {
        bytes.back() = 0;
    }
    return bytes;
}

// A value as a driver writes it, or anything at all.
void StoreSized(const OpenPrinter& printer, FuzzedDataProvider& input, const WCHAR* sizeName,
                const WCHAR* dataName, const Bytes& data) {
    const bool wellFormed = input.ConsumeBool();
    printer.Store(sizeName, wellFormed ? REG_DWORD : input.ConsumeIntegralInRange<DWORD>(0, 7),
                  wellFormed ? Number(static_cast<DWORD>(data.size())) : AnySize(input));
    printer.Store(dataName, wellFormed ? REG_BINARY : input.ConsumeIntegralInRange<DWORD>(0, 7),
                  data);
}

BOOL Upgrade() {
    WCHAR name[] = TEXT("Printer");
    DRIVER_UPGRADE_INFO_1W info = {name, nullptr};
    return DrvUpgradePrinter(1, reinterpret_cast<BYTE*>(&info));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    host::AddPrinter({.name = TEXT("Printer"), .model = TEXT("Mirv KP-41"), .defaultRecord = {}});
    const OpenPrinter printer;
    printer.Store(TEXT("FreeMem"), input.ConsumeIntegralInRange<DWORD>(0, 7),
                  input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange(0, 6)));
    printer.Store(TEXT("PrinterHT"), REG_BINARY,
                  input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange(0, 6)));
    StoreSized(printer, input, TEXT("PrinterDataSize"), TEXT("PrinterData"),
               input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange(0, 120)));
    const Bytes table = input.ConsumeBytes<BYTE>(input.ConsumeIntegralInRange(0, 200));
    StoreSized(printer, input, TEXT("TrayFormSize"), TEXT("TrayFormTable"), table);

    ReleaseDriverContext(CreateDriverContext(printer.handle, nullptr));

    const BOOL upgraded = Upgrade();
    PrinterDataRecord record;
    Require(ReadPrinterData(printer.handle, &record), "the record is stored");
    Require(record.RecordVersion >= 0x0500, "the record is current");
    const Bytes stored = printer.Stored(TEXT("TrayFormTable"));
    if (!upgraded) {
        Require(stored == table, "a malformed table stays");
    } else if (stored != table) {
        Require(stored.size() > table.size() && stored[0] + stored[1] * 256u == stored.size(),
                "a new table says its size");
    }
    Require(Upgrade() == upgraded && printer.Stored(TEXT("TrayFormTable")) == stored,
            "a second upgrade changes nothing");
    Require(host::CurrentHoldings().globalBlocks == 0 && host::CurrentHoldings().heaps == 0,
            "nothing is kept");
    return 0;
}
