// The real computer: printers are added through its spooler, with the built kpdui.dll, which lies
// beside the program, as their driver's configuration file.
#include <windows.h>

#include <winspool.h>

#include "computer.h"
#include "core/module.h"
#include "ui/common/language.h"

#include <algorithm>
#include <type_traits>

namespace computer {
namespace {

LANGID chosenLanguage = 0;

// A function of the platform whose import this program has taken the place of.
template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(TEXT("kernel32.dll")), name)));
}

LANGID RealUiLanguage() {
    return Real<decltype(GetUserDefaultUILanguage)>("GetUserDefaultUILanguage")();
}

LANGID WINAPI ChosenUiLanguage() {
    return chosenLanguage != 0 ? chosenLanguage : RealUiLanguage();
}

bool notesLookups = false;
std::vector<ProfileLookup> notedLookups;

DWORD WINAPI NotedProfileString(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPWSTR text,
                                DWORD size, LPCWSTR file) {
    static const auto real = Real<decltype(GetPrivateProfileStringW)>("GetPrivateProfileStringW");
    if (notesLookups && section != nullptr && key != nullptr && file != nullptr) {
        notedLookups.push_back({file, section, key});
    }
    return real(section, key, defaultValue, text, size, file);
}

// Of Chinese the countries are languages of their own.
bool IsSameLanguage(LANGID a, LANGID b) {
    return PRIMARYLANGID(a) == PRIMARYLANGID(b) && (PRIMARYLANGID(a) != LANG_CHINESE || a == b);
}

std::string Reason(const char* what) {
    return std::string(what) + " failed with error " + std::to_string(GetLastError());
}

WideString BesideProgram(const WCHAR* name) {
    return (ProgramFolder() / name).wstring();
}

// True when the model's driver is there with a rendering half other than our library, which stands
// for it where nobody has installed the complete driver.
bool IsDriverComplete(const WideString& model) {
    WCHAR environment[] = TEXT("Windows x64");
    DWORD size = 0;
    DWORD count = 0;
    EnumPrinterDriversW(nullptr, environment, 3, nullptr, 0, &size, &count);
    std::vector<BYTE> buffer(size);
    if (!EnumPrinterDriversW(nullptr, environment, 3, buffer.data(), size, &size, &count)) {
        return false;
    }
    const auto* drivers = reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data());
    return std::any_of(drivers, drivers + count, [&](const DRIVER_INFO_3W& driver) {
        return driver.pName == model &&
               std::filesystem::path(driver.pDriverPath).filename() != TEXT("kpdui.dll");
    });
}

// A complete driver is left as it is, for printers that print with it. Otherwise the library itself
// stands for the rendering half, which is never called here. The spooler copies the files named
// into the driver directory.
std::string InstallDriver(const WideString& model) {
    if (IsDriverComplete(model)) {
        return {};
    }
    WCHAR environment[] = TEXT("Windows x64");
    WideString name = model;
    WideString file = BesideProgram(TEXT("kpdui.dll"));
    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = name.data();
    info.pEnvironment = environment;
    info.pDriverPath = file.data();
    info.pDataFile = file.data();
    info.pConfigFile = file.data();
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                             APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY) &&
        GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED) {
        return Reason("adding the printer driver");
    }
    return {};
}

void RemoveFromSpooler(const WideString& name) {
    WideString copy = name;
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (OpenPrinterW(copy.data(), &printer, &defaults)) {
        DeletePrinter(printer);
        ClosePrinter(printer);
    }
}

}  // namespace

std::string AddToSpooler(const PrinterSpec& spec) {
    if (std::string reason = InstallDriver(spec.model); !reason.empty()) {
        return reason;
    }
    if (spec.remote && !spec.port.empty() && !spec.port.starts_with(TEXT("\\\\"))) {
        return "a remote printer's port begins with two backslashes here";
    }
    RemoveFromSpooler(spec.name);
    PrinterSpec copy = spec;
    WCHAR filePort[] = TEXT("FILE:");
    WCHAR serverPort[] = TEXT("\\\\server\\cards");
    WCHAR processor[] = TEXT("winprint");
    WCHAR datatype[] = TEXT("RAW");
    PRINTER_INFO_2W info = {};
    info.pPrinterName = copy.name.data();
    info.pDriverName = copy.model.data();
    info.pPortName = !copy.port.empty() ? copy.port.data() : copy.remote ? serverPort : filePort;
    info.pPrintProcessor = processor;
    info.pDatatype = datatype;
    info.pDevMode = reinterpret_cast<DEVMODEW*>(copy.defaultRecord.data());
    HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (printer == nullptr) {
        return Reason("adding the printer");
    }
    ClosePrinter(printer);
    return {};
}

void RemovePrinter(const WideString& name) {
    RemoveFromSpooler(name);
    RegDeleteTreeW(HKEY_CURRENT_USER, (TEXT("Printers\\") + name).c_str());
}

std::string SetUiLanguage(LANGID language) {
    chosenLanguage = language;
    return {};
}

std::string LoadDriver(Driver& driver) {
    if (!IsSameLanguage(ChosenUiLanguage(), RealUiLanguage())) {
        return "kpdui.dll takes the user's own language; run this as a user of the other";
    }
    ModuleHandle = GetModuleHandleW(nullptr);
    InitLanguageFile();
    HMODULE library = LoadLibraryW(BesideProgram(TEXT("kpdui.dll")).c_str());
    if (library == nullptr) {
        return Reason("loading kpdui.dll");
    }
    const auto find = [=](auto& function, const char* name) {
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
            reinterpret_cast<void*>(GetProcAddress(library, name)));
        return function != nullptr;
    };
    return find(driver.DocumentProperties, "DrvDocumentProperties") &&
                   find(driver.DocumentPropertySheets, "DrvDocumentPropertySheets")
               ? ""
               : Reason("finding the sheet in kpdui.dll");
}

std::string WhyNoUser() {
    return {};
}

void ProvideApplicationData() {}

WideString TemporaryFolder() {
    return std::filesystem::temp_directory_path().parent_path().wstring();
}

ProfileNotes::ProfileNotes() {
    notedLookups.clear();
    notesLookups = true;
}

ProfileNotes::~ProfileNotes() {
    notesLookups = false;
}

std::vector<ProfileLookup> ProfileNotes::Lookups() const {
    return notedLookups;
}

std::filesystem::path DiskPath(const WideString& path) {
    return path;
}

std::filesystem::path ProgramFolder() {
    WCHAR path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

std::filesystem::path DriverFolder() {
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    return WideString(system) + TEXT("\\spool\\drivers\\x64\\3");
}

}  // namespace computer

// The driver code linked into this program asks for the language and for texts through its imports,
// which these take the place of. (The library that the spooler loads keeps its own.)
extern "C" {
extern LANGID(WINAPI* __imp_GetUserDefaultUILanguage)(void);
LANGID(WINAPI* __imp_GetUserDefaultUILanguage)(void) = computer::ChosenUiLanguage;
extern decltype(GetPrivateProfileStringW)* __imp_GetPrivateProfileStringW;
decltype(GetPrivateProfileStringW)* __imp_GetPrivateProfileStringW = computer::NotedProfileString;
}
