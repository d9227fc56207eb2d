// The texts are gathered by noting what the pages ask for while they are open.
#include "every_key.h"

#include "every_page.h"
#include "resources/resource.h"
#include "tools/computer/computer.h"
#include "tools/kpdtool/sheet/prompts.h"
#include "tools/kpdtool/wide_text.h"
#include "ui/common/file_dialog.h"
#include "ui/common/language.h"
#include "ui/common/page.h"
#include "ui/pages/about/about_page.h"
#include "ui/pages/color/color_page.h"
#include "ui/pages/device_options/device_options_page.h"
#include "ui/pages/heat_energy/heating_energy_page.h"
#include "ui/pages/import_export/import_export_page.h"
#include "ui/pages/lamination/lamination_page.h"
#include "ui/pages/magnetic/magnetic_encoding_page.h"
#include "ui/pages/print_area/printing_area_page.h"
#include "ui/pages/print_area/rewrite_page.h"
#include "ui/pages/tools/tools_page.h"

#include <strsafe.h>

namespace kpdtool {
namespace {

using WideString = std::basic_string<WCHAR>;

constexpr const Page* kPages[] = {
    &kDeviceOptionsPage, &kPrintingAreaPage,  &kColorPage,
    &kToolsPage,         &kHeatingEnergyPage, &kMagneticEncodingPage,
    &kImportExportPage,  &kLaminationPage,    &kRewritePage,
    &kAboutPage,
};

// ---- Messages -----------------------------------------------------------------------------------

void AddMessage(std::set<Key>& keys, const WCHAR* section, const WCHAR* format,
                const NumericField& field) {
    WCHAR text[kTextLength];
    StringCchPrintfW(text, kTextLength, format, field.Minimum, field.Maximum);
    keys.insert({ToUtf8(section), ToUtf8(text)});
    keys.insert({ToUtf8(section), "Error"});
}

void AddFieldMessages(std::set<Key>& keys) {
    for (const Page* page : kPages) {
        for (const NumericField& field : page->Fields) {
            AddMessage(keys, field.RangeSection, field.RangeMessage, field);
            AddMessage(keys, field.ValidationSection,
                       field.Kind == NumberKind::kHundredths ? kIllegalHundredths : kIllegalInteger,
                       field);
        }
    }
}

// What the Tools page says of the ribbon and of a card without a thickness.
void ShowToolsMessages(HWND page) {
    SendDlgItemMessageW(page, IDC_RIBBON_STATUS, BM_CLICK, 0, 0);
    PageContext(page)->WorkingDevMode.Private.CardThickness = 255;
    BYTE answer[130] = {0, 4};
    COPYDATASTRUCT data = {5, sizeof(answer), answer};
    SendMessageW(page, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
}

void ShowMessages(HWND page, Prompts& prompts) {
    if (GetDlgItem(page, IDC_RIBBON_STATUS) != nullptr) {
        ShowToolsMessages(page);
    }
    if (GetDlgItem(page, IDC_BROWSE_DATABASE) != nullptr) {
        prompts.AnswerFile("");
        SendMessageW(page, WM_COMMAND, IDC_BROWSE_DATABASE, 0);
    }
}

// What a field holds is looked up as well, the number of a picture in the place of a text, and what
// a page has put together: of a printer's name, of a number and its unit, of several lines.
bool IsMadeUp(const WideString& key) {
    return key.find_first_not_of(TEXT("-.0123456789")) == key.npos || key.front() == 0xFFFF ||
           key.find('\n') != key.npos || key.starts_with(TEXT("0 ")) ||
           key.ends_with(TEXT(" Driver"));
}

}  // namespace

std::set<Key> EveryKey() {
    const WideString none = computer::TemporaryFolder() + TEXT("\\kpdtool has none.ini");
    StringCchCopyW(LanguageFilePath, kTextLength, none.c_str());
    Prompts prompts;
    const computer::ProfileNotes notes;
    OpenEveryPage([&](HWND page, const std::string&) { ShowMessages(page, prompts); });
    std::set<Key> keys = {{ToUtf8(kMagneticEncodingSection), ToUtf8(kFileDialogFailure)}};
    AddFieldMessages(keys);
    for (const computer::ProfileLookup& lookup : notes.Lookups()) {
        if (lookup.file == none && !lookup.section.empty() && !IsMadeUp(lookup.key)) {
            keys.insert({ToUtf8(lookup.section), ToUtf8(lookup.key)});
        }
    }
    return keys;
}

std::string OtherSectionOf(const std::set<Key>& keys, const Key& key) {
    const std::string shared = ToUtf8(kPrintingAreaSection);
    const std::string own = ToUtf8(kRewritableSection);
    const std::string other = key.first == shared ? own : key.first == own ? shared : "";
    return keys.contains({other, key.second}) ? other : "";
}

}  // namespace kpdtool
