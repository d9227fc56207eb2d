// The texts of the Magnetic Encoding page, which the registry keeps for each user and printer.
#pragma once

#include <windows.h>

enum MagneticTextIndex {
    kDatabasePathText,
    kTrack1Text,
    kTrack2Text,
    kTrack3Text,
    kPrefixText,
    kSuffixText,
    kMagneticTexts
};

/// Characters of each text here, terminator included. As many are stored of the database's path at
/// most, 128 of any other.
constexpr size_t kMagneticTextLength = 260;

struct MagneticTexts {
    WCHAR Texts[kMagneticTexts][kMagneticTextLength];
};

/// Gives the stored texts of the printer of that device name. One that is not there, cannot be read
/// or is longer than it may be is empty; one that has no end ends at the last character that it has
/// room for. Types do not matter. Where the user has no key for the printer yet, it is made.
void ReadMagneticTexts(const WCHAR* printer, MagneticTexts& texts);

/// Stores them in their order. Nothing is stored when there is no key, and one that cannot be
/// stored does not keep those behind it from being stored.
void WriteMagneticTexts(const WCHAR* printer, const MagneticTexts& texts);
