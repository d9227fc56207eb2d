// The Device Options page, the first page of every model: ribbon, card, orientation, copies and
// what is printed on which side. Every change is in the working record at once. What a choice does
// to the record is in card_options, what the controls show of it in option_controls, the pictures
// are in card_preview and ribbon_item.
#pragma once

#include "ui/common/page.h"

extern const Page kDeviceOptionsPage;
inline constexpr DLGPROC DeviceOptionsPageProc = PageProc<kDeviceOptionsPage>;

/// Sets every control from the working record, which is corrected to what the model can do. The
/// page's Fill hook.
void InitDeviceOptionsPage(HWND dialog, DriverContext& context);
