// A picture that the page's background shows through.
#include "ui/pages/about/blended_picture.h"

namespace {

// Leaves the ground where the mask is white and the picture elsewhere.
bool Blend(HDC canvas, SIZE size, HDC mask, HDC picture, HBRUSH ground) {
    HGDIOBJ before = SelectObject(canvas, ground);
    const bool isDone = BitBlt(canvas, 0, 0, size.cx, size.cy, mask, 0, 0, MERGECOPY) &&
                        BitBlt(canvas, 0, 0, size.cx, size.cy, picture, 0, 0, SRCPAINT);
    SelectObject(canvas, before);
    return isDone;
}

}  // namespace

void DrawBlended(PictureSet& pictures, HDC target, const RECT& place, int picture, int mask,
                 HBRUSH ground) {
    HBITMAP maskBitmap = pictures.Get(mask);
    HBITMAP pictureBitmap = pictures.Get(picture);
    BITMAP size = {};
    if (ground == nullptr || maskBitmap == nullptr || pictureBitmap == nullptr ||
        GetObjectW(maskBitmap, sizeof(size), &size) == 0) {
        return;
    }
    const MemoryCanvas maskCanvas(target, maskBitmap);
    const MemoryCanvas pictureCanvas(target, pictureBitmap);
    if (!maskCanvas || !pictureCanvas) {
        return;
    }
    // Like the mask's canvas, so that it has the mask's format.
    const MemoryCanvas canvas(maskCanvas.get(), size.bmWidth, size.bmHeight);
    const SIZE whole = {size.bmWidth, size.bmHeight};
    if (canvas && Blend(canvas.get(), whole, maskCanvas.get(), pictureCanvas.get(), ground)) {
        StretchSmoothly(target, place, canvas.get(), whole);
    }
}
