// The pages in the real sheet: what all pages do the same, and what of it reaches the caller.
#include "ui/common/page.h"
#include "core/context.h"
#include "core/driver_ui_contract.h"
#include "core/page_table.h"
#include "sheet_test.h"
#include "ui/common/language.h"
#include "ui/common/tooltip.h"

#include <commctrl.h>

namespace test {
namespace {

class PageTest : public SheetTest {
  protected:
    static DriverContext* Context(HWND page) {
        DriverContext* context = PageContext(page);
        EXPECT_TRUE(IsValidDriverContext(context));
        return context;
    }
};

TEST_F(PageTest, EveryModelsTabs) {
    const struct {
        const WCHAR* model;
        const WCHAR* port;
        size_t pages;
    } cases[] = {{TEXT("Mirv KP-41"), TEXT(""), 8},
                 {TEXT("Mirv KP-560i"), TEXT(""), 7},
                 {TEXT("Mirv KP-43"), TEXT(""), 4},
                 {TEXT("Mirv KP-43"), TEXT("\\\\server\\cards"), 3}};
    for (const auto& c : cases) {
        RunSheet(c.model, {[&] {
                     const auto tabs = Tabs();
                     EXPECT_EQ(tabs.size(), c.pages);
                     for (size_t i = 0; i < tabs.size(); ++i) {
                         HWND page = ShowPage(static_cast<int>(i));
                         const PageSlot slot = [&] {
                             for (int s = 0; s < kPageSlots; ++s) {
                                 if (Narrow(PageTable[s].Title) == tabs[i]) {
                                     return static_cast<PageSlot>(s);
                                 }
                             }
                             return kPageSlots;
                         }();
                         ASSERT_NE(slot, kPageSlots) << tabs[i];
                         EXPECT_NE(Context(page)->PageHandles[slot], nullptr);
                         RECT size = {0, 0, 300, 225};
                         MapDialogRect(page, &size);
                         RECT area;
                         GetClientRect(page, &area);
                         EXPECT_GE(area.right, size.right - 4) << tabs[i];
                         EXPECT_GE(area.bottom, size.bottom) << tabs[i];
                     }
                 }},
                 PSBTN_CANCEL, c.port);
    }
}

TEST_F(PageTest, OkReturnsTheWorkingRecordAndCancelNothing) {
    const auto change = [] { Context(ShowPage(0))->WorkingDevMode.Public.dmCopies = 33; };
    EXPECT_EQ(RunSheet(TEXT("Mirv KP-41"), {change}), 1);
    EXPECT_EQ(output_.Public.dmCopies, 33);
    EXPECT_EQ(RunSheet(TEXT("Mirv KP-41"), {change}, PSBTN_CANCEL), 2);
    EXPECT_EQ(output_.Public.dmSize, 0);
}

TEST_F(PageTest, ApplyIsReportedForThePagesOwnHandle) {
    struct Report {
        HANDLE sheet;
        UINT function;
        LPARAM page, result;
    };
    static std::vector<Report> reports;
    for (size_t tab = 0; tab < 8; ++tab) {
        reports.clear();
        DriverContext* context = nullptr;
        RunSheet(TEXT("Mirv KP-41"), {[&] {
                     HWND page = ShowPage(static_cast<int>(tab));
                     context = Context(page);
                     const PFNCOMPROPSHEET before = context->ComPropSheet;
                     context->ComPropSheet = [](HANDLE sheet, UINT function, LPARAM handle,
                                                LPARAM result) -> LONG_PTR {
                         reports.push_back({sheet, function, handle, result});
                         return 1;
                     };
                     PSHNOTIFY notification = {};
                     notification.hdr.hwndFrom = Sheet();
                     for (UINT code : {UINT(PSN_APPLY), UINT(PSN_RESET), UINT(PSN_KILLACTIVE),
                                       UINT(PSN_SETACTIVE)}) {
                         notification.hdr.code = code;
                         SendMessageW(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
                     }
                     context->ComPropSheet = before;
                     const bool isAbout = Tabs()[tab] == "About";  // it does not report
                     ASSERT_EQ(reports.size(), isAbout ? 0u : 1u) << tab;
                     if (!isAbout) {
                         EXPECT_EQ(reports[0].sheet, context->ComPropSheetHandle);
                         EXPECT_EQ(reports[0].function, UINT(CPSFUNC_SET_RESULT));
                         const int slot = static_cast<int>(tab);  // as no slot before is left out
                         EXPECT_EQ(reports[0].page,
                                   reinterpret_cast<LPARAM>(context->PageHandles[slot]));
                         EXPECT_EQ(reports[0].result, CPSUI_OK);
                     }
                 }},
                 PSBTN_CANCEL);
    }
}

TEST_F(PageTest, PrinterPropertiesShowAnEmptyPageAndAskForTheRightToChangeThePrinter) {
    HANDLE printer = NewPrinter(TEXT("Mirv KP-41"));
    RunInLoop([] {
        EXPECT_EQ(Tabs().size(), 1u);
        PostMessageW(Sheet(), PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    });
    EXPECT_FALSE(PrinterProperties(nullptr, printer));
    DWORD type = 0;
    EXPECT_EQ(StoredValue(printer, TEXT("Permission"), &type), (std::vector<BYTE>{1, 0, 0, 0}));
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_FALSE(PrinterProperties(nullptr, nullptr));
}

TEST_F(PageTest, SheetSpeaksTheUsersLanguage) {
    WriteWideText(LanguageFilePath,
                  TEXT("[DeviceOption]\r\nDevice Option=Karte\r\nDevice Options=Karten\r\n")
                      TEXT("[About]\r\nAbout=Info\r\n"));
    RunSheet(TEXT("Mirv KP-43"), {[&] {
                 EXPECT_EQ(Tabs(), (std::vector<std::string>{"Karte", "Tools", "Rewrite", "Info"}));
                 EXPECT_EQ(TextOf(ShowPage(0)), "Karten");
                 EXPECT_EQ(Narrow(CurrentSection), "DeviceOption");
                 ShowPage(3);
                 EXPECT_EQ(Narrow(CurrentSection), "About");
             }});
}

TEST_F(PageTest, TooltipIsSharedAndGoesWithAnyPage) {
    constexpr int kKnownControl = 4711;
    static constexpr Tip kTips[] = {{kKnownControl, TEXT("Device Option")}, {1, TEXT("nothing")}};
    RunSheet(TEXT("Mirv KP-41"), {[&] {
                 HWND page = ShowPage(2);
                 CreateWindowExW(0, TEXT("Button"), TEXT("?"), WS_CHILD | WS_VISIBLE, 0, 0, 9, 9,
                                 page, reinterpret_cast<HMENU>(ULONG_PTR{kKnownControl}), nullptr,
                                 nullptr);
                 WriteWideText(LanguageFilePath, TEXT("[DeviceOption]\r\nDevice Option=Karte\r\n"));
                 SetSection(TEXT("DeviceOption"));
                 DestroySharedTooltip();  // with the tips of the pages that have been shown
                 AddTips(page, kTips);    // without a window: nothing
                 CreateSharedTooltip(page);
                 CreateSharedTooltip(page);
                 AddTips(page, kTips);
                 HWND tooltip = FindWindowExW(nullptr, nullptr, TOOLTIPS_CLASSW, nullptr);
                 ASSERT_NE(tooltip, nullptr);
                 EXPECT_EQ(SendMessageW(tooltip, TTM_GETTOOLCOUNT, 0, 0), 1);
                 EXPECT_EQ(SendMessageW(tooltip, TTM_GETMAXTIPWIDTH, 0, 0), 300);
                 WCHAR text[100] = {};
                 TOOLINFOW tool = {};
                 tool.cbSize = TTTOOLINFOW_V2_SIZE;
                 tool.hwnd = page;
                 tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(page, kKnownControl));
                 tool.lpszText = text;
                 SendMessageW(tooltip, TTM_GETTEXTW, 100, reinterpret_cast<LPARAM>(&tool));
                 EXPECT_EQ(Narrow(text), "Karte");
                 tool.lpszText = nullptr;
                 SendMessageW(tooltip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
                 EXPECT_EQ(tool.uFlags, UINT{TTF_IDISHWND | TTF_SUBCLASS});
                 SendMessageW(ShowPage(kHeatingEnergySlot), WM_DESTROY, 0, 0);
                 EXPECT_TRUE(IsWindow(tooltip)) << "this page leaves it to the others";
                 SendMessageW(ShowPage(0), WM_DESTROY, 0, 0);
                 EXPECT_FALSE(IsWindow(tooltip));
             }},
             PSBTN_CANCEL);
}

}  // namespace
}  // namespace test
