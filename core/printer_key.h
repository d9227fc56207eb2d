// What the registry keeps for each user and printer.
#pragma once

#include "core/owners.h"

/// The user's key of a printer, HKEY_CURRENT_USER\Printers\<name>; closed at the end.
class PrinterKey {
  public:
    /// The name may be of any length. With none (null), or when memory is short, no key can be
    /// opened.
    explicit PrinterKey(const WCHAR* printer);
    PrinterKey(const PrinterKey&) = delete;
    PrinterKey& operator=(const PrinterKey&) = delete;
    ~PrinterKey();

    // Once for each object.

    bool Open(REGSAM access);
    /// Opens the key, made if it is missing.
    bool Create(REGSAM access);

    HKEY get() const { return key_; }

  private:
    GlobalBlock<WCHAR> path_;
    HKEY key_ = nullptr;
};
