// One implementation for both platforms.
#include "lone_page.h"

#include "message_boxes.h"
#include "ui/common/controls.h"
#include "ui/common/language.h"
#include "ui/common/module.h"

#include <commctrl.h>
#include <prsht.h>

namespace test {
namespace {

WNDPROC parentProcedure;
int changes;
int reports;  // of an accepted page

LRESULT CALLBACK CountChanges(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    changes += message == PSM_CHANGED;
    return CallWindowProcW(parentProcedure, window, message, wParam, lParam);
}

LONG_PTR CALLBACK TakeReport(HANDLE, UINT function, LPARAM, LPARAM result) {
    reports += function == CPSFUNC_SET_RESULT && result == CPSUI_OK;
    return 1;
}

std::string ListText(HWND list) {
    const WPARAM selected = static_cast<WPARAM>(SendMessageW(list, CB_GETCURSEL, 0, 0));
    WCHAR text[kTextLength] = {};
    SendMessageW(list, CB_GETLBTEXT, selected, reinterpret_cast<LPARAM>(text));
    return Narrow(text) + " of " + std::to_string(SendMessageW(list, CB_GETCOUNT, 0, 0));
}

std::string ButtonText(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED ? "x" : ".";
}

std::string SliderText(HWND slider) {
    return std::to_string(SendMessageW(slider, TBM_GETPOS, 0, 0));
}

}  // namespace

void LonePageTest::SetUp() {
    WindowTest::SetUp();
    ModuleHandle = GetModuleHandleW(nullptr);
    InitLanguageFile();
    WriteWideText(LanguageFilePath, TEXT(""));
    StartMessageBoxes();
    BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
    context_.ComPropSheet = TakeReport;
    changes = 0;
    parentProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountChanges)));
    SetWindowPos(parent_, nullptr, 20, 20, 480, 400, SWP_NOZORDER);
    HandlePosted();
}

void LonePageTest::TearDown() {
    if (page_ != nullptr) {
        DestroyWindow(page_);
    }
    StopMessageBoxes();
    std::filesystem::remove(DiskPath(LanguageFilePath));
    WindowTest::TearDown();
}

void LonePageTest::OpenPage(int dialog, DLGPROC procedure) {
    if (page_ != nullptr) {
        DestroyWindow(page_);
    }
    PROPSHEETPAGEW record = {};
    record.lParam = reinterpret_cast<LPARAM>(&context_);
    page_ = CreateDialogParamW(ModuleHandle, MAKEINTRESOURCEW(dialog), parent_, procedure,
                               reinterpret_cast<LPARAM>(&record));
    ASSERT_NE(page_, nullptr);
    SetWindowPos(page_, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EnableWindow(page_, TRUE);
    ShowWindow(page_, SW_SHOW);
    HandlePosted();
}

void LonePageTest::Click(int control) {
    SendDlgItemMessageW(page_, control, BM_CLICK, 0, 0);
}

void LonePageTest::Choose(int list, int item) {
    SendMessageW(Item(list), CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    SendMessageW(page_, WM_COMMAND, MAKEWPARAM(list, CBN_SELENDOK),
                 reinterpret_cast<LPARAM>(Item(list)));
}

void LonePageTest::Enter(int field, const char* text) {
    SetWindowTextW(Item(field), Wide(text).c_str());
}

void LonePageTest::Notify(UINT code, UINT_PTR from) {
    PSHNOTIFY notification = {};
    notification.hdr = {parent_, from, code};
    SendMessageW(page_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

void LonePageTest::Apply() {
    reports = 0;
    Notify(PSN_APPLY);
    EXPECT_EQ(reports, 1);
}

void LonePageTest::Answer(ULONG_PTR query, const std::string& bytes) {
    std::string copy = bytes;
    COPYDATASTRUCT answer = {query, static_cast<DWORD>(copy.size()), copy.data()};
    SendMessageW(page_, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&answer));
}

bool LonePageTest::IsShown(int control) const {
    return (GetWindowLongW(Item(control), GWL_STYLE) & WS_VISIBLE) != 0;
}

std::string LonePageTest::Looks(int control) const {
    HWND window = Item(control);
    if (!IsShown(control)) {
        return "-";
    }
    WCHAR name[32] = {};
    GetClassNameW(window, name, 32);
    const std::string kind = Narrow(name);
    const std::string looks = kind == "ComboBox"                ? ListText(window)
                              : kind == "Button"                ? ButtonText(window)
                              : kind == Narrow(TRACKBAR_CLASSW) ? SliderText(window)
                                                                : TextOf(window);
    return (IsWindowEnabled(window) ? "" : "~") + looks;
}

std::string LonePageTest::LooksOfAll() const {
    std::string looks;
    for (HWND control = GetWindow(page_, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(control);
        looks += std::to_string(id) + ": " + Looks(id) + "\n";
    }
    return looks;
}

std::string LonePageTest::TakeMessages() {
    std::string texts;
    const std::vector<ShownMessage> shown = ShownMessages();
    for (; messagesTaken_ < shown.size(); ++messagesTaken_) {
        const ShownMessage& message = shown[messagesTaken_];
        texts += (message.hasOwner ? "owned " : "") +
                 Narrow(message.title + TEXT(": ") + message.text) + "\n";
    }
    return texts;
}

int LonePageTest::TakeChanges() {
    return std::exchange(changes, 0);
}

}  // namespace test
