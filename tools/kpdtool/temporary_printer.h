// What a command sets up on the computer, and takes back at its end.
#pragma once

#include "tools/computer/computer.h"

#include <windows.h>

#include <string>

namespace kpdtool {

/// A printer of a model, opened with every right and removed at the end.
class TemporaryPrinter {
  public:
    /// Throws ToolError when there is a printer of that name, or none can be added.
    TemporaryPrinter(const std::string& name, const std::string& model);
    explicit TemporaryPrinter(const computer::PrinterSpec& spec);
    ~TemporaryPrinter();
    TemporaryPrinter(const TemporaryPrinter&) = delete;
    TemporaryPrinter& operator=(const TemporaryPrinter&) = delete;

    HANDLE get() const { return handle_; }
    WCHAR* Name() { return name_.data(); }

  private:
    std::basic_string<WCHAR> name_;
    HANDLE handle_ = nullptr;
};

/// The user's UI language while it lives.
class UiLanguage {
  public:
    /// A tag of the known ones, with any country behind it where they name none: "de-AT". Throws
    /// ToolError, naming the known ones, for another.
    explicit UiLanguage(const std::string& tag);
    ~UiLanguage();
    UiLanguage(const UiLanguage&) = delete;
    UiLanguage& operator=(const UiLanguage&) = delete;

  private:
    LANGID before_;
};

/// The known tags in one line.
std::string LanguageTags();

/// The line that a model name deserves that belongs to no known family, else empty.
std::string ModelNote(const std::string& model);

}  // namespace kpdtool
