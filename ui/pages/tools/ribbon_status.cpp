// The ribbon's message.
#include "ui/pages/tools/ribbon_status.h"

#include "companions/device_io.h"
#include "core/card_terms.h"
#include "core/message.h"
#include "ui/common/language.h"

#include <strsafe.h>

#include <algorithm>

void ShowRibbonStatus(const DriverContext& context) {
    const RibbonStatus status = QueryRibbonStatus(context.PrinterName);
    SetSection(kToolsSection);
    WCHAR remaining[kTextLength];
    LookupString(TEXT("Number of remaining ink ribbon"), remaining);
    WCHAR text[kTextLength + 40];
    StringCchPrintfW(text, std::size(text), TEXT("%s\n\n%s:   %d"),
                     RibbonName(RibbonOfPrinter(status.Code)), remaining,
                     static_cast<int>(status.Remaining));
    const auto& name = context.WorkingDevMode.Public.dmDeviceName;
    WCHAR title[CCHDEVICENAME + 1] = {};  // a name may fill its place
    std::copy(std::begin(name), std::end(name), title);
    ShowMessage(text, title, 0);
}
