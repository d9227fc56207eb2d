// The erase job: its record, its document of one page, the area on it.
#include "ui/pages/print_area/erase_job.h"

namespace {

constexpr JobSetting kEraseSettings[] = {
    {RECORD_FIELD(Private.CardThickness), kThickness08},
    {RECORD_FIELD(Private.PrintPositionA), 0},
    {RECORD_FIELD(Private.PrintPositionB), 0},
    {RECORD_FIELD(Private.PrintPositionC), 0},
    {RECORD_FIELD(Private.PrintPositionExtra), 0},
    {RECORD_FIELD(Private.Reserved104), 0},
    {RECORD_FIELD(Private.RibbonType), kRibbonK},
    {RECORD_FIELD(Private.ColorSides), 0},
    {RECORD_FIELD(Private.ResinOptions), kFrontBlackByResin},
    {RECORD_FIELD(Private.CardHandlingFlags), kDriversOwnJob, kDriversOwnJob},
};

// In dots of a card on end. A code that is none erases the whole card rather than too little.
constexpr RECT kStripe = {58, 0, 190, 1014};
constexpr RECT kWholeCard = {0, 0, 642, 1014};

HDC OpenPrinterContext(const DriverContext& context, int energy) {
    JobRecord record(context.PrinterName);
    if (!record) {
        return nullptr;
    }
    SetUpEraseJob(record, context, energy);
    return CreateJobContext(context.PrinterName, record);
}

}  // namespace

void SetUpEraseJob(JobRecord& record, const DriverContext& context, int energy) {
    const DWORD quick = context.WorkingDevMode.Private.CardHandlingFlags & kQuickErase;
    const JobSetting chosen[] = {
        {RECORD_FIELD(Private.EraseEnergyTable[kThickness08]), static_cast<DWORD>(energy)},
        {RECORD_FIELD(Private.CardHandlingFlags), quick, quick},
    };
    record.MakePlain();
    record.Apply(kEraseSettings);
    record.Apply(chosen);
}

void EraseCard(const DriverContext& context, int energy) {
    const JobDocument document(OpenPrinterContext(context, energy), TEXT("Erase Card"));
    if (document) {
        const BYTE area = context.WorkingDevMode.Private.EraseAreaMode;
        FillRect(document.Page(), area == kEraseStripe ? &kStripe : &kWholeCard,
                 static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
}
