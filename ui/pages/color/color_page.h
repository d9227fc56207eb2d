// The Color page: whose colours are printed, the eight adjustments, and the colour chart. Every
// change is in the working record at once. What a choice does to the record is in color_settings,
// the rows of sliders and fields are in adjustment_rows, the program for the chart in color_chart.
#pragma once

#include "ui/common/page.h"

extern const Page kColorPage;
inline constexpr DLGPROC ColorPageProc = PageProc<kColorPage>;

/// Corrects the working record and sets every control from it; without a dialog (null) it corrects
/// the record. The page's Fill hook.
void InitColorPage(HWND dialog, DriverContext& context);
