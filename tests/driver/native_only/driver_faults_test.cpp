// What happens when the n-th allocation or spooler call of an operation fails: the contract's
// failure (or the stated default), and nothing left behind. Only the stand-in can order that.
#include "core/context.h"
#include "core/merge.h"
#include "core/printer_data.h"
#include "driver_test.h"
#include "native_only.h"

#include <cstring>

namespace test {
namespace {

class DriverFaults : public NativeOnly {
  protected:
    void SetUp() override {
        NativeOnly::SetUp();
        printer_ = NewPrinter(TEXT("Mirv KP-41"));
    }

    /// As FailEach, of an operation with a result.
    static unsigned FailEach(host::Call kind, const std::function<LONG()>& operation,
                             const std::function<void(unsigned n, LONG result)>& failed) {
        LONG result = 0;
        return test::FailEach(
            kind, [&] { result = operation(); }, [&](unsigned n) { failed(n, result); });
    }

    HANDLE printer_ = nullptr;
};

LONG BuildAndRelease(HANDLE printer, DEVMODEW* record) {
    DriverContext* context = CreateDriverContext(printer, record);
    const LONG built = context != nullptr;
    ReleaseDriverContext(context);
    return built;
}

LONG Upgrade() {
    WideString name = kPrinterName;
    DRIVER_UPGRADE_INFO_1W info = {name.data(), nullptr};
    return DrvUpgradePrinter(1, reinterpret_cast<BYTE*>(&info));
}

TEST_F(DriverFaults, ContextSurvivesOnlyWithoutItsPrinterName) {
    const auto build = [&] { return BuildAndRelease(printer_, nullptr); };
    constexpr unsigned kPrinterNameCall = 4;  // after the heap, the record and the model's name
    EXPECT_EQ(
        FailEach(host::Call::kHeap, build,
                 [](unsigned n, LONG built) { EXPECT_EQ(built, n == kPrinterNameCall) << n; }),
        4u);
    host::FailCall(host::Call::kHeap, kPrinterNameCall);
    DriverContext* context = CreateDriverContext(printer_, nullptr);
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(context->PrinterName, nullptr);
    ReleaseDriverContext(context);
}

TEST_F(DriverFaults, ContextNeedsEveryGlobalBlock) {
    DevModeRecord record = DefaultRecord();
    // The printer's information, two merges' scratch blocks, a default printer-data record; in the
    // place of the last a stored record will do.
    constexpr unsigned kPrinterDataCall = 4;
    for (const LONG stored : {0, 1}) {
        EXPECT_EQ(
            FailEach(
                host::Call::kGlobal, [&] { return BuildAndRelease(printer_, &record.Public); },
                [&](unsigned n, LONG built) {
                    EXPECT_EQ(built, n == kPrinterDataCall ? stored : 0) << n;
                }),
            kPrinterDataCall);
        const BYTE bytes[20] = {};
        ASSERT_TRUE(WritePrinterBlob(printer_, bytes, sizeof(bytes), kPrinterDataBlob));
    }
}

TEST_F(DriverFaults, ContextAsksForThePrintersInformationAndNoStoredValue) {
    DevModeRecord record = DefaultRecord();
    EXPECT_EQ(FailEach(
                  host::Call::kSpooler, [&] { return BuildAndRelease(printer_, &record.Public); },
                  [](unsigned n, LONG built) { EXPECT_EQ(built, 0) << n; }),
              2u);
}

TEST_F(DriverFaults, NonInteractiveCallFailsWithoutWriting) {
    DevModeRecord input = DefaultRecord();
    for (host::Call kind : {host::Call::kHeap, host::Call::kGlobal, host::Call::kSpooler}) {
        DevModeRecord output = {};
        const auto call = [&] {
            output = {};
            DOCUMENTPROPERTYHEADER header = {};
            header.hPrinter = printer_;
            header.pdmIn = &input.Public;
            header.pdmOut = &output.Public;
            header.fMode = DM_IN_BUFFER | DM_OUT_BUFFER;
            return DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header));
        };
        const unsigned calls = FailEach(kind, call, [&](unsigned n, LONG result) {
            EXPECT_TRUE(result == 1 || result == -1) << n;
            EXPECT_EQ(output.Public.dmSize, result == 1 ? 220 : 0) << n;
        });
        EXPECT_LE(calls, 4u);
    }
}

TEST_F(DriverFaults, CapabilitiesAskTheSpoolerNothing) {
    DevModeRecord record = DefaultRecord();
    const auto ask = [&] {
        return static_cast<LONG>(
            DrvDeviceCapabilities(printer_, nullptr, DC_COPIES, nullptr, &record.Public));
    };
    EXPECT_EQ(FailEach(host::Call::kGlobal, ask,
                       [](unsigned n, LONG answer) { EXPECT_EQ(answer, -1) << n; }),
              1u);
    EXPECT_EQ(FailEach(host::Call::kSpooler, ask, [](unsigned, LONG) {}), 0u);
    EXPECT_EQ(FailEach(host::Call::kHeap, ask, [](unsigned, LONG) {}), 0u);

    DEVQUERYPRINT_INFO info = {};
    info.pDevMode = &record.Public;
    EXPECT_EQ(FailEach(
                  host::Call::kGlobal, [&] { return LONG{DevQueryPrintEx(&info)}; },
                  [](unsigned n, LONG printable) { EXPECT_EQ(printable, FALSE) << n; }),
              1u);
}

TEST_F(DriverFaults, DriverDefaultPassesTheFailureOn) {
    const auto convert = [&] {
        DevModeRecord output;
        LONG size = sizeof(output);
        WideString name = kPrinterName;
        return LONG{
            DrvConvertDevMode(name.data(), nullptr, &output.Public, &size, CDM_DRIVER_DEFAULT)};
    };
    const auto fails = [](unsigned n, LONG result) { EXPECT_EQ(result, FALSE) << n; };
    EXPECT_EQ(FailEach(host::Call::kSpooler, convert, fails), 3u);
    EXPECT_EQ(FailEach(host::Call::kGlobal, convert, fails), 1u);
}

TEST_F(DriverFaults, UpgradeReportsOnlyWhatItCouldNotRead) {
    // Opening the printer is the first call; a value that cannot be read or written is passed over.
    FailEach(host::Call::kSpooler, Upgrade,
             [](unsigned n, LONG result) { EXPECT_EQ(result, n == 1 ? FALSE : TRUE) << n; });
    // A stored record whose block cannot be had is replaced by a default one.
    FailEach(host::Call::kGlobal, Upgrade,
             [](unsigned n, LONG result) { EXPECT_EQ(result, TRUE) << n; });
}

TEST_F(DriverFaults, InterruptedUpgradeGoesOnWhereItStopped) {
    PrinterDataRecord old;
    std::memset(&old, 7, sizeof(old));
    old.RecordVersion = 0x0400;
    old.RecordSize = 60;
    std::vector<BYTE> upgraded(sizeof(old));
    std::memcpy(upgraded.data(), &old, 60);
    upgraded[0] = 0x00;
    upgraded[1] = 0x05;
    upgraded[2] = 104;
    // The printer is opened, size and record read, two values, size and record written, the size of
    // a tray-to-form table read.
    constexpr unsigned kCalls = 8;
    for (unsigned n = 1; n <= kCalls; ++n) {
        ASSERT_TRUE(WritePrinterBlob(printer_, &old, 60, kPrinterDataBlob));
        host::FailCall(host::Call::kSpooler, n);
        Upgrade();
        host::FailCall(host::Call::kSpooler, 0);
        ASSERT_TRUE(Upgrade());
        EXPECT_EQ(StoredValue(printer_, TEXT("PrinterData")), upgraded) << n;
        EXPECT_EQ(StoredNumber(printer_, TEXT("PrinterDataSize")), 104u) << n;
    }
}

TEST_F(DriverFaults, TableInterruptedBetweenSizeAndBytesIsRefusedAndStays) {
    ASSERT_TRUE(Upgrade());
    const WCHAR table[] = {'a', 0, 'b', 0, 'c', 0, 0};
    ASSERT_TRUE(WritePrinterBlob(printer_, table, sizeof(table), kTrayFormBlob));
    constexpr unsigned kTableWritten = 11;
    host::FailCall(host::Call::kSpooler, kTableWritten);
    EXPECT_TRUE(Upgrade()) << "writes are not consulted";
    host::FailCall(host::Call::kSpooler, 0);
    EXPECT_EQ(StoredNumber(printer_, TEXT("TrayFormSize")), sizeof(table) + 4);
    EXPECT_FALSE(Upgrade());
    EXPECT_EQ(StoredValue(printer_, TEXT("TrayFormTable")).size(), sizeof(table));
}

TEST_F(DriverFaults, MetricLocaleIsNotAssumed) {
    host::SetCountry(49);
    ASSERT_EQ(IsMetricLocale(), 1);
    host::FailCall(host::Call::kLocale, 1);
    EXPECT_EQ(IsMetricLocale(), 0);
}

TEST_F(DriverFaults, PrinterWithoutADefaultRecord) {
    host::AddPrinter({.name = kPrinterName, .model = TEXT("Mirv KP-41"), .defaultRecord = {}});
    DriverContext* context = CreateDriverContext(printer_, nullptr);
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(WideString(context->WorkingDevMode.Public.dmDeviceName), kPrinterName);
    EXPECT_EQ(context->WorkingDevMode.Public.dmLogPixels, 0) << "never merged";
    ReleaseDriverContext(context);
}

TEST_F(DriverFaults, NetworkPrinterIsRemoteWhateverItsPort) {
    host::AddPrinter({.name = kPrinterName,
                      .model = TEXT("Mirv KP-41"),
                      .port = TEXT("IP_10.0.0.5"),
                      .attributes = PRINTER_ATTRIBUTE_NETWORK,
                      .defaultRecord = {}});
    DriverContext* context = CreateDriverContext(printer_, nullptr);
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(context->IsRemotePrinter, 1u);
    EXPECT_EQ(context->IsNetworkPort, 1u);
    ReleaseDriverContext(context);
}

}  // namespace
}  // namespace test
