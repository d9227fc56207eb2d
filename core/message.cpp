// Messages to the user.
#include "core/message.h"

#include <atomic>

namespace {

constinit std::atomic<int> boxesShown;  // by sheets of any thread

}  // namespace

void ShowMessage(const WCHAR* text, const WCHAR* title, UINT icon) {
    ++boxesShown;
    MessageBoxW(nullptr, text, title, icon | MB_OK);
    --boxesShown;
}

bool IsMessageShown() {
    return boxesShown != 0;
}
