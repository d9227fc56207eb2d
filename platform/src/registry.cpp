// The registry: keys and values of the user's and the computer's tree.
#include "host_state.h"

#include <algorithm>
#include <map>
#include <optional>

namespace {

using host::WideString;

struct Value {
    DWORD type;
    std::vector<BYTE> bytes;
};
using Key = std::map<WideString, Value>;  // values by folded name

// The keys by folded path from the root on. The roots themselves are always there.
std::map<WideString, Key> keys;

struct OpenKey {
    WideString path;
    REGSAM access;
};
host::HandleTable<OpenKey, HKEY> handles(0x30000);

// What a handle stands for: one of the roots, open for everything, or an opened key.
std::optional<OpenKey> Opened(HKEY handle) {
    if (handle == HKEY_CURRENT_USER) {
        return OpenKey{TEXT("USER"), KEY_READ | KEY_WRITE};
    }
    if (handle == HKEY_LOCAL_MACHINE) {
        return OpenKey{TEXT("MACHINE"), KEY_READ | KEY_WRITE};
    }
    const OpenKey* key = handles.Find(handle);
    return key == nullptr ? std::nullopt : std::optional(*key);
}

void CheckKnown(LPCWSTR subKey, DWORD options, REGSAM access) {
    if (options != 0 || (access & ~REGSAM{KEY_READ | KEY_WRITE}) != 0) {
        host::Unsupported("registry key with options %#x, access %#x", options, access);
    }
    if (subKey != nullptr && *subKey == '\\') {
        host::Unsupported("registry key with a leading backslash");
    }
}

// The paths from below a key down to its sub-key, outermost first; none for the key itself.
std::vector<WideString> PathsDown(const WideString& from, LPCWSTR subKey) {
    const WideString text = host::FoldCase(subKey == nullptr ? WideString() : subKey);
    std::vector<WideString> paths;
    WideString path = from;
    for (size_t start = 0; start < text.size();) {
        const size_t end = std::min(text.find('\\', start), text.size());
        path += TEXT("\\") + text.substr(start, end - start);
        paths.push_back(path);
        start = end + 1;
    }
    return paths;
}

WideString FoldedName(LPCWSTR name) {
    return name == nullptr ? WideString() : host::FoldCase(name);
}

// Opens a sub-key of what a handle stands for; creates what is missing on the way when told to.
LSTATUS OpenSubKey(HKEY handle, LPCWSTR subKey, REGSAM access, bool create, PHKEY result,
                   bool* created) {
    const std::optional<OpenKey> parent = Opened(handle);
    if (!parent) {
        return ERROR_INVALID_HANDLE;
    }
    if (result == nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    *created = false;
    WideString target = parent->path;
    for (const WideString& path : PathsDown(parent->path, subKey)) {
        if (!create && !keys.contains(path)) {
            return ERROR_FILE_NOT_FOUND;
        }
        *created = keys.try_emplace(path).second;
        target = path;
    }
    *result = handles.Add({target, access});
    return ERROR_SUCCESS;
}

// A text whose size lacks the terminator that stands behind its last byte is stored with it.
DWORD WithTerminator(DWORD type, const BYTE* data, DWORD size) {
    if (type != REG_SZ || size < sizeof(WCHAR)) {
        return size;
    }
    const auto* text = reinterpret_cast<const WCHAR*>(data);
    const DWORD length = size / sizeof(WCHAR);
    return text[length - 1] != 0 && text[length] == 0 ? size + sizeof(WCHAR) : size;
}

}  // namespace

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result) {
    CheckKnown(subKey, options, access);
    if (const DWORD error = host::ErrorNow(host::Call::kRegistry)) {
        return static_cast<LSTATUS>(error);
    }
    bool created;
    return OpenSubKey(key, subKey, access, false, result, &created);
}

LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass,
                               DWORD options, REGSAM access, LPSECURITY_ATTRIBUTES security,
                               PHKEY result, LPDWORD disposition) {
    CheckKnown(subKey, options, access);
    if (subKey == nullptr || reserved != 0 || keyClass != nullptr || security != nullptr) {
        host::Unsupported("RegCreateKeyExW without a name, or with a class or security attributes");
    }
    if (const DWORD error = host::ErrorNow(host::Call::kRegistry)) {
        return static_cast<LSTATUS>(error);
    }
    bool created;
    const LSTATUS status = OpenSubKey(key, subKey, access, true, result, &created);
    if (status == ERROR_SUCCESS && disposition != nullptr) {
        *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    }
    return status;
}

LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size) {
    if (const DWORD error = host::ErrorNow(host::Call::kRegistry)) {
        return static_cast<LSTATUS>(error);
    }
    const std::optional<OpenKey> opened = Opened(key);
    if (!opened) {
        return ERROR_INVALID_HANDLE;
    }
    if (reserved != nullptr || (data != nullptr && size == nullptr)) {
        return ERROR_INVALID_PARAMETER;
    }
    if ((opened->access & KEY_QUERY_VALUE) == 0) {
        return ERROR_ACCESS_DENIED;
    }
    const Key& values = keys[opened->path];
    const auto it = values.find(FoldedName(name));
    if (it == values.end()) {
        return ERROR_FILE_NOT_FOUND;
    }
    const Value& value = it->second;
    const DWORD room = size == nullptr ? 0 : *size;
    if (type != nullptr) {
        *type = value.type;
    }
    if (size != nullptr) {
        *size = static_cast<DWORD>(value.bytes.size());
    }
    if (data == nullptr) {
        return ERROR_SUCCESS;
    }
    if (room < value.bytes.size()) {
        return ERROR_MORE_DATA;
    }
    // As stored: the platform may end an unended text where there is room, which nobody may rely
    // on.
    std::copy(value.bytes.begin(), value.bytes.end(), data);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size) {
    const bool known =
        type == REG_NONE || type == REG_SZ || type == REG_BINARY || type == REG_DWORD;
    if (!known || reserved != 0 || (data == nullptr && size != 0)) {
        host::Unsupported("RegSetValueExW of type %u, %u bytes", type, size);
    }
    if (const DWORD error = host::ErrorNow(host::Call::kRegistry)) {
        return static_cast<LSTATUS>(error);
    }
    const std::optional<OpenKey> opened = Opened(key);
    if (!opened) {
        return ERROR_INVALID_HANDLE;
    }
    if ((opened->access & KEY_SET_VALUE) == 0) {
        return ERROR_ACCESS_DENIED;
    }
    keys[opened->path][FoldedName(name)] = {type, {data, data + WithTerminator(type, data, size)}};
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegCloseKey(HKEY key) {
    const bool isRoot = key == HKEY_CURRENT_USER || key == HKEY_LOCAL_MACHINE;
    return isRoot || handles.Remove(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

namespace host {

void ResetRegistry() {
    keys.clear();
    handles.Clear();
}

unsigned HeldKeys() {
    return handles.Count();
}

}  // namespace host
