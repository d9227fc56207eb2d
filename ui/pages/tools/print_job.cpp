// The record and the document of a job of the driver's own.
#include "ui/pages/tools/print_job.h"

#include "core/owners.h"

#include <algorithm>

namespace {

// The whole colour block, which begins with the brightness.
constexpr RecordField kColorBlock = {
    offsetof(DevModeRecord, Private.Brightness),
    offsetof(DevModePrivate, CardThickness) - offsetof(DevModePrivate, Brightness)};
static_assert(kColorBlock.Width == 32);

constexpr JobSetting kPlainSettings[] = {
    {RECORD_FIELD(Public.dmCopies), 1},
    {RECORD_FIELD(Public.dmICMMethod), DMICMMETHOD_NONE},
    {RECORD_FIELD(Private.Reserved00), 0},
    {RECORD_FIELD(Private.Reserved04), 100},
    {RECORD_FIELD(Private.SkinTone), 2},
    {RECORD_FIELD(Private.ColorStyle), 0},
    {RECORD_FIELD(Private.Reserved08), 0},
    {RECORD_FIELD(Private.Reserved10), 0},
    {kColorBlock, 0},
    {RECORD_FIELD(Private.ColorFlag), 0},
    {RECORD_FIELD(Private.AdvanceToolFlag), 0},
    {RECORD_FIELD(Private.Reserved100), 1},
    {RECORD_FIELD(Private.ColorPreference), kPrinterColor},
    {RECORD_FIELD(Private.Reserved103), 0},
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

DevModeRecord* NewRecord(LONG size) {
    return static_cast<DevModeRecord*>(
        VirtualAlloc(nullptr, static_cast<SIZE_T>(size), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
}

}  // namespace

JobRecord::JobRecord(WCHAR* printer) {
    const OpenedPrinter opened(printer);
    if (!opened) {
        return;
    }
    const LONG size = DocumentPropertiesW(nullptr, opened.get(), printer, nullptr, nullptr, 0);
    if (size < kHeaderSize) {
        return;
    }
    record_ = NewRecord(size);
    if (record_ == nullptr) {
        return;
    }
    DEVMODEW& given = record_->Public;
    if (DocumentPropertiesW(nullptr, opened.get(), printer, &given, nullptr, DM_OUT_BUFFER) !=
            IDOK ||
        given.dmSize < kHeaderSize || given.dmSize + given.dmDriverExtra > size) {
        Release();
    }
}

// A record in a layout that is not ours has public fields alone.
bool JobRecord::Has(RecordField field) const {
    const DEVMODEW& record = record_->Public;
    const int end = record.dmSize == kPublicSize ? kPublicSize + record.dmDriverExtra
                                                 : std::min(record.dmSize, kPublicSize);
    return field.Offset + field.Width <= end;
}

DWORD JobRecord::Read(RecordField field) const {
    return Has(field) ? ReadField(*record_, field) : 0;
}

void JobRecord::Apply(std::span<const JobSetting> settings) {
    for (const JobSetting& setting : settings) {
        if (Has(setting.Field)) {
            const DWORD kept = ReadField(*record_, setting.Field) & ~setting.Mask;
            WriteField(*record_, setting.Field, kept | setting.Value);
        }
    }
}

void JobRecord::MakePlain() {
    Apply(kPlainSettings);
}

void JobRecord::Release() {
    if (record_ != nullptr) {
        VirtualFree(record_, 0, MEM_RELEASE);
        record_ = nullptr;
    }
}

HDC CreateJobContext(const WCHAR* printer, const JobRecord& record) {
    return CreateDCW(TEXT("WINSPOOL"), printer, nullptr, record.get());
}

JobDocument::JobDocument(HDC context, const WCHAR* name) : context_(context) {
    if (context == nullptr) {
        return;
    }
    const DOCINFOW document = {.cbSize = sizeof(document),
                               .lpszDocName = name,
                               .lpszOutput = nullptr,
                               .lpszDatatype = TEXT("RAW"),
                               .fwType = 0};
    isBegun_ = StartDocW(context, &document) > 0 && StartPage(context) > 0;
    if (!isBegun_) {
        AbortDoc(context);
    }
}

JobDocument::~JobDocument() {
    if (isBegun_) {
        EndPage(context_);
        EndDoc(context_);
    }
    if (context_ != nullptr) {
        DeleteDC(context_);
    }
}
