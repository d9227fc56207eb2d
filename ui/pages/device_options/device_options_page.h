// The Device Options page: the first page of every model: ribbon, card, orientation, copies and
// what is printed on which side. Every change is in the working record at once. What a choice does
// to the record is in card_options, the pictures are in card_preview and ribbon_item.
#pragma once

#include "core/context.h"

/// The page's dialog procedure; the page record's lParam is the DriverContext.
INT_PTR CALLBACK DeviceOptionsPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

/// Sets every control of the page from the working record, which is corrected to what the model can
/// do. For the page's beginning, and when the record has been replaced meanwhile.
void InitDeviceOptionsPage(HWND dialog, DriverContext& context);
