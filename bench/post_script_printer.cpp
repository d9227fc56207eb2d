// Adds the peer through the spooler, as the platform's own driver for any PostScript printer.
#include "bench/post_script_printer.h"

#include <winspool.h>

namespace {

using computer::WideString;

// The smallest description that the PostScript driver accepts.
constexpr char kPpd[] =
    "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"PEER.PPD\"\n"
    "*Manufacturer: \"Peer\"\n*Product: \"(Peer)\"\n*PSVersion: \"(3010.000) 0\"\n"
    "*ModelName: \"Peer\"\n*ShortNickName: \"Peer\"\n*NickName: \"Peer\"\n"
    "*LanguageLevel: \"3\"\n*ColorDevice: True\n*DefaultResolution: 300dpi\n"
    "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n"
    "*PageSize A4/A4: \"<</PageSize[595 842]>>setpagedevice\"\n*CloseUI: *PageSize\n"
    "*OpenUI *PageRegion: PickOne\n*DefaultPageRegion: A4\n"
    "*PageRegion A4/A4: \"<</PageSize[595 842]>>setpagedevice\"\n*CloseUI: *PageRegion\n"
    "*DefaultImageableArea: A4\n*ImageableArea A4/A4: \"0 0 595 842\"\n"
    "*DefaultPaperDimension: A4\n*PaperDimension A4/A4: \"595 842\"\n";

WideString WritePpd() {
    WCHAR folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    const WideString path = WideString(folder) + TEXT("peer.ppd");
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, kPpd, sizeof(kPpd) - 1, &written, nullptr);
    CloseHandle(file);
    return path;
}

WideString BesideProgram(const WCHAR* name) {
    WCHAR path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const WideString program = path;
    return program.substr(0, program.find_last_of(TEXT("\\/")) + 1) + name;
}

bool InstallPostScriptDriver(WCHAR* name, PostScriptUi ui) {
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    WideString driver = WideString(system) + TEXT("\\wineps.drv");
    WideString config = ui == PostScriptUi::kOurs ? BesideProgram(TEXT("kpdui.dll")) : driver;
    WideString ppd = WritePpd();
    WCHAR environment[] = TEXT("Windows x64");
    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = name;
    info.pEnvironment = environment;
    info.pDriverPath = driver.data();
    info.pDataFile = ppd.data();
    info.pConfigFile = config.data();
    return AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                               APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY) ||
           GetLastError() == ERROR_PRINTER_DRIVER_ALREADY_INSTALLED;
}

}  // namespace

bool InstallPostScriptPrinter(const WideString& name, PostScriptUi ui, const WideString& port) {
    WideString driver = ui == PostScriptUi::kOurs ? TEXT("Mirv KP-41 PS") : TEXT("Peer");
    if (!InstallPostScriptDriver(driver.data(), ui)) {
        return false;
    }
    computer::RemovePrinter(name);
    WideString copy = name;
    WideString portCopy = port;
    // The PostScript driver's own processor takes no documents that are PostScript already.
    WCHAR processor[] = TEXT("winprint");
    WCHAR datatype[] = TEXT("RAW");
    PRINTER_INFO_2W info = {};
    info.pPrinterName = copy.data();
    info.pDriverName = driver.data();
    info.pPortName = portCopy.data();
    info.pPrintProcessor = processor;
    info.pDatatype = datatype;
    HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    return printer != nullptr && ClosePrinter(printer);
}
