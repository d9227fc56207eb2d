// The driver's texts. Every text is written in English in the code and the dialogs and is the key
// under which a translation is looked up in the language file: a Windows INI file in the driver
// directory, chosen once from the user's UI language. Without the file, or the key in it, the key
// itself is shown.
#pragma once

#include <windows.h>

/// Characters of every text buffer here, terminator included.
constexpr DWORD kTextLength = 260;

/// The file's sections, one a page, and one for messages of numeric fields. A page's title is in
/// its section, the Rewrite page's other texts in two.
inline constexpr const WCHAR* kDeviceOptionSection = TEXT("DeviceOption");
inline constexpr const WCHAR* kPrintingAreaSection = TEXT("PrintingArea");
inline constexpr const WCHAR* kColorSection = TEXT("Color");
inline constexpr const WCHAR* kToolsSection = TEXT("Tools");
inline constexpr const WCHAR* kHeatEnergySection = TEXT("HeatEnergy");
inline constexpr const WCHAR* kMagneticEncodingSection = TEXT("MagneticEncoding");
inline constexpr const WCHAR* kImportExportSection = TEXT("Import/Export");
inline constexpr const WCHAR* kLaminationSection = TEXT("Lamination");
inline constexpr const WCHAR* kRewriteSection = TEXT("Rewrite");
inline constexpr const WCHAR* kRewritableSection = TEXT("Rewritable");
inline constexpr const WCHAR* kAboutSection = TEXT("About");
inline constexpr const WCHAR* kSettingSection = TEXT("Setting");

// Process-wide and unlocked: every sheet of a process shares them, which is why a page sets its
// section before each burst of lookups.
extern WCHAR LanguageFilePath[kTextLength];
extern WCHAR CurrentSection[kTextLength];

/// Chooses the language file. Called once, when the library is loaded.
void InitLanguageFile();

/// Makes `name` the section of the next lookups and gives 1. A null name is a fault of the caller:
/// it is shown in a message box, the section stays, and 0 is given.
int SetSection(const WCHAR* name);

/// Writes the translation of `key` in the current section into `text`, which has kTextLength
/// characters; the key itself when there is none. Terminated, cut to kTextLength - 1 characters.
void LookupString(const WCHAR* key, WCHAR* text);

/// Shows the translation of `key` in a message box with the translated title "Error".
void ShowErrorMessage(const WCHAR* key);
