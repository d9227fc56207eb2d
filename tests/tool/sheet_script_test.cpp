// Scripts for the sheet: which lines are refused, what each step does to real controls, and what is
// said when a step cannot be done or an expectation fails. A sheet of the tests' own, with a
// control of each kind, stands for the driver's.
#include "tests/resources/sheet_script.h"
#include "core/context.h"
#include "driver_test.h"
#include "resources/resource.h"
#include "tools/kpdtool/sheet/sheet_run.h"
#include "tools/kpdtool/tool_error.h"
#include "window_test.h"

#include <commctrl.h>
#include <commdlg.h>
#include <prsht.h>

#include <algorithm>
#include <sstream>

namespace test {
namespace {

TEST(ScriptTest, RefusedLines) {
    const struct {
        const char* line;
        const char* reason;
    } cases[] = {
        {"frobnicate", "'frobnicate' is no step; steps are page, choose, click, "},
        {"page", "there is more to it; it is written: page TEXT"},
        {"page Color", "'Color' is not a text in double quotes"},
        {"page \"Color\" now", "'now' is too much"},
        {"page \"Color", "a double quote is missing"},
        {"click \"A\"#0", "behind a text's # stands which"},
        {"click \"A\"b", "a blank is missing behind a text"},
        {"click IDC_NOTHING", "'IDC_NOTHING' is not a control's text"},
        {"key \"A\" sideways", "'sideways' is not one of up, down"},
        {"key \"A\" up 0", "'0' is not a number from 1 to 1000"},
        {"scroll \"A\" away", "'away' is not one of line-up, line-down, page-up, page-down, to"},
        {"scroll \"A\" to line-up", "'line-up' is not a number"},
        {"slide \"A\" \"1\"", "'1' is not a number"},
        {"answer maybe", "'maybe' is not a file name in double quotes, or one of ok, cancel"},
        {"copydata 5 missing.bin", "missing.bin cannot be read"},
        {"expect", "there is more to it; it is written: "},
        {"expect joy \"A\"", "it is written: expect checked CONTROL | expect unchecked"},
        {"expect field Bliss 1", "'Bliss' is not a field's name"},
        {"print", "it is written: print controls"},
    };
    for (const auto& c : cases) {
        try {
            kpdtool::ParseScript("a.sheet", "# first\n\nok\n" + std::string(c.line) + "\ncancel\n");
            ADD_FAILURE() << c.line;
        } catch (const kpdtool::ToolError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with("a.sheet:4: ")) << error.what();
            EXPECT_NE(std::string(error.what()).find(c.reason), std::string::npos) << error.what();
        }
    }
}

TEST(ScriptTest, WordsOfALine) {
    const auto script = kpdtool::ParseScript("a.sheet",
                                             "\xEF\xBB\xBF\ttype  \"say \\\"A#1\\\" \"#3 \"C:\\x\" "
                                             "# \"and\" so on\r\n#\nok\r\npage \"A\"\r\n");
    ASSERT_EQ(script.steps.size(), 3u);
    ASSERT_EQ(script.steps[0].words.size(), 2u);
    EXPECT_EQ(script.steps[0].words[0].text, "say \"A#1\" ");
    EXPECT_EQ(script.steps[0].words[0].occurrence, 3);
    EXPECT_EQ(script.steps[0].words[1].text, "C:\\x");
    EXPECT_EQ(script.PlaceOf(script.steps[1]), "a.sheet:3: ");
    EXPECT_EQ(script.steps[2].words[0].text, "A");
}

std::string own;  // what the page did, beside what Note keeps

INT_PTR CALLBACK InnerProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    const bool closes = message == WM_COMMAND && (wParam == IDOK || wParam == IDCANCEL);
    if (closes) {
        own += "left " + std::to_string(IsDlgButtonChecked(dialog, IDC_SCRIPT_FAST)) + " by " +
               std::to_string(wParam) + ' ';
        EndDialog(dialog, 0);
    }
    return message == WM_INITDIALOG;
}

void AskForFile(HWND dialog) {
    WCHAR file[MAX_PATH] = {};
    OPENFILENAMEW record = {};
    record.lStructSize = sizeof(record);
    record.hwndOwner = dialog;
    record.lpstrFilter = TEXT("Settings\0*.mcs\0");
    record.lpstrFile = file;
    record.nMaxFile = MAX_PATH;
    record.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!GetSaveFileNameW(&record)) {
        own += "no file";
        return;
    }
    own += "save " + Narrow(file).substr(record.nFileOffset);
    WriteBytes(file, "saved");
}

void Prepare(HWND dialog) {
    const WCHAR* const ribbons[] = {TEXT("YMCKO"), TEXT("YMCKOK"), TEXT("Resin K")};
    for (size_t i = 0; i < 3; ++i) {
        SendDlgItemMessageW(dialog, IDC_SCRIPT_RIBBON, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(ribbons[i]));
        TCITEMW tab = {};
        tab.mask = TCIF_TEXT;
        tab.pszText = const_cast<WCHAR*>(ribbons[i]);
        SendDlgItemMessageW(dialog, IDC_SCRIPT_TABS, TCM_INSERTITEMW, i,
                            reinterpret_cast<LPARAM>(&tab));
    }
    SendDlgItemMessageW(dialog, IDC_SCRIPT_RIBBON, CB_SETCURSEL, 2, 0);
    SendDlgItemMessageW(dialog, IDC_BRIGHTNESS, TBM_SETRANGE, FALSE, MAKELPARAM(0, 100));
    SetScrollRange(GetDlgItem(dialog, IDC_COPIES_SCROLL), SB_CTL, 1, 9999, FALSE);
    SetDlgItemTextW(dialog, IDC_COPIES, TEXT("1"));
    SetDlgItemTextW(dialog, IDC_SCRIPT_ASK, TEXT("Fragen"));  // translated
}

void NoteOwn(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    const WPARAM click = MAKEWPARAM(0, BN_CLICKED);
    if (message == WM_COMMAND && wParam == (click | IDC_SCRIPT_ASK)) {
        const int answer = MessageBoxW(nullptr, TEXT("Sure?"), TEXT("Question"), MB_YESNO);
        own += "asked " + std::to_string(answer);
    } else if (message == WM_COMMAND && wParam == (click | IDC_SCRIPT_OPEN)) {
        DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_SCRIPT_DIALOG),
                        GetAncestor(dialog, GA_ROOT), InnerProcedure, 0);
        own += "returned";
    } else if (message == WM_COMMAND && wParam == (click | IDC_SCRIPT_SAVE)) {
        AskForFile(dialog);
    } else if (message == WM_COPYDATA) {
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        own += "data " + std::to_string(data->dwData) + ' ' +
               std::string(static_cast<const char*>(data->lpData), data->cbData);
    }
}

INT_PTR CALLBACK PageProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER,
                          reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
        if (GetDlgItem(dialog, IDC_COPIES) != nullptr) {
            Prepare(dialog);
        }
        Told();
        return FALSE;
    }
    constexpr UINT kCodes[] = {BN_CLICKED, CBN_SELCHANGE, EN_CHANGE};
    const bool noted = message == WM_COMMAND ? std::ranges::count(kCodes, UINT{HIWORD(wParam)}) != 0
                       : message == WM_NOTIFY
                           ? reinterpret_cast<const NMHDR*>(lParam)->code == UINT(TCN_SELCHANGE)
                           : true;
    if (noted) {
        Note(message, wParam, lParam);
    }
    NoteOwn(dialog, message, wParam, lParam);
    return FALSE;
}

class SheetScriptTest : public DriverTest {
  protected:
    struct Outcome {
        std::string failure;  ///< of an expectation or a step
        std::string told;
        std::string printed;
        INT_PTR result;
    };

    // Runs the lines on the sheet; `last` closes it when they do not.
    Outcome Run(const std::string& lines, int last = PSBTN_CANCEL) {
        const kpdtool::SheetPage pages[] = {{"First", IDD_SCRIPT_PAGE, {}},
                                            {"Second", IDD_SCRIPT_SECOND, {}}};
        const OwnedContext context(CreateDriverContext(NewPrinter(TEXT("Mirv KP-41")), nullptr));
        HPROPSHEETPAGE handles[std::size(pages)];
        for (size_t i = 0; i < std::size(pages); ++i) {
            PROPSHEETPAGEW record = {};
            record.dwSize = sizeof(record);
            record.hInstance = GetModuleHandleW(nullptr);
            record.pszTemplate = MAKEINTRESOURCEW(pages[i].dialog);
            record.pfnDlgProc = PageProcedure;
            record.lParam = reinterpret_cast<LPARAM>(context.get());
            handles[i] = CreatePropertySheetPageW(&record);
        }
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof(header);
        header.hInstance = GetModuleHandleW(nullptr);
        header.pszCaption = TEXT("Script");
        header.nPages = std::size(handles);
        header.phpage = handles;

        own.clear();
        const auto script = kpdtool::ParseScript("a.sheet", lines);
        std::ostringstream out;
        kpdtool::SheetRun run(script, pages, "", last, out);
        Outcome outcome;
        outcome.result = PropertySheetW(&header);
        try {
            outcome.failure = run.Finish();
        } catch (const kpdtool::ToolError& error) {
            outcome.failure = error.what();
        }
        outcome.told = Told();
        outcome.printed = out.str();
        return outcome;
    }
};

TEST_F(SheetScriptTest, EachStepDoesWhatAUserDoes) {
    WriteBytes(TestFolder() + TEXT("\\answer.bin"), "abc");
    const std::string answer = DiskPath(TestFolder() + TEXT("\\answer.bin")).string();
    const struct {
        std::string lines;
        const char* told;
        const char* own = "";
    } cases[] = {
        {"choose \"Ribbon Type :\" \"YMCKOK\"\nexpect selected \"Ribbon Type : \" \"YMCKOK\"",
         "command 1911 1h"},
        {"choose \"Ribbon Type :\" 0\nexpect text \"Ribbon Type : \" \"YMCKO\"", "command 1911 1h"},
        {"click \"Rotate 180\"#2\nexpect checked \"Rotate 180\"#2\nexpect unchecked \"Rotate 180\"",
         "command 1913 0h"},
        {"type \"Copy No : \" \"12\"\nexpect text \"Copy No : \" \"12\"",
         "command 1001 300h; command 1001 300h"},
        {"type IDC_COPIES \"\"\nexpect text \"Copy No : \" \"\"", "command 1001 300h"},
        {"key \"Ribbon Type :\" up 2\nexpect selected \"Ribbon Type :\" \"YMCKO\"",
         "command 1911 1h; command 1911 1h"},
        {"key \"Copy No :\" tab\nkey \"Copy No :\" escape", ""},
        {"scroll \"Copy No :\" line-up 2", "vscroll 0 0; vscroll 8 0; vscroll 0 0; vscroll 8 0"},
        {"scroll IDC_COPIES_SCROLL to 7", "vscroll 5 7; vscroll 4 7; vscroll 8 0"},
        {"slide \"Brightness\" 30\nexpect text \"Brightness\" \"30\"",
         "hscroll 5 30; hscroll 4 30; hscroll 8 0"},
        {"tab \"Resin K\"\nexpect selected \"0\" \"Resin K\"", "notify 1918 -551"},
        {"answer yes\nclick \"Ask\"\nexpect message \"Sure?\"", "command 1914 0h", "asked 6"},
        {"click \"Fragen\"", "command 1914 0h", "asked 6"},
        {"answer \"C:\\kpdtest\\a.mcs\"\nclick \"Save\"", "command 1916 0h", "save a.mcs"},
        {"answer \"\"\nclick \"Save\"", "command 1916 0h", "no file"},
        {"copydata 5 " + answer, "", "data 5 abc"},
        {"click \"Open\"\nclick \"Fast\"\nexpect checked \"Fast\"\nclick \"Exit\"\n"
         "expect enabled \"Open\"",
         "command 1915 0h", "left 1 by 1 returned"},
        {"page \"Second\"\npage \"First\"\nclick \"Rotate 180\"", "command 1912 0h"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.lines);
        const Outcome outcome = Run(c.lines);
        EXPECT_EQ(outcome.failure, "");
        EXPECT_EQ(outcome.told, c.told);
        EXPECT_EQ(own, c.own);
    }
}

TEST_F(SheetScriptTest, WhatIsSaidOfFailures) {
    const struct {
        const char* lines;
        const char* failure;
        const char* own = "";
    } cases[] = {
        {"page \"Third\"",
         "a.sheet:1: there is no page \"Third\"; pages are \"First\", \"Second\""},
        {"\nclick \"Nobody\"", "a.sheet:2: there is no button \"Nobody\" on First"},
        {"click \"Copy No : \"", "a.sheet:1: \"Copy No : \" is a text that takes no clicks"},
        {"click \"Locked\"", "a.sheet:1: \"Locked\" cannot be used: it is disabled"},
        {"type \"Ask\" \"x\"", "a.sheet:1: \"Ask\" is no field to type into"},
        {"choose \"Ribbon Type :\" \"K\"",
         "a.sheet:1: there is no item \"K\"; items are \"YMCKO\", \"YMCKOK\", \"Resin K\""},
        {"slide IDC_BRIGHTNESS 101", "a.sheet:1: IDC_BRIGHTNESS slides from 0 to 100"},
        {"apply", "a.sheet:1: the Apply button cannot be used"},
        {"expect checked \"Rotate 180\"#2\nclick \"Ask\"",
         "a.sheet:1: expected \"Rotate 180\"#2 to be checked; it is unchecked"},
        {"expect enabled \"Locked\"",
         "a.sheet:1: expected \"Locked\" to be enabled; it is disabled"},
        {"expect shown \"Unseen\"", "a.sheet:1: expected \"Unseen\" to be shown; it is hidden"},
        {"expect text \"Copy No : \" \"2\"",
         "a.sheet:1: expected \"Copy No : \" to read \"2\"; it reads \"1\""},
        {"expect items \"Ribbon Type :\" \"YMCKO\"",
         "a.sheet:1: expected \"Ribbon Type :\" to have \"YMCKO\"; it has \"YMCKO\", \"YMCKOK\", "
         "\"Resin K\""},
        {"expect selected \"Ribbon Type :\" 0",
         "a.sheet:1: expected 0 to be selected in \"Ribbon Type :\"; it is 2"},
        {"expect field dmCopies 2", "a.sheet:1: expected dmCopies to be 2; it is 1"},
        {"expect field CardType 0x1",
         "a.sheet:1: expected CardType to be 0x1; it is 0 (Blank Card)"},
        {"expect message \"Sure?\"",
         "a.sheet:1: expected the message \"Sure?\"; messages were none"},
        {"answer no\nclick \"Ask\"\nclick \"Rotate 180\"\nexpect message \"Sure?\"",
         "a.sheet:4: expected the message \"Sure?\"; messages were none", "asked 7"},
        {"click \"Open\"\nclick \"Open\"", "a.sheet:2: there is no button \"Open\" on More",
         "left 0 by 2 returned"},
        {"click \"Open\"\npage \"Second\"", "a.sheet:2: a dialog is open: More",
         "left 0 by 2 returned"},
        {"click \"Open\"", "the script ends while a dialog is open: More", "left 0 by 2 returned"},
        {"cancel\nclick \"Ask\"", "a.sheet:2: the sheet is closed"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.lines);
        const Outcome outcome = Run(c.lines, PSBTN_OK);
        EXPECT_EQ(outcome.failure, c.failure);
        EXPECT_EQ(own, c.own);
        EXPECT_EQ(outcome.result, 0) << "not cancelled";
    }
}

TEST_F(SheetScriptTest, AFileDialogsAnswerIsAFileOfTheUsers) {
    const std::string file = DiskPath(TestFolder() + TEXT("\\b.mcs")).string();
    EXPECT_EQ(Run("answer \"" + file + "\"\nclick \"Save\"").failure, "");
    EXPECT_EQ(own, "save b.mcs");
    EXPECT_EQ(ReadBytes(TestFolder() + TEXT("\\b.mcs")), "saved");
}

TEST_F(SheetScriptTest, EndsWithTheButton) {
    EXPECT_EQ(Run("click \"Rotate 180\"", PSBTN_OK).result, 1);
    EXPECT_EQ(Run("click \"Rotate 180\"\ncancel", PSBTN_OK).result, 0);
    EXPECT_EQ(Run("ok", PSBTN_CANCEL).result, 1);
}

TEST_F(SheetScriptTest, PrintsTheControls) {
    const std::string printed = Run("click \"Rotate 180\"\nprint controls").printed;
    for (const char* words : {"IDC_COPIES", "\"Copy No : \"", "checked", "disabled", "hidden"}) {
        EXPECT_NE(printed.find(words), std::string::npos) << printed;
    }
}

}  // namespace
}  // namespace test
