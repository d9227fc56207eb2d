// Messages to the user.
#include "core/message.h"

void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon) {
    MessageBoxW(nullptr, text, title, icon | MB_OK);
}
