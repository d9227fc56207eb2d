// Messages to the user.
#include "core/message.h"

// Without an owner the box would leave the sheet to the user, who could close it behind the page
// that goes on when the box is answered; so it keeps all windows of the thread.
void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon) {
    MessageBoxW(nullptr, text, title, icon | MB_OK | MB_TASKMODAL);
}
