// The operations behind every call, over the stand-in: default record, merge, capability answer and
// the whole non-interactive call. The counters show what each costs the spooler and the heap.
#include "core/context.h"
#include "core/merge.h"
#include "platform/host.h"
#include "tools/computer/computer.h"

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

}  // namespace
