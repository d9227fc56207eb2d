// What the printer offers, and whether a job's record is acceptable.
#include "core/card_terms.h"
#include "core/driver_ui_contract.h"
#include "core/merge.h"
#include "core/owners.h"
#include "core/text.h"

#include <cstring>

namespace {

// Whether a default record could be built and this one (or none) merged into it. No answer depends
// on what would come of that, nor on the model, so it is not done and the spooler is asked nothing;
// but without the memory for it there is no answer.
bool CanBeMerged(const DEVMODEW* record) {
    return IsMergeable(record) && GlobalBlock<DevModeRecord>::Allocate();
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
    {DC_FIELDS, kDefaultFields, nullptr, 0},
    {DC_PAPERS, 1, kPapers, sizeof(kPapers)},
    {DC_PAPERSIZE, 1, kPaperSizes, sizeof(kPaperSizes)},
    {DC_MINEXTENT, kExtent, nullptr, 0},
    {DC_MAXEXTENT, kExtent, nullptr, 0},
    {DC_BINS, 1, kBins, sizeof(kBins)},
    {DC_DUPLEX, 1, nullptr, 0},
    {DC_SIZE, kPublicSize, nullptr, 0},
    {DC_EXTRA, kPrivateSize, nullptr, 0},
    {DC_VERSION, kSpecVersion, nullptr, 0},
    {DC_DRIVER, kDriverVersion, nullptr, 0},
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

}  // namespace

DWORD WINAPI DrvDeviceCapabilities(HANDLE, LPWSTR, WORD capability, PVOID output,
                                   PDEVMODEW record) {
    if (!CanBeMerged(record)) {
        return kNotAnswered;
    }
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

BOOL WINAPI DevQueryPrintEx(DEVQUERYPRINT_INFO* info) {
    return info != nullptr && info->pDevMode != nullptr && CanBeMerged(info->pDevMode);
}
