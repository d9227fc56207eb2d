// What the Color page's choices do to the record.
#include "ui/pages/color/color_settings.h"

#include <algorithm>

namespace {

constexpr BYTE kNeutralSkin = 128;

// The public part says whether the system manages colours; the preference follows it.
BYTE PreferenceOf(const DevModeRecord& record) {
    switch (record.Public.dmICMMethod) {
        case DMICMMETHOD_SYSTEM:
            return kWindowsColor;
        case DMICMMETHOD_NONE:
            return record.Private.ColorPreference == kNoColorPreference ? kNoColorPreference
                                                                        : kPrinterColor;
        default:
            return kPrinterColor;
    }
}

void CorrectSkinSliders(DevModePrivate& record) {
    if (record.ColorPreference != kPrinterColor || record.ColorStyle == kClassicStyle) {
        return;
    }
    record.SkinSliderV = kNeutralSkin;
    if (HasFurtherStyle(record)) {
        record.SkinSliderH = kNeutralSkin;
    }
}

}  // namespace

void ResetAdjustments(DevModePrivate& record) {
    for (const Adjustment& adjustment : kAdjustmentTable) {
        adjustment.Write(record, adjustment.Neutral);
    }
}

bool IsChosen(const DevModePrivate& record, const ColorChoice& choice) {
    return record.ColorPreference == choice.Preference &&
           (choice.Style == kAnyStyle || record.ColorStyle == choice.Style);
}

bool HasFurtherStyle(const DevModePrivate& record) {
    return record.ColorPreference == kPrinterColor && record.ColorStyle >= kFirstFurtherStyle;
}

void ChooseColor(DevModeRecord& record, const ColorChoice& choice) {
    record.Private.ColorPreference = choice.Preference;
    if (choice.Style != kAnyStyle) {
        record.Private.ColorStyle = static_cast<BYTE>(choice.Style);
    }
    record.Public.dmICMMethod = choice.IcmMethod;
    ResetAdjustments(record.Private);
    record.Private.AutoEnhance = 0;
}

void CorrectColorSettings(DevModeRecord& record) {
    DevModePrivate& part = record.Private;
    part.ColorPreference = PreferenceOf(record);
    CorrectSkinSliders(part);
    part.SkinTone = part.SkinTone == kYellowishTone ? kYellowishTone : kReddishTone;
    for (BYTE* flag : {&part.AutoEnhance, &part.ColorFlag, &part.SharpenMode}) {
        *flag = *flag == 1;
    }
    for (const Adjustment& adjustment : kAdjustmentTable) {
        adjustment.Write(part,
                         std::clamp(adjustment.Read(part), adjustment.Minimum, adjustment.Maximum));
    }
}
