// The image tone-mapping library of the driver package, ToneKit.dll. The Color page's preview would
// ask it to adjust a sample picture; the preview is switched off, so that the library is loaded and
// its operations are looked up, and none is called. Process-wide, on the sheet's thread.
#pragma once

#include <windows.h>

/// For a page that opens for a printer: loads the library unless it is loaded, and reads the
/// printer's parameters. Without the library, or an operation of it, everything goes on.
void OpenToneMapping(const WCHAR* printer);

/// Frees the library; does nothing when it is not loaded.
void CloseToneMapping();
