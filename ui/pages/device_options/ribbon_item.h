// The items of the ribbon list, whose letters have the colours of the ribbon's panels.
#pragma once

#include <windows.h>

/// Answers the page's WM_DRAWITEM for an item of the ribbon list.
void DrawRibbonItem(const DRAWITEMSTRUCT& item);
