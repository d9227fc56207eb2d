// What the Magnetic Encoding page makes of the record, and which of its controls can be used.
#pragma once

#include "core/device_mode.h"

constexpr int kMostRetries = 10;
constexpr int kLastRecord = 2147483647;

/// Brings what the page shows into the form and the range that it can show.
void CorrectEncodingSettings(DevModePrivate& record);
/// The same of the coercivity alone.
void CorrectCoercivity(DevModePrivate& record);

/// Controls that are enabled and disabled together.
enum EncodingControls : unsigned {
    kNoControls = 0,
    kCommonControls = 1,  ///< whatever the stripe's data come from
    kTrackControls = 2,
    kDatabaseControls = 4,
    kFilterControls = 8,
};

/// What decides on them.
struct EncodingState {
    bool HasEncoder;  ///< by the printer's answer
    bool IsRemotePrinter;
    BYTE CardType;    ///< CardTypeCode
    BYTE MagOptions;  ///< MagOptionBits
};

/// The groups that are enabled.
unsigned EnabledControls(const EncodingState& state);
