// The dialog in which the user chooses the parts of a settings file.
#pragma once

#include <windows.h>

/// Runs the dialog and gives IDOK or IDCANCEL, -1 when it cannot be shown. `*parts` are
/// SettingsParts: before, those that an import offers, or 0 for an export, which offers all with
/// none chosen; after, those chosen. Texts are of the current section.
INT_PTR RunSettingsPartsDialog(HWND owner, DWORD* parts);
