// The print spooler: printers that the host adds, their level-2 information, driver information and
// stored printer data.
#include "host_state.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace {

using host::WideString;

constexpr WCHAR kDriverDirectory[] = TEXT("C:\\Windows\\system32\\spool\\drivers\\x64\\3\\");
constexpr WCHAR kDriverDataKey[] = TEXT("PrinterDriverData");

struct StoredValue {
    DWORD type;
    std::vector<BYTE> bytes;
};

struct StoredPrinter {
    host::Printer settings;
    std::map<WideString, StoredValue> data;  // by key and name, joined, in folded case
};

// The printers by folded name.
std::map<WideString, StoredPrinter> printers;

struct OpenedHandle {
    WideString printer;  // folded; empty for the print server
    bool administers;
};
host::HandleTable<OpenedHandle> handles(0x50000);

// The printer behind a handle; null with the last error set when there is none.
StoredPrinter* PrinterOf(HANDLE handle) {
    OpenedHandle* opened = handles.Find(handle);
    if (opened == nullptr || opened->printer.empty()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    auto it = printers.find(opened->printer);
    if (it == printers.end()) {
        SetLastError(ERROR_PRINTER_DELETED);
        return nullptr;
    }
    return &it->second;
}

/// Lays a fixed record and what it points to in one caller's buffer, the way the spooler does: the
/// record first, everything else behind it.
class PackedInfo {
  public:
    PackedInfo(BYTE* buffer, size_t recordSize) : buffer_(buffer), used_(recordSize) {}

    WCHAR* Text(const WideString& text) {
        return static_cast<WCHAR*>(Place(text.c_str(), (text.size() + 1) * sizeof(WCHAR)));
    }
    void* Place(const void* data, size_t size) {
        used_ = (used_ + 7) & ~size_t{7};
        void* place = buffer_ == nullptr ? nullptr : buffer_ + used_;
        if (place != nullptr) {
            std::memcpy(place, data, size);
        }
        used_ += size;
        return place;
    }
    DWORD used() const { return static_cast<DWORD>(used_); }

  private:
    BYTE* buffer_;  // null only measures
    size_t used_;
};

DWORD PackPrinterInfo(const StoredPrinter& printer, BYTE* buffer) {
    const host::Printer& settings = printer.settings;
    PackedInfo packed(buffer, sizeof(PRINTER_INFO_2W));
    PRINTER_INFO_2W info = {};
    info.pPrinterName = packed.Text(settings.name);
    info.pShareName = packed.Text({});
    info.pPortName = packed.Text(settings.port);
    info.pDriverName = packed.Text(settings.model);
    info.pComment = packed.Text({});
    info.pLocation = packed.Text({});
    if (!settings.defaultRecord.empty()) {
        info.pDevMode = static_cast<DEVMODEW*>(
            packed.Place(settings.defaultRecord.data(), settings.defaultRecord.size()));
    }
    info.pSepFile = packed.Text({});
    info.pPrintProcessor = packed.Text(TEXT("winprint"));
    info.pDatatype = packed.Text(TEXT("RAW"));
    info.pParameters = packed.Text({});
    info.Attributes = settings.attributes;
    if (buffer != nullptr) {
        std::memcpy(buffer, &info, sizeof(info));
    }
    return packed.used();
}

DWORD PackDriverInfo(const StoredPrinter& printer, BYTE* buffer) {
    PackedInfo packed(buffer, sizeof(DRIVER_INFO_2W));
    const WideString directory = kDriverDirectory;
    DRIVER_INFO_2W info = {};
    info.cVersion = 3;
    info.pName = packed.Text(printer.settings.model);
    info.pEnvironment = packed.Text(TEXT("Windows x64"));
    info.pDriverPath = packed.Text(directory + TEXT("kpd.dll"));
    info.pDataFile = packed.Text(directory + TEXT("kpd.dat"));
    info.pConfigFile = packed.Text(directory + TEXT("kpdui.dll"));
    if (buffer != nullptr) {
        std::memcpy(buffer, &info, sizeof(info));
    }
    return packed.used();
}

// The two-call protocol that both information services share.
BOOL GiveInfo(HANDLE handle, DWORD level, BYTE* buffer, DWORD size, DWORD* needed,
              DWORD (*pack)(const StoredPrinter&, BYTE*)) {
    if (level != 2) {
        host::Unsupported("printer or driver information of level %u", level);
    }
    if (host::FailsNow(host::Call::kSpooler)) {
        return FALSE;
    }
    StoredPrinter* printer = PrinterOf(handle);
    if (printer == nullptr) {
        return FALSE;
    }
    if (needed == nullptr || (buffer == nullptr && size != 0)) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    *needed = pack(*printer, nullptr);
    if (size < *needed) {
        return host::Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    pack(*printer, buffer);
    return TRUE;
}

WideString DataKey(LPCWSTR key, LPCWSTR name) {
    return host::FoldCase(WideString(key) + TEXT("\\") + name);
}

}  // namespace

BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSW defaults) {
    if (host::FailsNow(host::Call::kSpooler)) {
        return FALSE;
    }
    if (printer == nullptr || (name != nullptr && *name == 0)) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    const WideString folded = name == nullptr ? WideString() : host::FoldCase(name);
    if (name != nullptr && !printers.contains(folded)) {
        return host::Fail(ERROR_INVALID_PRINTER_NAME);
    }
    const DWORD access = defaults == nullptr ? PRINTER_ACCESS_USE : defaults->DesiredAccess;
    *printer = handles.Add({folded, (access & PRINTER_ACCESS_ADMINISTER) != 0});
    return TRUE;
}

BOOL WINAPI ClosePrinter(HANDLE printer) {
    return handles.Remove(printer) ? TRUE : host::Fail(ERROR_INVALID_HANDLE);
}

BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed) {
    return GiveInfo(printer, level, buffer, size, needed, PackPrinterInfo);
}

BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed) {
    if (environment != nullptr) {
        host::Unsupported("GetPrinterDriverW of a named environment");
    }
    return GiveInfo(printer, level, buffer, size, needed, PackDriverInfo);
}

DWORD WINAPI GetPrinterDataExW(HANDLE printer, LPCWSTR key, LPCWSTR name, LPDWORD type, LPBYTE data,
                               DWORD size, LPDWORD needed) {
    if (DWORD error = host::ErrorNow(host::Call::kSpooler)) {
        return error;
    }
    StoredPrinter* stored = PrinterOf(printer);
    if (stored == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    if (needed == nullptr) {
        return ERROR_INVALID_PARAMETER;
    }
    *needed = 0;
    const auto it = stored->data.find(DataKey(key, name));
    if (it == stored->data.end()) {
        return ERROR_FILE_NOT_FOUND;
    }
    const StoredValue& value = it->second;
    *needed = static_cast<DWORD>(value.bytes.size());
    if (type != nullptr) {
        *type = value.type;
    }
    if (size < *needed) {
        return ERROR_MORE_DATA;
    }
    std::copy(value.bytes.begin(), value.bytes.end(), data);
    return ERROR_SUCCESS;
}

DWORD WINAPI GetPrinterDataW(HANDLE printer, LPWSTR name, LPDWORD type, LPBYTE data, DWORD size,
                             LPDWORD needed) {
    return GetPrinterDataExW(printer, kDriverDataKey, name, type, data, size, needed);
}

LONG WINAPI DocumentPropertiesW(HWND, HANDLE printer, LPWSTR, PDEVMODEW output, PDEVMODEW input,
                                DWORD mode) {
    if (input != nullptr || (mode != 0 && mode != DM_OUT_BUFFER)) {
        host::Unsupported("DocumentPropertiesW with an input record or in mode %#x", mode);
    }
    if (host::FailsNow(host::Call::kSpooler)) {
        return -1;
    }
    const StoredPrinter* stored = PrinterOf(printer);
    if (stored == nullptr) {
        return -1;
    }
    const std::vector<BYTE>& record = stored->settings.defaultRecord;
    if (record.empty()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    if (mode == 0 || output == nullptr) {
        return static_cast<LONG>(record.size());
    }
    std::copy(record.begin(), record.end(), reinterpret_cast<BYTE*>(output));
    return IDOK;
}

DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR name, DWORD type, LPBYTE data, DWORD size) {
    if (DWORD error = host::ErrorNow(host::Call::kSpooler)) {
        return error;
    }
    StoredPrinter* stored = PrinterOf(printer);
    if (stored == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    if (!handles.Find(printer)->administers) {
        return ERROR_ACCESS_DENIED;
    }
    stored->data[DataKey(kDriverDataKey, name)] = {type, {data, data + size}};
    return ERROR_SUCCESS;
}

namespace host {

void AddPrinter(const Printer& printer) {
    StoredPrinter& stored = printers[FoldCase(printer.name)] = {printer, {}};
    if (!printer.sharedName.empty()) {
        const auto* text = reinterpret_cast<const BYTE*>(printer.sharedName.c_str());
        const size_t size = (printer.sharedName.size() + 1) * sizeof(WCHAR);
        stored.data[DataKey(TEXT("DsSpooler"), TEXT("uNCName"))] = {REG_SZ, {text, text + size}};
    }
}

void RemovePrinter(const WideString& name) {
    printers.erase(FoldCase(name));
}

void ResetSpooler() {
    printers.clear();
    handles.Clear();
}

unsigned HeldPrinters() {
    return handles.Count();
}

}  // namespace host
