// The table of UI languages.
#include "core/ui_language.h"

namespace {

constexpr UiLanguage kLanguages[] = {
    {LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL, kTraditionalChinese, TEXT("Cht")},
    {LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED, kSimplifiedChinese, TEXT("Chs")},
    {LANG_FRENCH, kAnySublanguage, 4, TEXT("Frn")},
    {LANG_GERMAN, kAnySublanguage, 5, TEXT("Ger")},
    {LANG_ITALIAN, kAnySublanguage, 6, TEXT("Ita")},
    {LANG_SPANISH, kAnySublanguage, 7, TEXT("Spn")},
    {LANG_JAPANESE, kAnySublanguage, kJapanese, TEXT("Jpn")},
    {LANG_KOREAN, kAnySublanguage, kKorean, TEXT("Krn")},
    {LANG_PORTUGUESE, kAnySublanguage, 10, TEXT("Prt")},
    {LANG_RUSSIAN, kAnySublanguage, 11, TEXT("Rus")},
    {LANG_POLISH, kAnySublanguage, 12, TEXT("Pol")},
    {LANG_ARABIC, kAnySublanguage, kEnglish, TEXT("Ara")},
    {LANG_INDONESIAN, kAnySublanguage, kEnglish, TEXT("Ido")},
    {LANG_FARSI, kAnySublanguage, kEnglish, TEXT("Prs")},
};
constexpr UiLanguage kEnglishRow = {LANG_ENGLISH, kAnySublanguage, kEnglish, TEXT("Eng")};

}  // namespace

const UiLanguage& UiLanguageOf(LANGID language) {
    for (const UiLanguage& row : kLanguages) {
        if (IsLanguage(language, row.Primary, row.Sublanguage)) {
            return row;
        }
    }
    return kEnglishRow;
}

int UiLanguageIndex(LANGID language) {
    return UiLanguageOf(language).Index;
}

const WCHAR* HelpSuffixOf(LANGID language) {
    const UiLanguage& row = UiLanguageOf(language);
    return row.Index == kEnglish ? kEnglishRow.Suffix : row.Suffix;
}
