// Help files and manuals, which lie in the driver directory and are opened through the shell. A
// missing file is the shell's affair.
#pragma once

#include <windows.h>

enum class Manual { kAdvanceTool, kHeatingEnergy };

/// Writes the name of a model's help file for the user's language, beginning with a backslash, into
/// `name`, which has kTextLength (language.h) characters.
void HelpFileName(WCHAR* name, BYTE modelCode);

void OpenHelpFile(BYTE modelCode);

/// Opens a manual in its Simplified Chinese, Traditional Chinese or English form.
void OpenManual(Manual manual);
