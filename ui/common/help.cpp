// Names of the help files and manuals.
#include "ui/common/help.h"

#include "core/ui_language.h"
#include "core/driver_files.h"
#include "ui/common/language.h"

#include <strsafe.h>

namespace {

struct HelpFile {
    BYTE ModelCode;
    const WCHAR* Name;
};

// The help files of the family's other models. Records of this driver carry a code without an
// entry.
constexpr HelpFile HelpFileTable[] = {
    {2, TEXT("Card002.chm")},   {3, TEXT("Card003.chm")},   {4, TEXT("Card004.chm")},
    {5, TEXT("Card005.chm")},   {6, TEXT("Card006.chm")},   {7, TEXT("Card007.chm")},
    {8, TEXT("Card008.chm")},   {10, TEXT("Card010.chm")},  {11, TEXT("Card011.chm")},
    {12, TEXT("Card012.chm")},  {15, TEXT("Card015.chm")},  {16, TEXT("Card016.chm")},
    {17, TEXT("Card017.chm")},  {18, TEXT("Card018.chm")},  {22, TEXT("Card022.chm")},
    {23, TEXT("Card023.chm")},  {24, TEXT("Card024.chm")},  {26, TEXT("Card026.chm")},
    {27, TEXT("Card027.chm")},  {28, TEXT("Card028.chm")},  {29, TEXT("Card029.chm")},
    {100, TEXT("Card100.chm")}, {101, TEXT("Card101.chm")}, {200, TEXT("Card200.chm")},
    {201, TEXT("Card201.chm")}, {202, TEXT("Card202.chm")}, {203, TEXT("Card203.chm")},
};
constexpr const WCHAR* kDefaultHelpFile = TEXT("Card.chm");

struct ManualFiles {
    const WCHAR* Simplified;
    const WCHAR* Traditional;
    const WCHAR* English;
};

// By Manual.
constexpr ManualFiles kManuals[] = {
    {TEXT("AdvanceToolChs.pdf"), TEXT("AdvanceToolCht.pdf"), TEXT("AdvanceToolEng.pdf")},
    {TEXT("HeatingEnergyChs.pdf"), TEXT("HeatingEnergyCht.pdf"), TEXT("HeatingEnergyEng.pdf")},
};

const WCHAR* HelpFileOf(BYTE modelCode) {
    for (const HelpFile& file : HelpFileTable) {
        if (file.ModelCode == modelCode) {
            return file.Name;
        }
    }
    return kDefaultHelpFile;
}

const WCHAR* VariantOf(const ManualFiles& files, LANGID language) {
    if (IsLanguage(language, LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED)) {
        return files.Simplified;
    }
    return IsLanguage(language, LANG_CHINESE, kAnySublanguage) ? files.Traditional : files.English;
}

}  // namespace

void HelpFileName(WCHAR* name, BYTE modelCode) {
    StringCchPrintfW(name, kTextLength, TEXT("\\Mv%s%s"), HelpSuffixOf(GetUserDefaultUILanguage()),
                     HelpFileOf(modelCode));
}

void OpenHelpFile(BYTE modelCode) {
    WCHAR name[kTextLength];
    HelpFileName(name, modelCode);
    OpenDriverFile(name + 1);  // behind the backslash
}

void OpenManual(Manual manual) {
    OpenDriverFile(VariantOf(kManuals[static_cast<int>(manual)], GetUserDefaultUILanguage()));
}
