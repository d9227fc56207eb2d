#include "sheet_session.h"

#include <gtest/gtest.h>

#include <prsht.h>
#include <winspool.h>

namespace test {
namespace {

constexpr int kTabsOfSheet = 0x3020;

// What is done in a window that is going to be shown, from within its message loop. A timer's
// procedure has no parameter.
struct {
    int control;  // which it has
    std::function<void(HWND)> body;
    UINT_PTR timer;
} next;

BOOL CALLBACK TakeNext(HWND window, LPARAM found) {
    const bool is = IsWindowVisible(window) && GetDlgItem(window, next.control) != nullptr;
    *reinterpret_cast<HWND*>(found) = is ? window : nullptr;
    return !is;
}

void CALLBACK StartInNext(HWND, UINT, UINT_PTR, DWORD) {
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeNext, reinterpret_cast<LPARAM>(&window));
    if (window != nullptr) {
        KillTimer(nullptr, next.timer);
        const auto body = std::move(next.body);
        body(window);
    }
}

}  // namespace

void InNextWindowWith(int control, std::function<void(HWND)> body) {
    next = {control, std::move(body), SetTimer(nullptr, 0, 20, StartInNext)};
}

void RunSheetOf(std::basic_string<WCHAR> printer, DevModeRecord& record,
                const std::function<void(HWND)>& body, int button) {
    HANDLE handle = nullptr;
    ASSERT_TRUE(OpenPrinterW(printer.data(), &handle, nullptr)) << GetLastError();
    bool opened = false;
    InNextWindowWith(kTabsOfSheet, [&](HWND sheet) {
        opened = true;
        body(sheet);
        PostMessageW(sheet, PSM_PRESSBUTTON, static_cast<WPARAM>(button), 0);
    });
    // The result does not tell: Wine's client gives IDOK for both buttons.
    EXPECT_GT(DocumentPropertiesW(nullptr, handle, printer.data(), &record.Public, nullptr,
                                  DM_IN_PROMPT | DM_OUT_BUFFER),
              0);
    ClosePrinter(handle);
    EXPECT_TRUE(opened);
}

HWND ShowPage(HWND sheet, int dialog) {
    SendMessageW(sheet, PSM_SETCURSELID, 0, dialog);
    const LRESULT page = SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0);
    const LRESULT index = SendMessageW(sheet, PSM_HWNDTOINDEX, static_cast<WPARAM>(page), 0);
    EXPECT_EQ(SendMessageW(sheet, PSM_INDEXTOID, static_cast<WPARAM>(index), 0), dialog);
    return reinterpret_cast<HWND>(page);
}

}  // namespace test
