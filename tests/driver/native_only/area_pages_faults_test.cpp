// The pages with print areas when calls of the platform fail: whatever they cannot do, they end
// what they have begun and leave the search path as it was.
#include "application_data.h"
#include "lone_page.h"
#include "pixel_canvas.h"
#include "platform/host.h"
#include "printer_user_key.h"
#include "resources/resource.h"
#include "tools/computer/computer.h"
#include "tools/computer/sample_library.h"
#include "ui/common/module.h"
#include "ui/pages/print_area/printing_area_page.h"
#include "ui/pages/print_area/rewrite_page.h"

#include <commctrl.h>
#include <prsht.h>

namespace test {
namespace {

struct AreaPageRow {
    const Page& page;
    int dialog;
    DLGPROC procedure;
    int list;
    int edit;
    int tab;  // none: a control that is not there
};
const AreaPageRow kPages[] = {
    {kPrintingAreaPage, IDD_PRINTING_AREA, PageProc<kPrintingAreaPage>, IDC_AREA_FRONT_LIST,
     IDC_AREA_BACK_EDIT, IDC_AREA_TAB},
    {kRewritePage, IDD_REWRITE, PageProc<kRewritePage>, IDC_ERASE_AREA_LIST, IDC_ERASE_AREA_EDIT,
     0},
};

class AreaPageFaults : public LonePageTest {
  protected:
    void SetUp() override {
        LonePageTest::SetUp();
        applicationData_.Store(TestFolder());
        host::SetEnvironment(TEXT("PATH"), kPath);
        context_.PrinterName = printer_.data();
        context_.IsDuplexModel = 1;
        Record().PrintSides = Record().ColorSides = kFrontSide | kBackSide;
    }

    // All that a page does, once, with the n-th call of a kind failing. False when there were
    // fewer.
    bool Use(const AreaPageRow& row, host::Call kind, unsigned n) {
        const computer::SampleDesigner designer("dialog = accept 1\ncalls = no\n");
        EXPECT_EQ(designer.Reason(), "");
        const host::Holdings before = host::CurrentHoldings();
        const unsigned calls = host::CallCount(kind);
        host::FailCall(kind, n);
        PROPSHEETPAGEW record = {};
        record.lParam = reinterpret_cast<LPARAM>(&context_);
        page_ = CreateDialogParamW(ModuleHandle, MAKEINTRESOURCEW(row.dialog), parent_,
                                   row.procedure, reinterpret_cast<LPARAM>(&record));
        if (page_ != nullptr) {
            Notify(PSN_SETACTIVE);
            SendDlgItemMessageW(page_, row.list, CB_SETCURSEL, 2, 0);
            SendMessageW(page_, WM_COMMAND, MAKEWPARAM(row.list, CBN_SELENDOK), 0);
            SendMessageW(page_, WM_COMMAND, MAKEWPARAM(row.edit, BN_CLICKED), 0);
            SendDlgItemMessageW(page_, row.tab, TCM_SETCURSEL, 1, 0);
            Notify(TCN_SELCHANGE, static_cast<UINT_PTR>(row.tab));
            row.page.Paint(page_, context_, canvas_.context, {0, 0, 480, 400});
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

TEST_F(AreaPageFaults, EndsWhatItBegan) {
    // As many as there are, but for the environment: reading the search path and changing it. That
    // it can be put back has to be relied on.
    constexpr unsigned kAll = 10000;
    const struct {
        host::Call kind;
        unsigned atLeast;
        unsigned most;
    } kinds[] = {
        {host::Call::kGlobal, 15, kAll},  {host::Call::kRegistry, 8, kAll},
        {host::Call::kModule, 5, kAll},   {host::Call::kDrawing, 3, kAll},
        {host::Call::kLocale, 15, kAll},  {host::Call::kEnvironment, 3, 3},
        {host::Call::kResource, 1, kAll},
    };
    for (const AreaPageRow& page : kPages) {
        for (const auto& row : kinds) {
            unsigned n = 1;
            while (Use(page, row.kind, n) && !HasFailure() && n < row.most) {
                ++n;
            }
            ASSERT_FALSE(HasFailure())
                << "page " << page.dialog << " call " << n << " of kind " << int(row.kind);
            EXPECT_GE(n, row.atLeast) << "page " << page.dialog << " kind " << int(row.kind);
        }
    }
}

TEST_F(AreaPageFaults, AKeyThatCannotBeMadeLeavesTheNamesStandard) {
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

// Natively the session's key is missing until somebody makes it.
class SessionKeyTest : public LonePageTest {};

TEST_F(SessionKeyTest, IsMadeByTheRewritePagesDesignerAlone) {
    WideString printer = TEXT("Badge room");
    context_.PrinterName = printer.data();
    Record().PrintSides = Record().ColorSides = kFrontSide;
    const auto isThere = [] {
        HKEY key = nullptr;
        const bool opened = RegOpenKeyExW(HKEY_CURRENT_USER, TEXT("Volatile Environment"), 0,
                                          KEY_READ, &key) == ERROR_SUCCESS;
        if (opened) {
            RegCloseKey(key);
        }
        return opened;
    };
    std::filesystem::copy_file(computer::ProgramFolder() / "companions/AreaDesign.dll",
                               computer::DriverFolder() / "AreaDesign.dll");
    const struct {
        int dialog;
        DLGPROC procedure;
        int edit;
        bool makes;
    } pages[] = {
        {IDD_PRINTING_AREA, PageProc<kPrintingAreaPage>, IDC_AREA_FRONT_EDIT, false},
        {IDD_REWRITE, PageProc<kRewritePage>, IDC_ERASE_AREA_EDIT, true},
    };
    for (const auto& row : pages) {
        OpenPage(row.dialog, row.procedure);
        EXPECT_FALSE(isThere());
        SendMessageW(page_, WM_COMMAND, MAKEWPARAM(row.edit, BN_CLICKED), 0);
        EXPECT_EQ(isThere(), row.makes);
    }
}

}  // namespace
}  // namespace test
