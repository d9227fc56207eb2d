// Window classes.
#include "windows/windows.h"

#include "controls/controls.h"

#include <algorithm>

namespace {

using host::WideString;
using host::WindowClass;

std::vector<std::shared_ptr<WindowClass>> classes;
bool systemClassesThere = false;
ATOM nextAtom = 0xC000;

void NeedSystemClasses() {
    if (!systemClassesThere) {
        systemClassesThere = true;
        host::RegisterSystemClasses();
    }
}

// A name "#number" is that atom itself, as that of dialogs is.
ATOM AtomFor(const WideString& name) {
    if (name.empty() || name[0] != '#') {
        return nextAtom++;
    }
    ATOM atom = 0;
    for (size_t i = 1; i < name.size(); ++i) {
        atom = static_cast<ATOM>(atom * 10 + (name[i] - '0'));
    }
    return atom;
}

bool Matches(const WindowClass& windowClass, LPCWSTR name) {
    if (IS_INTRESOURCE(name)) {
        return windowClass.atom == static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    }
    return host::SameText(windowClass.name, name);
}

auto Find(HINSTANCE module, LPCWSTR name) {
    return std::find_if(classes.begin(), classes.end(), [&](const auto& windowClass) {
        return windowClass->data.hInstance == module && Matches(*windowClass, name);
    });
}

}  // namespace

namespace host {

std::shared_ptr<WindowClass> FindClass(HINSTANCE module, LPCWSTR name) {
    NeedSystemClasses();
    auto it = Find(module, name);
    if (it == classes.end()) {
        // Every library of the process is one program here, so its classes are seen by all.
        it = std::find_if(classes.begin(), classes.end(),
                          [&](const auto& windowClass) { return Matches(*windowClass, name); });
    }
    return it == classes.end() ? nullptr : *it;
}

void ResetClasses() {
    classes.clear();
    systemClassesThere = false;
}

}  // namespace host

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass) {
    NeedSystemClasses();
    if (windowClass == nullptr || windowClass->cbSize != sizeof(WNDCLASSEXW) ||
        windowClass->lpszClassName == nullptr || windowClass->cbWndExtra < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (IS_INTRESOURCE(windowClass->lpszClassName)) {
        host::Unsupported("RegisterClassExW by atom");
    }
    if (Find(windowClass->hInstance, windowClass->lpszClassName) != classes.end()) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    auto added = std::make_shared<WindowClass>();
    added->name = windowClass->lpszClassName;
    added->atom = AtomFor(added->name);
    added->data = *windowClass;
    added->data.lpszClassName = added->name.c_str();
    if (!IS_INTRESOURCE(windowClass->lpszMenuName)) {
        added->menuName = windowClass->lpszMenuName;
        added->data.lpszMenuName = added->menuName.c_str();
    }
    classes.push_back(added);
    return added->atom;
}

BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE module) {
    const auto it = Find(module, name);
    if (it == classes.end()) {
        return host::Fail(ERROR_CLASS_DOES_NOT_EXIST);
    }
    if (it->use_count() > 1) {
        return host::Fail(ERROR_CLASS_HAS_WINDOWS);
    }
    classes.erase(it);
    return TRUE;
}

int WINAPI GetClassNameW(HWND window, LPWSTR name, int length) {
    const auto object = host::FindWindowObject(window);
    if (object == nullptr) {
        return 0;
    }
    if (length <= 0) {
        return host::Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    const WideString& full = object->windowClass->name;
    const size_t copied = full.copy(name, static_cast<size_t>(length) - 1);
    name[copied] = 0;
    return static_cast<int>(copied);
}
