// The Device Options page: the first page of every model: ribbon, card, orientation, copies and
// what is printed on which side.
#include "ui/pages/device_options/device_options_page.h"

#include "ui/common/page.h"

INT_PTR CALLBACK DeviceOptionsPageProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr Page kPage = {.Slot = kDeviceOptionsSlot, .Section = TEXT("DeviceOption")};
    return RunPage(kPage, dialog, message, wParam, lParam);
}
