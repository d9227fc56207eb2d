// The choice of the language file and the lookups in it.
#include "ui/common/language.h"

#include "core/ui_language.h"

#include <strsafe.h>

#include <cstring>

WCHAR LanguageFilePath[kTextLength];
WCHAR CurrentSection[kTextLength];

namespace {

struct LanguageFile {
    WORD Primary;
    WORD Sublanguage;
    const WCHAR* Stem;
};

constexpr LanguageFile kLanguageFiles[] = {
    {LANG_ARABIC, kAnySublanguage, TEXT("\\3\\mvAra")},
    {LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL, TEXT("\\3\\mvCht")},
    {LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED, TEXT("\\3\\mvChs")},
    {LANG_GERMAN, kAnySublanguage, TEXT("\\3\\mvGer")},
    {LANG_SPANISH, kAnySublanguage, TEXT("\\3\\mvSpn")},
    {LANG_FRENCH, kAnySublanguage, TEXT("\\3\\mvFrn")},
    {LANG_ITALIAN, kAnySublanguage, TEXT("\\3\\mvIta")},
    {LANG_JAPANESE, kAnySublanguage, TEXT("\\3\\mvJpn")},
    {LANG_KOREAN, kAnySublanguage, TEXT("\\3\\mvKrn")},
    {LANG_POLISH, kAnySublanguage, TEXT("\\3\\mvPol")},
    {LANG_PORTUGUESE, kAnySublanguage, TEXT("\\3\\mvPrt")},
    {LANG_RUSSIAN, kAnySublanguage, TEXT("\\3\\mvRus")},
    {LANG_INDONESIAN, kAnySublanguage, TEXT("\\3\\mvIdo")},
    {LANG_FARSI, kAnySublanguage, TEXT("\\3\\mvPrs")},
};

const WCHAR* StemOf(LANGID language) {
    for (const LanguageFile& file : kLanguageFiles) {
        if (IsLanguage(language, file.Primary, file.Sublanguage)) {
            return file.Stem;
        }
    }
    return TEXT("\\3\\mvEng");
}

}  // namespace

void InitLanguageFile() {
    std::memset(LanguageFilePath, 0, sizeof(LanguageFilePath));
    std::memset(CurrentSection, 0, sizeof(CurrentSection));
    WCHAR system[kTextLength] = {};
    GetSystemDirectoryW(system, 256);
    StringCchPrintfW(LanguageFilePath, kTextLength, TEXT("%s\\spool\\drivers\\x64%skpd.ini"),
                     system, StemOf(GetUserDefaultUILanguage()));
}

int SetSection(const WCHAR* name) {
    if (name == nullptr) {
        MessageBoxW(nullptr, TEXT("Section name is empty!!"), TEXT("Error"), MB_ICONERROR | MB_OK);
        return 0;
    }
    StringCchCopyW(CurrentSection, kTextLength, name);
    return 1;
}

void LookupString(const WCHAR* key, WCHAR* text) {
    GetPrivateProfileStringW(CurrentSection, key, key, text, kTextLength, LanguageFilePath);
}

void ShowErrorMessage(const WCHAR* key) {
    WCHAR text[kTextLength];
    WCHAR title[kTextLength];
    LookupString(key, text);
    LookupString(TEXT("Error"), title);
    MessageBoxW(nullptr, text, title, MB_ICONERROR | MB_OK);
}
