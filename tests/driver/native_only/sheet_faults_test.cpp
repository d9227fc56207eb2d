// The sheet while the n-th call of the platform fails: the contract's failure or a sheet that
// works, and nothing left behind.
#include "platform/host.h"
#include "sheet_test.h"

namespace test {
namespace {

class SheetFaults : public SheetTest {
  protected:
    struct Outcome {
        unsigned calls = 0;  ///< of that kind in a whole session
        std::vector<LONG> results;
    };

    /// A whole session over three pages, with each call of a kind failing once.
    Outcome FailEach(host::Call kind) {
        Outcome outcome;
        RunSheet(TEXT("Mirv KP-41"), {});
        const host::Holdings before = host::CurrentHoldings();
        for (unsigned n = 1;; ++n) {
            unsigned counted = 0;
            const LONG result = [&] {
                const HANDLE printer = NewPrinter(TEXT("Mirv KP-41"));
                host::FailCall(kind, n);
                counted = host::CallCount(kind);
                const LONG answer = RunOn(printer);
                counted = host::CallCount(kind) - counted;
                host::FailCall(kind, 0);
                ClosePrinter(printer);
                return answer;
            }();
            host::Holdings after = host::CurrentHoldings();
            EXPECT_EQ(after, before) << "call " << n << " failed";
            if (counted < n) {
                EXPECT_EQ(result, 1);
                outcome.calls = counted;
                return outcome;
            }
            outcome.results.push_back(result);
            EXPECT_TRUE(result == 1 || result == -1 || result == 2) << n << ": " << result;
            EXPECT_EQ(output_.Public.dmSize, result == 1 ? 220 : 0) << n;
        }
    }
};

TEST_F(SheetFaults, ContextsMemoryAndThePrintersInformation) {
    const Outcome heap = FailEach(host::Call::kHeap);
    EXPECT_EQ(heap.results, (std::vector<LONG>{-1, -1, -1, 1}));  // a sheet without printer's name
    EXPECT_EQ(FailEach(host::Call::kGlobal).results, (std::vector<LONG>{-1, -1, -1, -1}));
    EXPECT_EQ(FailEach(host::Call::kSpooler).results, (std::vector<LONG>{-1, -1}));
}

TEST_F(SheetFaults, LibraryPagesAndWindows) {
    EXPECT_EQ(FailEach(host::Call::kModule).results.front(), -1);
    for (LONG result : FailEach(host::Call::kSheet).results) {
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(FailEach(host::Call::kWindow).results.front(), -1);
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
