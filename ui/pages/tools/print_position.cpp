// The controls of the print position adjuster.
#include "ui/pages/tools/print_position.h"

#include "companions/device_io.h"
#include "ui/common/controls.h"
#include "ui/pages/tools/calibration_chart.h"

#include <algorithm>

constinit PositionSettings PrintPositions = {};

namespace {

constexpr WPARAM kMostTyped = 3;  // characters

template <typename Test>
const PositionRow* FindRow(Test test) {
    const auto* row = std::find_if(std::begin(kPositionRows), std::end(kPositionRows), test);
    return row == std::end(kPositionRows) ? nullptr : row;
}

// ---- What is shown ------------------------------------------------------------------------------

void SetArrows(HWND dialog, const PositionRow& row, int offset) {
    HWND arrows = GetDlgItem(dialog, row.Field.Arrows);
    SetScrollRange(arrows, SB_CTL, row.Field.Minimum, row.Field.Maximum, FALSE);
    SetScrollPos(arrows, SB_CTL, offset, TRUE);
}

void ShowOffset(HWND dialog, const PositionRow& row, int offset) {
    SetDlgItemInt(dialog, row.Field.Control, static_cast<UINT>(offset), TRUE);
    SetArrows(dialog, row, offset);
}

// The button that the user has just pressed would take the keyboard with it.
void DisableButton(HWND dialog, int control) {
    if (GetFocus() == GetDlgItem(dialog, control)) {
        SetFocus(GetDlgItem(dialog, IDC_POSITION_PRINT));
    }
    EnableControl(dialog, control, false);
}

void EnableAdjuster(HWND dialog) {
    EnableControl(dialog, IDC_POSITION_PRINT, true);
    for (const PositionRow& row : kPositionRows) {
        EnableControl(dialog, row.Field.Control, true);
        EnableControl(dialog, row.Field.Arrows, true);
    }
}

void OfferSaving(HWND dialog) {
    EnableControl(dialog, IDC_POSITION_SAVE, true);
    EnableControl(dialog, IDC_POSITION_DEFAULT, true);
}

void WarnOfThickness(HWND dialog) {
    WCHAR text[kTextLength];
    WCHAR title[kTextLength];
    LookupString(TEXT("Please move the card thickness selection button to the right position."),
                 text);
    LookupString(TEXT("Warning"), title);
    MessageBoxW(dialog, text, title, MB_ICONWARNING | MB_OK);
}

int ShownNumber(HWND dialog, const PositionRow& row) {
    WCHAR text[kNumberLength] = {};
    GetDlgItemTextW(dialog, row.Field.Control, text, kNumberLength);
    return ParseDecimalText(text);
}

void SendTable(const DriverContext& context) {
    SetCalibrationValues(context.PrinterName, PrintPositions.Table);
}

}  // namespace

void PrepareAdjuster(HWND dialog) {
    for (const PositionRow& row : kPositionRows) {
        SendDlgItemMessageW(dialog, row.Field.Control, EM_LIMITTEXT, kMostTyped, 0);
        SetArrows(dialog, row, 0);
    }
}

// ---- The printer --------------------------------------------------------------------------------

void AskForPositions(HWND dialog, DriverContext& context) {
    AskDevice(DeviceQuery::kCalibration, dialog, context.PrinterName);
}

void TakePositions(HWND dialog, DriverContext& context, const COPYDATASTRUCT& answer) {
    const std::optional<CalibrationTable> table = ReadCalibrationAnswer(answer);
    if (!table) {
        return;
    }
    const bool repaired = TakeTable(PrintPositions, *table);
    if (!TurnToThickness(PrintPositions, context.WorkingDevMode)) {
        WarnOfThickness(dialog);
        return;
    }
    EnableAdjuster(dialog);
    for (const PositionRow& row : kPositionRows) {
        ShowOffset(dialog, row, OffsetIn(PrintPositions, row.Position));
    }
    DisableButton(dialog, IDC_POSITION_SAVE);
    EnableControl(dialog, IDC_POSITION_DEFAULT, true);
    if (repaired) {
        SendTable(context);
    }
}

// ---- The user -----------------------------------------------------------------------------------

void EnterPosition(HWND dialog, DriverContext& context, int control, int notification) {
    const PositionRow* row =
        FindRow([=](const PositionRow& each) { return each.Field.Control == control; });
    DevModeRecord& record = context.WorkingDevMode;
    if (row == nullptr || notification != EN_CHANGE ||
        record.Private.CardThickness == kNoThickness) {
        return;
    }
    ValidateIntField(dialog, row->Field, OffsetIn(PrintPositions, row->Position));
    // What stands there now: while the user read why a text was refused, more may have changed.
    const int offset = ShownNumber(dialog, *row);
    StoreOffset(PrintPositions, record, row->Position, offset);
    SetArrows(dialog, *row, offset);
    OfferSaving(dialog);
}

void StepPosition(HWND dialog, DriverContext&, HWND arrows, WORD request) {
    static bool stepping;  // the sheet and the field hear of a step while it is being taken
    const PositionRow* row = FindRow(
        [=](const PositionRow& each) { return arrows == GetDlgItem(dialog, each.Field.Arrows); });
    if (row == nullptr || stepping) {
        return;
    }
    stepping = true;
    const int before = GetScrollPos(arrows, SB_CTL);
    const std::optional<int> after = StepField(dialog, row->Field, request);
    if (after && *after != before && row->Opposite != 0) {
        PostMessageW(dialog, WM_VSCROLL, request == SB_LINEUP ? SB_LINEDOWN : SB_LINEUP,
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, row->Opposite)));
    }
    OfferSaving(dialog);
    stepping = false;
}

void SavePositions(HWND dialog, DriverContext& context) {
    DisableButton(dialog, IDC_POSITION_SAVE);
    SendTable(context);
}

void RestoreDefaultPositions(HWND dialog, DriverContext& context) {
    ResetPositions(PrintPositions, context.WorkingDevMode);
    for (const PositionRow& row : kPositionRows) {
        ShowOffset(dialog, row, 0);
    }
    SendTable(context);
    DisableButton(dialog, IDC_POSITION_DEFAULT);
    DisableButton(dialog, IDC_POSITION_SAVE);
}

void PrintPositionChart(HWND, DriverContext& context) {
    PrintCalibrationChart(context, PrintPositions.Table);
}
