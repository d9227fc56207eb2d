// The peer to measure against: a printer of the platform's own PostScript driver.
#pragma once

#include <windows.h>

#include "tools/computer/computer.h"

/// Whose settings and dialogs the printer has: the platform's, or kpdui.dll's, which lies beside
/// the program.
enum class PostScriptUi { kPlatforms, kOurs };

/// Adds a printer of that name, and its driver when that is missing. computer::RemovePrinter
/// removes it. What it prints goes to the port.
bool InstallPostScriptPrinter(const computer::WideString& name,
                              PostScriptUi ui = PostScriptUi::kPlatforms,
                              const computer::WideString& port = TEXT("FILE:"));
