// Every text that the driver looks up in its language file.
#pragma once

#include <set>
#include <string>
#include <utility>

namespace kpdtool {

/// Section and English text, UTF-8.
using Key = std::pair<std::string, std::string>;

/// Opens every page for it, in English, and shows what pages show only on occasion. Throws
/// ToolError when that cannot be done.
std::set<Key> EveryKey();

/// The section where a text may stand instead: the Rewrite page looks each of its texts up in two
/// sections, and one of them is to have it. Empty for a text of one section.
std::string OtherSectionOf(const std::set<Key>& keys, const Key& key);

}  // namespace kpdtool
