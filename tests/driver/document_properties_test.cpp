// The document entry points as far as they need no window.
#include "core/driver_ui_contract.h"
#include "driver_test.h"

#include <algorithm>
#include <cstring>

namespace test {
namespace {

class DocumentPropertiesTest : public DriverTest {
  protected:
    void SetUp() override {
        DriverTest::SetUp();
        printer_ = NewPrinter(TEXT("Mirv KP-41"));
    }

    DOCUMENTPROPERTYHEADER Header(DEVMODEW* input, DEVMODEW* output, DWORD mode) const {
        // What the contract does not promise to be filled holds garbage.
        DOCUMENTPROPERTYHEADER header;
        std::memset(&header, 0xA5, sizeof(header));
        header.cbSize = sizeof(header);
        header.hPrinter = printer_;
        header.pszPrinterName = nullptr;
        header.pdmIn = input;
        header.pdmOut = output;
        header.fMode = mode;
        return header;
    }

    static LONG Call(DOCUMENTPROPERTYHEADER& header) {
        return DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header));
    }

    HANDLE printer_ = nullptr;
};

TEST_F(DocumentPropertiesTest, SizeQueries) {
    DevModeRecord record = DefaultRecord();
    DOCUMENTPROPERTYHEADER header = Header(&record.Public, &record.Public, 0);
    EXPECT_EQ(Call(header), 584);
    EXPECT_EQ(header.cbOut, 584u);
    header = Header(nullptr, nullptr, DM_OUT_BUFFER);
    EXPECT_EQ(Call(header), 584);

    EXPECT_EQ(DrvDocumentProperties(nullptr, printer_, nullptr, nullptr, nullptr, DM_COPY), 584);
    EXPECT_EQ(DrvDocumentProperties(nullptr, nullptr, nullptr, &record.Public, nullptr, 0), 584);
    EXPECT_EQ(DrvAdvancedDocumentProperties(nullptr, nullptr, nullptr, nullptr, nullptr), 584);
}

TEST_F(DocumentPropertiesTest, DefaultRecordComesOutWhole) {
    GuardedBuffer output(584);
    DOCUMENTPROPERTYHEADER header = Header(nullptr, output.record(), DM_OUT_BUFFER);
    EXPECT_EQ(Call(header), 1);
    DevModeRecord expected = DefaultRecord();
    expected.Public.dmLogPixels = 300;
    expected.Public.dmBitsPerPel = 24;
    EXPECT_EQ(std::memcmp(output.data(), &expected, 584), 0);
}

TEST_F(DocumentPropertiesTest, OutputHasTheInputsLayoutAndMergedValues) {
    DEVMODEW input = {};
    input.dmSize = 188;
    input.dmDriverVersion = 0x0100;
    input.dmFields = DM_COPIES | DM_ORIENTATION;
    input.dmCopies = 20000;
    input.dmOrientation = 1;
    GuardedBuffer output(188);
    for (DWORD mode : {DWORD{DM_COPY | DM_MODIFY}, DWORD{DM_UPDATE}, DWORD{DM_COPY | DM_PROMPT}}) {
        std::memset(output.data(), 0, 188);
        DOCUMENTPROPERTYHEADER header = Header(&input, output.record(), mode);
        EXPECT_EQ(Call(header), 1) << mode;
        EXPECT_EQ(output.record()->dmSize, 188);
        EXPECT_EQ(output.record()->dmCopies, 1);
        EXPECT_EQ(output.record()->dmOrientation, 1);
    }
}

TEST_F(DocumentPropertiesTest, RecordShorterThanItsFirstFieldsGetsWhatItCanHold) {
    for (WORD size : {WORD{1}, WORD{71}, WORD{72}, WORD{75}}) {
        GuardedBuffer input((std::max(size, kHeaderSize) + 3) / 4 * 4);
        input.record()->dmSpecVersion = 0x0401;
        input.record()->dmDriverVersion = 0x0123;
        input.record()->dmSize = size;
        input.record()->dmDriverExtra = 0;
        GuardedBuffer output(80);
        DOCUMENTPROPERTYHEADER header = Header(input.record(), output.record(), DM_COPY);
        EXPECT_EQ(Call(header), 1) << size;
        BYTE* end = output.data() + 80;
        if (size < kHeaderSize) {
            EXPECT_EQ(std::count(output.data(), end, 0xA5), 80) << size;
        } else {
            EXPECT_EQ(std::count(output.data() + size, end, 0xA5), 80 - size);
            EXPECT_EQ(output.record()->dmSize, size);
            EXPECT_EQ(output.record()->dmDriverVersion, 0x0123);
        }
    }
}

TEST_F(DocumentPropertiesTest, OneBufferForInputAndOutput) {
    GuardedBuffer buffer(584);
    DevModeRecord record = DefaultRecord();
    record.Public.dmCopies = 20000;
    record.Private.RibbonType = 99;
    record.Private.CardType = 3;
    std::memcpy(buffer.data(), &record, 584);
    DOCUMENTPROPERTYHEADER header =
        Header(buffer.record(), buffer.record(), DM_IN_BUFFER | DM_OUT_BUFFER);
    EXPECT_EQ(Call(header), 1);
    const auto& result = *reinterpret_cast<const DevModeRecord*>(buffer.data());
    EXPECT_EQ(result.Public.dmCopies, 1);
    EXPECT_EQ(result.Private.RibbonType, 0);
    EXPECT_EQ(result.Private.CardType, 3);
}

TEST_F(DocumentPropertiesTest, AnOutputRecordThatIsNotAskedForIsNotTouched) {
    DevModeRecord input = DefaultRecord();
    const GuardedBuffer nothing(0);
    DOCUMENTPROPERTYHEADER header = Header(&input.Public, nothing.record(), DM_IN_BUFFER);
    EXPECT_EQ(Call(header), 1);
}

TEST_F(DocumentPropertiesTest, OrientationLockHoldsLandscape) {
    const struct {
        BYTE lock;
        SHORT inOutput;  // what the output buffer holds before the call
        bool input;
        SHORT result;
    } cases[] = {{1, 1, true, 2}, {1, 2, true, 2}, {1, 0, true, 1}, {1, 3, true, 1},
                 {0, 1, true, 1}, {2, 1, true, 1}, {1, 1, false, 1}};
    DevModeRecord locked = DefaultRecord();
    locked.Public.dmOrientation = 1;
    for (const auto& c : cases) {
        locked.Private.OrientationLock = c.lock;
        printer_ = NewPrinter(TEXT("Mirv KP-41"), {}, BytesOf(locked.Public));
        DevModeRecord output = {};
        output.Public.dmOrientation = c.inOutput;
        DOCUMENTPROPERTYHEADER header =
            Header(c.input ? &locked.Public : nullptr, &output.Public, DM_COPY);
        EXPECT_EQ(Call(header), 1);
        EXPECT_EQ(output.Public.dmOrientation, c.result)
            << "lock " << int{c.lock} << ", output held " << c.inOutput << ", input " << c.input;
    }
}

TEST_F(DocumentPropertiesTest, NothingIsCopiedUnlessAskedFor) {
    DevModeRecord input = DefaultRecord();
    GuardedBuffer output(584);
    DOCUMENTPROPERTYHEADER header = Header(&input.Public, output.record(), DM_MODIFY);
    EXPECT_EQ(Call(header), 1);
    EXPECT_EQ(std::count(output.data(), output.data() + 584, 0xA5), 584);
}

TEST_F(DocumentPropertiesTest, DirectEntryPoint) {
    DevModeRecord output = {};
    WCHAR name[] = TEXT("Badge room");
    EXPECT_EQ(DrvDocumentProperties(nullptr, printer_, name, &output.Public, nullptr, DM_COPY), 1);
    EXPECT_EQ(output.Public.dmSize, 220);
    EXPECT_EQ(DrvDocumentProperties(nullptr, nullptr, name, &output.Public, nullptr, DM_COPY), -87);
    EXPECT_EQ(DrvAdvancedDocumentProperties(nullptr, nullptr, name, &output.Public, nullptr), 0);
}

TEST_F(DocumentPropertiesTest, BadCallsFailAndWriteNothing) {
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, 0), -1);

    DEVMODEW zeroed = {};
    GuardedBuffer output(584);
    DOCUMENTPROPERTYHEADER header = Header(&zeroed, output.record(), DM_COPY);
    EXPECT_EQ(Call(header), -1);
    header = Header(nullptr, output.record(), DM_COPY);
    header.hPrinter = nullptr;
    EXPECT_EQ(Call(header), -1);
    EXPECT_EQ(std::count(output.data(), output.data() + 584, 0xA5), 584);
}

TEST_F(DocumentPropertiesTest, SheetReasonsBeforeAndWithoutAContextAreRefused) {
    PROPSHEETUI_INFO info = {};
    for (WORD reason = 0; reason < 8; ++reason) {
        info.Reason = reason;
        EXPECT_EQ(DrvDocumentPropertySheets(&info, 0), -1) << reason;
    }
}

}  // namespace
}  // namespace test
