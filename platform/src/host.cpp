// Reset, the fault switch and the counts of the stand-in.
#include "host_state.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace host {
namespace {

struct CallSwitch {
    unsigned count = 0;
    unsigned failAt = 0;  // value of count at which the call fails; 0 never
    DWORD error = 0;
};
std::array<CallSwitch, static_cast<size_t>(Call::kCount)> switches;

CallSwitch& SwitchOf(Call kind) {
    return switches[static_cast<size_t>(kind)];
}

}  // namespace

void Reset() {
    ResetSheets();
    ResetWindows();
    ResetMenus();
    ResetPrinting();
    ResetDrawing();
    ResetFileDialogs();
    ResetShell();
    ResetSpooler();
    ResetRegistry();
    ResetEnvironment();
    ResetLocale();
    ResetProfile();
    ResetFiles();
    ResetModules();
    ResetMessageBoxes();
    ResetMemory();
    ResetAddressSpace();
    switches.fill({});
    SetLastError(ERROR_SUCCESS);
}

void Unsupported(const char* format, ...) {
    std::fputs("platform stand-in: ", stderr);
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
    std::fputc('\n', stderr);
    std::abort();
}

DWORD ErrorNow(Call kind) {
    CallSwitch& state = SwitchOf(kind);
    return ++state.count == state.failAt ? state.error : ERROR_SUCCESS;
}

bool FailsNow(Call kind) {
    DWORD error = ErrorNow(kind);
    if (error == ERROR_SUCCESS) {
        return false;
    }
    SetLastError(error);
    return true;
}

BOOL Fail(DWORD error) {
    SetLastError(error);
    return FALSE;
}

void FailCall(Call kind, unsigned n, DWORD error) {
    CallSwitch& state = SwitchOf(kind);
    state.failAt = n == 0 ? 0 : state.count + n;
    state.error = error;
}

unsigned CallCount(Call kind) {
    return SwitchOf(kind).count;
}

Holdings CurrentHoldings() {
    return {HeldHeaps(),    HeldGlobalBlocks(),   HeldPageBlocks(), HeldModules(), HeldFiles(),
            HeldSearches(), HeldKeys(),           HeldPrinters(),   HeldWindows(), HeldMenus(),
            HeldContexts(), HeldDrawingObjects(), HeldSheetPages()};
}

}  // namespace host
