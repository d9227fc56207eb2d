// The chart's job: its record, its document of one page, its picture.
#include "ui/pages/tools/calibration_chart.h"

#include "ui/common/pictures.h"

namespace {

// ---- The record ---------------------------------------------------------------------------------

// The picture is of a card on end.
constexpr JobSetting kChartSettings[] = {
    {RECORD_FIELD(Public.dmOrientation), DMORIENT_PORTRAIT},
    {RECORD_FIELD(Private.Gamma), 100},
    {RECORD_FIELD(Private.Reserved104), 254},
};

// A ribbon without colours prints the chart in resin.
constexpr JobSetting kColorPanels[] = {
    {RECORD_FIELD(Private.ColorSides), kFrontSide},
    {RECORD_FIELD(Private.ResinOptions), 0},
};
constexpr JobSetting kResinPanels[] = {
    {RECORD_FIELD(Private.ColorSides), 0},
    {RECORD_FIELD(Private.ResinOptions), kFrontResinDither},
};

// A rewritable card is erased first, all of it.
constexpr JobSetting kRewritableCard[] = {
    {RECORD_FIELD(Private.EraseAreaMode), kEraseWholeCard},
    {RECORD_FIELD(Private.CardHandlingFlags), kEraseBeforeWrite,
     kDriversOwnJob | kEraseBeforeWrite},
};

void ApplyPosition(JobRecord& record, int thickness, const PrintPosition& position) {
    const JobSetting settings[] = {
        {RECORD_FIELD(Private.CardThickness), static_cast<DWORD>(thickness)},
        {RECORD_FIELD(Private.PrintPositionC), static_cast<BYTE>(position.C)},
        {RECORD_FIELD(Private.PrintPositionA), static_cast<BYTE>(position.A)},
        {RECORD_FIELD(Private.PrintPositionB), static_cast<BYTE>(position.B)},
        {RECORD_FIELD(Private.PrintPositionExtra), position.Extra},
    };
    record.Apply(settings);
}

bool HasColorPanels(const JobRecord& record) {
    const DWORD ribbon = record.Read(RECORD_FIELD(Private.RibbonType));
    return ribbon != kRibbonK && ribbon != kRibbonKO;
}

// ---- The page -----------------------------------------------------------------------------------

void DrawChart(HDC page) {
    if (HBITMAP chart = LoadDriverBitmap(TEXT("CalChart.bmp"))) {
        CopyBitmap(page, 0, 0, chart);
        DeleteObject(chart);
    }
}

HDC OpenPrinterContext(const DriverContext& context, const CalibrationTable& table) {
    JobRecord record(context.PrinterName);
    if (!record) {
        return nullptr;
    }
    SetUpChartJob(record, context, table);
    return CreateJobContext(context.PrinterName, record);
}

}  // namespace

void SetUpChartJob(JobRecord& record, const DriverContext& context, const CalibrationTable& table) {
    const int chosen = context.WorkingDevMode.Private.CardThickness;
    const int thickness = chosen < kCalibrationRows ? chosen : 0;
    record.MakePlain();
    record.Apply(kChartSettings);
    ApplyPosition(record, thickness, table[static_cast<size_t>(thickness)].Current);
    record.Apply(HasColorPanels(record) ? kColorPanels : kResinPanels);
    if (context.IsKP43Family != 0) {
        record.Apply(kRewritableCard);
    }
}

void PrintCalibrationChart(const DriverContext& context, const CalibrationTable& table) {
    const JobDocument document(OpenPrinterContext(context, table),
                               TEXT("Position Calibration Chart"));
    if (document) {
        DrawChart(document.Page());
    }
}
