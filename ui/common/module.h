// The loaded library itself.
#pragma once

#include <windows.h>

/// This library's own handle: the owner of its dialogs and other resources.
extern HINSTANCE ModuleHandle;

extern "C" {

/// The image entry of the library: runs the compiler's start-up code, then on process attach keeps
/// the module handle and chooses the language file. Gives TRUE for every reason.
BOOL WINAPI DllInitialize(HINSTANCE module, DWORD reason, LPVOID reserved);

/// The compiler's start-up code for a library, which would be the image entry otherwise.
BOOL WINAPI DllMainCRTStartup(HINSTANCE module, DWORD reason, LPVOID reserved);
}
