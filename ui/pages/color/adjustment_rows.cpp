// The rows of the Color page.
#include "ui/pages/color/adjustment_rows.h"

#include "ui/common/controls.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr LPARAM kPageSize = 10;

template <typename Test>
const AdjustmentRow* FindRow(Test test) {
    const auto* row = std::find_if(std::begin(kAdjustmentRows), std::end(kAdjustmentRows), test);
    return row == std::end(kAdjustmentRows) ? nullptr : row;
}

void ShowNumber(HWND dialog, const AdjustmentRow& row, const DevModePrivate& record) {
    const int value = row.Value.Read(record);
    if (row.Field.Kind == NumberKind::kInteger) {
        SetDlgItemInt(dialog, row.Field.Control, static_cast<UINT>(value), TRUE);
    } else {
        WCHAR text[kNumberLength];
        FormatHundredths(value, text);
        SetDlgItemTextW(dialog, row.Field.Control, text);
    }
}

void MoveSlider(HWND dialog, const AdjustmentRow& row, const DevModePrivate& record) {
    SendDlgItemMessageW(dialog, row.Slider, TBM_SETPOS, TRUE,
                        row.ToPosition(row.Value.Read(record)));
}

// The range with a tick where the adjustment is neutral.
void PrepareSlider(HWND dialog, const AdjustmentRow& row) {
    HWND slider = GetDlgItem(dialog, row.Slider);
    const int neutral = row.ToPosition(row.Value.Neutral) - row.SliderMinimum;
    SendMessageW(slider, TBM_SETTICFREQ, static_cast<WPARAM>(neutral), 0);
    SendMessageW(slider, TBM_SETRANGE, FALSE, MAKELPARAM(row.SliderMinimum, row.SliderMaximum));
    SendMessageW(slider, TBM_SETPAGESIZE, 0, kPageSize);
}

// The number in the field; the one before, after a message, when it has none.
int EnteredNumber(HWND dialog, const AdjustmentRow& row, int previous, bool leaving) {
    if (row.Field.Kind == NumberKind::kInteger) {
        return ValidateIntField(dialog, row.Field, previous);
    }
    return leaving ? ValidateHundredthsField(dialog, row.Field.Control, previous)
                   : ValidateHundredthsWhileTyping(dialog, row.Field.Control, previous);
}

}  // namespace

void FillAdjustments(HWND dialog, const DevModePrivate& record) {
    for (const AdjustmentRow& row : kAdjustmentRows) {
        SendDlgItemMessageW(dialog, row.Field.Control, EM_LIMITTEXT,
                            static_cast<WPARAM>(row.MostTyped), 0);
        ShowNumber(dialog, row, record);
        PrepareSlider(dialog, row);
        MoveSlider(dialog, row, record);
    }
}

void ShowNumbers(HWND dialog, const DevModePrivate& record) {
    for (const AdjustmentRow& row : kAdjustmentRows) {
        ShowNumber(dialog, row, record);
    }
}

// An integer is one at any time, gamma may be unfinished while it is typed.
bool EnterAdjustment(HWND dialog, DevModePrivate& record, int control, int notification) {
    const AdjustmentRow* row =
        FindRow([=](const AdjustmentRow& each) { return each.Field.Control == control; });
    if (row == nullptr) {
        return false;
    }
    const bool leaving = notification == EN_KILLFOCUS && row->Field.Kind == NumberKind::kHundredths;
    if (notification != EN_CHANGE && !leaving) {
        return true;
    }
    const int value = EnteredNumber(dialog, *row, row->Value.Read(record), leaving);
    if (value >= row->Value.Minimum && value <= row->Value.Maximum) {
        row->Value.Write(record, value);
        MoveSlider(dialog, *row, record);
    }
    if (!leaving) {
        TellSheetChanged(dialog);
    }
    return true;
}

void SlideAdjustment(HWND dialog, DevModePrivate& record, HWND bar, WORD request) {
    const AdjustmentRow* row =
        FindRow([=](const AdjustmentRow& each) { return bar == GetDlgItem(dialog, each.Slider); });
    if (row == nullptr) {
        return;
    }
    const int position = static_cast<int>(SendMessageW(bar, TBM_GETPOS, 0, 0));
    const bool raises = request == TB_LINEDOWN || request == TB_PAGEDOWN;
    row->Value.Write(record, row->FromPosition(position, raises));
    ShowNumber(dialog, *row, record);
    TellSheetChanged(dialog);
}
