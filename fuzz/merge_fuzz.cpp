// Merging any record: the result is always legal, a second merge changes nothing, nothing behind
// the incoming record's own sizes is read.
#include "core/merge.h"
#include "fuzz_support.h"

namespace {

void RequireLegal(const DevModeRecord& record) {
    const DEVMODEW& mode = record.Public;
    const DevModePrivate& part = record.Private;
    Require(mode.dmSpecVersion == 0x0401 && mode.dmDriverVersion == 0x0500 && mode.dmSize == 220 &&
                mode.dmDriverExtra == 364,
            "identification");
    Require(mode.dmOrientation == 1 || mode.dmOrientation == 2, "orientation");
    Require(mode.dmScale >= 1 && mode.dmScale <= 1000, "scale");
    Require(mode.dmCopies >= 1 && mode.dmCopies <= 9999, "copies");
    Require(mode.dmDuplex >= 1 && mode.dmDuplex <= 3, "duplex");
    Require(mode.dmCollate == 0 || mode.dmCollate == 1, "collate");
    Require(mode.dmColor == 1 || mode.dmColor == 2, "color");
    Require(mode.dmPrintQuality == 300 && mode.dmYResolution == 300, "resolution");
    Require(mode.dmPaperWidth == 544, "card width");
    Require(part.CardSizeKind == 0 ? mode.dmPaperSize == 560 && mode.dmPaperLength == 859
                                   : mode.dmPaperSize == 0 && mode.dmMediaType == 0,
            "card form");
    Require((mode.dmPaperLength == 1441) == (part.CardSizeKind == 2), "long card");
    Require(part.CardSizeKind <= 2 && part.ModelCode == 32 && part.RibbonType <= 14 &&
                part.ColorPreference <= 2 && part.Reserved103 <= 1 && part.AdvanceToolFlag <= 1 &&
                part.ReservedText[39] == 0,
            "checked private fields");
    Require(mode.dmDeviceName[31] == 0 && mode.dmFormName[31] == 0, "names are terminated");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const test::GuardedBuffer incoming = GuardedRecord({reinterpret_cast<const char*>(data), size});
    DevModeRecord current;
    BuildDefaultDevMode(&current, TEXT("Printer"), TEXT("Mirv KP-41"));
    const bool merged = MergeDevMode(&current, incoming.record(), nullptr) == 1;
    Require(merged == IsMergeable(incoming.record()), "told beforehand");
    if (!merged) {
        return 0;
    }
    RequireLegal(current);

    DevModeRecord again = current;
    Require(MergeDevMode(&again, incoming.record(), nullptr) == 1, "merges again");
    Require(std::memcmp(&again, &current, sizeof(current)) == 0, "merging twice changes no more");
    DevModeRecord self = current;
    Require(MergeDevMode(&self, &current.Public, nullptr) == 1, "merges with itself");
    RequireLegal(self);

    // An application that passed this record gets its own layout back and nothing behind it.
    const WORD outSize = std::min(incoming.record()->dmSize, current.Public.dmSize);
    const WORD outExtra = std::min(incoming.record()->dmDriverExtra, current.Public.dmDriverExtra);
    const test::GuardedBuffer out((size_t{outSize} + outExtra + 3) / 4 * 4);
    const bool hasHeader = outSize >= kHeaderSize;
    Require(CopyDevModeOut(&current, incoming.record(), out.record()) == hasHeader, "copies out");
    Require(
        !hasHeader || (out.record()->dmSize == outSize && out.record()->dmDriverExtra == outExtra),
        "the caller's layout");
    return 0;
}
