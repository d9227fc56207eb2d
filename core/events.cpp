// Two entry points that answer at once: printer events and the colour profile.
#include "core/driver_ui_contract.h"
#include "core/merge.h"

#include <cstring>

BOOL WINAPI DrvPrinterEvent(LPWSTR, INT, DWORD, LPARAM) {
    return TRUE;
}

BOOL WINAPI DrvQueryColorProfile(HANDLE, PDEVMODEW record, ULONG queryMode, PVOID profile,
                                 PULONG profileSize, ULONG* flags) {
    // A record of the first public layouts has no colour management method to ask for.
    if (record == nullptr ||
        PublicField(record, offsetof(DEVMODEW, dmICMMethod)) == DMICMMETHOD_SYSTEM) {
        return FALSE;
    }
    if (queryMode != QCP_DEVICEPROFILE && queryMode != QCP_TARGETPROFILE) {
        return FALSE;
    }
    if (profile == nullptr || profileSize == nullptr) {
        return FALSE;
    }
    std::memset(profile, 0, *profileSize);
    if (flags != nullptr) {
        *flags = QCP_PROFILEDISK;
    }
    return TRUE;
}
