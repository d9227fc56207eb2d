// The platform's imaging library writes pictures by the class of an encoder.
#include <windows.h>

#include <gdiplus.h>
#include <objidl.h>

#include "picture_file.h"

namespace kpdtool {
namespace {

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

bool Save(const std::filesystem::path& path, Pixels pixels) {
    GpBitmap* bitmap = nullptr;
    auto* bytes = reinterpret_cast<BYTE*>(pixels.rows.data());
    if (GdipCreateBitmapFromScan0(pixels.width, pixels.height, 4 * pixels.width,
                                  PixelFormat32bppRGB, bytes, &bitmap) != Ok) {
        return false;
    }
    const bool saved = GdipSaveImageToFile(bitmap, path.c_str(), &kPngEncoder, nullptr) == Ok;
    GdipDisposeImage(bitmap);
    return saved;
}

}  // namespace

bool WritePicture(const std::filesystem::path& path, const Pixels& pixels) {
    ULONG_PTR session = 0;
    GdiplusStartupInput input;
    if (GdiplusStartup(&session, &input, nullptr) != Ok) {
        return false;
    }
    const bool saved = Save(path, pixels);
    GdiplusShutdown(session);
    return saved;
}

}  // namespace kpdtool
