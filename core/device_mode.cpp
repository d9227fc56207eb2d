// The defaults of the device mode record.
#include "core/device_mode.h"

#include "core/card_terms.h"
#include "core/text.h"
#include "core/ui_language.h"

#include <cstring>

void CopyWideBounded(WCHAR* destination, const WCHAR* source, size_t length) {
    size_t i = 0;
    for (; i + 1 < length && source[i] != 0; ++i) {
        destination[i] = source[i];
    }
    for (; i < length; ++i) {
        destination[i] = 0;
    }
}

namespace {

void SetPublicDefaults(DEVMODEW& mode) {
    const CardForm& form = CardFormTable[0];
    mode.dmSpecVersion = kSpecVersion;
    mode.dmDriverVersion = kDriverVersion;
    mode.dmSize = kPublicSize;
    mode.dmDriverExtra = kPrivateSize;
    mode.dmFields = kDefaultFields;
    mode.dmOrientation = kDefaultOrientation;
    mode.dmPaperSize = form.PaperSize;
    mode.dmPaperLength = form.Length;
    mode.dmPaperWidth = form.Width;
    mode.dmScale = 100;
    mode.dmCopies = 1;
    mode.dmDefaultSource = DMBIN_AUTO;
    mode.dmPrintQuality = kResolution;
    mode.dmColor = DMCOLOR_COLOR;
    mode.dmDuplex = DMDUP_SIMPLEX;
    mode.dmYResolution = kResolution;
    mode.dmTTOption = DMTT_BITMAP;
    mode.dmCollate = DMCOLLATE_TRUE;
    CopyWideBounded(mode.dmFormName, form.FormName, CCHFORMNAME);
    mode.dmNup = 1;
    mode.dmICMMethod = DMICMMETHOD_NONE;
    mode.dmICMIntent = DMICM_COLORIMETRIC;
    mode.dmMediaType = form.MediaType;
    mode.dmDitherType = DMDITHER_NONE;
}

void SetPrivateDefaults(DevModePrivate& part) {
    part.Reserved04 = 100;
    part.SkinTone = 1;
    part.ColorStyle = 1;
    part.ModelCode = kModelCode;
    part.Sharpness = 100;
    part.Gamma = 100;
    part.CardThickness = kThickness08;
    part.Reserved97 = 1;
    part.Reserved100 = 3;
    part.Reserved103 = 1;
    part.Reserved104 = 5;
    part.RibbonType = kRibbonYMCKO;
    part.Reserved106 = 1;
    part.CardType = kBlankCard;
    part.PrintSides = kFrontSide;
    part.ColorSides = kFrontSide;
    part.Reserved112 = 1;
    part.Reserved113 = 1;
    part.PrintingMode = kStandardMode;
    part.MagRetryTimes = 1;
    part.SkinSliderV = 128;
    part.SkinSliderH = 128;
    part.MagStartRecord = 1;
    part.OvercoatMode = kFrontGlossy | kBackGlossy;
    part.ResinKMode = kFrontCmyUnderK | kBackCmyUnderK;
    part.Reserved212 = 5;
    part.Reserved213 = 5;
    part.WhiteSkip = 1;
    part.Reserved341 = 128;
}

void ApplyLanguageRules(DevModePrivate& part) {
    switch (UiLanguageIndex(GetUserDefaultUILanguage())) {
        case kSimplifiedChinese:
            part.SkinTone = 2;
            [[fallthrough]];
        case kTraditionalChinese:
        case kJapanese:
        case kKorean:
            part.Reserved100 = 1;
            break;
    }
}

// Two models differ, each known by its whole name.
void ApplyModelRules(DevModePrivate& part, const WCHAR* modelName) {
    if (TextEquals(modelName, TEXT("Mirv KP-511"))) {
        part.PrintingMode = kPremiumPhotoMode;
    } else if (TextEquals(modelName, TEXT("Mirv KP-430e"))) {
        part.RibbonType = kRibbonK;
        part.CardType = kAdhesiveCard;
        part.ColorSides = 0;
        part.ResinOptions = kFrontResinDither;
    }
}

}  // namespace

void BuildPrivateDefaults(DEVMODEW* record, const WCHAR* modelName) {
    if (record->dmSize > kRecordSize - kPrivateSize) {
        return;
    }
    DevModePrivate part = {};
    SetPrivateDefaults(part);
    ApplyLanguageRules(part);
    if (modelName != nullptr) {
        ApplyModelRules(part, modelName);
    }
    // Copied as bytes: behind a public part of odd size the private part is not aligned.
    std::memcpy(reinterpret_cast<BYTE*>(record) + record->dmSize, &part, sizeof(part));
}

int BuildDefaultDevMode(DevModeRecord* record, const WCHAR* name, const WCHAR* modelName) {
    *record = {};
    if (name != nullptr) {
        CopyWideBounded(record->Public.dmDeviceName, name, CCHDEVICENAME);
    }
    SetPublicDefaults(record->Public);
    BuildPrivateDefaults(&record->Public, modelName);
    return 1;
}
