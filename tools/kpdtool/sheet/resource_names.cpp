// The build makes the table's rows.
#include "resource_names.h"

#include <algorithm>

namespace kpdtool {
namespace {

constexpr ResourceName kNames[] = {
#include "resource_names.inc"
};

}  // namespace

std::span<const ResourceName> ResourceNames() {
    return kNames;
}

std::optional<int> ResourceNumber(std::string_view name) {
    const auto* it = std::ranges::find(kNames, name, &ResourceName::name);
    return it == std::end(kNames) ? std::nullopt : std::optional(it->number);
}

std::string ControlName(int number) {
    const auto* it = std::ranges::find_if(kNames, [&](const ResourceName& row) {
        return row.number == number && row.name.starts_with("IDC_");
    });
    return it == std::end(kNames) ? std::to_string(number) : std::string(it->name);
}

}  // namespace kpdtool
