// Programs and documents opened through the shell: noted for the host.
#include <shellapi.h>

#include "host_state.h"

namespace {

std::vector<host::ShellCall> calls;

host::WideString TextOr(LPCWSTR text) {
    return text == nullptr ? host::WideString() : text;
}

}  // namespace

HINSTANCE WINAPI ShellExecuteW(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                               int show) {
    constexpr ULONG_PTR kTaken = 42;  // anything above 32
    const DWORD failure = host::ErrorNow(host::Call::kShell);
    if (failure != 0) {
        return reinterpret_cast<HINSTANCE>(ULONG_PTR{failure});
    }
    calls.push_back({TextOr(verb), TextOr(file), TextOr(parameters), TextOr(folder), show});
    return reinterpret_cast<HINSTANCE>(kTaken);
}

namespace host {

const std::vector<ShellCall>& ShellCalls() {
    return calls;
}

void ResetShell() {
    calls.clear();
}

}  // namespace host
