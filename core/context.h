// The driver context: what one property sheet or one call without a window works on. It is built
// afresh from the printer handle and thrown away at the end; nothing of it is kept between calls.
#pragma once

#include "core/device_mode.h"
#include "core/driver_ui_contract.h"

#include <cstddef>
#include <memory>

/// The pages in the order of their slots, which is the order of their tabs.
enum PageSlot {
    kDeviceOptionsSlot,
    kPrintingAreaSlot,
    kColorSlot,
    kToolsSlot,
    kHeatingEnergySlot,
    kMagneticEncodingSlot,
    kImportExportSlot,
    kLaminationSlot,
    kRewriteSlot,
    kAboutSlot,
    kPageSlots
};

/// Lives in its own private heap together with its two names; destroying the heap ends it. Valid
/// only while its first and last member hold its own address.
struct DriverContext {
    DriverContext* SelfCheck;
    HANDLE PrinterHandle;  ///< the caller's; never closed here
    HANDLE Heap;
    PFNCOMPROPSHEET ComPropSheet;  ///< callback of the sheet being shown, with its handle
    HANDLE ComPropSheetHandle;
    WCHAR* ModelName;                ///< the printer's driver name, which is the name of the model
    DevModeRecord WorkingDevMode;    ///< pages read and change it in place
    HANDLE PageHandles[kPageSlots];  ///< of the sheet; null while a page is not in it
    WCHAR* PrinterName;              ///< null when memory was short

    // Model and port flags, each 0 or 1.
    DWORD IsRemotePrinter;  ///< a network printer, or a port on a server
    DWORD IsDuplexModel;
    DWORD IsNetworkPort;  ///< a port with an address of its own
    DWORD IsKP41Family;
    DWORD IsKP43Family;
    DWORD IsKP49;

    HWND PageWindows[kPageSlots];  ///< each while that page is open
    DWORD PagesBeingFilled;        ///< a bit a slot

    BYTE Reserved[124];
    DriverContext* SelfCheckTail;
};
static_assert(sizeof(DriverContext) == 960);
static_assert(offsetof(DriverContext, WorkingDevMode) == 48);
static_assert(offsetof(DriverContext, PageHandles) == 632);
static_assert(offsetof(DriverContext, SelfCheckTail) == 952);

/// Builds the context of a printer: its flags, the default record of its model with the printer's
/// own default record and then `record` (or none) merged in. A `record` whose dmDriverVersion is 0
/// is filled in place with the result: it must hold kPublicSize bytes and its own dmDriverExtra,
/// whatever its dmSize. Null when the printer's information, its printer-data record or memory
/// cannot be had or a record is unusable.
DriverContext* CreateDriverContext(HANDLE printer, DEVMODEW* record);

/// Destroys the context's heap; null is nothing to do.
void ReleaseDriverContext(DriverContext* context);

struct ContextReleaser {
    void operator()(DriverContext* context) const { ReleaseDriverContext(context); }
};
/// A context owned by a scope. A sheet's context goes with the sheet and is released on its own
/// reason instead.
using OwnedContext = std::unique_ptr<DriverContext, ContextReleaser>;

/// True for a living context, false for any other address, readable or not.
bool IsValidDriverContext(const DriverContext* context);
