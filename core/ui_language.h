// The user's UI language as the defaults and the help files number it.
#pragma once

#include <windows.h>

/// Gives the index of a UI language: 2 Traditional Chinese, 3 Simplified Chinese, 4 French,
/// 5 German, 6 Italian, 7 Spanish, 8 Japanese, 9 Korean, 10 Portuguese, 11 Russian, 12 Polish,
/// 1 any other, Chinese of other places included.
int UiLanguageIndex(LANGID language);

/// True when the UI language is that primary language and, unless kAnySublanguage is asked for,
/// that sub-language.
constexpr WORD kAnySublanguage = 0;
constexpr bool IsLanguage(LANGID language, WORD primary, WORD sublanguage) {
    return PRIMARYLANGID(language) == primary &&
           (sublanguage == kAnySublanguage || SUBLANGID(language) == sublanguage);
}

constexpr int kTraditionalChinese = 2;
constexpr int kSimplifiedChinese = 3;
constexpr int kJapanese = 8;
constexpr int kKorean = 9;
