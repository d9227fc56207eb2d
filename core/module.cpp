// The loaded library itself.
#include "core/module.h"

HINSTANCE ModuleHandle;
