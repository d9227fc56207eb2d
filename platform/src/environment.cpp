// Environment variables: a table of the stand-in's own, so that the process's never shows through.
#include "host_state.h"

#include <algorithm>
#include <map>

namespace {

using host::WideString;

std::map<WideString, WideString> variables;  // by folded name

// A leading '=' is part of a name, as in the platform's hidden variables.
bool IsName(LPCWSTR name) {
    return name != nullptr && *name != 0 && WideString(name).find('=', 1) == WideString::npos;
}

}  // namespace

DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD length) {
    if (host::FailsNow(host::Call::kEnvironment)) {
        return 0;
    }
    const auto it = IsName(name) ? variables.find(host::FoldCase(name)) : variables.end();
    if (it == variables.end()) {
        SetLastError(ERROR_ENVVAR_NOT_FOUND);
        return 0;
    }
    const DWORD needed = static_cast<DWORD>(it->second.size()) + 1;
    if (buffer == nullptr || length < needed) {
        return needed;
    }
    std::copy_n(it->second.c_str(), needed, buffer);
    return needed - 1;
}

BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value) {
    if (host::FailsNow(host::Call::kEnvironment)) {
        return FALSE;
    }
    if (!IsName(name)) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    if (value == nullptr) {
        variables.erase(host::FoldCase(name));
    } else {
        host::SetEnvironment(name, value);
    }
    return TRUE;
}

namespace host {

void SetEnvironment(const WideString& name, const WideString& value) {
    variables[FoldCase(name)] = value;
}

void ResetEnvironment() {
    variables.clear();
}

}  // namespace host
