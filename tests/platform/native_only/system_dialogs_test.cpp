// What the system shows by itself, as the stand-in plays it: message boxes, file dialogs and the
// shell. And how resources and dialogs fail when ordered to.
#include <commdlg.h>
#include <shellapi.h>

#include "native_only.h"
#include "tests.h"
#include "window_test.h"

namespace {

using test::WideString;

std::string log;

// Notes which control gains and loses the focus, and what the dialog hears of its own state.
INT_PTR CALLBACK NoteFocus(HWND, UINT message, WPARAM wParam, LPARAM) {
    const std::string value = std::to_string(LOWORD(wParam));
    if (message == WM_COMMAND && HIWORD(wParam) == EN_KILLFOCUS) {
        log += "-" + value + " ";
    } else if (message == WM_COMMAND && HIWORD(wParam) == EN_SETFOCUS) {
        log += "+" + value + " ";
    } else if (message == WM_ENABLE || message == WM_ACTIVATE) {
        log += (message == WM_ENABLE ? "enable" : "activate") + value + " ";
    }
    return message == WM_INITDIALOG;
}

class SystemDialogs : public test::WindowTest {
  protected:
    void SetUp() override {
        test::WindowTest::SetUp();
        dialog_ = CreateDialogParamW(nullptr, MAKEINTRESOURCEW(IDD_OWNED), nullptr, NoteFocus, 0);
        SetFocus(GetDlgItem(dialog_, 102));
        log.clear();
    }
    void TearDown() override {
        DestroyWindow(dialog_);
        test::WindowTest::TearDown();
    }
    HWND dialog_ = nullptr;
};

TEST_F(SystemDialogs, AMessageBoxTakesTheFocusAndGivesItBack) {
    EXPECT_EQ(MessageBoxW(dialog_, TEXT("text"), nullptr, MB_OK | MB_ICONERROR), IDOK);
    EXPECT_EQ(log, "enable0 activate0 -102 enable1 activate1 +102 ");
    log.clear();
    MessageBoxW(nullptr, TEXT("text"), TEXT("title"), MB_YESNO);
    EXPECT_EQ(log, "activate0 -102 activate1 +102 ");
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog_, 102));
    ASSERT_EQ(host::MessageBoxes().size(), 2u);
    EXPECT_TRUE(host::MessageBoxes()[0].hasOwner);
    EXPECT_EQ(test::Narrow(host::MessageBoxes()[0].title), "Error");
    EXPECT_FALSE(host::MessageBoxes()[1].hasOwner);
}

TEST_F(SystemDialogs, AMessageBoxIsAnsweredAsOrderedOrByItsDefaultButton) {
    const auto show = [](UINT type) { return MessageBoxW(nullptr, TEXT(""), TEXT(""), type); };
    host::AnswerMessageBox(IDNO);
    host::AnswerMessageBox(IDCANCEL);
    EXPECT_EQ(show(MB_YESNO), IDNO);
    EXPECT_EQ(show(MB_OKCANCEL | MB_ICONWARNING), IDCANCEL);
    EXPECT_EQ(show(MB_YESNO), IDYES);
    EXPECT_EQ(show(MB_YESNO | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(show(MB_ABORTRETRYIGNORE), IDABORT);
    EXPECT_EQ(show(MB_RETRYCANCEL), IDRETRY);
    host::AnswerMessageBox(IDYES);
    EXPECT_DEATH(show(MB_OK), "answer 6 to a message box");
}

struct Chosen {
    BOOL good;
    std::string file;
    WORD name;
    WORD extension;
    DWORD error;
};

Chosen Choose(bool save, DWORD flags, LPCWSTR folder, DWORD room = MAX_PATH) {
    WCHAR file[MAX_PATH] = TEXT("first.txt");
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.lpstrFilter = TEXT("Texts\0*.txt\0");
    dialog.lpstrFile = file;
    dialog.nMaxFile = room;
    dialog.lpstrInitialDir = folder;
    dialog.lpstrDefExt = TEXT("txt");
    dialog.Flags = flags;
    const BOOL good = save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
    return {good, test::Narrow(file), dialog.nFileOffset, dialog.nFileExtension,
            CommDlgExtendedError()};
}

TEST_F(SystemDialogs, AFileDialogCompletesWhatTheUserTypes) {
    const struct {
        const WCHAR* typed;
        const WCHAR* folder;
        const char* file;
        WORD name;
        WORD extension;
    } kCases[] = {
        {TEXT("a.dat"), TEXT("C:\\kpdtest"), "C:\\kpdtest\\a.dat", 11, 13},
        {TEXT("a"), TEXT("C:\\kpdtest\\"), "C:\\kpdtest\\a.txt", 11, 13},
        {TEXT("a"), nullptr, "C:\\Users\\user\\Documents\\a.txt", 24, 26},
        {TEXT("C:\\x\\b.txt"), TEXT("C:\\kpdtest"), "C:\\x\\b.txt", 5, 7},
    };
    for (const auto& [typed, folder, file, name, extension] : kCases) {
        host::AnswerFileDialog(typed);
        const Chosen chosen = Choose(true, 0, folder);
        EXPECT_TRUE(chosen.good);
        EXPECT_EQ(chosen.file, file);
        EXPECT_EQ(chosen.name, name) << file;
        EXPECT_EQ(chosen.extension, extension) << file;
    }
    host::AnswerFileDialog(TEXT(""));
    const Chosen cancelled = Choose(false, 0, nullptr);
    EXPECT_FALSE(cancelled.good);
    EXPECT_EQ(cancelled.error, 0u);
    EXPECT_EQ(cancelled.file, "first.txt");
    host::AnswerFileDialog(TEXT("longer name.txt"));
    EXPECT_EQ(Choose(true, 0, nullptr, 8).error, DWORD{FNERR_BUFFERTOOSMALL});
    ASSERT_EQ(host::FileDialogs().size(), 6u);
    EXPECT_EQ(host::FileDialogs()[0].filter, WideString(TEXT("Texts\0*.txt"), 11));
    EXPECT_EQ(test::Narrow(host::FileDialogs()[0].initialFile), "first.txt");
    EXPECT_FALSE(host::FileDialogs()[4].save);
    EXPECT_DEATH(Choose(true, 0, nullptr), "nobody answers");
}

TEST_F(SystemDialogs, AFileDialogStaysUntilItsPathIsAsAskedFor) {
    const WCHAR* folder = TEXT("C:\\kpdtest");
    test::WriteBytes(TEXT("C:\\kpdtest\\there.txt"), "x");
    host::AnswerFileDialog(TEXT("missing"));
    host::AnswerFileDialog(TEXT("There"));
    EXPECT_EQ(Choose(false, OFN_FILEMUSTEXIST, folder).file, "C:\\kpdtest\\There.txt");
    host::AnswerFileDialog(TEXT("missing"));
    EXPECT_FALSE(Choose(false, OFN_FILEMUSTEXIST, folder).good) << "the user gives up";
    host::AnswerFileDialog(TEXT("C:\\nowhere\\a.txt"));
    host::AnswerFileDialog(TEXT("there"));
    host::AnswerFileDialog(TEXT("there"));
    host::AnswerMessageBox(IDOK);
    host::AnswerMessageBox(IDNO);
    host::AnswerMessageBox(IDYES);
    EXPECT_TRUE(Choose(true, OFN_PATHMUSTEXIST | OFN_OVERWRITEPROMPT, folder).good);
    const std::vector<UINT> expected = {MB_ICONWARNING, MB_ICONWARNING, MB_ICONWARNING,
                                        MB_YESNO | MB_ICONWARNING, MB_YESNO | MB_ICONWARNING};
    std::vector<UINT> types;
    for (const host::MessageBox& box : host::MessageBoxes()) {
        types.push_back(box.type);
    }
    EXPECT_EQ(types, expected);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog_, 102));
}

TEST_F(SystemDialogs, TheShellKeepsWhatItWasAsked) {
    const auto open = [] {
        return reinterpret_cast<INT_PTR>(
            ShellExecuteW(nullptr, TEXT("open"), TEXT("a.pdf"), nullptr, TEXT("C:\\x"), SW_SHOW));
    };
    host::FailCall(host::Call::kShell, 2, ERROR_FILE_NOT_FOUND);
    EXPECT_GT(open(), 32);
    EXPECT_EQ(open(), ERROR_FILE_NOT_FOUND);
    ASSERT_EQ(host::ShellCalls().size(), 1u);
    EXPECT_EQ(test::Narrow(host::ShellCalls()[0].file), "a.pdf");
    EXPECT_EQ(test::Narrow(host::ShellCalls()[0].parameters), "");
    EXPECT_EQ(host::ShellCalls()[0].show, SW_SHOW);
}

// Whatever part of it cannot be made, nothing of a dialog stays behind.
TEST_F(SystemDialogs, ADialogThatFailsHalfWayHoldsNothing) {
    const host::Holdings before = host::CurrentHoldings();
    const unsigned first = host::CallCount(host::Call::kWindow);
    HWND whole = CreateDialogParamW(nullptr, MAKEINTRESOURCEW(IDD_GROUPS), nullptr, NoteFocus, 0);
    const unsigned windows = host::CallCount(host::Call::kWindow) - first;
    DestroyWindow(whole);
    EXPECT_EQ(windows, 14u);
    for (unsigned n = 1; n <= windows; ++n) {
        host::FailCall(host::Call::kWindow, n);
        EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(IDD_GROUPS), parent_, NoteFocus, 0),
                  -1);
        EXPECT_EQ(host::CurrentHoldings(), before) << n;
        EXPECT_TRUE(IsWindowEnabled(parent_));
    }
    host::FailCall(host::Call::kResource, 1);
    EXPECT_EQ(DialogBoxParamW(nullptr, MAKEINTRESOURCEW(IDD_GROUPS), parent_, NoteFocus, 0), -1);
    EXPECT_EQ(host::CurrentHoldings(), before);
}

}  // namespace
