// The driver context: names, model and port flags, merged records.
#include "core/context.h"
#include "driver_test.h"

#include <algorithm>
#include <cstring>

namespace test {
namespace {

class ContextTest : public DriverTest {};

TEST_F(ContextTest, ModelFlagsComeFromPartsOfTheName) {
    const struct {
        const WCHAR* model;
        DWORD duplex, kp41, kp43, kp49;
    } cases[] = {
        {TEXT("Mirv KP-41"), 1, 1, 0, 0},
        {TEXT("Mirv KP-410e"), 1, 1, 0, 0},
        {TEXT("Mirv KP-45"), 1, 1, 0, 0},
        {TEXT("Mirv KP-49"), 1, 1, 0, 1},
        {TEXT("Mirv KP-43"), 1, 0, 1, 0},
        {TEXT("Mirv KP-430e"), 1, 0, 1, 0},
        {TEXT("Mirv KP-511"), 0, 0, 0, 0},
        {TEXT("Mirv KP-510"), 0, 0, 0, 0},
        {TEXT("Mirv KP-560i"), 1, 0, 0, 0},
        {TEXT("mirv kp-41"), 1, 0, 0, 0},
        {TEXT("Mirv KP-43 and Mirv KP-41"), 1, 1, 0, 0},
        {TEXT("Mirv KP-43 and Mirv KP-49"), 1, 1, 0, 1},
    };
    for (const auto& c : cases) {
        const OwnedContext context(CreateDriverContext(NewPrinter(c.model), nullptr));
        ASSERT_TRUE(IsValidDriverContext(context.get())) << Narrow(c.model);
        EXPECT_EQ(WideString(context->ModelName), c.model);
        EXPECT_EQ(WideString(context->PrinterName), kPrinterName);
        EXPECT_EQ(context->IsDuplexModel, c.duplex) << Narrow(c.model);
        EXPECT_EQ(context->IsKP41Family, c.kp41) << Narrow(c.model);
        EXPECT_EQ(context->IsKP43Family, c.kp43) << Narrow(c.model);
        EXPECT_EQ(context->IsKP49, c.kp49) << Narrow(c.model);
    }
}

TEST_F(ContextTest, PortFlagsComeFromThePortName) {
    const struct {
        const WCHAR* port;
        DWORD remote, network;
    } cases[] = {
        {TEXT("USB001"), 0, 0},           {TEXT("0ABC"), 0, 0},   {TEXT("IP_10.0.0.5"), 0, 1},
        {TEXT("192.168.1.20"), 0, 1},     {TEXT("9pin"), 0, 1},   {TEXT("ip_10.0.0.5"), 0, 0},
        {TEXT("\\\\server\\card"), 1, 0}, {TEXT("\\card"), 0, 0},
    };
    for (const auto& c : cases) {
        const OwnedContext context(
            CreateDriverContext(NewPrinter(TEXT("Mirv KP-41"), c.port), nullptr));
        ASSERT_NE(context, nullptr);
        EXPECT_EQ(context->IsRemotePrinter, c.remote) << Narrow(c.port);
        EXPECT_EQ(context->IsNetworkPort, c.network) << Narrow(c.port);
    }
}

TEST_F(ContextTest, CallersRecordIsMergedOverThePrinters) {
    DevModeRecord printers = DefaultRecord();
    printers.Public.dmCopies = 5;
    printers.Public.dmScale = 50;
    printers.Private.RibbonType = 4;
    printers.Private.CardType = 3;
    HANDLE printer = NewPrinter(TEXT("Mirv KP-41"), {}, BytesOf(printers.Public));
    DEVMODEW callers = {};
    callers.dmSize = 220;
    callers.dmSpecVersion = 0x0401;
    callers.dmDriverVersion = 1;
    callers.dmFields = DM_COPIES;
    callers.dmCopies = 9;
    const OwnedContext context(CreateDriverContext(printer, &callers));
    ASSERT_NE(context, nullptr);
    const DevModeRecord& working = context->WorkingDevMode;
    EXPECT_EQ(working.Public.dmCopies, 9);
    EXPECT_EQ(working.Public.dmScale, 50);
    EXPECT_EQ(working.Private.RibbonType, 4);
    EXPECT_EQ(working.Private.CardType, 3);
    EXPECT_EQ(callers.dmScale, 0) << "a versioned record is not filled";
}

TEST_F(ContextTest, RecordWithoutDriverVersionIsFilledInPlace) {
    HANDLE printer = NewPrinter(TEXT("Mirv KP-41"));
    const struct {
        WORD size, extra;
    } cases[] = {{220, 0}, {220, 100}, {220, 364}, {220, 900}, {80, 100}, {600, 0}};
    for (const auto& [size, extra] : cases) {
        GuardedBuffer buffer(std::max<size_t>(size, 220) + extra);
        std::memset(buffer.data(), 0, 220);
        DEVMODEW* record = buffer.record();
        record->dmSize = size;
        record->dmDriverExtra = extra;
        record->dmSpecVersion = 0x0401;
        record->dmFields = DM_COPIES;
        record->dmCopies = 3;
        const OwnedContext context(CreateDriverContext(printer, record));
        ASSERT_NE(context, nullptr);
        EXPECT_EQ(context->WorkingDevMode.Public.dmCopies, size > 86 ? 3 : 1);
        const size_t filled = std::min<size_t>(220 + extra, 584);
        EXPECT_EQ(std::memcmp(buffer.data(), &context->WorkingDevMode, filled), 0)
            << size << " + " << extra;
        BYTE* end = buffer.data() + std::max<size_t>(size, 220) + extra;
        EXPECT_EQ(std::count(buffer.data() + filled, end, 0xA5),
                  end - buffer.data() - static_cast<long>(filled))
            << "more than the working record";
    }
}

TEST_F(ContextTest, UnusableRecordOrPrinterGivesNone) {
    HANDLE printer = NewPrinter(TEXT("Mirv KP-41"));
    DEVMODEW zeroed = {};
    EXPECT_EQ(CreateDriverContext(printer, &zeroed), nullptr);
    EXPECT_EQ(CreateDriverContext(nullptr, nullptr), nullptr);
    ReleaseDriverContext(nullptr);
}

TEST_F(ContextTest, DamagedContextIsRefused) {
    const OwnedContext context(CreateDriverContext(NewPrinter(TEXT("Mirv KP-41")), nullptr));
    ASSERT_TRUE(IsValidDriverContext(context.get()));
    DriverContext copy = *context;
    EXPECT_FALSE(IsValidDriverContext(&copy));
    copy.SelfCheck = &copy;
    EXPECT_FALSE(IsValidDriverContext(&copy));
    copy.SelfCheckTail = &copy;
    EXPECT_TRUE(IsValidDriverContext(&copy));
    EXPECT_FALSE(IsValidDriverContext(nullptr));
}

}  // namespace
}  // namespace test
