// A printer's record for a job of the driver's own, such as a chart.
#pragma once

#include "core/record_field.h"

#include <windows.h>

#include <span>

/// What a job changes of the printer's record: a field's masked bits.
struct JobSetting {
    RecordField Field;
    DWORD Value;
    DWORD Mask = 0xFFFFFFFF;
};

/// The printer's current default record in memory of its own, which goes with it; or none.
class JobRecord {
  public:
    /// Asks the spooler. None when the printer cannot be opened, gives no record or one that says
    /// to be longer than it is, or memory is short; nothing is held then.
    explicit JobRecord(WCHAR* printer);
    JobRecord(const JobRecord&) = delete;
    JobRecord& operator=(const JobRecord&) = delete;
    ~JobRecord() { Release(); }

    explicit operator bool() const { return record_ != nullptr; }
    const DEVMODEW* get() const { return record_ == nullptr ? nullptr : &record_->Public; }

    /// 0 for a field that the record lacks.
    DWORD Read(RecordField field) const;
    /// Passes over fields that the record lacks.
    void Apply(std::span<const JobSetting> settings);

  private:
    bool Has(RecordField field) const;
    void Release();

    DevModeRecord* record_ = nullptr;  // of as many bytes as the spooler said, which may be fewer
};

/// A context to print on the printer with the record, which may go then; null when it cannot be
/// had. The caller deletes it.
HDC CreateJobContext(const WCHAR* printer, const JobRecord& record);
