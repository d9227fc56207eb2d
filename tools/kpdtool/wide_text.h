// UTF-8, which the tool speaks on both platforms, and the driver's wide text.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace kpdtool {

/// Malformed text becomes U+FFFD, character by character.
std::string ToUtf8(std::basic_string_view<WCHAR> text);
std::basic_string<WCHAR> FromUtf8(std::string_view text);

/// A file's name as the tool's arguments and scripts have it.
std::filesystem::path PathFrom(std::string_view utf8);

}  // namespace kpdtool
