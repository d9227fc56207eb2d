// The computer that the stand-in plays.
#include "computer.h"
#include "platform/host.h"

namespace computer {

std::string AddToSpooler(const PrinterSpec& spec) {
    host::AddPrinter({.name = spec.name,
                      .model = spec.model,
                      .port = spec.port.empty() ? TEXT("LPT1:") : spec.port,
                      .defaultRecord = spec.defaultRecord});
    return {};
}

void RemovePrinter(const WideString& name) {
    host::RemovePrinter(name);
}

std::string SetUiLanguage(LANGID language) {
    host::SetUiLanguage(language);
    return {};
}

}  // namespace computer
