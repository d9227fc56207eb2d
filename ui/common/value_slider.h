// A slider with its value as text beside it.
#pragma once

#include <windows.h>

#include <span>

struct ValueSlider {
    int Slider;
    int Text;
    int Minimum;
    int Maximum;
    int PageSize;
    int TickSpacing = 1;
    /// Writes a value as text, which has kTextLength characters; without it the number stands
    /// alone.
    void (*Format)(int value, WCHAR* text) = nullptr;
};

/// Gives each slider its range and ticks.
void PrepareSliders(HWND dialog, std::span<const ValueSlider> sliders);

/// Shows a value; one out of range stands in the text as it is, the slider at that end.
void ShowSliderValue(HWND dialog, const ValueSlider& slider, int value);
/// The text alone.
void ShowSliderText(HWND dialog, const ValueSlider& slider, int value);

int SliderValue(HWND dialog, const ValueSlider& slider);

/// What a bar's scrolling means: the text beside it follows. False when it is none of the sliders.
bool FollowSlider(HWND dialog, std::span<const ValueSlider> sliders, HWND bar);
