// What drawing and the other services of the stand-in share.
#pragma once

#include "../host_state.h"

namespace host {

RECT Common(const RECT& a, const RECT& b);  ///< empty in width or height when there is nothing
bool IsEmpty(const RECT& rect);

/// Rectangles that do not overlap.
using Region = std::vector<RECT>;
void KeepInside(Region& region, const RECT& rect);
void KeepOutside(Region& region, const RECT& rect);

/// A device context that draws on `target`, which must outlive it: its point (0, 0) is `origin` in
/// the picture, and nothing outside `clip` (in the picture's coordinates) is touched. Null when
/// ordered to fail (Call::kDrawing).
HDC NewPictureContext(Picture* target, POINT origin, Region clip);
void DeletePictureContext(HDC context);

/// A bitmap from the bytes of a bitmap resource: a BITMAPINFO with its colours and pixels. Null
/// when they are damaged.
HBITMAP BitmapFromDib(const BYTE* bytes, size_t size);
/// An icon or cursor from the bytes of one of its pictures (an RT_ICON resource; for an RT_CURSOR
/// what follows its hot spot). It is the system's and stays for good.
HICON IconFromDib(const BYTE* bytes, size_t size);

/// The bytes of a resource in any of the added files, or null.
struct ResourceBytes {
    const BYTE* data = nullptr;
    size_t size = 0;
};
ResourceBytes FindResourceBytes(LPCWSTR type, LPCWSTR name);

}  // namespace host
