// The names of the driver's dialogs and controls, from resources/resource.h.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kpdtool {

struct ResourceName {
    std::string_view name;  ///< "IDC_..." or "IDD_..."
    int number;
};
std::span<const ResourceName> ResourceNames();

std::optional<int> ResourceNumber(std::string_view name);

/// The name of a control's number; the number itself when it has none.
std::string ControlName(int number);

}  // namespace kpdtool
