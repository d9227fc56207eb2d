// The user's key of a printer.
#include "core/printer_key.h"

#include "core/text.h"

#include <strsafe.h>

PrinterKey::PrinterKey(const WCHAR* printer) {
    constexpr WideView kPrinters = TEXT("Printers\\");
    if (printer == nullptr) {
        return;
    }
    const size_t length = kPrinters.size() + WideView(printer).size() + 1;
    path_ = GlobalBlock<WCHAR>::Allocate(length * sizeof(WCHAR));
    if (path_) {
        StringCchPrintfW(path_.get(), length, TEXT("%s%s"), kPrinters.data(), printer);
    }
}

PrinterKey::~PrinterKey() {
    if (key_ != nullptr) {
        RegCloseKey(key_);
    }
}

bool PrinterKey::Open(REGSAM access) {
    return path_ &&
           RegOpenKeyExW(HKEY_CURRENT_USER, path_.get(), 0, access, &key_) == ERROR_SUCCESS;
}

bool PrinterKey::Create(REGSAM access) {
    return path_ &&
           RegCreateKeyExW(HKEY_CURRENT_USER, path_.get(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                           access, nullptr, &key_, nullptr) == ERROR_SUCCESS;
}
