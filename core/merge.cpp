// Merging, converting and handing out device mode records.
#include "core/merge.h"

#include "core/card_terms.h"
#include "core/owners.h"

#include <algorithm>
#include <cstring>

namespace {

// What a record says of itself, read as a copy: the caller's record may be shorter than DEVMODEW,
// and a destination's own is put back after the public part has been copied over it.
struct RecordHead {
    WORD SpecVersion;
    WORD DriverVersion;
    WORD Size;
    WORD Extra;
};
static_assert(sizeof(RecordHead) ==
              offsetof(DEVMODEW, dmFields) - offsetof(DEVMODEW, dmSpecVersion));

RecordHead HeadOf(const DEVMODEW* record) {
    RecordHead head;
    std::memcpy(&head, reinterpret_cast<const BYTE*>(record) + offsetof(DEVMODEW, dmSpecVersion),
                sizeof(head));
    return head;
}

void SetHead(DEVMODEW* record, const RecordHead& head) {
    std::memcpy(reinterpret_cast<BYTE*>(record) + offsetof(DEVMODEW, dmSpecVersion), &head,
                sizeof(head));
}

// The version that a public part's size implies, the record's own for any other size; 0 when the
// record cannot be used.
WORD UsableSpecVersion(const RecordHead& head) {
    switch (head.Size) {
        case 188:
            return 0x0320;
        case 212:
            return 0x0400;
        case kPublicSize:
            return kSpecVersion;
        default:
            return head.SpecVersion;
    }
}

// Its private part goes into a record with a private part of `extra` bytes.
bool GivesPrivatePart(const RecordHead& head, WORD extra) {
    return head.DriverVersion == kDriverVersion && head.SpecVersion == kSpecVersion &&
           head.Extra == extra;
}

}  // namespace

DWORD PublicField(const DEVMODEW* record, size_t offset) {
    const size_t size = HeadOf(record).Size;
    DWORD value = 0;
    if (size > offset) {
        std::memcpy(&value, reinterpret_cast<const BYTE*>(record) + offset,
                    std::min(size - offset, sizeof(value)));
    }
    return value;
}

int CopyPublicPart(const DEVMODEW* source, DEVMODEW* destination) {
    if (source == nullptr || destination == nullptr) {
        return -1;
    }
    const RecordHead from = HeadOf(source);
    RecordHead to = HeadOf(destination);
    to.SpecVersion = UsableSpecVersion(to);
    if (UsableSpecVersion(from) == 0 || to.SpecVersion == 0 || to.Size < kHeaderSize) {
        return -1;
    }
    const bool namesPaper = (PublicField(source, offsetof(DEVMODEW, dmFields)) & DM_PAPERSIZE) != 0;
    const int bytes = std::min(from.Size, to.Size);
    std::memmove(destination, source, bytes);
    constexpr size_t kPaperSizeAt = offsetof(DEVMODEW, dmPaperSize);
    if (namesPaper && to.Size >= kPaperSizeAt + sizeof(SHORT)) {
        std::memcpy(reinterpret_cast<BYTE*>(destination) + kPaperSizeAt,
                    &CardFormTable[0].PaperSize, sizeof(SHORT));
    }
    SetHead(destination, to);
    return bytes;
}

int ConvertDevModeCopy(const DEVMODEW* source, DEVMODEW* destination) {
    if (source == nullptr || destination == nullptr) {
        return -1;
    }
    const RecordHead from = HeadOf(source);  // before it may be written over
    const RecordHead to = HeadOf(destination);
    const int publicBytes = CopyPublicPart(source, destination);
    if (publicBytes < 0 || !GivesPrivatePart(from, to.Extra)) {
        return publicBytes;
    }
    std::memmove(reinterpret_cast<BYTE*>(destination) + to.Size,
                 reinterpret_cast<const BYTE*>(source) + from.Size, from.Extra);
    return publicBytes + from.Extra;
}

bool IsMergeable(const DEVMODEW* incoming) {
    if (incoming == nullptr) {
        return true;
    }
    const RecordHead head = HeadOf(incoming);
    return UsableSpecVersion(head) != 0 && (head.Size > 0 || GivesPrivatePart(head, kPrivateSize));
}

int CopyDevModeOut(const DevModeRecord* working, const DEVMODEW* input, DEVMODEW* destination) {
    if (destination == nullptr) {
        return 0;
    }
    const DEVMODEW* source = &working->Public;
    const RecordHead own = HeadOf(source);
    if (input == nullptr) {
        std::memcpy(destination, working, size_t{own.Size} + own.Extra);
        return 1;
    }
    const RecordHead asked = HeadOf(input);
    RecordHead shape = own;
    if (asked.Size < own.Size) {
        shape.Size = asked.Size;
        shape.SpecVersion = asked.SpecVersion;
    }
    if (asked.Extra < own.Extra) {
        shape.Extra = asked.Extra;
        shape.DriverVersion = asked.DriverVersion;
    }
    if (shape.Size < kHeaderSize) {
        return 0;  // the destination may end before its header does
    }
    SetHead(destination, shape);
    return ConvertDevModeCopy(source, destination) > 0 ? 1 : 0;
}

namespace {

template <typename T>
T InRangeOr(T value, T low, T high, T otherwise) {
    return value >= low && value <= high ? value : otherwise;
}

void SetCardForm(DEVMODEW& mode, const CardForm& form) {
    mode.dmPaperWidth = form.Width;
    mode.dmPaperLength = form.Length;
    CopyWideBounded(mode.dmFormName, form.FormName, CCHFORMNAME);
}

// Whatever paper the incoming record names, one of the two card forms results.
void MergeCardForm(DevModeRecord& current, const DevModeRecord& incoming) {
    DEVMODEW& mode = current.Public;
    const bool namesPaper = (incoming.Public.dmFields & DM_PAPERSIZE) != 0;
    current.Private.CardSizeKind = kCardByPaperSize;
    current.Private.Reserved04 = incoming.Private.Reserved04;

    if (!namesPaper || incoming.Private.CardSizeKind == kCardByPaperSize) {
        SetCardForm(mode, CardFormTable[0]);
        mode.dmPaperSize = CardFormTable[0].PaperSize;
        if (namesPaper) {
            mode.dmMediaType = CardFormTable[0].MediaType;
        } else {
            mode.dmFields |= DM_PAPERSIZE | DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME;
        }
        return;
    }
    const bool isLong = incoming.Private.CardSizeKind == kLongCard;
    current.Private.CardSizeKind = isLong ? kLongCard : kCardByDimensions;
    SetCardForm(mode, CardFormTable[isLong ? 1 : 0]);
    mode.dmPaperSize = 0;
    mode.dmMediaType = 0;
}

// The fields before the card form; their order matters to nothing but the reader.
void MergeSourceAndOrientation(DEVMODEW& mode, const DEVMODEW& incoming) {
    const DWORD fields = incoming.dmFields;
    mode.dmFields |= fields & (DM_DEFAULTSOURCE | DM_ORIENTATION | DM_MEDIATYPE);
    if ((fields & DM_DEFAULTSOURCE) != 0) {
        mode.dmDefaultSource = incoming.dmDefaultSource;
    }
    if ((fields & DM_ORIENTATION) != 0) {
        mode.dmOrientation = InRangeOr<SHORT>(incoming.dmOrientation, DMORIENT_PORTRAIT,
                                              DMORIENT_LANDSCAPE, DMORIENT_LANDSCAPE);
    }
}

void MergePublicFields(DEVMODEW& mode, const DEVMODEW& incoming) {
    const DWORD fields = incoming.dmFields;
    mode.dmFields |= fields & (DM_SCALE | DM_COPIES | DM_ICMMETHOD | DM_ICMINTENT | DM_COLOR);
    if ((fields & DM_SCALE) != 0) {
        mode.dmScale = InRangeOr<SHORT>(incoming.dmScale, 1, kMaxScale, 100);
    }
    if ((fields & DM_COPIES) != 0) {
        mode.dmCopies = InRangeOr<SHORT>(incoming.dmCopies, 1, kMaxCopies, 1);
    }
    if ((fields & DM_ICMMETHOD) != 0) {
        mode.dmICMMethod = incoming.dmICMMethod;
    }
    if ((fields & DM_ICMINTENT) != 0) {
        mode.dmICMIntent = incoming.dmICMIntent;
    }
    if ((fields & (DM_PRINTQUALITY | DM_YRESOLUTION)) != 0) {
        mode.dmFields |= DM_PRINTQUALITY | DM_YRESOLUTION;
        mode.dmPrintQuality = kResolution;
        mode.dmYResolution = kResolution;
    }
    if ((fields & DM_COLOR) != 0) {
        mode.dmColor = incoming.dmColor == DMCOLOR_COLOR ? DMCOLOR_COLOR : DMCOLOR_MONOCHROME;
    }
    // These two claim their bit only when they bring a legal value.
    if ((fields & DM_DUPLEX) != 0) {
        const bool legal =
            incoming.dmDuplex >= DMDUP_SIMPLEX && incoming.dmDuplex <= DMDUP_HORIZONTAL;
        mode.dmDuplex = legal ? incoming.dmDuplex : SHORT{DMDUP_SIMPLEX};
        mode.dmFields |= legal ? DM_DUPLEX : 0;
    }
    if ((fields & DM_COLLATE) != 0) {
        const bool legal =
            incoming.dmCollate == DMCOLLATE_FALSE || incoming.dmCollate == DMCOLLATE_TRUE;
        mode.dmCollate = legal ? incoming.dmCollate : SHORT{DMCOLLATE_FALSE};
        mode.dmFields |= legal ? DM_COLLATE : 0;
    }
    mode.dmLogPixels = kResolution;
    mode.dmBitsPerPel = 24;
}

template <size_t N>
void Keep(BYTE (&field)[N], const BYTE (&kept)[N]) {
    std::copy(kept, kept + N, field);
}

void MergePrivatePart(DevModePrivate& part, const DevModePrivate& incoming) {
    const DevModePrivate before = part;
    part = incoming;
    part.CardSizeKind = before.CardSizeKind;
    part.ModelCode = kModelCode;
    Keep(part.Reserved94, before.Reserved94);
    part.Reserved98 = before.Reserved98;
    Keep(part.Reserved262, before.Reserved262);

    part.ReservedText[sizeof(part.ReservedText) - 1] = 0;
    part.ColorPreference =
        InRangeOr<BYTE>(part.ColorPreference, kPrinterColor, kNoColorPreference, kPrinterColor);
    part.Reserved103 = InRangeOr<BYTE>(part.Reserved103, 0, 1, 0);
    part.AdvanceToolFlag = InRangeOr<BYTE>(part.AdvanceToolFlag, 0, 1, 1);
    part.RibbonType = InRangeOr<BYTE>(part.RibbonType, 0, kMaxRibbonType, 0);
}

}  // namespace

int MergeDevMode(DevModeRecord* current, const DEVMODEW* incoming, const WCHAR* modelName) {
    if (incoming == nullptr) {
        return 1;
    }
    // The incoming record in this driver's layout: its public fields as far as it has them, and the
    // current record's values beyond.
    auto scratch = GlobalBlock<DevModeRecord>::Allocate();
    if (!scratch) {
        return 0;
    }
    *scratch = *current;
    CopyWideBounded(current->Public.dmDeviceName, incoming->dmDeviceName, CCHDEVICENAME);
    if (ConvertDevModeCopy(incoming, &scratch->Public) <= 0) {
        return 0;
    }

    MergeSourceAndOrientation(current->Public, scratch->Public);
    MergeCardForm(*current, *scratch);
    MergePublicFields(current->Public, scratch->Public);
    const DEVMODEW& own = scratch->Public;
    if (own.dmDriverVersion == kDriverVersion && own.dmSpecVersion == kSpecVersion &&
        own.dmDriverExtra == kPrivateSize) {
        MergePrivatePart(current->Private, scratch->Private);
    } else {
        BuildPrivateDefaults(&current->Public, modelName);
    }
    return 1;
}
