// A job of the driver's own, such as a chart: the printer's record with what the job changes of it,
// and its document of one page.
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
    /// What all of the driver's own jobs have in common: one copy of a plain card, printed on its
    /// front without adjustments.
    void MakePlain();
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

/// A document of one page, which is printed at the end of the object's life. One that does not
/// begin is aborted, and there is none.
class JobDocument {
  public:
    /// Takes the context, which may be null: then there is no document.
    JobDocument(HDC context, const WCHAR* name);
    JobDocument(const JobDocument&) = delete;
    JobDocument& operator=(const JobDocument&) = delete;
    ~JobDocument();

    explicit operator bool() const { return isBegun_; }
    /// To draw the page on.
    HDC Page() const { return context_; }

  private:
    HDC context_;
    bool isBegun_ = false;
};
