// The Tools page: the printer's maintenance functions.
#include "ui/pages/tools/tools_page.h"

#include "companions/device_io.h"
#include "core/driver_files.h"
#include "ui/common/controls.h"
#include "ui/pages/tools/advance_tool.h"
#include "ui/pages/tools/calibration_preview.h"
#include "ui/pages/tools/print_position.h"
#include "ui/pages/tools/ribbon_status.h"

#include <strsafe.h>

namespace {

// ---- Programs -----------------------------------------------------------------------------------

struct Program {
    int Control;
    const WCHAR* File;
    const WCHAR* Parameters;  ///< with the printer's name
};
constexpr const WCHAR* kForPrinter = TEXT("-n\"%s\"");
constexpr Program kPrograms[] = {
    {IDC_CLEANING_TOOL, TEXT("Cleaner.exe"), kForPrinter},
    {IDC_CLEAN_MAGNETIC_HEAD, TEXT("Cleaner.exe"), TEXT("-n\"%s\" -T1")},
    {IDC_CORRECT_RIBBON_SENSOR, TEXT("FilmAlign.exe"), kForPrinter},
    {IDC_FEED_CHIP_CARD, TEXT("UnitDiag.exe"), kForPrinter},
    {IDC_TEST_MAGNETIC_READING, TEXT("StripeDiag.exe"), kForPrinter},
};

void StartProgram(const Program& program, const DriverContext& context) {
    WCHAR parameters[1024];
    StringCchPrintfW(parameters, std::size(parameters), program.Parameters,
                     context.PrinterName != nullptr ? context.PrinterName : TEXT(""));
    OpenDriverFile(program.File, parameters);
}

// ---- The other buttons --------------------------------------------------------------------------

struct Action {
    int Control;
    void (*Press)(HWND dialog, DriverContext& context);
};
constexpr Action kActions[] = {
    {IDC_MAINTENANCE_INFO,
     [](HWND, DriverContext& context) { DumpReportFile(context.PrinterName); }},
    {IDC_ADVANCE_TOOL, RunAdvanceTool},
    {IDC_RIBBON_STATUS, [](HWND, DriverContext& context) { ShowRibbonStatus(context); }},
    {IDC_POSITION_SAVE, SavePositions},
    {IDC_POSITION_DEFAULT, RestoreDefaultPositions},
    {IDC_POSITION_PRINT, PrintPositionChart},
};

void PressButton(HWND dialog, DriverContext& context, int control) {
    for (const Program& program : kPrograms) {
        if (program.Control == control) {
            StartProgram(program, context);
        }
    }
    for (const Action& action : kActions) {
        if (action.Control == control) {
            action.Press(dialog, context);
        }
    }
}

void ToolsCommand(HWND dialog, DriverContext& context, int control, int notification) {
    EnterPosition(dialog, context, control, notification);
    if (notification == BN_CLICKED) {
        PressButton(dialog, context, control);
    }
}

// ---- The page -----------------------------------------------------------------------------------

// What a printer with an address of its own is not given.
constexpr int kNotForNetwork[] = {
    IDC_POSITION_A_SCROLL, IDC_POSITION_B_SCROLL, IDC_POSITION_C_SCROLL,     IDC_POSITION_SAVE,
    IDC_POSITION_DEFAULT,  IDC_ADVANCE_TOOL,      IDC_CORRECT_RIBBON_SENSOR,
};
constexpr int kNotForRewritable[] = {
    IDC_RIBBON_STATUS,  IDC_CLEAN_MAGNETIC_HEAD,   IDC_CORRECT_RIBBON_SENSOR,
    IDC_FEED_CHIP_CARD, IDC_TEST_MAGNETIC_READING,
};

// The model has the last word: the ribbon sensor is corrected over the network too.
void ShowTools(HWND dialog, const DriverContext& context) {
    if (context.IsNetworkPort != 0) {
        for (int control : kNotForNetwork) {
            ShowControl(dialog, control, false);
        }
    }
    for (int control : kNotForRewritable) {
        ShowControl(dialog, control, context.IsKP43Family == 0);
    }
}

void OpenTools(HWND dialog, DriverContext& context) {
    PrepareAdjuster(dialog);
    ShowTools(dialog, context);
    LoadCalibrationPreview();
}

void PaintTools(HWND dialog, DriverContext&, HDC target, const RECT& asked) {
    const RECT area = ControlArea(dialog, IDC_POSITION_PICTURE);
    if (RECT common; IntersectRect(&common, &area, &asked)) {
        PaintCalibrationPreview(target, area);
    }
}

void CloseTools(HWND, DriverContext&) {
    DropCalibrationPreview();
}

constexpr Tip kTips[] = {
    {IDC_POSITION_A,
     TEXT("Where the picture begins along the card, in the printer's steps from its own "
          "position. The arrows move B the other way.")},
    {IDC_POSITION_B,
     TEXT("Where the picture ends along the card, in the printer's steps from its own position.")},
    {IDC_POSITION_C, TEXT("Where the picture stands across the card, in the printer's steps from "
                          "its own position.")},
    {IDC_POSITION_SAVE, TEXT("Writes the positions into the printer.")},
    {IDC_POSITION_DEFAULT,
     TEXT("Puts the positions for this card thickness back to the printer's own, "
          "also in the printer.")},
    {IDC_POSITION_PRINT, TEXT("Prints a card that shows where the picture stands.")},
    {IDC_CLEANING_TOOL, TEXT("Starts the program that leads through cleaning the printer.")},
    {IDC_MAINTENANCE_INFO, TEXT("Writes a report on the printer for its maintenance.")},
    {IDC_ADVANCE_TOOL, TEXT("Motor speeds, the way of the cards, the watermark.")},
    {IDC_CLEAN_MAGNETIC_HEAD,
     TEXT("Starts the cleaning program for the head that writes magnetic stripes.")},
    {IDC_CORRECT_RIBBON_SENSOR, TEXT("Starts the program that adjusts the ribbon sensor.")},
    {IDC_FEED_CHIP_CARD,
     TEXT("Starts the program that moves a card to the unit that writes its chip.")},
    {IDC_TEST_MAGNETIC_READING,
     TEXT("Starts the program that reads the magnetic stripe of a card.")},
};

}  // namespace

constinit const Page kToolsPage = {
    .Slot = kToolsSlot,
    .Section = kToolsSection,
    .Fields = kPositionFields,
    .Tips = kTips,
    .Open = OpenTools,
    .Activate = AskForPositions,
    .Command = ToolsCommand,
    .ScrollVertically = StepPosition,
    .TakeAnswer = TakePositions,
    .Paint = PaintTools,
    .Close = CloseTools,
};
