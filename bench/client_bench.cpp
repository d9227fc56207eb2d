// How long an application waits: DeviceCapabilitiesW and DocumentPropertiesW on a card printer, on
// a printer of the platform's own PostScript driver, and the bare spooler calls that the card
// printer's answer cannot do without. Medians of rounds taken in turn, printed as ratios.
#include <windows.h>

#include <winspool.h>

#include "bench/post_script_printer.h"
#include "core/device_mode.h"
#include "tools/computer/computer.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

using computer::WideString;

WideString cardPrinter = TEXT("Card printer");
WideString postScriptPrinter = TEXT("PostScript printer");

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
        !reason.empty() || !InstallPostScriptPrinter(postScriptPrinter)) {
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
