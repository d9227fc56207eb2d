// Printers and languages for the length of a command.
#include "temporary_printer.h"

#include <winspool.h>

#include <algorithm>

#include "tool_error.h"
#include "wide_text.h"

namespace kpdtool {
namespace {

struct Language {
    const char* tag;
    LANGID id;
};

constexpr Language kLanguages[] = {
    {"en", MAKELANGID(LANG_ENGLISH, SUBLANG_DEFAULT)},
    {"de", MAKELANGID(LANG_GERMAN, SUBLANG_DEFAULT)},
    {"fr", MAKELANGID(LANG_FRENCH, SUBLANG_DEFAULT)},
    {"it", MAKELANGID(LANG_ITALIAN, SUBLANG_DEFAULT)},
    {"es", MAKELANGID(LANG_SPANISH, SUBLANG_DEFAULT)},
    {"ja", MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT)},
    {"ko", MAKELANGID(LANG_KOREAN, SUBLANG_DEFAULT)},
    {"pt", MAKELANGID(LANG_PORTUGUESE, SUBLANG_DEFAULT)},
    {"ru", MAKELANGID(LANG_RUSSIAN, SUBLANG_DEFAULT)},
    {"pl", MAKELANGID(LANG_POLISH, SUBLANG_DEFAULT)},
    {"ar", MAKELANGID(LANG_ARABIC, SUBLANG_DEFAULT)},
    {"id", MAKELANGID(LANG_INDONESIAN, SUBLANG_DEFAULT)},
    {"fa", MAKELANGID(LANG_FARSI, SUBLANG_DEFAULT)},
    {"zh-TW", MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL)},
    {"zh-CN", MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED)},
    {"zh-HK", MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_HONGKONG)},
};

constexpr std::string_view kFamilies[] = {"Mirv KP-41", "Mirv KP-43", "Mirv KP-45",
                                          "Mirv KP-49", "Mirv KP-51", "Mirv KP-56"};

void Require(const std::string& reason) {
    if (!reason.empty()) {
        throw ToolError(reason);
    }
}

// Gives null when there is no such printer.
HANDLE Open(WCHAR* name, DWORD access) {
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
    HANDLE printer = nullptr;
    return OpenPrinterW(name, &printer, &defaults) ? printer : nullptr;
}

}  // namespace

TemporaryPrinter::TemporaryPrinter(const std::string& name, const std::string& model)
    : TemporaryPrinter({.name = FromUtf8(name), .model = FromUtf8(model)}) {}

TemporaryPrinter::TemporaryPrinter(const computer::PrinterSpec& spec) : name_(spec.name) {
    const std::string name = ToUtf8(spec.name);
    // Adding a printer would replace one of that name, which may be the user's own.
    if (HANDLE existing = Open(Name(), PRINTER_ACCESS_USE)) {
        ClosePrinter(existing);
        throw ToolError(name + ": there is a printer of that name; choose another with --printer");
    }
    Require(computer::InstallPrinter(spec));
    handle_ = Open(Name(), PRINTER_ALL_ACCESS);
    if (handle_ == nullptr) {
        computer::RemovePrinter(name_);
        throw ToolError(name + ": the printer cannot be opened");
    }
}

TemporaryPrinter::~TemporaryPrinter() {
    ClosePrinter(handle_);
    computer::RemovePrinter(name_);
}

UiLanguage::UiLanguage(const std::string& tag) : before_(GetUserDefaultUILanguage()) {
    const auto* language = std::ranges::find(kLanguages, tag, &Language::tag);
    if (language == std::end(kLanguages)) {
        language = std::ranges::find(kLanguages, tag.substr(0, tag.find('-')), &Language::tag);
    }
    if (language == std::end(kLanguages)) {
        throw ToolError(tag + ": unknown language; known are " + LanguageTags());
    }
    Require(computer::SetUiLanguage(language->id));
}

UiLanguage::~UiLanguage() {
    computer::SetUiLanguage(before_);
}

std::string LanguageTags() {
    std::string tags;
    for (const Language& language : kLanguages) {
        tags += (tags.empty() ? "" : ", ") + std::string(language.tag);
    }
    return tags;
}

std::string ModelNote(const std::string& model) {
    const bool known = std::ranges::any_of(kFamilies, [&](std::string_view family) {
        return model.find(family) != std::string::npos;
    });
    return known ? "" : "note: " + model + " belongs to no known family of models";
}

}  // namespace kpdtool
