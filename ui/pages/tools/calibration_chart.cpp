// The chart's job: its record, its document of one page, its picture.
#include "ui/pages/tools/calibration_chart.h"

#include "ui/common/pictures.h"
#include "ui/pages/tools/print_job.h"

namespace {

// ---- The record ---------------------------------------------------------------------------------

// The whole colour block, which begins with the brightness.
constexpr RecordField kColorBlock = {
    offsetof(DevModeRecord, Private.Brightness),
    offsetof(DevModePrivate, CardThickness) - offsetof(DevModePrivate, Brightness)};
static_assert(kColorBlock.Width == 32);

// A plain card, printed on its front without adjustments. In this order: the block before gamma.
constexpr JobSetting kChartSettings[] = {
    {RECORD_FIELD(Public.dmOrientation), DMORIENT_PORTRAIT},
    {RECORD_FIELD(Public.dmICMMethod), DMICMMETHOD_NONE},
    {RECORD_FIELD(Public.dmCopies), 1},
    {RECORD_FIELD(Private.Reserved00), 0},
    {RECORD_FIELD(Private.Reserved04), 100},
    {RECORD_FIELD(Private.SkinTone), 2},
    {RECORD_FIELD(Private.ColorStyle), 0},
    {RECORD_FIELD(Private.Reserved08), 0},
    {RECORD_FIELD(Private.Reserved10), 0},
    {kColorBlock, 0},
    {RECORD_FIELD(Private.Gamma), 100},
    {RECORD_FIELD(Private.ColorFlag), 0},
    {RECORD_FIELD(Private.AdvanceToolFlag), 0},
    {RECORD_FIELD(Private.Reserved100), 1},
    {RECORD_FIELD(Private.ColorPreference), kPrinterColor},
    {RECORD_FIELD(Private.Reserved103), 0},
    {RECORD_FIELD(Private.Reserved104), 254},
    {RECORD_FIELD(Private.CardType), kBlankCard},
    {RECORD_FIELD(Private.PrintSides), kFrontSide},
    {RECORD_FIELD(Private.PrintingMode), kPremiumPhotoMode},
    {RECORD_FIELD(Private.RotateSides), 0},
    {RECORD_FIELD(Private.FlipSides), 0},
    {RECORD_FIELD(Private.MagEncoderSelect), 0},
    {RECORD_FIELD(Private.MagCoercivity), 0},
    {RECORD_FIELD(Private.MagRetryTimes), 1},
    {RECORD_FIELD(Private.MagOptions), 0},
    {RECORD_FIELD(Private.MagStartRecord), 1},
    {RECORD_FIELD(Private.MagRetryCards), 1},
    {RECORD_FIELD(Private.LaminationSides), 0},
    {RECORD_FIELD(Private.OvercoatMode), kFrontGlossy | kBackGlossy},
    {RECORD_FIELD(Private.ResinKMode), kFrontCmyUnderK | kBackCmyUnderK},
    {RECORD_FIELD(Private.AutoEnhance), 1},
    {RECORD_FIELD(Private.SharpenMode), 0},
    {RECORD_FIELD(Private.Reserved217), 0},
    {RECORD_FIELD(Private.KOnlyOnBack), 0},
    {RECORD_FIELD(Private.ResinOptions2), 0},
    {RECORD_FIELD(Private.Reserved262), 0},
    {RECORD_FIELD(Private.PrintAsOtherModel), 0},
    {RECORD_FIELD(Private.PlusRApplication), 0},
    {RECORD_FIELD(Private.WhiteSkip), 1},
    {RECORD_FIELD(Private.Reserved348), 0},
    {RECORD_FIELD(Private.PrinterOptionFlags), 0},
    {RECORD_FIELD(Private.Reserved354), 0},
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
    {RECORD_FIELD(Private.EraseAreaMode), 1},
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

// ---- The document -------------------------------------------------------------------------------

void DrawChart(HDC page) {
    if (HBITMAP chart = LoadDriverBitmap(TEXT("CalChart.bmp"))) {
        CopyBitmap(page, 0, 0, chart);
        DeleteObject(chart);
    }
}

void PrintDocument(HDC printer) {
    const DOCINFOW document = {.cbSize = sizeof(document),
                               .lpszDocName = TEXT("Position Calibration Chart"),
                               .lpszOutput = nullptr,
                               .lpszDatatype = TEXT("RAW"),
                               .fwType = 0};
    if (StartDocW(printer, &document) <= 0 || StartPage(printer) <= 0) {
        AbortDoc(printer);
        return;
    }
    DrawChart(printer);
    EndPage(printer);
    EndDoc(printer);
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
    record.Apply(kChartSettings);
    ApplyPosition(record, thickness, table[static_cast<size_t>(thickness)].Current);
    record.Apply(HasColorPanels(record) ? kColorPanels : kResinPanels);
    if (context.IsKP43Family != 0) {
        record.Apply(kRewritableCard);
    }
}

void PrintCalibrationChart(const DriverContext& context, const CalibrationTable& table) {
    if (HDC printer = OpenPrinterContext(context, table)) {
        PrintDocument(printer);
        DeleteDC(printer);
    }
}
