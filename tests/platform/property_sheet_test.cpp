// Property sheets: what the pages are told and in which order, how the sheet is closed and with
// which result.
#include "sheet_pages.h"

#include <commctrl.h>

namespace {

using test::WideString;

constexpr int kApplyNow = 0x3021;

std::string said;  // what the pages were told

void Say(const std::string& text) {
    said += (said.empty() ? "" : "; ") + text;
}
std::string Said() {
    return std::exchange(said, {});
}

// A page of the tests, what it answers, and its window while there is one.
struct TestPage {
    std::string name;
    LRESULT onSet = 0;
    LRESULT onKill = 0;
    LRESULT onApply = 0;
    LRESULT onQuery = 0;
    HWND window = nullptr;
    std::vector<WORD> layout = {};
};
TestPage pages[4];
HWND sheet;

LRESULT SendSheet(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(sheet, message, wParam, lParam);
}
int SelectedTab() {
    return static_cast<int>(
        SendMessageW(reinterpret_cast<HWND>(SendSheet(PSM_GETTABCONTROL)), TCM_GETCURSEL, 0, 0));
}
bool IsShown(const TestPage& page) {
    return reinterpret_cast<HWND>(SendSheet(PSM_GETCURRENTPAGEHWND)) == page.window &&
           IsWindowVisible(page.window) && SelectedTab() == &page - pages;
}

// Notes the notification and gives the page's answer.
LRESULT Answer(const TestPage& page, const PSHNOTIFY& notification) {
    EXPECT_EQ(notification.hdr.hwndFrom, sheet);
    EXPECT_EQ(notification.hdr.idFrom, 0u);
    const struct {
        UINT code;
        const char* name;
        LRESULT answer;
    } kKnown[] = {
        {static_cast<UINT>(PSN_SETACTIVE), "set", page.onSet},
        {static_cast<UINT>(PSN_KILLACTIVE), "kill", page.onKill},
        {static_cast<UINT>(PSN_APPLY), "apply", page.onApply},
        {static_cast<UINT>(PSN_RESET), "reset", 0},
        {static_cast<UINT>(PSN_QUERYCANCEL), "query", page.onQuery},
        {static_cast<UINT>(PSN_HELP), "help", 0},
    };
    for (const auto& known : kKnown) {
        if (notification.hdr.code == known.code) {
            Say(page.name + " " + known.name + (notification.lParam != 0 ? " all" : ""));
            return known.answer;
        }
    }
    return 0;
}

INT_PTR CALLBACK PageProcedure(HWND window, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto& given = *reinterpret_cast<PROPSHEETPAGEW*>(lParam);
        auto* page = reinterpret_cast<TestPage*>(given.lParam);
        page->window = window;
        sheet = GetParent(window);
        SetWindowLongPtrW(window, DWLP_USER, given.lParam);
        Say(page->name + " init");
        EXPECT_FALSE(IsWindowVisible(window));
        constexpr DWORD kFrame = WS_CHILD | WS_POPUP | WS_CAPTION | WS_DISABLED;
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & kFrame, DWORD{WS_CHILD});
        EXPECT_NE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT, 0);
        return TRUE;
    }
    auto* page = reinterpret_cast<TestPage*>(GetWindowLongPtrW(window, DWLP_USER));
    if (page == nullptr) {
        return FALSE;
    }
    LRESULT answer = 0;
    switch (message) {
        case WM_NOTIFY:
            answer = Answer(*page, *reinterpret_cast<PSHNOTIFY*>(lParam));
            break;
        case WM_DESTROY:
            Say(page->name + " destroy");
            page->window = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
    SetWindowLongPtrW(window, DWLP_MSGRESULT, answer);
    return TRUE;
}

class PropertySheetTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        for (int i = 0; i < 4; ++i) {
            const std::string name(1, static_cast<char>('A' + i));
            pages[i] = {.name = name};
            pages[i].layout = test::PageTemplate(test::Wide("Page " + name), 200 + i * 10, 100);
        }
        said.clear();
    }

    PROPSHEETPAGEW Page(int i, DWORD flags) {
        PROPSHEETPAGEW page = {};
        page.dwSize = sizeof(page);
        page.dwFlags = PSP_DLGINDIRECT | flags;
        page.hInstance = GetModuleHandleW(nullptr);
        page.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(pages[i].layout.data());
        page.pszTitle = TEXT("Given");
        page.pfnDlgProc = PageProcedure;
        page.lParam = reinterpret_cast<LPARAM>(&pages[i]);
        return page;
    }

    // Opens a sheet of the first pages; it runs the steps ordered before.
    INT_PTR Open(int count, DWORD flags = 0, DWORD pageFlags = 0, UINT start = 0) {
        std::vector<HPROPSHEETPAGE> handles;
        for (int i = 0; i < count; ++i) {
            const PROPSHEETPAGEW page = Page(i, pageFlags);
            handles.push_back(CreatePropertySheetPageW(&page));
        }
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof(header);
        header.dwFlags = flags;
        header.hwndParent = parent_;
        header.pszCaption = TEXT("Caption");
        header.nPages = static_cast<UINT>(count);
        header.nStartPage = start;
        header.phpage = handles.data();
        return PropertySheetW(&header);
    }
    void Press(int button) {
        test::RunInLoop([button] { PostMessageW(sheet, PSM_PRESSBUTTON, button, 0); });
    }
};

TEST_F(PropertySheetTest, AWholeLifeInOrder) {
    test::RunInLoop([&] {
        EXPECT_EQ(Said(), "A init; A set");
        EXPECT_TRUE(IsShown(pages[0]));
        EXPECT_FALSE(IsWindowEnabled(parent_));
        EXPECT_EQ(test::TextOf(sheet), "Caption");
        EXPECT_EQ(test::TextOf(pages[0].window), "Page A");
        EXPECT_EQ(GetFocus(), GetDlgItem(pages[0].window, 1000));
        EXPECT_TRUE(SendSheet(PSM_SETCURSEL, 2));
        EXPECT_EQ(Said(), "A kill; C init; C set");
        EXPECT_TRUE(IsShown(pages[2]));
        EXPECT_FALSE(IsWindowVisible(pages[0].window));
    });
    Press(PSBTN_OK);
    EXPECT_EQ(Open(3), 1);
    EXPECT_EQ(Said(), "C kill; A apply all; C apply all; A destroy; C destroy");
    EXPECT_TRUE(IsWindowEnabled(parent_));
}

TEST_F(PropertySheetTest, EachWayOutHasItsNotificationsAndResult) {
    const struct {
        UINT message;
        WPARAM wParam;
        INT_PTR result;
        const char* told;
    } cases[] = {
        {PSM_PRESSBUTTON, PSBTN_OK, 1, "B kill; B apply all; B destroy"},
        {WM_COMMAND, IDOK, 1, "B kill; B apply all; B destroy"},
        {PSM_PRESSBUTTON, PSBTN_CANCEL, 0, "B query; B reset; B destroy"},
        {WM_COMMAND, IDCANCEL, 0, "B query; B reset; B destroy"},
        {WM_CLOSE, 0, 0, "B query; B reset all; B destroy"},
        {WM_SYSCOMMAND, SC_CLOSE, 0, "B query; B reset all; B destroy"},
    };
    for (const auto& oneCase : cases) {
        test::RunInLoop([&] {
            Said();
            PostMessageW(sheet, oneCase.message, oneCase.wParam, 0);
        });
        EXPECT_EQ(Open(2, 0, 0, 1), oneCase.result);
        EXPECT_EQ(Said(), oneCase.told) << oneCase.message << " " << oneCase.wParam;
    }
    const struct {
        WPARAM key;
        INT_PTR result;
    } keys[] = {{VK_RETURN, 1}, {VK_ESCAPE, 0}};
    for (const auto& oneCase : keys) {
        test::RunInLoop([&] { PostMessageW(GetFocus(), WM_KEYDOWN, oneCase.key, 1); });
        EXPECT_EQ(Open(1), oneCase.result) << oneCase.key;
    }
}

TEST_F(PropertySheetTest, APageMayRefuse) {
    test::RunInLoop([] {
        const auto tabs = reinterpret_cast<HWND>(SendSheet(PSM_GETTABCONTROL));
        SendSheet(PSM_SETCURSEL, 1);
        Said();
        pages[1].onKill = TRUE;
        EXPECT_FALSE(SendSheet(PSM_SETCURSEL, 0));
        EXPECT_TRUE(IsShown(pages[1]));
        SendSheet(PSM_PRESSBUTTON, PSBTN_APPLYNOW);
        SendSheet(WM_COMMAND, IDOK);
        EXPECT_EQ(Said(), "B kill; B kill; B kill");
        pages[1].onKill = FALSE;

        pages[0].onApply = PSNRET_INVALID_NOCHANGEPAGE;
        SendSheet(WM_COMMAND, IDOK);
        EXPECT_EQ(Said(), "B kill; A apply all");
        EXPECT_TRUE(IsShown(pages[1]));
        pages[0].onApply = PSNRET_INVALID;
        SendSheet(WM_COMMAND, IDOK);
        EXPECT_EQ(Said(), "B kill; A apply all");
        EXPECT_TRUE(IsShown(pages[0]));
        pages[0].onApply = PSNRET_NOERROR;

        pages[0].onQuery = TRUE;
        SendSheet(WM_COMMAND, IDCANCEL);
        EXPECT_EQ(Said(), "A query");
        pages[0].onQuery = FALSE;

        // A page that will not be shown passes on to the next.
        pages[1].onSet = -1;
        RECT tab = {};
        SendMessageW(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&tab));
        SendMessageW(tabs, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(tab.left + 5, tab.top + 5));
        EXPECT_EQ(Said(), "A kill; B set; C init; C set");
        EXPECT_TRUE(IsShown(pages[2]));
    });
    Press(PSBTN_CANCEL);
    EXPECT_EQ(Open(3), 0);
}

TEST_F(PropertySheetTest, ApplyFollowsTheChangesAndKeepsTheSheetOpen) {
    test::RunInLoop([] {
        const HWND apply = GetDlgItem(sheet, kApplyNow);
        SendSheet(PSM_SETCURSEL, 1);
        EXPECT_FALSE(IsWindowEnabled(apply));
        SendSheet(PSM_CHANGED, reinterpret_cast<WPARAM>(pages[0].window));
        EXPECT_TRUE(IsWindowEnabled(apply));
        Said();
        pages[0].onApply = PSNRET_INVALID_NOCHANGEPAGE;
        SendMessageW(apply, BM_CLICK, 0, 0);
        EXPECT_EQ(Said(), "B kill; A apply");
        EXPECT_TRUE(IsWindowEnabled(apply));
        pages[0].onApply = PSNRET_NOERROR;
        SendMessageW(apply, BM_CLICK, 0, 0);
        EXPECT_EQ(Said(), "B kill; A apply; B apply; B set");
        EXPECT_FALSE(IsWindowEnabled(apply));
        SendSheet(PSM_PRESSBUTTON, PSBTN_APPLYNOW);
        EXPECT_EQ(Said(), "B kill; A apply; B apply; B set");
    });
    Press(PSBTN_OK);
    EXPECT_EQ(Open(2), 1);
}

TEST_F(PropertySheetTest, TheButtonsThatAreThere) {
    const struct {
        DWORD flags;
        DWORD pageFlags;
        const char* shown;
        bool help;
    } cases[] = {
        {0, 0, "OK Cancel &Apply ", false},
        {PSH_NOAPPLYNOW, 0, "OK Cancel ", false},
        {PSH_NOAPPLYNOW, PSP_HASHELP, "OK Cancel Help ", true},
    };
    for (const auto& oneCase : cases) {
        test::RunInLoop([&] {
            std::string shown;
            RECT sheetRect;
            GetClientRect(sheet, &sheetRect);
            RECT before = {};
            for (const int id : {IDOK, IDCANCEL, kApplyNow, IDHELP}) {
                const HWND button = GetDlgItem(sheet, id);
                if (!IsWindowVisible(button)) {
                    continue;
                }
                shown += test::TextOf(button) + " ";
                RECT rect;
                GetWindowRect(button, &rect);
                MapWindowPoints(nullptr, sheet, reinterpret_cast<LPPOINT>(&rect), 2);
                EXPECT_GT(rect.left, before.right);
                EXPECT_LT(rect.right, sheetRect.right);
                EXPECT_LT(rect.bottom, sheetRect.bottom);
                before = rect;
            }
            EXPECT_EQ(shown, oneCase.shown);
            EXPECT_EQ(IsWindowEnabled(GetDlgItem(sheet, IDHELP)) != FALSE, oneCase.help);
            // A page fills what the tabs leave, and is as large as the largest.
            RECT rect;
            GetClientRect(pages[0].window, &rect);
            RECT largest = {0, 0, 220, 100};
            MapDialogRect(sheet, &largest);
            EXPECT_GE(rect.right, largest.right);
            EXPECT_GE(rect.bottom, largest.bottom);
            Said();
            if (oneCase.help) {
                SendSheet(PSM_PRESSBUTTON, PSBTN_HELP);
                EXPECT_EQ(Said(), "A help");
            }
        });
        Press(PSBTN_CANCEL);
        EXPECT_EQ(Open(3, oneCase.flags, oneCase.pageFlags), 0);
    }
}

TEST_F(PropertySheetTest, PagesWithoutASheet) {
    PROPSHEETPAGEW page = Page(0, 0);
    const HPROPSHEETPAGE handle = CreatePropertySheetPageW(&page);
    EXPECT_TRUE(DestroyPropertySheetPage(handle));
    EXPECT_FALSE(DestroyPropertySheetPage(nullptr));
    page.dwSize = 20;
    EXPECT_EQ(CreatePropertySheetPageW(&page), nullptr);
}

TEST_F(PropertySheetTest, APageWithoutATemplateIsLeftOut) {
    PROPSHEETPAGEW first = Page(0, 0);
    first.dwFlags &= ~DWORD{PSP_DLGINDIRECT};
    first.pszTemplate = MAKEINTRESOURCEW(7777);
    const PROPSHEETPAGEW second = Page(1, 0);
    HPROPSHEETPAGE handles[] = {CreatePropertySheetPageW(&first),
                                CreatePropertySheetPageW(&second)};
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof(header);
    header.dwFlags = PSH_PROPTITLE;
    header.pszCaption = TEXT("Caption");
    header.nPages = 2;
    header.phpage = handles;
    test::RunInLoop([] {
        EXPECT_EQ(Said(), "B init; B set");
        EXPECT_EQ(SelectedTab(), 0);
        const std::string title = test::TextOf(sheet);
        EXPECT_NE(title.find("Caption"), std::string::npos);
        EXPECT_NE(title.find("Properties"), std::string::npos);
    });
    Press(PSBTN_OK);
    EXPECT_EQ(PropertySheetW(&header), 1);
}

}  // namespace
