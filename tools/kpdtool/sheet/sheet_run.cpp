// How the steps come to run. Each is a message that the loop of the sheet, or of a dialog opened
// from it, dispatches; what a single step does is in sheet_steps.cpp.
#include "sheet_run.h"

#include <commctrl.h>
#include <prsht.h>

#include "tools/kpdtool/tool_error.h"

namespace kpdtool {
namespace {

constexpr UINT kRun = WM_APP;
// Takes one turn more, so that what a step has posted is handled before the next step.
constexpr UINT kPass = WM_APP + 1;
constexpr UINT kPressKey = WM_APP + 2;
constexpr UINT_PTR kRetry = 1;
constexpr UINT kRetryDelay = 20;  // milliseconds
constexpr unsigned kLongestAwait = 30000 / kRetryDelay;

bool IsDialog(HWND window) {
    return IsWindowVisible(window) && ClassOf(window) == "#32770";
}

BOOL CALLBACK TakeSheet(HWND window, LPARAM found) {
    if (IsDialog(window) && SendMessageW(window, PSM_GETTABCONTROL, 0, 0) != 0) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

BOOL CALLBACK TakeEnabledDialog(HWND window, LPARAM found) {
    if (IsDialog(window) && IsWindowEnabled(window)) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

HWND FindThreadWindow(WNDENUMPROC procedure) {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), procedure, reinterpret_cast<LPARAM>(&found));
    return found;
}

}  // namespace

SheetRun::SheetRun(const Script& script, std::span<const SheetPage> pages,
                   const std::string& pictures, int lastButton, std::ostream& out)
    : script_(script), pages_(pages), pictures_(pictures), lastButton_(lastButton), out_(out) {
    PostMessageW(window_.get(), kRun, 0, 0);
}

void SheetRun::StartKeys(HWND control, WPARAM key, long long count) {
    keyboard_ = control;
    key_ = key;
    keysLeft_ = count;
    PressKey(control);
}

// Posted, so that the dialog sees it first as it does a user's.
void SheetRun::PressKey(HWND target) {
    --keysLeft_;
    PostMessageW(target, WM_KEYDOWN, key_, 1);
    PostMessageW(target, WM_KEYUP, key_, static_cast<LPARAM>(0xC0000001));
    PostMessageW(window_.get(), kPressKey, 0, 0);
}

// The key before it is done with. The next goes where that has left the focus.
void SheetRun::PressNextKey() {
    if (keysLeft_ == 0) {
        keyboard_ = nullptr;
        return;
    }
    HWND focus = GetFocus();
    PressKey(focus != nullptr ? focus : keyboard_);
}

LRESULT CALLBACK SheetRun::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if ((message >= kRun && message <= kPressKey) || message == WM_TIMER) {
        reinterpret_cast<SheetRun*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Handle(message);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void SheetRun::Handle(UINT message) {
    if (message == kPass) {
        PostMessageW(window_.get(), kRun, 0, 0);
        return;
    }
    if (message == kPressKey) {
        PressNextKey();
        return;
    }
    KillTimer(window_.get(), kRetry);
    if (IsReady()) {
        RunNext();
    } else {
        SetTimer(window_.get(), kRetry, kRetryDelay, nullptr);
    }
}

// A step may be running still when the next one's turn comes: inside a dialog that it has opened,
// which is where the next one belongs, or inside anything else, which is waited for.
bool SheetRun::IsReady() {
    if (sheet_ == nullptr) {
        sheet_ = FindThreadWindow(TakeSheet);
    }
    if (sheet_ == nullptr || prompts_.IsOpen() || keyboard_ != nullptr) {
        return false;
    }
    HWND modal = running_.empty() ? nullptr : ModalDialog();
    return (running_.empty() || (modal != nullptr && modal != running_.back())) && !MustAwait();
}

// An expectation that is awaited is tried until it holds.
bool SheetRun::MustAwait() {
    if (next_ == script_.steps.size() || !script_.steps[next_].awaits ||
        ++awaited_ > kLongestAwait) {
        awaited_ = 0;
        return false;
    }
    try {
        NoteMessages();
        Do(script_.steps[next_]);
    } catch (const Unexpected&) {
        return true;
    } catch (const std::exception&) {
        // Said when the step is done.
    }
    awaited_ = 0;
    return false;
}

void SheetRun::RunNext() {
    if (!IsWindow(sheet_)) {
        return;
    }
    // Before the step: it may open a dialog, whose loop goes on with the next one.
    PostMessageW(window_.get(), kPass, 0, 0);
    running_.push_back(CurrentDialog());
    try {
        DoNext();
    } catch (const std::exception& error) {
        // Nothing is thrown through the platform's windows.
        problem_ = problem_.value_or(error.what());
    }
    running_.pop_back();
}

void SheetRun::DoNext() {
    NoteMessages();
    if (const std::string problem = prompts_.TakeProblem(); !problem.empty() && !problem_) {
        problem_ = (next_ == 0 ? "" : script_.PlaceOf(script_.steps[next_ - 1])) + problem;
    }
    if (problem_ || unexpected_) {
        Abandon();
        return;
    }
    if (next_ < script_.steps.size()) {
        const Step& step = script_.steps[next_++];
        try {
            Do(step);
        } catch (const Unexpected& failure) {
            unexpected_ = script_.PlaceOf(step) + failure.what();
        } catch (const std::exception& error) {
            problem_ = script_.PlaceOf(step) + error.what();
        }
        return;
    }
    if (pressed_) {
        throw ToolError("the sheet does not close");
    }
    if (ModalDialog() != nullptr) {
        throw ToolError("the script ends while a dialog is open: " + WindowText(ModalDialog()));
    }
    TakePictures();
    Press(lastButton_);
}

// Leaves what is open, the innermost first.
void SheetRun::Abandon() {
    HWND dialog = ModalDialog();
    if (dialog == nullptr) {
        PostMessageW(sheet_, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
        return;
    }
    closingByCommand_ = !closingByCommand_;
    if (closingByCommand_) {
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    } else {
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    }
}

void SheetRun::NoteMessages() {
    for (std::string& text : prompts_.TakeTexts()) {
        allMessages_.push_back(text);
        messages_.push_back(std::move(text));
    }
}

std::string SheetRun::Finish() {
    NoteMessages();
    if (problem_) {
        throw ToolError(*problem_);
    }
    if (!unexpected_ && next_ < script_.steps.size()) {
        throw ToolError(script_.PlaceOf(script_.steps[next_]) +
                        (sheet_ == nullptr ? "the sheet did not open" : "the sheet is closed"));
    }
    return unexpected_.value_or("");
}

HWND SheetRun::CurrentPage() const {
    return reinterpret_cast<HWND>(SendMessageW(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0));
}

// A modal dialog disables the sheet that it belongs to.
HWND SheetRun::ModalDialog() const {
    return IsWindowEnabled(sheet_) ? nullptr : FindThreadWindow(TakeEnabledDialog);
}

HWND SheetRun::CurrentDialog() const {
    HWND modal = ModalDialog();
    return modal != nullptr ? modal : CurrentPage();
}

int SheetRun::AskTabs(UINT message) const {
    HWND tabs = reinterpret_cast<HWND>(SendMessageW(sheet_, PSM_GETTABCONTROL, 0, 0));
    return static_cast<int>(SendMessageW(tabs, message, 0, 0));
}

int SheetRun::CurrentTab() const {
    return AskTabs(TCM_GETCURSEL);
}

int SheetRun::TabCount() const {
    return AskTabs(TCM_GETITEMCOUNT);
}

const SheetPage* SheetRun::PageOf(int tab) const {
    const LRESULT dialog = SendMessageW(sheet_, PSM_INDEXTOID, static_cast<WPARAM>(tab), 0);
    for (const SheetPage& page : pages_) {
        if (page.dialog == dialog) {
            return &page;
        }
    }
    return nullptr;
}

}  // namespace kpdtool
