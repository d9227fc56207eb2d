// The table of UI languages.
#include "core/ui_language.h"

namespace {

struct LanguageRow {
    WORD Primary;
    WORD Sublanguage;
    int Index;
};

constexpr LanguageRow kLanguages[] = {
    {LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL, kTraditionalChinese},
    {LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED, kSimplifiedChinese},
    {LANG_FRENCH, kAnySublanguage, 4},
    {LANG_GERMAN, kAnySublanguage, 5},
    {LANG_ITALIAN, kAnySublanguage, 6},
    {LANG_SPANISH, kAnySublanguage, 7},
    {LANG_JAPANESE, kAnySublanguage, kJapanese},
    {LANG_KOREAN, kAnySublanguage, kKorean},
    {LANG_PORTUGUESE, kAnySublanguage, 10},
    {LANG_RUSSIAN, kAnySublanguage, 11},
    {LANG_POLISH, kAnySublanguage, 12},
};

}  // namespace

int UiLanguageIndex(LANGID language) {
    for (const LanguageRow& row : kLanguages) {
        if (IsLanguage(language, row.Primary, row.Sublanguage)) {
            return row.Index;
        }
    }
    return 1;
}
