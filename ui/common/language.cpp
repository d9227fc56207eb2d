// The choice of the language file and the lookups in it.
#include "ui/common/language.h"

#include "core/driver_files.h"
#include "core/message.h"
#include "core/text.h"
#include "core/ui_language.h"

#include <strsafe.h>

#include <cstring>

WCHAR LanguageFilePath[kTextLength];
WCHAR CurrentSection[kTextLength];

void InitLanguageFile() {
    std::memset(LanguageFilePath, 0, sizeof(LanguageFilePath));
    std::memset(CurrentSection, 0, sizeof(CurrentSection));
    WCHAR system[kTextLength] = {};
    GetSystemDirectoryW(system, 256);
    StringCchPrintfW(LanguageFilePath, kTextLength, TEXT("%s%s\\mv%skpd.ini"), system,
                     kDriverDirectory, UiLanguageOf(GetUserDefaultUILanguage()).Suffix);
}

int SetSection(const WCHAR* name) {
    if (name == nullptr) {
        ShowMessage(TEXT("Section name is empty!!"), TEXT("Error"));
        return 0;
    }
    StringCchCopyW(CurrentSection, kTextLength, name);
    return 1;
}

void LookupString(const WCHAR* key, WCHAR* text) {
    GetPrivateProfileStringW(CurrentSection, key, key, text, kTextLength, LanguageFilePath);
    // The platform gives a default back without its trailing blanks.
    const WideView asked(key);
    const WideView found(text);
    if (asked.starts_with(found) && asked.find_first_not_of(' ', found.size()) == WideView::npos) {
        StringCchCopyW(text, kTextLength, key);
    }
}

void ShowErrorMessage(const WCHAR* key) {
    WCHAR text[kTextLength];
    WCHAR title[kTextLength];
    LookupString(key, text);
    LookupString(TEXT("Error"), title);
    ShowMessage(text, title);
}
