// Pictures as PNG files.
#include "surface.h"

#include <cstring>

#include <png.h>

namespace host {

bool WritePng(const std::filesystem::path& path, const Picture& picture) {
    std::vector<BYTE> bytes;
    bytes.reserve(picture.pixels.size() * 3);
    for (Pixel pixel : picture.pixels) {
        for (int shift = 16; shift >= 0; shift -= 8) {
            bytes.push_back(static_cast<BYTE>(pixel >> shift));
        }
    }
    png_image image;
    std::memset(&image, 0, sizeof(image));
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

}  // namespace host
