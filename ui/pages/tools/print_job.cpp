// The record of a job of the driver's own.
#include "ui/pages/tools/print_job.h"

#include "core/owners.h"

#include <algorithm>

namespace {

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

void JobRecord::Release() {
    if (record_ != nullptr) {
        VirtualFree(record_, 0, MEM_RELEASE);
        record_ = nullptr;
    }
}

HDC CreateJobContext(const WCHAR* printer, const JobRecord& record) {
    return CreateDCW(TEXT("WINSPOOL"), printer, nullptr, record.get());
}
