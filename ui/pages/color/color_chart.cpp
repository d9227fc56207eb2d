// The colour chart.
#include "ui/pages/color/color_chart.h"

#include "core/card_terms.h"
#include "core/driver_files.h"

#include <strsafe.h>

#include <algorithm>

namespace {

constexpr size_t kNameLength = 260;
constexpr DWORD kSharedNameSize = 260;  // bytes

// The name under which the printer's server shares it; false when it has none.
bool ReadSharedName(HANDLE printer, WCHAR (&name)[kNameLength]) {
    static_assert(kSharedNameSize < sizeof(name));
    std::fill_n(name, kNameLength, WCHAR{0});  // what is stored need not be terminated
    DWORD needed = 0;
    return GetPrinterDataExW(printer, TEXT("DsSpooler"), TEXT("uNCName"), nullptr,
                             reinterpret_cast<BYTE*>(name), kSharedNameSize,
                             &needed) == ERROR_SUCCESS;
}

}  // namespace

void OpenColorChart(const DriverContext& context) {
    WCHAR name[kNameLength];
    if (!context.IsRemotePrinter || !ReadSharedName(context.PrinterHandle, name)) {
        StringCchCopyW(name, kNameLength,
                       context.PrinterName != nullptr ? context.PrinterName : TEXT(""));
    }
    const CardExtent& card = CardExtentOf(context.WorkingDevMode.Public.dmPaperSize);
    WCHAR parameters[kNameLength + 40];
    StringCchPrintfW(parameters, kNameLength + 40, TEXT(" -p \"%s\" -w %d -h %d"), name, card.Short,
                     card.Long);
    OpenDriverFile(TEXT("Chartkpd.exe"), parameters);
}
