// Message boxes: kept for the host to read, answered with OK.
#include "host_state.h"

namespace {
std::vector<host::MessageBox> shown;
}

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type) {
    if (type != (MB_OK | MB_ICONERROR)) {
        host::Unsupported("MessageBoxW of type %#x", type);
    }
    shown.push_back({text, title, type, owner != nullptr});
    return IDOK;
}

namespace host {

const std::vector<MessageBox>& MessageBoxes() {
    return shown;
}

void ResetMessageBoxes() {
    shown.clear();
}

}  // namespace host
