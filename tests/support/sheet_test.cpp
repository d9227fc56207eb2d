// One implementation for both platforms.
#include "sheet_test.h"

#include "core/driver_ui_contract.h"
#include "resources/resource.h"
#include "sheet_pages.h"
#include "tools/computer/sample_library.h"
#include "ui/common/language.h"
#include "ui/common/module.h"
#include "ui/pages/tools/advance_tool.h"

#include <commctrl.h>

namespace test {
namespace {

BOOL CALLBACK TakeSheet(HWND window, LPARAM found) {
    WCHAR name[32] = {};
    GetClassNameW(window, name, 32);
    if (IsWindowVisible(window) && WideString(name) == TEXT("#32770") &&
        SendMessageW(window, PSM_GETTABCONTROL, 0, 0) != 0) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

void SheetTest::SetUp() {
    DriverTest::SetUp();
    ModuleHandle = GetModuleHandleW(nullptr);
    InitLanguageFile();
    input_ = DefaultRecord();
}

void SheetTest::TearDown() {
    EndSteps();
    std::filesystem::remove(DiskPath(LanguageFilePath));
    DriverTest::TearDown();
}

LONG SheetTest::RunSheet(const WideString& model, std::vector<Step> steps, int button,
                         const WideString& port) {
    HANDLE printer = NewPrinter(model, port);
    for (Step& step : steps) {
        RunInLoop(std::move(step));
    }
    return RunOn(printer, button);
}

LONG SheetTest::RunOn(HANDLE printer, int button) {
    RunInLoop([=] {
        HWND sheet = Sheet();
        ASSERT_NE(sheet, nullptr);
        PostMessageW(sheet, PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0);
    });
    output_ = {};
    WideString name = kPrinterName;
    const LONG result =
        DrvDocumentProperties(nullptr, printer, name.data(), &output_.Public, &input_.Public,
                              DM_IN_BUFFER | DM_OUT_BUFFER | DM_IN_PROMPT);
    ForgetSteps();  // of a sheet that did not open
    return result;
}

void SheetTest::OpenAdvanceTool(const std::function<void(HWND)>& look) {
    const computer::SamplePrinter printer("");
    DriverContext context = {};
    context.IsKP41Family = context.IsKP49 = 1;
    context.WorkingDevMode.Private.PlusRApplication = 1;
    RunInLoop([&] {
        HWND dialog = DialogWith(IDC_MOTOR_1);
        look(dialog);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    RunAdvanceTool(nullptr, context);
}

HWND SheetTest::Sheet() {
    HWND sheet = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeSheet, reinterpret_cast<LPARAM>(&sheet));
    return sheet;
}

HWND SheetTest::ShowPage(int index) {
    SendMessageW(Sheet(), PSM_SETCURSEL, static_cast<WPARAM>(index), 0);
    return reinterpret_cast<HWND>(SendMessageW(Sheet(), PSM_GETCURRENTPAGEHWND, 0, 0));
}

std::vector<std::string> SheetTest::Tabs() {
    HWND tabs = reinterpret_cast<HWND>(SendMessageW(Sheet(), PSM_GETTABCONTROL, 0, 0));
    std::vector<std::string> titles;
    const LRESULT count = SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
    for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
        WCHAR text[kTextLength] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = kTextLength;
        SendMessageW(tabs, TCM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
        titles.push_back(Narrow(text));
    }
    return titles;
}

}  // namespace test
