// The Printing Area page when calls of the platform fail: whatever it cannot do, it ends what it
// has begun and leaves the search path as it was.
#include "application_data.h"
#include "lone_page.h"
#include "pixel_canvas.h"
#include "platform/host.h"
#include "printer_user_key.h"
#include "resources/resource.h"
#include "tools/computer/sample_library.h"
#include "ui/common/module.h"
#include "ui/pages/print_area/printing_area_page.h"

#include <commctrl.h>
#include <prsht.h>

namespace test {
namespace {

class PrintingAreaFaults : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        applicationData_.Store(TestFolder());
        host::SetEnvironment(TEXT("PATH"), kPath);
        context_.PrinterName = printer_.data();
        context_.IsDuplexModel = 1;
        context_.ComPropSheet = [](HANDLE, UINT, LPARAM, LPARAM) -> LONG_PTR { return 1; };
        Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    }

    void Notify(UINT code, UINT_PTR from = 0) {
        NMHDR notification = {parent_, from, code};
        SendMessageW(page_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }

    // All that the page does, once, with the n-th call of a kind failing. False when there were
    // fewer.
    bool Use(host::Call kind, unsigned n) {
        const computer::SampleDesigner designer("dialog = accept 1\ncalls = no\n");
        EXPECT_EQ(designer.Reason(), "");
        const host::Holdings before = host::CurrentHoldings();
        const unsigned calls = host::CallCount(kind);
        host::FailCall(kind, n);
        PROPSHEETPAGEW record = {};
        record.lParam = reinterpret_cast<LPARAM>(&context_);
        page_ = CreateDialogParamW(ModuleHandle, MAKEINTRESOURCEW(IDD_PRINTING_AREA), parent_,
                                   PageProc<kPrintingAreaPage>, reinterpret_cast<LPARAM>(&record));
        if (page_ != nullptr) {
            Notify(PSN_SETACTIVE);
            SendDlgItemMessageW(page_, IDC_AREA_FRONT_LIST, CB_SETCURSEL, 2, 0);
            SendMessageW(page_, WM_COMMAND, MAKEWPARAM(IDC_AREA_FRONT_LIST, CBN_SELENDOK), 0);
            SendMessageW(page_, WM_COMMAND, IDC_AREA_BACK_EDIT, 0);
            SendDlgItemMessageW(page_, IDC_AREA_TAB, TCM_SETCURSEL, 1, 0);
            Notify(TCN_SELCHANGE, IDC_AREA_TAB);
            kPrintingAreaPage.Paint(page_, context_, canvas_.context, {0, 0, 480, 400});
            Notify(PSN_APPLY);
            DestroyWindow(std::exchange(page_, nullptr));
        }
        host::FailCall(kind, 0);
        HandlePosted();
        EXPECT_EQ(host::CurrentHoldings(), before);
        // The sample stumbles over failing calls as well.
        for (const char* complaint : {"is not finished", "is not released", "handle"}) {
            EXPECT_EQ(designer.State().find(complaint), std::string::npos) << designer.State();
        }
        WCHAR path[64] = {};
        GetEnvironmentVariableW(TEXT("PATH"), path, 64);
        EXPECT_EQ(Narrow(path), Narrow(kPath));
        return host::CallCount(kind) - calls >= n;
    }

    static constexpr const WCHAR* kPath = TEXT("C:\\Windows;C:\\Tools");
    ApplicationData applicationData_;
    WideString printer_ = TEXT("Badge room");
    PrinterUserKey key_{printer_};
    PixelCanvas canvas_{480, 400};
};

TEST_F(PrintingAreaFaults, EndsWhatItBegan) {
    // As many as there are, but for the environment: reading the search path and changing it. That
    // it can be put back has to be relied on.
    constexpr unsigned kAll = 10000;
    const struct {
        host::Call kind;
        unsigned atLeast;
        unsigned most;
    } kinds[] = {
        {host::Call::kGlobal, 20, kAll},  {host::Call::kRegistry, 20, kAll},
        {host::Call::kModule, 5, kAll},   {host::Call::kDrawing, 8, kAll},
        {host::Call::kLocale, 20, kAll},  {host::Call::kEnvironment, 3, 3},
        {host::Call::kResource, 1, kAll},
    };
    for (const auto& row : kinds) {
        unsigned n = 1;
        while (Use(row.kind, n) && !HasFailure() && n < row.most) {
            ++n;
        }
        ASSERT_FALSE(HasFailure()) << "call " << n << " of kind " << static_cast<int>(row.kind);
        EXPECT_GE(n, row.atLeast) << static_cast<int>(row.kind);
    }
}

TEST_F(PrintingAreaFaults, AKeyThatCannotBeMadeLeavesTheNamesStandard) {
    const computer::SampleDesigner designer("");
    host::FailCall(host::Call::kRegistry, 2, ERROR_ACCESS_DENIED);  // the first finds none
    OpenPage(IDD_PRINTING_AREA, PageProc<kPrintingAreaPage>);
    host::FailCall(host::Call::kRegistry, 0);
    EXPECT_FALSE(key_.IsThere());
    EXPECT_EQ(Looks(IDC_AREA_FRONT_LIST), "Standard of 3");
    Notify(PSN_APPLY);
    EXPECT_FALSE(key_.IsThere()) << "nothing is stored without a key";
    DestroyWindow(std::exchange(page_, nullptr));
}

}  // namespace
}  // namespace test
