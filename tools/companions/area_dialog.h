// The sample designer's dialog: somebody chooses one of the areas and moves its blocks.
#pragma once

#include "print_area.h"

/// Shows it over the window that is active. `chosen` is the area shown first and, when this gives
/// true, the one that was accepted; areas whose blocks were moved have then been saved in `folder`,
/// as SaveArea does it.
bool RunAreaDialog(std::vector<PrintArea>& areas, size_t& chosen, const WideString& folder,
                   std::vector<WideString>& made);
