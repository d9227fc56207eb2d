// The pages of the document sheet, and the models and ports that have them.
#include "core/page_table.h"

#include "core/module.h"
#include "core/text.h"
#include "resources/resource.h"
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

namespace {

bool Always(const DriverContext&) {
    return true;
}
bool Never(const DriverContext&) {
    return false;
}
bool IsLocal(const DriverContext& context) {
    return !context.IsRemotePrinter;
}
bool IsRewritable(const DriverContext& context) {
    return context.IsKP43Family != 0;
}
bool IsNotRewritable(const DriverContext& context) {
    return !IsRewritable(context);
}
bool EncodesStripes(const DriverContext& context) {
    return IsNotRewritable(context) && !TextEquals(context.ModelName, TEXT("Mirv KP-560i"));
}

}  // namespace

// The Lamination page is prepared for a model to come.
// clang-format off
const PageRow PageTable[kPageSlots] = {
    {IDD_DEVICE_OPTIONS, kDeviceOptionSection, TEXT("Device Option"), PageProc<kDeviceOptionsPage>, Always},
    {IDD_PRINTING_AREA, kPrintingAreaSection, TEXT("Printing Area"), PageProc<kPrintingAreaPage>, IsNotRewritable},
    {IDD_COLOR, kColorSection, TEXT("Color"), PageProc<kColorPage>, IsNotRewritable},
    {IDD_TOOLS, kToolsSection, TEXT("Tools"), PageProc<kToolsPage>, IsLocal},
    {IDD_HEATING_ENERGY, kHeatEnergySection, TEXT("Heating Energy"), PageProc<kHeatingEnergyPage>, IsNotRewritable},
    {IDD_MAGNETIC_ENCODING, kMagneticEncodingSection, TEXT("Magnetic Encoding"), PageProc<kMagneticEncodingPage>, EncodesStripes},
    {IDD_IMPORT_EXPORT, kImportExportSection, TEXT("Import/Export"), PageProc<kImportExportPage>, IsNotRewritable},
    {IDD_LAMINATION, kLaminationSection, TEXT("Lamination"), PageProc<kLaminationPage>, Never},
    {IDD_REWRITE, kRewriteSection, TEXT("Rewrite"), PageProc<kRewritePage>, IsRewritable},
    {IDD_ABOUT, kAboutSection, TEXT("About"), PageProc<kAboutPage>, Always},
};
// clang-format on

void LookupPageTitle(const PageRow& row, WCHAR (&title)[kPageTitleLength]) {
    WCHAR text[kTextLength];
    SetSection(row.Section);
    LookupString(row.Title, text);
    StringCchCopyW(title, kPageTitleLength, text);
}
