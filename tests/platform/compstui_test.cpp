// The common property sheet library: what it asks of sheet functions and in which order, and what
// becomes of the results that pages report.
#include "sheet_pages.h"

#include <compstui.h>

namespace {

using test::WideString;

std::string said;  // what the functions and pages were asked, in order

void Say(const std::string& text) {
    said += (said.empty() ? "" : "; ") + text;
}

// What a sheet function of the tests does; its address is the function's parameter.
struct Script {
    std::string name;
    int pages = 1;
    LONG initStatus = 1;
    LONG headerStatus = 1;
    bool empty = false;  ///< its pages name nothing
    WORD flags = PSUIHDRF_NOAPPLYNOW;
    Script* nested = nullptr;
    LONG_PTR report = CPSUI_OK;  ///< by its pages at PSN_APPLY; -1 none
    bool passesOn = true;        ///< takes over the results that it is told

    std::vector<WORD> layout = {};
    PROPSHEETUI_INFO info = {};  ///< as at the initialisation
    std::vector<LONG_PTR> handles = {};
};

INT_PTR CALLBACK PageProcedure(HWND page, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(page, DWLP_USER, reinterpret_cast<PROPSHEETPAGEW*>(lParam)->lParam);
        return TRUE;
    }
    const auto* script = reinterpret_cast<const Script*>(GetWindowLongPtrW(page, DWLP_USER));
    if (message != WM_NOTIFY ||
        reinterpret_cast<const NMHDR*>(lParam)->code != static_cast<UINT>(PSN_APPLY)) {
        return FALSE;
    }
    if (script->report >= 0) {
        const PROPSHEETUI_INFO& info = script->info;
        const LONG_PTR told = info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_SET_RESULT,
                                                   script->handles.back(), script->report);
        Say("told " + std::to_string(told));
    }
    return TRUE;
}

LONG_PTR Add(const PROPSHEETUI_INFO& info, UINT function, const void* what, LPARAM parameter = 0) {
    return info.pfnComPropSheet(info.hComPropSheet, function, reinterpret_cast<LPARAM>(what),
                                parameter);
}

LONG SheetFunction(PROPSHEETUI_INFO* info, LPARAM parameter);

LONG Initialise(PROPSHEETUI_INFO* info, LPARAM parameter) {
    Script& script = *reinterpret_cast<Script*>(parameter);
    EXPECT_EQ(info->Version, PROPSHEETUI_INFO_VERSION);
    EXPECT_EQ(info->UserData, 0u);
    script.info = *info;
    info->UserData = 4711;
    script.layout = test::PageTemplate(TEXT("Page"));
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof(page);
    if (!script.empty) {
        page.dwFlags = PSP_DLGINDIRECT;
        page.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(script.layout.data());
        page.pfnDlgProc = PageProcedure;
        page.lParam = parameter;
    }
    for (int i = 0; i < script.pages; ++i) {
        script.handles.push_back(Add(*info, CPSFUNC_ADD_PROPSHEETPAGEW, &page));
        EXPECT_NE(script.handles.back(), 0);
    }
    if (script.nested != nullptr) {
        const LONG_PTR handle =
            Add(*info, CPSFUNC_ADD_PFNPROPSHEETUIW, reinterpret_cast<const void*>(SheetFunction),
                reinterpret_cast<LPARAM>(script.nested));
        Say(handle != 0 ? "nested" : "not nested");
    }
    return script.initStatus;
}

LONG SheetFunction(PROPSHEETUI_INFO* info, LPARAM parameter) {
    Script& script = *reinterpret_cast<Script*>(info->lParamInit);
    constexpr const char* kReasons[] = {"init", "header", "destroy", "result", "icon", "before"};
    Say(script.name + " " + kReasons[info->Reason]);
    EXPECT_EQ(info->cbSize, sizeof(*info));
    switch (info->Reason) {
        case 5:
            EXPECT_EQ(info->Version | info->Flags, 0);
            EXPECT_EQ(info->hComPropSheet, nullptr);
            EXPECT_EQ(info->pfnComPropSheet, nullptr);
            return -1;
        case PROPSHEETUI_REASON_INIT:
            EXPECT_EQ(parameter, info->lParamInit);
            return Initialise(info, parameter);
        case PROPSHEETUI_REASON_GET_INFO_HEADER: {
            auto& header = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(parameter);
            EXPECT_EQ(header.cbSize, sizeof(header));
            static WCHAR title[] = TEXT("Badge printer");
            header.pTitle = title;
            header.Flags = script.flags;
            header.hInst = GetModuleHandleW(nullptr);
            header.IconID = IDI_CPSUI_ICONID_FIRST + 62;
            return script.headerStatus;
        }
        case PROPSHEETUI_REASON_SET_RESULT: {
            const auto& told = *reinterpret_cast<SETRESULT_INFO*>(parameter);
            EXPECT_EQ(told.cbSize, sizeof(told));
            EXPECT_EQ(info->UserData, 4711u);
            Say(std::to_string(told.Result));
            info->Result = static_cast<ULONG_PTR>(told.Result);
            return script.passesOn ? 1 : 0;
        }
    }
    EXPECT_EQ(info->UserData, 4711u) << info->Reason;
    return 1;
}

class CompstuiTest : public test::WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        said.clear();
    }

    // Opens the sheet of the function. Gives "STATUS RESULT" and leaves what was asked in said.
    std::string Open(Script& script) {
        DWORD result = 77;
        const LONG status = CommonPropertySheetUIW(parent_, SheetFunction,
                                                   reinterpret_cast<LPARAM>(&script), &result);
        return std::to_string(status) + " " + std::to_string(result);
    }
};

TEST_F(CompstuiTest, ResultsOfThePagesBecomeTheSheets) {
    const struct {
        int button;
        LONG_PTR report;
        const char* outcome;
        const char* asked;
    } cases[] = {
        {PSBTN_OK, CPSUI_OK, "1 1", "A before; A init; A header; A result; 1; told 1; A destroy"},
        {PSBTN_OK, -1, "1 0", "A before; A init; A header; A destroy"},
        {PSBTN_CANCEL, CPSUI_OK, "1 0", "A before; A init; A header; A destroy"},
    };
    for (const auto& oneCase : cases) {
        Script script{.name = "A", .pages = 3, .report = oneCase.report};
        said.clear();
        test::PressInSheet(oneCase.button);
        EXPECT_EQ(Open(script), oneCase.outcome);
        EXPECT_EQ(said, oneCase.asked);
    }
}

TEST_F(CompstuiTest, TheHeaderMakesTheSheet) {
    const struct {
        WORD flags;
        bool exactTitle;
        bool applyShown;
    } cases[] = {
        {PSUIHDRF_NOAPPLYNOW, true, false},
        {PSUIHDRF_PROPTITLE, false, true},
    };
    for (const auto& oneCase : cases) {
        Script script{.name = "A", .flags = oneCase.flags};
        test::RunInLoop([&] {
            const HWND sheet = test::ShownSheet();
            const std::string title = test::TextOf(sheet);
            EXPECT_EQ(title == "Badge printer", oneCase.exactTitle) << title;
            EXPECT_NE(title.find("Badge printer"), std::string::npos) << title;
            EXPECT_EQ(IsWindowVisible(GetDlgItem(sheet, 0x3021)) != FALSE, oneCase.applyShown);
            EXPECT_EQ(GetWindow(sheet, GW_OWNER), parent_);
        });
        test::PressInSheet(PSBTN_CANCEL);
        EXPECT_EQ(Open(script), "1 0");
    }
}

TEST_F(CompstuiTest, WithoutASheetTheFunctionIsToldOnlyWhatItNeeds) {
    const struct {
        int pages;
        LONG initStatus;
        LONG headerStatus;
        const char* outcome;
        const char* asked;
    } cases[] = {
        {1, 0, 1, "-1 0", "A before; A init; A destroy"},
        {2, -3, 1, "-3 0", "A before; A init; A destroy"},
        {0, 1, 1, "-8 0", "A before; A init; A header; A destroy"},
        {0, 1, -3, "-3 0", "A before; A init; A header; A destroy"},
        {1, 1, -3, "-3 0", "A before; A init; A header; A destroy"},
    };
    for (const auto& oneCase : cases) {
        Script script{.name = "A",
                      .pages = oneCase.pages,
                      .initStatus = oneCase.initStatus,
                      .headerStatus = oneCase.headerStatus};
        said.clear();
        EXPECT_EQ(Open(script), oneCase.outcome);
        EXPECT_EQ(said, oneCase.asked);
    }
}

TEST_F(CompstuiTest, AFunctionOfAFunctionReportsThroughIt) {
    const struct {
        LONG nestedStatus;
        bool passesOn;
        const char* outcome;
        const char* asked;
    } cases[] = {
        {1, true, "1 1",
         "A before; A init; B before; B init; nested; A header; B result; 1; A result; 1; told 2; "
         "B destroy; A destroy"},
        {1, false, "1 0",
         "A before; A init; B before; B init; nested; A header; B result; 1; told 1; "
         "B destroy; A destroy"},
        {-1, true, "1 0",
         "A before; A init; B before; B init; B destroy; not nested; "
         "A header; A destroy"},
    };
    for (const auto& oneCase : cases) {
        Script inner{.name = "B", .initStatus = oneCase.nestedStatus, .passesOn = oneCase.passesOn};
        Script outer{.name = "A", .nested = &inner, .report = -1};
        said.clear();
        test::RunInLoop([] { SendMessageW(test::ShownSheet(), PSM_SETCURSEL, 1, 0); });
        test::PressInSheet(PSBTN_OK);
        EXPECT_EQ(Open(outer), oneCase.outcome);
        EXPECT_EQ(said, oneCase.asked);
    }
}

TEST_F(CompstuiTest, APageOfNothingIsEmptyAndTitledAsTheSheet) {
    Script script{.name = "A", .empty = true};
    test::RunInLoop([] {
        const HWND sheet = test::ShownSheet();
        const auto page = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
        EXPECT_EQ(test::TextOf(page), "Badge printer");
        EXPECT_EQ(GetWindow(page, GW_CHILD), nullptr);
    });
    test::PressInSheet(PSBTN_OK);
    EXPECT_EQ(Open(script), "1 0");
}

TEST_F(CompstuiTest, WhatTheLibraryCannotDoItRefuses) {
    static PROPSHEETPAGEW damaged = {};
    damaged.dwSize = 8;
    damaged.pszTemplate = MAKEINTRESOURCEW(1);
    const auto function = [](PROPSHEETUI_INFO* info, LPARAM) -> LONG {
        if (info->Reason == PROPSHEETUI_REASON_INIT) {
            EXPECT_EQ(Add(*info, CPSFUNC_ADD_PROPSHEETPAGEW, nullptr), 0);
            EXPECT_EQ(Add(*info, CPSFUNC_ADD_PROPSHEETPAGEW, &damaged), 0);
            EXPECT_EQ(Add(*info, CPSFUNC_ADD_HPROPSHEETPAGE, nullptr), 0);
            EXPECT_EQ(Add(*info, CPSFUNC_ADD_PFNPROPSHEETUIW, nullptr), 0);
            EXPECT_EQ(Add(*info, CPSFUNC_SET_RESULT, &damaged, CPSUI_OK), 0);
            EXPECT_LT(Add(*info, 99, nullptr), 0);
        }
        return 1;
    };
    EXPECT_EQ(CommonPropertySheetUIW(nullptr, function, 0, nullptr), ERR_CPSUI_NO_PROPSHEETPAGE);
    DWORD result = 77;
    EXPECT_EQ(CommonPropertySheetUIW(nullptr, nullptr, 0, &result), ERR_CPSUI_GETLASTERROR);
    EXPECT_EQ(result, 77u);
}

}  // namespace
