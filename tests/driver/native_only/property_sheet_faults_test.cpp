// Property sheets when the platform fails, and that nothing is left over then.
#include "native_only.h"
#include "sheet_pages.h"

#include <compstui.h>

namespace {

using host::Call;

constexpr DWORD kError = 1117;

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

class PropertySheetFaultsTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        layout_ = test::PageTemplate(TEXT("Page"));
        page_.dwSize = sizeof(page_);
        page_.dwFlags = PSP_DLGINDIRECT;
        page_.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(layout_.data());
        page_.pfnDlgProc = NoProcedure;
    }
    INT_PTR Open() {
        HPROPSHEETPAGE handle = CreatePropertySheetPageW(&page_);
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof(header);
        header.hwndParent = parent_;
        header.nPages = 1;
        header.phpage = &handle;
        return PropertySheetW(&header);
    }

    std::vector<WORD> layout_;
    PROPSHEETPAGEW page_ = {};
};

TEST_F(PropertySheetFaultsTest, PagesAndSheetsFailWhenOrderedTo) {
    host::FailCall(Call::kSheet, 1, kError);
    EXPECT_EQ(CreatePropertySheetPageW(&page_), nullptr);
    EXPECT_EQ(GetLastError(), kError);
    host::FailCall(Call::kSheet, 2, kError);
    EXPECT_EQ(Open(), -1);
    EXPECT_EQ(GetLastError(), kError);
    EXPECT_EQ(host::CurrentHoldings().sheetPages, 0u);
}

TEST_F(PropertySheetFaultsTest, WhicheverWindowCannotBeMadeTheSheetIsNotShown) {
    const host::Holdings before = host::CurrentHoldings();
    constexpr unsigned kMost = 30;
    unsigned n = 1;
    for (; n < kMost; ++n) {
        test::PressInSheet(PSBTN_OK);
        const host::Holdings ready = host::CurrentHoldings();
        host::FailCall(Call::kWindow, n, kError);
        const INT_PTR result = Open();
        host::FailCall(Call::kWindow, 0);
        test::HandlePosted();
        EXPECT_EQ(host::CurrentHoldings(), ready) << n;
        EXPECT_TRUE(IsWindowEnabled(parent_)) << n;
        if (result == 1) {
            break;
        }
        EXPECT_EQ(result, -1) << n;
    }
    // The sheet and its five controls, the page and its one.
    EXPECT_EQ(n, 9u);
    EXPECT_EQ(before.windows + 1, host::CurrentHoldings().windows) << "that of the steps";
}

TEST_F(PropertySheetFaultsTest, TheCommonLibraryGivesEverythingBack) {
    const auto function = [](PROPSHEETUI_INFO* info, LPARAM page) -> LONG {
        if (info->Reason != PROPSHEETUI_REASON_INIT) {
            return 1;
        }
        return info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW, page, 0) !=
                           0 &&
                       info->pfnComPropSheet(info->hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW, page,
                                             0) != 0
                   ? 1
                   : ERR_CPSUI_CREATEPROPPAGE_FAILED;
    };
    constexpr LONG kResults[] = {ERR_CPSUI_CREATEPROPPAGE_FAILED, ERR_CPSUI_CREATEPROPPAGE_FAILED,
                                 ERR_CPSUI_GETLASTERROR};
    for (unsigned n = 1; n <= std::size(kResults); ++n) {
        host::FailCall(Call::kSheet, n, kError);
        DWORD result = 77;
        EXPECT_EQ(
            CommonPropertySheetUIW(parent_, function, reinterpret_cast<LPARAM>(&page_), &result),
            kResults[n - 1]);
        EXPECT_EQ(result, DWORD{CPSUI_CANCEL});
        EXPECT_EQ(host::CurrentHoldings().sheetPages, 0u) << n;
    }
}

}  // namespace
