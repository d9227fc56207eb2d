// The computer that the stand-in plays.
#include "computer.h"
#include "platform/host.h"
#include "ui/common/module.h"

namespace computer {

std::string AddToSpooler(const PrinterSpec& spec) {
    host::AddPrinter({.name = spec.name,
                      .model = spec.model,
                      .port = spec.port.empty() ? TEXT("LPT1:") : spec.port,
                      .attributes = spec.remote ? DWORD{PRINTER_ATTRIBUTE_NETWORK}
                                                : DWORD{PRINTER_ATTRIBUTE_LOCAL},
                      .defaultRecord = spec.defaultRecord});
    return {};
}

void RemovePrinter(const WideString& name) {
    host::RemovePrinter(name);
}

std::string SetUiLanguage(LANGID language) {
    host::SetUiLanguage(language);
    return {};
}

std::string LoadDriver(Driver& driver) {
    DllInitialize(GetModuleHandleW(nullptr), DLL_PROCESS_ATTACH, nullptr);
    driver = {DrvDocumentProperties, DrvDocumentPropertySheets};
    return {};
}

std::string WhyNoUser() {
    return "nobody can use the sheet here; give it a --script, or --pictures to take";
}

void ProvideApplicationData() {
    constexpr WCHAR kFolder[] = TEXT("C:\\Users\\User\\AppData\\Roaming");
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, TEXT("Volatile Environment"), 0, nullptr, 0,
                        KEY_READ | KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return;
    }
    if (RegQueryValueExW(key, TEXT("APPDATA"), nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
        RegSetValueExW(key, TEXT("APPDATA"), 0, REG_SZ, reinterpret_cast<const BYTE*>(kFolder),
                       sizeof(kFolder));
    }
    RegCloseKey(key);
}

WideString TemporaryFolder() {
    const WideString folder = TEXT("C:\\Windows\\Temp");
    std::error_code ignored;
    std::filesystem::create_directories(DiskPath(folder), ignored);
    return folder;
}

ProfileNotes::ProfileNotes() : before_(host::ProfileLookups().size()) {}

ProfileNotes::~ProfileNotes() = default;

std::vector<ProfileLookup> ProfileNotes::Lookups() const {
    std::vector<ProfileLookup> noted;
    for (size_t i = before_; i < host::ProfileLookups().size(); ++i) {
        const host::ProfileLookup& lookup = host::ProfileLookups()[i];
        noted.push_back({lookup.file, lookup.section, lookup.key});
    }
    return noted;
}

std::filesystem::path DiskPath(const WideString& path) {
    return host::DiskPath(path.c_str());
}

std::filesystem::path ProgramFolder() {
    return std::filesystem::canonical("/proc/self/exe").parent_path();
}

std::filesystem::path DriverFolder() {
    return DiskPath(TEXT("C:\\Windows\\system32\\spool\\drivers\\x64\\3"));
}

}  // namespace computer
