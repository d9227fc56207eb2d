// The sheet while the n-th call of the platform fails: the contract's failure or a sheet that
// works, and nothing left behind.
#include "native_only.h"
#include "sheet_test.h"

namespace test {
namespace {

class SheetFaults : public SheetTest {
  protected:
    /// The results of a whole session over three pages, with each call of a kind failing once.
    std::vector<LONG> FailEach(host::Call kind) {
        std::vector<LONG> results;
        LONG result = 0;
        const HANDLE printer = NewPrinter(TEXT("Mirv KP-41"));
        const auto session = [&] { result = RunOn(printer); };
        session();
        test::FailEach(kind, session, [&](unsigned n) {
            results.push_back(result);
            EXPECT_TRUE(result == 1 || result == -1 || result == 2) << n << ": " << result;
            EXPECT_EQ(output_.Public.dmSize, result == 1 ? 220 : 0) << n;
        });
        EXPECT_EQ(result, 1) << "without a failure";
        return results;
    }
};

TEST_F(SheetFaults, ContextsMemoryAndThePrintersInformation) {
    EXPECT_EQ(FailEach(host::Call::kHeap),
              (std::vector<LONG>{-1, -1, -1, 1}));  // a sheet without printer's name
    EXPECT_EQ(FailEach(host::Call::kGlobal), (std::vector<LONG>{-1, -1, -1, -1}));
    EXPECT_EQ(FailEach(host::Call::kSpooler), (std::vector<LONG>{-1, -1}));
}

TEST_F(SheetFaults, LibraryPagesAndWindows) {
    EXPECT_EQ(FailEach(host::Call::kModule).front(), -1);
    for (LONG result : FailEach(host::Call::kSheet)) {
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(FailEach(host::Call::kWindow).front(), -1);
    FailEach(host::Call::kResource);
    FailEach(host::Call::kDrawing);
    FailEach(host::Call::kProfile);
}

TEST_F(SheetFaults, PrinterPropertiesWithoutRightsOrLibrary) {
    NewPrinter(TEXT("Mirv KP-41"));
    WideString name = kPrinterName;
    PRINTER_DEFAULTSW user = {nullptr, nullptr, PRINTER_ACCESS_USE};
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(name.data(), &printer, &user));
    bool shown = false;
    const auto open = [&] {
        shown = false;
        RunInLoop([&] {
            shown = Sheet() != nullptr;
            PostMessageW(Sheet(), PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
        });
        const BOOL answer = PrinterProperties(nullptr, printer);
        ForgetSteps();
        return answer;
    };
    EXPECT_FALSE(open());
    EXPECT_TRUE(shown);
    EXPECT_TRUE(StoredValue(printer, TEXT("Permission")).empty());
    for (const unsigned call : {1u, 2u}) {  // the library, its function
        host::FailCall(host::Call::kModule, call);
        EXPECT_TRUE(open());
        EXPECT_FALSE(shown);
    }
    ClosePrinter(printer);
}

}  // namespace
}  // namespace test
