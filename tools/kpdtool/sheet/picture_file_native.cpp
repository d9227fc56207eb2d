// The stand-in writes its own pictures.
#include "picture_file.h"
#include "platform/host.h"

namespace kpdtool {

bool WritePicture(const std::filesystem::path& path, const Pixels& pixels) {
    return host::WritePng(path, {pixels.width, pixels.height, pixels.rows});
}

}  // namespace kpdtool
