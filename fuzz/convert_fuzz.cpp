// The spooler's conversion requests in every mode, with any records and any size: the contract's
// result and last error, and nothing behind the buffers touched.
#include "core/driver_ui_contract.h"
#include "fuzz_support.h"
#include "platform/host.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

void AddThePrinter() {
    static const bool added = [] {
        host::AddPrinter(
            {.name = TEXT("Printer"), .model = TEXT("Mirv KP-511"), .defaultRecord = {}});
        return true;
    }();
    (void)added;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t dataSize) {
    AddThePrinter();
    FuzzedDataProvider input(data, dataSize);
    const DWORD mode = input.ConsumeIntegralInRange<DWORD>(0, 5);
    const bool hasInput = input.ConsumeBool();
    const bool hasOutput = input.ConsumeBool();
    WCHAR printer[] = TEXT("Printer");
    const bool hasPrinter = input.ConsumeBool();
    const LONG given = input.ConsumeBool() ? input.ConsumeIntegral<LONG>()
                                           : input.ConsumeIntegralInRange<LONG>(0, 700);
    const auto outputBytes = input.ConsumeRandomLengthString(700);
    const test::GuardedBuffer source = GuardedRecord(input.ConsumeRemainingBytesAsString());
    // The output buffer has the bytes that the caller says it has.
    const size_t outputSize = static_cast<size_t>(std::clamp<LONG>(given, 0, 200000));
    const test::GuardedBuffer target((outputSize + 3) / 4 * 4, outputBytes);

    const std::string before(reinterpret_cast<const char*>(target.data()), outputSize);

    LONG size = given;
    const DWORD untouched = 4242;
    SetLastError(untouched);
    const BOOL converted =
        DrvConvertDevMode(hasPrinter ? printer : nullptr, hasInput ? source.record() : nullptr,
                          hasOutput ? target.record() : nullptr, &size, mode);
    const DWORD error = GetLastError();
    if (converted) {
        Require(mode == CDM_CONVERT || mode == CDM_CONVERT351 || mode == CDM_DRIVER_DEFAULT,
                "mode");
        Require(size >= kHeaderSize && size <= given, "size used");
        Require(size == target.record()->dmSize + target.record()->dmDriverExtra, "size told");
        Require(mode != CDM_CONVERT351 ||
                    before.compare(188, 112, reinterpret_cast<const char*>(target.data() + 188),
                                   112) == 0,
                "the first generation's private part is left alone");
    } else if (mode == CDM_CONVERT) {
        Require(error == ERROR_INVALID_PARAMETER && size == given, "refusal of CDM_CONVERT");
    } else if (mode == CDM_CONVERT351) {
        Require(
            (error == ERROR_INSUFFICIENT_BUFFER && size == 300) || error == ERROR_INVALID_PARAMETER,
            "refusal of CDM_CONVERT351");
    } else if (mode == CDM_DRIVER_DEFAULT) {
        Require(size == 584, "size needed");
        Require(error == ERROR_INSUFFICIENT_BUFFER || error == ERROR_INVALID_PRINTER_NAME,
                "refusal of CDM_DRIVER_DEFAULT");
    } else {
        Require(error == untouched && size == given, "unknown mode");
    }
    Require(host::CurrentHoldings() == host::Holdings{}, "nothing is kept");
    return 0;
}
