// The Advance Tool dialog. Options are kept in a copy of the record until "Exit"; the watermark
// goes to the record and the motor speeds to the printer with their own buttons.
#include "ui/pages/tools/advance_tool.h"

#include "companions/device_io.h"
#include "core/module.h"
#include "resources/resource.h"
#include "ui/common/bound_buttons.h"
#include "ui/common/controls.h"
#include "ui/common/help.h"
#include "ui/common/language.h"
#include "ui/common/localize.h"
#include "ui/common/tooltip.h"
#include "ui/common/value_slider.h"

namespace {

struct AdvanceTool {
    DriverContext& Context;
    DevModeRecord Copy;
};

AdvanceTool& ToolOf(HWND dialog) {
    return *reinterpret_cast<AdvanceTool*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

// ---- Options ------------------------------------------------------------------------------------

constexpr BoundButton OptionBox(int control, RecordField field, DWORD bit) {
    return {control, field, ButtonKind::kBox, bit, bit};
}

constexpr RecordField kCardHandling = RECORD_FIELD(Private.CardHandlingFlags);
constexpr RecordField kPrinterOptions = RECORD_FIELD(Private.PrinterOptionFlags);
constexpr RecordField kPlusR = RECORD_FIELD(Private.PlusRApplication);

constexpr BoundButton kOptionBoxes[] = {
    OptionBox(IDC_MOVE_TO_STANDBY, kCardHandling, kMoveToStandby),
    OptionBox(IDC_NO_ERROR_DIALOG, kPrinterOptions, kNoErrorDialog),
    OptionBox(IDC_NO_CLEANING_MODE, kPrinterOptions, kNoCleaningMode),
    OptionBox(IDC_NO_EJECT, kPrinterOptions, kNoEject),
    OptionBox(IDC_FEED_FROM_OUTPUT, kCardHandling, kFeedFromOutputSide),
    {IDC_PLUS_R_APPLICATION, kPlusR, ButtonKind::kBox},
};

// What "Exit" takes over from the copy.
constexpr RecordField kEdited[] = {RECORD_FIELD(Private.AdvanceToolFlag), kCardHandling,
                                   kPrinterOptions, kPlusR};

// Cards are fed from the output side for P+R applications only.
void ShowOptions(HWND dialog, const AdvanceTool& tool) {
    const bool hasPlusR = tool.Context.IsKP49 != 0;
    ShowButtons(dialog, tool.Copy, kOptionBoxes);
    ShowControl(dialog, IDC_PLUS_R_APPLICATION, hasPlusR);
    ShowControl(dialog, IDC_FEED_FROM_OUTPUT, hasPlusR && tool.Copy.Private.PlusRApplication != 0);
}

bool PressOption(HWND dialog, AdvanceTool& tool, int control) {
    for (const BoundButton& box : kOptionBoxes) {
        if (box.Control == control) {
            StoreClick(tool.Copy, box);
            if (control == IDC_PLUS_R_APPLICATION && tool.Copy.Private.PlusRApplication == 0) {
                tool.Copy.Private.CardHandlingFlags &= static_cast<WORD>(~kFeedFromOutputSide);
            }
            ShowOptions(dialog, tool);
            return true;
        }
    }
    return false;
}

void TakeOver(AdvanceTool& tool) {
    for (const RecordField field : kEdited) {
        WriteField(tool.Context.WorkingDevMode, field, ReadField(tool.Copy, field));
    }
}

// ---- The watermark ------------------------------------------------------------------------------

constexpr int kWatermarkControls[] = {IDC_WATERMARK_GROUP, IDC_WATERMARK_LABEL, IDC_WATERMARK,
                                      IDC_WATERMARK_APPLY};
constexpr const WCHAR* kWatermarks[] = {TEXT("None"), TEXT("Default water mark 1"),
                                        TEXT("Default water mark 2"), TEXT("Default water mark 3"),
                                        TEXT("Default water mark 4")};

void OfferWatermarks(HWND dialog, const DevModePrivate& record) {
    FillList(dialog, IDC_WATERMARK, kWatermarks);
    SelectItem(dialog, IDC_WATERMARK, record.WatermarkIndex);
    for (const int control : kWatermarkControls) {
        ShowControl(dialog, control, true);
    }
}

// A record of an unknown watermark selects none.
void StoreWatermark(HWND dialog, DevModePrivate& record) {
    if (const int selected = SelectedItem(dialog, IDC_WATERMARK); selected >= 0) {
        record.WatermarkIndex = static_cast<BYTE>(selected);
    }
}

// ---- The motors ---------------------------------------------------------------------------------

constexpr int kMotorControls[] = {
    IDC_MOTOR_GROUP, IDC_MOTOR_1_LABEL, IDC_MOTOR_1,     IDC_MOTOR_1_VALUE,     IDC_MOTOR_2_LABEL,
    IDC_MOTOR_2,     IDC_MOTOR_2_VALUE, IDC_MOTOR_APPLY, IDC_MOTOR_DESCRIPTION, IDC_NO_OVERCOAT,
};
constexpr ValueSlider kMotors[] = {{IDC_MOTOR_1, IDC_MOTOR_1_VALUE, -5, 5, 2},
                                   {IDC_MOTOR_2, IDC_MOTOR_2_VALUE, -5, 5, 2}};

void ShowSpeeds(HWND dialog, MotorSpeeds speeds) {
    ShowSliderValue(dialog, kMotors[0], speeds.First);
    ShowSliderValue(dialog, kMotors[1], speeds.Second);
}

void ShowMotors(HWND dialog, const DriverContext& context) {
    PrepareSliders(dialog, kMotors);
    ShowSpeeds(dialog, {});  // while a message may tell that they cannot be read
    ShowSpeeds(dialog, ReadMotorSpeeds(context.PrinterName));
}

void SetMotors(HWND dialog, const DriverContext& context) {
    WriteMotorSpeeds(context.PrinterName,
                     {.First = static_cast<std::int8_t>(SliderValue(dialog, kMotors[0])),
                      .Second = static_cast<std::int8_t>(SliderValue(dialog, kMotors[1]))});
}

// ---- The dialog ---------------------------------------------------------------------------------

void ShowModelsControls(HWND dialog, const DriverContext& context) {
    if (context.IsKP41Family != 0) {
        OfferWatermarks(dialog, context.WorkingDevMode.Private);
    } else if (context.IsKP43Family != 0) {
        for (const int control : kMotorControls) {
            ShowControl(dialog, control, false);
        }
    }
}

constexpr const WCHAR* kMotorTip =
    TEXT("The speed of a motor; 0 is the factory's. Change it only when service asks for it.");

// What each button takes over, and when.
constexpr Tip kTips[] = {
    {IDC_MOTOR_1, kMotorTip},
    {IDC_MOTOR_2, kMotorTip},
    {IDC_MOTOR_DESCRIPTION, TEXT("Opens the manual of this window, a PDF file.")},
    {IDC_MOTOR_APPLY, TEXT("Sends both speeds to the printer at once.")},
    {IDC_WATERMARK_APPLY,
     TEXT("Takes the water mark over at once, even if the window is then closed without Exit.")},
    {IDOK, TEXT("Takes the options over. Closing the window in any other way leaves them as they "
                "were.")},
};

void Open(HWND dialog, AdvanceTool& tool) {
    SetSection(kToolsSection);
    ShowModelsControls(dialog, tool.Context);
    LocalizeDialog(dialog);
    tool.Copy = tool.Context.WorkingDevMode;
    ShowOptions(dialog, tool);
    ShowMotors(dialog, tool.Context);
    CreateSharedTooltip(dialog);
    AddTips(dialog, kTips);
    CenterOnScreen(dialog);
}

void TakeCommand(HWND dialog, AdvanceTool& tool, int control) {
    switch (control) {
        case IDOK:  // "Exit"
            TakeOver(tool);
            EndDialog(dialog, IDOK);
            break;
        case IDCANCEL:
            EndDialog(dialog, IDCANCEL);
            break;
        case IDC_WATERMARK_APPLY:
            StoreWatermark(dialog, tool.Context.WorkingDevMode.Private);
            break;
        case IDC_MOTOR_APPLY:
            SetMotors(dialog, tool.Context);
            break;
        case IDC_MOTOR_DESCRIPTION:
            OpenManual(Manual::kAdvanceTool);
            break;
        default:
            PressOption(dialog, tool, control);
    }
}

INT_PTR CALLBACK AdvanceToolProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
            Open(dialog, ToolOf(dialog));
            return TRUE;
        case WM_COMMAND:
            TakeCommand(dialog, ToolOf(dialog), LOWORD(wParam));
            return TRUE;
        case WM_HSCROLL:
            return FollowSlider(dialog, kMotors, reinterpret_cast<HWND>(lParam));
        case WM_CLOSE:
            EndDialog(dialog, IDCANCEL);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

void RunAdvanceTool(HWND page, DriverContext& context) {
    AdvanceTool tool = {context, {}};
    DialogBoxParamW(ModuleHandle, MAKEINTRESOURCEW(IDD_ADVANCE_TOOL), page, AdvanceToolProc,
                    reinterpret_cast<LPARAM>(&tool));
}
