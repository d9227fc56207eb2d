// The library's image entry.
#include "ui/common/module.h"

#include "ui/common/language.h"

BOOL WINAPI DllInitialize(HINSTANCE module, DWORD reason, LPVOID reserved) {
    DllMainCRTStartup(module, reason, reserved);
    if (reason == DLL_PROCESS_ATTACH) {
        ModuleHandle = module;
        InitLanguageFile();
    }
    return TRUE;
}
