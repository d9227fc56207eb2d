// The peer to measure against: a printer of the platform's own PostScript driver.
#pragma once

#include <windows.h>

#include "tools/computer/computer.h"

/// Adds a printer of that name, and its driver when that is missing. computer::RemovePrinter
/// removes it.
bool InstallPostScriptPrinter(const computer::WideString& name);
