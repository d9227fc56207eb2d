// The user's UI language: how the defaults number it, and what the driver's files are called in it.
#pragma once

#include <windows.h>

struct UiLanguage {
    WORD Primary;
    WORD Sublanguage;     ///< kAnySublanguage, or the one that this row is for
    int Index;            ///< kEnglish for every language that has no help files of its own
    const WCHAR* Suffix;  ///< in the names of language files, and of help files by the index
};

// Indexes that more than the table names.
constexpr int kEnglish = 1;
constexpr int kTraditionalChinese = 2;
constexpr int kSimplifiedChinese = 3;
constexpr int kJapanese = 8;
constexpr int kKorean = 9;

/// The row of a UI language: English for one that has none, Chinese of other places included.
const UiLanguage& UiLanguageOf(LANGID language);

int UiLanguageIndex(LANGID language);

/// The suffix of the help files for a language: that of English where it has none of its own.
const WCHAR* HelpSuffixOf(LANGID language);

/// True when the UI language is that primary language and, unless kAnySublanguage is asked for,
/// that sub-language.
constexpr WORD kAnySublanguage = 0;
constexpr bool IsLanguage(LANGID language, WORD primary, WORD sublanguage) {
    return PRIMARYLANGID(language) == primary &&
           (sublanguage == kAnySublanguage || SUBLANGID(language) == sublanguage);
}
