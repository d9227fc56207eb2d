// The Import/Export page: a notice and two buttons.
#include "ui/pages/import_export/import_export_page.h"

#include "resources/resource.h"
#include "ui/common/language.h"
#include "ui/pages/import_export/settings_transfer.h"

#include <strsafe.h>

namespace {

void ShowNotice(HWND dialog, DriverContext&) {
    WCHAR heading[kTextLength];
    WCHAR text[kTextLength];
    LookupString(TEXT("Notice:"), heading);
    LookupString(TEXT("If you want to apply the same setting to the other computer, you can export "
                      "driver setting \"Device Option\" Setting and \"Color\" Setting and import "
                      "it into the other computer."),
                 text);
    WCHAR notice[2 * kTextLength + 8];
    StringCchPrintfW(notice, std::size(notice), TEXT("%s\n    %s"), heading, text);
    SetDlgItemTextW(dialog, IDC_NOTICE, notice);
}

void PressButton(HWND dialog, DriverContext& context, int control, int) {
    SetSection(kImportExportSection);
    if (control == IDC_IMPORT_SETTINGS) {
        ImportSettings(dialog, context);
    } else if (control == IDC_EXPORT_SETTINGS) {
        ExportSettings(dialog, context);
    }
}

}  // namespace

constinit const Page kImportExportPage = {
    .Slot = kImportExportSlot,
    .Section = kImportExportSection,
    .Open = ShowNotice,
    .Command = PressButton,
};
