// A slider with its value as text beside it.
#include "ui/common/value_slider.h"

#include <commctrl.h>

namespace {

void ShowText(HWND dialog, const ValueSlider& slider, int value) {
    SetDlgItemInt(dialog, slider.Text, static_cast<UINT>(value), TRUE);
}

}  // namespace

void PrepareSliders(HWND dialog, std::span<const ValueSlider> sliders) {
    for (const ValueSlider& slider : sliders) {
        HWND bar = GetDlgItem(dialog, slider.Slider);
        SendMessageW(bar, TBM_SETRANGE, TRUE, MAKELPARAM(slider.Minimum, slider.Maximum));
        SendMessageW(bar, TBM_SETPAGESIZE, 0, slider.PageSize);
        ShowSliderValue(dialog, slider, 0);
    }
}

void ShowSliderValue(HWND dialog, const ValueSlider& slider, int value) {
    SendDlgItemMessageW(dialog, slider.Slider, TBM_SETPOS, TRUE, value);
    ShowText(dialog, slider, value);
}

int SliderValue(HWND dialog, const ValueSlider& slider) {
    return static_cast<int>(SendDlgItemMessageW(dialog, slider.Slider, TBM_GETPOS, 0, 0));
}

bool FollowSlider(HWND dialog, std::span<const ValueSlider> sliders, HWND bar) {
    for (const ValueSlider& slider : sliders) {
        if (bar == GetDlgItem(dialog, slider.Slider)) {
            ShowText(dialog, slider, SliderValue(dialog, slider));
            return true;
        }
    }
    return false;
}
