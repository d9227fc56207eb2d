// Icons and cursors as pictures with transparent places.
#include "state.h"

#include <cstring>

namespace host {
namespace {

struct Icon {
    Picture picture;            // with the alpha in the top bytes
    std::vector<bool> inverts;  // where the picture is combined with what is there by XOR
};
HandleTable<Icon, HICON> icons(0x3000000);

bool HasAlpha(const Picture& picture) {
    return std::any_of(picture.pixels.begin(), picture.pixels.end(),
                       [](Pixel pixel) { return pixel >> 24 != 0; });
}

// The lower half of an icon's picture is its mask: one bit a pixel, set where it is transparent.
bool IsMasked(const BYTE* mask, int width, int height, int x, int y) {
    const int rowSize = (width + 31) / 32 * 4;
    return (mask[(height - 1 - y) * rowSize + x / 8] & 0x80 >> x % 8) != 0;
}

void ApplyMask(const BYTE* mask, Icon* icon) {
    const int width = icon->picture.width;
    const int height = icon->picture.height;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const size_t at = static_cast<size_t>(y * width + x);
            Pixel& pixel = icon->picture.pixels[at];
            const bool masked = IsMasked(mask, width, height, x, y);
            icon->inverts[at] = masked && (pixel & 0xFFFFFF) != 0;
            pixel = (pixel & 0xFFFFFF) | (masked ? 0 : 0xFF000000);
        }
    }
}

std::optional<Icon> ReadIcon(const BYTE* bytes, size_t size) {
    BITMAPINFOHEADER header;
    if (size < sizeof(header)) {
        return std::nullopt;
    }
    // The header's height counts the picture and its mask.
    std::memcpy(&header, bytes, sizeof(header));
    header.biHeight /= 2;
    std::vector<BYTE> copy(bytes, bytes + size);
    std::memcpy(copy.data(), &header, sizeof(header));
    size_t used = 0;
    std::optional<Picture> picture = PictureFromDib(copy.data(), copy.size(), &used);
    if (!picture) {
        return std::nullopt;
    }
    Icon icon = {std::move(*picture), {}};
    icon.inverts.resize(icon.picture.pixels.size());
    const auto maskSize =
        static_cast<size_t>((icon.picture.width + 31) / 32 * 4 * icon.picture.height);
    if (!HasAlpha(icon.picture)) {
        if (size - used < maskSize) {
            return std::nullopt;
        }
        ApplyMask(bytes + used, &icon);
    }
    return icon;
}

Pixel Over(Pixel target, const Icon& icon, size_t at) {
    const Pixel pixel = icon.picture.pixels[at];
    if (icon.inverts[at]) {
        return target ^ (pixel & 0xFFFFFF);
    }
    const Pixel alpha = pixel >> 24;
    Pixel result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const Pixel under = target >> shift & 0xFF;
        const Pixel over = pixel >> shift & 0xFF;
        result |= (under * (255 - alpha) + over * alpha + 127) / 255 << shift;
    }
    return result;
}

}  // namespace

HICON IconFromDib(const BYTE* bytes, size_t size) {
    std::optional<Icon> icon = ReadIcon(bytes, size);
    return icon ? icons.Add(std::move(*icon)) : nullptr;
}

}  // namespace host

BOOL WINAPI DrawIcon(HDC handle, int x, int y, HICON handleOfIcon) {
    const host::Context* context = host::FindContext(handle);
    const host::Icon* icon = host::icons.Find(handleOfIcon);
    if (context == nullptr || icon == nullptr) {
        return FALSE;
    }
    const int width = GetSystemMetrics(SM_CXICON);
    const int height = GetSystemMetrics(SM_CYICON);
    const host::Picture& picture = icon->picture;
    const host::Canvas canvas(*context);
    const RECT place = canvas.At(RECT{x, y, x + width, y + height});
    canvas.Each(place, [&](int atX, int atY, host::Pixel target) {
        const int fromX = (atX - place.left) * picture.width / width;
        const int fromY = (atY - place.top) * picture.height / height;
        return host::Over(target, *icon, static_cast<size_t>(fromY * picture.width + fromX));
    });
    return TRUE;
}
