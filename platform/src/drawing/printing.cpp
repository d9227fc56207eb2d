// Contexts of printers, the documents printed with them, and the resolution of both kinds of
// devices.
#include "state.h"

#include <winspool.h>

#include <cmath>

namespace host {

struct PrintJob {
    WideString printer;
    std::vector<BYTE> record;
    int width = 0;
    int height = 0;
    std::optional<PrintedDocument> document;  // begun and not ended
    Picture page;
    bool pageOpen = false;
};

namespace {

constexpr int kResolution = 300;
std::vector<PrintedDocument> documents;
int jobs = 0;

// A card in tenths of a millimetre, when the record names no paper of its own.
constexpr int kCardWidth = 544;
constexpr int kCardLength = 859;

int PixelsOf(int tenthsOfMillimetre) {
    return static_cast<int>(std::lround(tenthsOfMillimetre * kResolution / 254.0));
}

void SetPaper(PrintJob* job) {
    const auto* record = reinterpret_cast<const DEVMODEW*>(job->record.data());
    int width = kCardWidth;
    int length = kCardLength;
    bool turned = false;
    if (!job->record.empty()) {
        constexpr DWORD kBoth = DM_PAPERWIDTH | DM_PAPERLENGTH;
        const bool named = (record->dmFields & kBoth) == kBoth;
        if (named && record->dmPaperWidth > 0 && record->dmPaperLength > 0) {
            width = record->dmPaperWidth;
            length = record->dmPaperLength;
        }
        turned =
            (record->dmFields & DM_ORIENTATION) != 0 && record->dmOrientation == DMORIENT_LANDSCAPE;
    }
    job->width = PixelsOf(turned ? length : width);
    job->height = PixelsOf(turned ? width : length);
}

std::vector<BYTE> BytesOf(const DEVMODEW* record) {
    if (record == nullptr || record->dmSize < offsetof(DEVMODEW, dmFormName)) {
        return {};
    }
    const auto* bytes = reinterpret_cast<const BYTE*>(record);
    std::vector<BYTE> copy(bytes, bytes + record->dmSize + record->dmDriverExtra);
    copy.resize(std::max(copy.size(), sizeof(DEVMODEW)));
    return copy;
}

// The record that the spooler keeps for a printer.
std::vector<BYTE> StoredRecord(HANDLE printer) {
    DWORD needed = 0;
    GetPrinterW(printer, 2, nullptr, 0, &needed);
    std::vector<BYTE> buffer(needed);
    if (needed == 0 || !GetPrinterW(printer, 2, buffer.data(), needed, &needed)) {
        return {};
    }
    return BytesOf(reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data())->pDevMode);
}

HDC NewPrinterContext(LPCWSTR device, const DEVMODEW* record) {
    WideString name = device;
    HANDLE printer = nullptr;
    if (!OpenPrinterW(name.data(), &printer, nullptr)) {
        return nullptr;
    }
    auto job = std::make_shared<PrintJob>();
    job->printer = name;
    job->record = record != nullptr ? BytesOf(record) : StoredRecord(printer);
    ClosePrinter(printer);
    SetPaper(job.get());
    Context context;
    context.kind = ContextKind::kPrinter;
    context.job = std::move(job);
    return AddContext(std::move(context));
}

// The job of a context that a printing call may go on with, or null with the last error set.
PrintJob* JobFor(HDC handle) {
    if (FailsNow(Call::kPrinting)) {
        return nullptr;
    }
    const Context* context = FindContext(handle);
    if (context != nullptr && context->job == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return context == nullptr ? nullptr : context->job.get();
}

int Refuse() {
    SetLastError(ERROR_INVALID_PARAMETER);
    return SP_ERROR;
}

void CloseDocument(HDC handle, bool ended) {
    Context* context = FindContext(handle);
    PrintJob& job = *context->job;
    context->target = nullptr;
    job.pageOpen = false;
    job.document->ended = ended;
    documents.push_back(std::move(*job.document));
    job.document.reset();
}

}  // namespace

void DropDocument(HDC handle) {
    const Context* context = FindContext(handle);
    if (context != nullptr && context->job != nullptr && context->job->document) {
        CloseDocument(handle, false);
    }
}

const std::vector<PrintedDocument>& PrintedDocuments() {
    return documents;
}

void ResetPrinting() {
    documents.clear();
    jobs = 0;
}

}  // namespace host

using host::JobFor;
using host::PrintJob;

HDC WINAPI CreateDCW(LPCWSTR, LPCWSTR device, LPCWSTR, const DEVMODEW* record) {
    if (device == nullptr) {
        host::Unsupported("CreateDCW of no printer");
    }
    return host::FailsNow(host::Call::kDrawing) ? nullptr : host::NewPrinterContext(device, record);
}

int WINAPI GetDeviceCaps(HDC handle, int index) {
    const host::Context* context = host::FindContext(handle);
    if (context == nullptr) {
        return 0;
    }
    if (index != LOGPIXELSY) {
        host::Unsupported("GetDeviceCaps(%d)", index);
    }
    return context->kind == host::ContextKind::kPrinter ? host::kResolution : 96;
}

int WINAPI StartDocW(HDC handle, const DOCINFOW* document) {
    PrintJob* job = JobFor(handle);
    if (job == nullptr) {
        return SP_ERROR;
    }
    if (document == nullptr || job->document) {
        return host::Refuse();
    }
    if (document->lpszOutput != nullptr) {
        host::Unsupported("printing to a file");
    }
    const auto text = [](LPCWSTR given) {
        return host::WideString(given == nullptr ? TEXT("") : given);
    };
    job->document = host::PrintedDocument{
        job->printer, text(document->lpszDocName), text(document->lpszDatatype), job->record, {},
        false};
    return ++host::jobs;
}

int WINAPI StartPage(HDC handle) {
    PrintJob* job = JobFor(handle);
    if (job == nullptr) {
        return SP_ERROR;
    }
    if (!job->document || job->pageOpen) {
        return host::Refuse();
    }
    const auto size = static_cast<size_t>(job->width) * static_cast<size_t>(job->height);
    job->page = {job->width, job->height, std::vector<host::Pixel>(size, 0xFFFFFF)};
    job->pageOpen = true;
    host::FindContext(handle)->target = &job->page;
    return 1;
}

int WINAPI EndPage(HDC handle) {
    PrintJob* job = JobFor(handle);
    if (job == nullptr) {
        return SP_ERROR;
    }
    if (!job->pageOpen) {
        return host::Refuse();
    }
    host::FindContext(handle)->target = nullptr;
    job->pageOpen = false;
    job->document->pages.push_back(std::move(job->page));
    return 1;
}

int WINAPI EndDoc(HDC handle) {
    PrintJob* job = JobFor(handle);
    if (job == nullptr) {
        return SP_ERROR;
    }
    if (!job->document) {
        return host::Refuse();
    }
    if (job->pageOpen) {
        job->document->pages.push_back(std::move(job->page));
    }
    host::CloseDocument(handle, true);
    return 1;
}

int WINAPI AbortDoc(HDC handle) {
    PrintJob* job = JobFor(handle);
    if (job == nullptr) {
        return SP_ERROR;
    }
    if (!job->document) {
        return host::Refuse();
    }
    host::CloseDocument(handle, false);
    return 1;
}
