// Messages to the user.
#include "core/message.h"

namespace {

DWORD waitingThread;  // that shows a box; 0 when none does

}  // namespace

void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon) {
    const DWORD before = waitingThread;
    waitingThread = GetCurrentThreadId();
    MessageBoxW(nullptr, text, title, icon | MB_OK);
    waitingThread = before;
}

bool IsMessageShown() {
    return waitingThread == GetCurrentThreadId();
}
