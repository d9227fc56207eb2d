// Libraries loaded while running: a program's library is a real shared object of that name; those
// of the platform's own that programs load by name are part of the stand-in.
#include "host_state.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

#include <dlfcn.h>
#include <link.h>

#include <compstui.h>

namespace {

using host::WideString;

std::unordered_map<void*, unsigned> loads;  // how often each library is held, by its handle

struct OwnFunction {
    const char* name;
    void* address;
};

struct OwnLibrary {
    const WCHAR* name;  // folded
    std::vector<OwnFunction> functions;

    void* Handle() const { return const_cast<OwnLibrary*>(this); }
};

const OwnLibrary kOwnLibraries[] = {
    {TEXT("COMPSTUI.DLL"),
     {{"CommonPropertySheetUIW", reinterpret_cast<void*>(CommonPropertySheetUIW)}}},
};

const OwnLibrary* FindOwnLibrary(void* handle) {
    const auto* found =
        std::find_if(std::begin(kOwnLibraries), std::end(kOwnLibraries),
                     [&](const OwnLibrary& library) { return library.Handle() == handle; });
    return found == std::end(kOwnLibraries) ? nullptr : found;
}

void* OwnSymbol(const OwnLibrary& library, const std::string& name) {
    for (const OwnFunction& function : library.functions) {
        if (name == function.name) {
            return function.address;
        }
    }
    return nullptr;
}

// Lets go of a library once.
void Unload(void* library) {
    if (FindOwnLibrary(library) == nullptr) {
        dlclose(library);
    }
}

HMODULE Load(WideString path) {
    if (host::FailsNow(host::Call::kModule)) {
        return nullptr;
    }
    const size_t nameStart = path.find_last_of(TEXT("\\/")) + 1;
    if (path.find('.', nameStart) == WideString::npos) {
        path += TEXT(".dll");
    }
    for (const OwnLibrary& library : kOwnLibraries) {
        if (host::SameText(path, library.name)) {
            ++loads[library.Handle()];
            return static_cast<HMODULE>(library.Handle());
        }
    }
    // No folder is searched: any other bare name finds nothing.
    const std::filesystem::path place =
        nameStart == 0 ? std::filesystem::path() : host::DiskPath(path.c_str());
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(place, ignored)) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    void* library = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        SetLastError(ERROR_BAD_EXE_FORMAT);
        return nullptr;
    }
    ++loads[library];
    return static_cast<HMODULE>(library);
}

// The C library also finds what the libraries that this one stands on export; the platform does
// not.
bool IsOwnSymbol(void* library, void* symbol) {
    link_map* own = nullptr;
    link_map* holder = nullptr;
    Dl_info info;
    return dlinfo(library, RTLD_DI_LINKMAP, &own) == 0 &&
           dladdr1(symbol, &info, reinterpret_cast<void**>(&holder), RTLD_DL_LINKMAP) != 0 &&
           own == holder;
}

}  // namespace

HMODULE WINAPI LoadLibraryW(LPCWSTR path) {
    if (path == nullptr) {
        host::Unsupported("LoadLibraryW without a name");
    }
    return Load(path);
}

HMODULE WINAPI LoadLibraryA(LPCSTR path) {
    if (path == nullptr) {
        host::Unsupported("LoadLibraryA without a name");
    }
    return Load(host::Decode(GetACP(), path));
}

BOOL WINAPI FreeLibrary(HMODULE module) {
    const auto it = loads.find(module);
    if (it == loads.end()) {
        return host::Fail(module == nullptr ? ERROR_INVALID_HANDLE : ERROR_MOD_NOT_FOUND);
    }
    Unload(module);
    if (--it->second == 0) {
        loads.erase(it);
    }
    return TRUE;
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name) {
    if (reinterpret_cast<ULONG_PTR>(name) <= 0xFFFF) {
        host::Unsupported("GetProcAddress by number");
    }
    if (host::FailsNow(host::Call::kModule)) {
        return nullptr;
    }
    if (!loads.contains(module)) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    const OwnLibrary* own = FindOwnLibrary(module);
    void* symbol = own != nullptr ? OwnSymbol(*own, name) : dlsym(module, name);
    if (symbol == nullptr || (own == nullptr && !IsOwnSymbol(module, symbol))) {
        SetLastError(ERROR_PROC_NOT_FOUND);
        return nullptr;
    }
    return reinterpret_cast<FARPROC>(symbol);
}

namespace host {

void ResetModules() {
    for (const auto& [library, count] : loads) {
        for (unsigned i = 0; i < count; ++i) {
            Unload(library);
        }
    }
    loads.clear();
}

unsigned HeldModules() {
    return std::accumulate(loads.begin(), loads.end(), 0u,
                           [](unsigned sum, const auto& load) { return sum + load.second; });
}

}  // namespace host
