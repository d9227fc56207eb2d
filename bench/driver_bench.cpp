// The operations behind every call, over the stand-in: default record, merge, capability answer and
// the whole non-interactive call. The counters show what each costs the spooler and the heap.
#include "core/context.h"
#include "core/merge.h"
#include "platform/host.h"
#include "resources/resource.h"
#include "tools/computer/computer.h"
#include "ui/common/language.h"
#include "ui/common/module.h"
#include "ui/pages/device_options/card_preview.h"
#include "ui/pages/device_options/device_options_page.h"

#include <prsht.h>

#include <benchmark/benchmark.h>

namespace {

constexpr WCHAR kModel[] = TEXT("Mirv KP-41");

HANDLE OpenThePrinter() {
    WCHAR name[] = TEXT("Printer");
    computer::InstallPrinter({name, kModel, {}, {}});
    HANDLE printer = nullptr;
    OpenPrinterW(name, &printer, nullptr);
    return printer;
}

/// Adds, per call, the spooler's round trips and the global blocks taken.
class CallCosts {
  public:
    explicit CallCosts(benchmark::State& state) : state_(state) {}
    ~CallCosts() {
        Report("spooler_calls", host::Call::kSpooler, spooler_);
        Report("global_blocks", host::Call::kGlobal, global_);
    }

  private:
    void Report(const char* name, host::Call kind, unsigned before) {
        state_.counters[name] =
            benchmark::Counter(host::CallCount(kind) - before, benchmark::Counter::kAvgIterations);
    }
    benchmark::State& state_;
    unsigned spooler_ = host::CallCount(host::Call::kSpooler);
    unsigned global_ = host::CallCount(host::Call::kGlobal);
};

void DefaultRecord(benchmark::State& state) {
    const CallCosts costs(state);
    DevModeRecord record;
    for (auto _ : state) {
        BuildDefaultDevMode(&record, TEXT("Printer"), kModel);
        benchmark::DoNotOptimize(record);
    }
}
BENCHMARK(DefaultRecord);

// What any merge must do at least: copy the record there and back.
void CopyTwoRecords(benchmark::State& state) {
    DevModeRecord record = {};
    DevModeRecord copy = {};
    for (auto _ : state) {
        copy = record;
        benchmark::DoNotOptimize(copy);
        record = copy;
        benchmark::DoNotOptimize(record);
    }
}
BENCHMARK(CopyTwoRecords);

void Merge(benchmark::State& state) {
    const CallCosts costs(state);
    DevModeRecord current;
    DevModeRecord incoming;
    BuildDefaultDevMode(&current, TEXT("Printer"), kModel);
    BuildDefaultDevMode(&incoming, TEXT("Printer"), kModel);
    for (auto _ : state) {
        MergeDevMode(&current, &incoming.Public, kModel);
        benchmark::DoNotOptimize(current);
    }
}
BENCHMARK(Merge);

void CapabilityAnswer(benchmark::State& state) {
    const CallCosts costs(state);
    WCHAR name[] = TEXT("Printer");
    DevModeRecord record;
    BuildDefaultDevMode(&record, name, kModel);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            DrvDeviceCapabilities(nullptr, name, DC_COPIES, nullptr, &record.Public));
    }
}
BENCHMARK(CapabilityAnswer);

void NonInteractiveCall(benchmark::State& state) {
    HANDLE printer = OpenThePrinter();
    {
        const CallCosts costs(state);
        DevModeRecord record;
        BuildDefaultDevMode(&record, TEXT("Printer"), kModel);
        for (auto _ : state) {
            DOCUMENTPROPERTYHEADER header = {};
            header.hPrinter = printer;
            header.pdmIn = &record.Public;
            header.pdmOut = &record.Public;
            header.fMode = DM_IN_BUFFER | DM_OUT_BUFFER;
            benchmark::DoNotOptimize(
                DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header)));
        }
    }
    ClosePrinter(printer);
}
BENCHMARK(NonInteractiveCall);

// ---- The pictures of the Device Options page ----------------------------------------------------

constexpr int kPageWidth = 450;
constexpr int kPageHeight = 366;

// The page by itself, both sides printed with all that can stand on them.
class OpenPage {
  public:
    OpenPage() {
        ModuleHandle = GetModuleHandleW(nullptr);
        InitLanguageFile();
        BuildDefaultDevMode(&context_.WorkingDevMode, nullptr, nullptr);
        context_.IsDuplexModel = 1;
        DevModePrivate& record = context_.WorkingDevMode.Private;
        record.PrintSides = record.ColorSides = record.ResinOptions = 3;
        record.CardType = kChipMagneticCard;
        parent_ = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0,
                                  kPageWidth, kPageHeight, nullptr, nullptr, nullptr, nullptr);
        PROPSHEETPAGEW record_of_page = {};
        record_of_page.lParam = reinterpret_cast<LPARAM>(&context_);
        page_ =
            CreateDialogParamW(ModuleHandle, MAKEINTRESOURCEW(IDD_DEVICE_OPTIONS), parent_,
                               DeviceOptionsPageProc, reinterpret_cast<LPARAM>(&record_of_page));
        ShowWindow(page_, SW_SHOW);
        UpdateWindow(page_);
    }
    ~OpenPage() { DestroyWindow(parent_); }
    HWND get() const { return page_; }

  private:
    DriverContext context_ = {};
    HWND parent_ = nullptr;
    HWND page_ = nullptr;
};

// Both previews and the page order.
void PaintPictures(benchmark::State& state) {
    const OpenPage page;
    for (auto _ : state) {
        RedrawWindow(page.get(), nullptr, nullptr, RDW_INVALIDATE | RDW_NOCHILDREN);
        UpdateWindow(page.get());
    }
}
BENCHMARK(PaintPictures);

// What any painting of that size must do at least: scale three pictures onto the page.
void ScaleThreePictures(benchmark::State& state) {
    HDC screen = GetDC(nullptr);
    const MemoryCanvas page(screen, kPageWidth, kPageHeight);
    const MemoryCanvas card(screen, kLandscapeCard.cx, kLandscapeCard.cy);
    const MemoryCanvas order(screen, 210, 330);
    ReleaseDC(nullptr, screen);
    for (auto _ : state) {
        StretchSmoothly(page.get(), {0, 0, 162, 101}, card.get(), kLandscapeCard);
        StretchSmoothly(page.get(), {180, 0, 342, 101}, card.get(), kLandscapeCard);
        StretchSmoothly(page.get(), {360, 0, 441, 138}, order.get(), {210, 330});
    }
}
BENCHMARK(ScaleThreePictures);

}  // namespace
