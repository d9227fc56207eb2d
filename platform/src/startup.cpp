// The compiler's start-up code of a library, which natively has run before anything is called.
#include <windows.h>

extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE, DWORD, LPVOID);

BOOL WINAPI DllMainCRTStartup(HINSTANCE, DWORD, LPVOID) {
    return TRUE;
}
