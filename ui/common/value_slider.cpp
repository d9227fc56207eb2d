// A slider with its value as text beside it.
#include "ui/common/value_slider.h"

#include "ui/common/language.h"

#include <commctrl.h>

void PrepareSliders(HWND dialog, std::span<const ValueSlider> sliders) {
    for (const ValueSlider& slider : sliders) {
        HWND bar = GetDlgItem(dialog, slider.Slider);
        SendMessageW(bar, TBM_SETTICFREQ, static_cast<WPARAM>(slider.TickSpacing), 0);
        SendMessageW(bar, TBM_SETRANGE, TRUE, MAKELPARAM(slider.Minimum, slider.Maximum));
        SendMessageW(bar, TBM_SETPAGESIZE, 0, slider.PageSize);
    }
}

void ShowSliderValue(HWND dialog, const ValueSlider& slider, int value) {
    SendDlgItemMessageW(dialog, slider.Slider, TBM_SETPOS, TRUE, value);
    ShowSliderText(dialog, slider, value);
}

void ShowSliderText(HWND dialog, const ValueSlider& slider, int value) {
    WCHAR text[kTextLength];
    if (slider.Format == nullptr) {
        SetDlgItemInt(dialog, slider.Text, static_cast<UINT>(value), TRUE);
        return;
    }
    slider.Format(value, text);
    SetDlgItemTextW(dialog, slider.Text, text);
}

int SliderValue(HWND dialog, const ValueSlider& slider) {
    return static_cast<int>(SendDlgItemMessageW(dialog, slider.Slider, TBM_GETPOS, 0, 0));
}

bool FollowSlider(HWND dialog, std::span<const ValueSlider> sliders, HWND bar) {
    for (const ValueSlider& slider : sliders) {
        if (bar == GetDlgItem(dialog, slider.Slider)) {
            ShowSliderText(dialog, slider, SliderValue(dialog, slider));
            return true;
        }
    }
    return false;
}
