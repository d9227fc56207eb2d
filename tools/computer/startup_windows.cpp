// The driver's image entry calls a library's start-up code. In a program that the driver is linked
// into, the program's own has run already.
#include "ui/common/module.h"

BOOL WINAPI DllMainCRTStartup(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}
