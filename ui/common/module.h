// The library's image entry.
#pragma once

#include "core/module.h"

extern "C" {

/// The image entry of the library: runs the compiler's start-up code, then on process attach keeps
/// the module handle and chooses the language file. Gives TRUE for every reason.
BOOL WINAPI DllInitialize(HINSTANCE module, DWORD reason, LPVOID reserved);

/// The compiler's start-up code for a library, which would be the image entry otherwise.
BOOL WINAPI DllMainCRTStartup(HINSTANCE module, DWORD reason, LPVOID reserved);
}
