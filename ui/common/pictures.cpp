// Bitmaps of the library on their way to a paint context.
#include "ui/common/pictures.h"

#include "core/driver_files.h"
#include "ui/common/module.h"

namespace {

// Empty for what is no bitmap.
SIZE SizeOf(HBITMAP bitmap) {
    BITMAP shape = {};
    GetObjectW(bitmap, sizeof(shape), &shape);
    return {shape.bmWidth, shape.bmHeight};
}

}  // namespace

PictureSet::~PictureSet() {
    for (size_t i = 0; i < count_; ++i) {
        if (pictures_[i].Bitmap != nullptr) {
            DeleteObject(pictures_[i].Bitmap);
        }
    }
}

HBITMAP PictureSet::Get(int number) {
    for (size_t i = 0; i < count_; ++i) {
        if (pictures_[i].Number == number) {
            return pictures_[i].Bitmap;
        }
    }
    if (count_ == kMost) {
        return nullptr;
    }
    HBITMAP bitmap = LoadBitmapW(ModuleHandle, MAKEINTRESOURCEW(number));
    pictures_[count_++] = {number, bitmap};
    return bitmap;
}

MemoryCanvas::MemoryCanvas(HDC like, HBITMAP bitmap) : context_(CreateCompatibleDC(like)) {
    if (context_ != nullptr && bitmap != nullptr) {
        before_ = SelectObject(context_, bitmap);
    }
}

MemoryCanvas::MemoryCanvas(HDC like, int width, int height)
    : own_(CreateCompatibleBitmap(like, width, height)), context_(CreateCompatibleDC(like)) {
    if (context_ != nullptr && own_ != nullptr) {
        before_ = SelectObject(context_, own_);
    }
}

MemoryCanvas::~MemoryCanvas() {
    if (before_ != nullptr) {
        SelectObject(context_, before_);
    }
    if (context_ != nullptr) {
        DeleteDC(context_);
    }
    if (own_ != nullptr) {
        DeleteObject(own_);
    }
}

HBITMAP LoadDriverBitmap(const WCHAR* file) {
    WCHAR path[kDriverPathLength];
    DriverFilePath(path, file);
    return static_cast<HBITMAP>(
        LoadImageW(nullptr, path, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
}

void CopyBitmap(HDC context, int x, int y, HBITMAP bitmap) {
    const SIZE size = SizeOf(bitmap);
    const MemoryCanvas source(context, bitmap);
    if (source) {
        BitBlt(context, x, y, size.cx, size.cy, source.get(), 0, 0, SRCCOPY);
    }
}

void DrawBitmap(PictureSet& pictures, HDC context, int x, int y, int number,
                const RECT* destination) {
    HBITMAP bitmap = pictures.Get(number);
    if (destination == nullptr) {
        CopyBitmap(context, x, y, bitmap);
        return;
    }
    const MemoryCanvas source(context, bitmap);
    if (source) {
        const RECT place = {x, y, x + destination->right - destination->left,
                            y + destination->bottom - destination->top};
        StretchSmoothly(context, place, source.get(), SizeOf(bitmap));
    }
}

void StretchSmoothly(HDC context, const RECT& destination, HDC source, SIZE size) {
    const int before = SetStretchBltMode(context, HALFTONE);
    SetBrushOrgEx(context, 0, 0, nullptr);  // as that mode asks for
    StretchBlt(context, destination.left, destination.top, destination.right - destination.left,
               destination.bottom - destination.top, source, 0, 0, size.cx, size.cy, SRCCOPY);
    SetStretchBltMode(context, before);
}
