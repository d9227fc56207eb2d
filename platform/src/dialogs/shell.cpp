// Programs and documents opened through the shell: noted for the host. The one program there is
// runs an entry of a library, in a process of its own; here that is when the caller next waits.
#include <shellapi.h>

#include "host_state.h"

#include <algorithm>
#include <deque>

#include <dlfcn.h>

namespace {

std::vector<host::ShellCall> calls;
std::deque<host::ShellCall> waiting;

using LibraryEntry = void CALLBACK(HWND owner, HINSTANCE library, LPSTR commandLine, int show);

// "LIBRARY,ENTRY COMMAND LINE", the library in the working directory.
void RunLibraryEntry(const host::ShellCall& call) {
    const std::string parameters = host::Encode(GetACP(), call.parameters);
    const size_t comma = parameters.find(',');
    const size_t blank = std::min(parameters.find(' ', comma), parameters.size());
    if (comma == std::string::npos) {
        return;
    }
    const host::WideString path =
        call.folder + TEXT("\\") + host::Decode(GetACP(), parameters.substr(0, comma));
    void* library = dlopen(host::DiskPath(path.c_str()).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        return;
    }
    const std::string name = parameters.substr(comma + 1, blank - comma - 1);
    std::string commandLine = parameters.substr(std::min(blank + 1, parameters.size()));
    if (void* entry = dlsym(library, name.c_str()); entry != nullptr) {
        reinterpret_cast<LibraryEntry*>(entry)(nullptr, nullptr, commandLine.data(), call.show);
    }
    dlclose(library);
}

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
    if (host::SameText(calls.back().file, TEXT("rundll32.exe"))) {
        waiting.push_back(calls.back());
    }
    return reinterpret_cast<HINSTANCE>(kTaken);
}

namespace host {

const std::vector<ShellCall>& ShellCalls() {
    return calls;
}

bool RunWaitingProgram() {
    if (waiting.empty()) {
        return false;
    }
    const ShellCall call = waiting.front();
    waiting.pop_front();
    RunLibraryEntry(call);
    return true;
}

void ResetShell() {
    calls.clear();
    waiting.clear();
}

}  // namespace host
