// The rules of the Magnetic Encoding page.
#include "ui/pages/magnetic/encoding_rules.h"

#include <algorithm>

void CorrectEncodingSettings(DevModePrivate& record) {
    record.MagEncoderSelect = record.MagEncoderSelect == 1;
    CorrectCoercivity(record);
    for (BYTE* retries : {&record.MagRetryCards, &record.MagRetryTimes}) {
        *retries = std::min(*retries, BYTE{kMostRetries});
    }
    record.MagStartRecord = std::clamp<DWORD>(record.MagStartRecord, 1, kLastRecord);
}

void CorrectCoercivity(DevModePrivate& record) {
    record.MagCoercivity = record.MagCoercivity == 1;
}

// A remote printer cannot be asked and is believed to have an encoder.
unsigned EnabledControls(const EncodingState& state) {
    const bool hasStripe =
        state.CardType == kMagneticStripeCard || state.CardType == kChipMagneticCard;
    if (!hasStripe || (!state.HasEncoder && !state.IsRemotePrinter)) {
        return kNoControls;
    }
    const bool usesDatabase = (state.MagOptions & kUsingDatabase) != 0;
    const bool filters = (state.MagOptions & kPrefixSuffixFilter) != 0;
    return kCommonControls | (usesDatabase ? kDatabaseControls : kTrackControls) |
           (filters ? kFilterControls : kNoControls);
}
