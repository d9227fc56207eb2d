// What the Import/Export page's buttons do: the settings of the working record to a file that the
// user names, and back.
#pragma once

#include "core/context.h"
#include "core/settings_file.h"

/// Both ask for the file and the parts and tell what goes wrong. `page` owns the dialogs, whose
/// texts are of the current section.
void ExportSettings(HWND page, const DriverContext& context);
void ImportSettings(HWND page, DriverContext& context);

/// Puts the chosen parts of a file into the working record. The page of each is filled anew, which
/// corrects the record, also while it is not open.
SettingsStatus TakeSettings(std::span<const BYTE> file, DWORD parts, DriverContext& context);
