// Pictures as PNG files: natively through the stand-in, on Windows through its own imaging library.
// What differs is the source file linked.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace kpdtool {

struct Pixels {
    int width;
    int height;
    std::vector<std::uint32_t> rows;  ///< the top row first, each 0x00RRGGBB
};

/// False when it cannot be written.
bool WritePicture(const std::filesystem::path& path, const Pixels& pixels);

}  // namespace kpdtool
