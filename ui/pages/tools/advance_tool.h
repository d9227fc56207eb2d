// The Advance Tool dialog: motor speeds, what the printer does beside printing, the watermark.
#pragma once

#include "core/context.h"

#include <windows.h>

/// Runs the dialog over the Tools page.
void RunAdvanceTool(HWND page, DriverContext& context);
