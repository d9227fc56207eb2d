// The loaded library itself.
#pragma once

#include <windows.h>

/// This library's own handle, the owner of its dialogs and other resources; kept by the image entry
/// (ui/common/module.h).
extern HINSTANCE ModuleHandle;
