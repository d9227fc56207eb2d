// What the printer offers, and whether a job's record is acceptable.
#include "core/card_terms.h"
#include "core/driver_ui_contract.h"
#include "core/merge.h"
#include "core/owners.h"
#include "core/text.h"

#include <cstring>

namespace {

// Both answers look only at what is the same on every model, so the spooler need not be asked which
// model it is.
GlobalBlock<DevModeRecord> MergedRecord(const WCHAR* name, const DEVMODEW* record) {
    auto merged = GlobalBlock<DevModeRecord>::Allocate();
    if (!merged || !BuildDefaultDevMode(merged.get(), name, nullptr) ||
        !MergeDevMode(merged.get(), record, nullptr)) {
        return {};
    }
    return merged;
}

// One answer: its value, and the bytes it writes into an output buffer.
struct Answer {
    WORD Capability;
    DWORD Value;
    const void* Written;
    size_t WrittenSize;
};

// Callers give slots of 24 characters for a bin's name and of 64 for a form's or file's; the text
// and its terminator are written, the rest of the slot is not.
constexpr WCHAR kBinName[] = TEXT("Auto-Feed");
constexpr WCHAR kNoFiles[] = TEXT("");
constexpr WORD kBins[] = {DMBIN_AUTO};
constexpr LONG kResolutions[] = {kResolution, kResolution};
constexpr CardForm kForm = CardFormTable[0];
constexpr WORD kPapers[] = {static_cast<WORD>(kForm.PaperSize)};
constexpr LONG kPaperSizes[] = {kForm.Width, kForm.Length};
constexpr size_t kFormNameSize = (WideView(kForm.FormName).size() + 1) * sizeof(WCHAR);
constexpr DWORD kExtent = static_cast<DWORD>(MAKELONG(kForm.Width, kForm.Length));

constexpr Answer kAnswers[] = {
    {DC_PAPERS, 1, kPapers, sizeof(kPapers)},
    {DC_PAPERSIZE, 1, kPaperSizes, sizeof(kPaperSizes)},
    {DC_MINEXTENT, kExtent, nullptr, 0},
    {DC_MAXEXTENT, kExtent, nullptr, 0},
    {DC_BINS, 1, kBins, sizeof(kBins)},
    {DC_DUPLEX, 1, nullptr, 0},
    {DC_BINNAMES, 1, kBinName, sizeof(kBinName)},
    {DC_ENUMRESOLUTIONS, 1, kResolutions, sizeof(kResolutions)},
    {DC_FILEDEPENDENCIES, 0, kNoFiles, sizeof(kNoFiles)},
    {DC_TRUETYPE, 1, nullptr, 0},
    {DC_PAPERNAMES, 1, kForm.FormName, kFormNameSize},
    {DC_ORIENTATION, 90, nullptr, 0},
    {DC_COPIES, kMaxCopies, nullptr, 0},
    {DC_COLLATE, 0, nullptr, 0},
    {DC_MEDIAREADY, 1, kForm.FormName, kFormNameSize},
    {DC_STAPLE, 0, nullptr, 0},
    {DC_COLORDEVICE, 1, nullptr, 0},
};

constexpr DWORD kNotAnswered = static_cast<DWORD>(-1);

DWORD FixedAnswer(WORD capability, void* output) {
    for (const Answer& answer : kAnswers) {
        if (answer.Capability == capability) {
            if (output != nullptr && answer.WrittenSize != 0) {
                std::memcpy(output, answer.Written, answer.WrittenSize);
            }
            return answer.Value;
        }
    }
    return kNotAnswered;
}

}  // namespace

DWORD WINAPI DrvDeviceCapabilities(HANDLE, LPWSTR deviceName, WORD capability, PVOID output,
                                   PDEVMODEW record) {
    const auto merged = MergedRecord(deviceName, record);
    if (!merged) {
        return kNotAnswered;
    }
    switch (capability) {
        case DC_FIELDS:
            return merged->Public.dmFields;
        case DC_SIZE:
            return merged->Public.dmSize;
        case DC_EXTRA:
            return merged->Public.dmDriverExtra;
        case DC_VERSION:
            return merged->Public.dmSpecVersion;
        case DC_DRIVER:
            return merged->Public.dmDriverVersion;
        default:
            return FixedAnswer(capability, output);
    }
}

BOOL WINAPI DevQueryPrintEx(DEVQUERYPRINT_INFO* info) {
    return info != nullptr && info->pDevMode != nullptr && MergedRecord(nullptr, info->pDevMode);
}
