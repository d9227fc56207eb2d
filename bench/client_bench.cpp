// How long an application waits: DeviceCapabilitiesW and DocumentPropertiesW on a card printer, on
// a printer of the platform's own PostScript driver, and the bare spooler calls that the card
// printer's answer cannot do without. Medians of rounds taken in turn, printed as ratios.
#include <windows.h>

#include <winspool.h>

#include "core/device_mode.h"
#include "tools/computer/computer.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

using WideString = std::basic_string<WCHAR>;

WideString cardPrinter = TEXT("Card printer");
WideString postScriptPrinter = TEXT("PostScript printer");

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

bool InstallPostScriptDriver(WCHAR* name) {
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    WideString driver = WideString(system) + TEXT("\\wineps.drv");
    WideString ppd = WritePpd();
    WCHAR environment[] = TEXT("Windows x64");
    DRIVER_INFO_3W info = {};
    info.cVersion = 3;
    info.pName = name;
    info.pEnvironment = environment;
    info.pDriverPath = driver.data();
    info.pDataFile = ppd.data();
    info.pConfigFile = driver.data();
    return AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                               APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY) ||
           GetLastError() == ERROR_PRINTER_DRIVER_ALREADY_INSTALLED;
}

bool InstallPostScriptPrinter() {
    WCHAR name[] = TEXT("Peer");
    if (!InstallPostScriptDriver(name)) {
        return false;
    }
    computer::RemovePrinter(postScriptPrinter);
    WCHAR port[] = TEXT("FILE:");
    WCHAR processor[] = TEXT("wineps");
    WCHAR datatype[] = TEXT("RAW");
    PRINTER_INFO_2W info = {};
    info.pPrinterName = postScriptPrinter.data();
    info.pDriverName = name;
    info.pPortName = port;
    info.pPrintProcessor = processor;
    info.pDatatype = datatype;
    HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    return printer != nullptr && ClosePrinter(printer);
}

HANDLE Open(WideString& name) {
    HANDLE printer = nullptr;
    OpenPrinterW(name.data(), &printer, nullptr);
    return printer;
}

LONG AskCapability(const WideString& name) {
    return DeviceCapabilitiesW(name.c_str(), TEXT("FILE:"), DC_COPIES, nullptr, nullptr);
}

LONG AskProperties(WideString& name, HANDLE printer, std::vector<BYTE>& buffer) {
    return DocumentPropertiesW(nullptr, printer, name.data(),
                               reinterpret_cast<DEVMODEW*>(buffer.data()), nullptr, DM_OUT_BUFFER);
}

// What a card printer's record cannot be built without: its information.
LONG BareSpoolerCalls(HANDLE printer) {
    DWORD size = 0;
    GetPrinterW(printer, 2, nullptr, 0, &size);
    std::vector<BYTE> info(size);
    return GetPrinterW(printer, 2, info.data(), size, &size);
}

struct Measured {
    const char* name;
    std::function<LONG()> call;  // gives more than 0
    std::vector<double> rounds;  // microseconds a call

    double median() {
        std::sort(rounds.begin(), rounds.end());
        return rounds[rounds.size() / 2];
    }
};

double MicrosecondsPerCall(const std::function<LONG()>& call) {
    constexpr int kCalls = 200;
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    for (int i = 0; i < kCalls; ++i) {
        call();
    }
    QueryPerformanceCounter(&end);
    return 1e6 * static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(frequency.QuadPart) / kCalls;
}

}  // namespace

int main() {
    if (const std::string reason =
            computer::InstallPrinter({cardPrinter, TEXT("Mirv KP-41"), {}, {}});
        !reason.empty() || !InstallPostScriptPrinter()) {
        std::fprintf(stderr, "the printers cannot be added: %s\n", reason.c_str());
        return 1;
    }
    HANDLE card = Open(cardPrinter);
    HANDLE postScript = Open(postScriptPrinter);
    std::vector<BYTE> cardRecord(
        DocumentPropertiesW(nullptr, card, cardPrinter.data(), nullptr, nullptr, 0));
    const LONG postScriptSize =
        DocumentPropertiesW(nullptr, postScript, postScriptPrinter.data(), nullptr, nullptr, 0);
    if (cardRecord.size() != sizeof(DevModeRecord) || postScriptSize <= 0) {
        std::fprintf(stderr, "a driver does not answer\n");
        return 1;
    }
    std::vector<BYTE> postScriptRecord(postScriptSize);

    Measured measured[] = {
        {"DeviceCapabilitiesW, card printer", [&] { return AskCapability(cardPrinter); }, {}},
        {"DeviceCapabilitiesW, PostScript", [&] { return AskCapability(postScriptPrinter); }, {}},
        {"DocumentPropertiesW, card printer",
         [&] { return AskProperties(cardPrinter, card, cardRecord); },
         {}},
        {"DocumentPropertiesW, PostScript",
         [&] { return AskProperties(postScriptPrinter, postScript, postScriptRecord); },
         {}},
        {"the bare spooler calls", [&] { return BareSpoolerCalls(card); }, {}},
    };
    for (Measured& m : measured) {
        if (m.call() <= 0) {
            std::fprintf(stderr, "%s fails\n", m.name);
            return 1;
        }
    }
    for (int round = 0; round < 11; ++round) {
        for (Measured& m : measured) {
            m.rounds.push_back(MicrosecondsPerCall(m.call));
        }
    }
    for (Measured& m : measured) {
        std::printf("%-36s %8.1f us\n", m.name, m.median());
    }
    std::printf("DeviceCapabilitiesW, card printer to PostScript:        %.2f\n",
                measured[0].median() / measured[1].median());
    std::printf("DocumentPropertiesW, card printer to PostScript:        %.2f\n",
                measured[2].median() / measured[3].median());
    std::printf("DocumentPropertiesW, card printer to bare spooler calls: %.2f\n",
                measured[2].median() / measured[4].median());
    ClosePrinter(card);
    ClosePrinter(postScript);
    computer::RemovePrinter(cardPrinter);
    computer::RemovePrinter(postScriptPrinter);
    return 0;
}
