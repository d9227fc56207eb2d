// How long a user waits for the document sheet: from the application's call until the sheet is seen
// with its first page painted, for a card printer and for a printer of the platform's own
// PostScript driver. Both are opened in turn; the medians of the rounds are printed, and their
// ratio.
//
// Run with everything on one processor, the platform's server too: across processors its wake-ups
// drown the difference. In the language of the process's user, in the environment that
// `prepare_windows` of cmake/environment.sh makes:
//   taskset -c 0 xvfb-run -a -s "-screen 0 1280x1024x24"
//       env LC_ALL=de_DE.UTF-8 wine build/windows/sheet_bench.exe [rounds]
// Both sheets go through the same common property sheet library, whose path is printed: with
// "compstui=n,b" ours, with "compstui=b" the platform's own.
#include <windows.h>

#include <prsht.h>
#include <winspool.h>

#include "bench/post_script_printer.h"
#include "core/device_mode.h"
#include "tools/computer/computer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using computer::WideString;

// The sheet that is being opened. The timer's procedure, which has no parameter, finds it here.
LARGE_INTEGER shown;

BOOL CALLBACK KeepVisible(HWND window, LPARAM found) {
    if (IsWindowVisible(window)) {
        *reinterpret_cast<HWND*>(found) = window;
    }
    return TRUE;
}

BOOL CALLBACK IsPainted(HWND window, LPARAM) {
    return !IsWindowVisible(window) || !GetUpdateRect(window, nullptr, FALSE);
}

// Timers are told of when nothing is left to be painted.
void CALLBACK CloseWhenShown(HWND, UINT, UINT_PTR timer, DWORD) {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    HWND sheet = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), KeepVisible, reinterpret_cast<LPARAM>(&sheet));
    const auto page = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    if (!IsWindowVisible(page) || !IsPainted(sheet, 0) || !EnumChildWindows(sheet, IsPainted, 0)) {
        return;
    }
    shown = now;
    KillTimer(nullptr, timer);
    PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
}

class Sheet {
  public:
    Sheet(const char* what, const WideString& name) : what_(what), name_(name) {
        OpenPrinterW(name_.data(), &printer_, nullptr);
        record_.resize(std::max(0L, Ask(nullptr, 0)));
    }
    ~Sheet() { ClosePrinter(printer_); }

    bool Works() { return !record_.empty() && Ask(Record(), DM_OUT_BUFFER) == IDOK && Open() > 0; }
    // Milliseconds; 0 when the sheet did not come.
    double Open() {
        constexpr UINT kShorterThanAnySheet = 10;
        LARGE_INTEGER frequency, start;
        shown.QuadPart = 0;
        SetTimer(nullptr, 0, kShorterThanAnySheet, CloseWhenShown);
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&start);
        Ask(Record(), DM_IN_PROMPT | DM_IN_BUFFER | DM_OUT_BUFFER);
        return shown.QuadPart == 0 ? 0
                                   : 1e3 * static_cast<double>(shown.QuadPart - start.QuadPart) /
                                         static_cast<double>(frequency.QuadPart);
    }
    void Measure() { rounds_.push_back(Open()); }
    double Report() {
        std::sort(rounds_.begin(), rounds_.end());
        const double median = rounds_[rounds_.size() / 2];
        std::printf("%-20s %7.2f ms (quartiles %.2f, %.2f)\n", what_, median,
                    rounds_[rounds_.size() / 4], rounds_[rounds_.size() * 3 / 4]);
        return median;
    }

  private:
    DEVMODEW* Record() { return reinterpret_cast<DEVMODEW*>(record_.data()); }
    LONG Ask(DEVMODEW* record, DWORD mode) {
        return DocumentPropertiesW(nullptr, printer_, name_.data(), record,
                                   (mode & DM_IN_BUFFER) != 0 ? record : nullptr, mode);
    }

    const char* what_;
    WideString name_;
    HANDLE printer_ = nullptr;
    std::vector<BYTE> record_;
    std::vector<double> rounds_;
};

void PrintLibrary() {
    char path[MAX_PATH] = "none";
    GetModuleFileNameA(GetModuleHandleA("compstui.dll"), path, MAX_PATH);
    std::printf("sheets of %s, user language %04x\n", path, GetUserDefaultUILanguage());
}

int Compare(const WideString& cardPrinter, const WideString& postScriptPrinter, int rounds) {
    Sheet card("card printer", cardPrinter);
    Sheet postScript("PostScript printer", postScriptPrinter);
    if (!card.Works() || !postScript.Works()) {
        std::fprintf(stderr, "a sheet cannot be shown\n");
        return 1;
    }
    for (int round = 0; round < rounds; ++round) {
        card.Measure();
        postScript.Measure();
    }
    PrintLibrary();
    const double ours = card.Report();
    std::printf("ratio %.2f\n", ours / postScript.Report());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const WideString card = TEXT("Card printer");
    const WideString postScript = TEXT("PostScript printer");
    std::string reason = computer::InstallPackageSources(KPD_PACKAGE_FOLDER);
    if (reason.empty()) {
        reason = computer::InstallPrinter({card, TEXT("Mirv KP-41"), {}, {}});
    }
    if (!reason.empty() || !InstallPostScriptPrinter(postScript)) {
        std::fprintf(stderr, "the printers cannot be added: %s\n", reason.c_str());
        return 1;
    }
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 41;
    const int status = Compare(card, postScript, rounds);
    computer::RemovePrinter(card);
    computer::RemovePrinter(postScript);
    return status;
}
