// Bitmaps, brushes, pens and fonts as objects: making, describing and deleting them, and those that
// belong to the system.
#include "state.h"

#include <cstring>
#include <map>

namespace host {
namespace {

HandleTable<Object, HGDIOBJ> objects(0x1000000);
// Stock objects and system colours' brushes: not counted, and kept by Reset, because window classes
// go on naming them.
HandleTable<Object, HGDIOBJ> systemObjects(0x1800000);

HGDIOBJ StockBrush(COLORREF color) {
    return systemObjects.Add({Brush{color}});
}

HGDIOBJ StockFont(LONG height, LONG width, LONG weight, const WideString& face) {
    LOGFONTW font = {};
    font.lfHeight = height;
    font.lfWidth = width;
    font.lfWeight = weight;
    font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return systemObjects.Add({Font{font}});
}

HGDIOBJ NewStockObject(int index) {
    switch (index) {
        case WHITE_BRUSH:
            return StockBrush(0xFFFFFF);
        case BLACK_BRUSH:
            return StockBrush(0);
        case BLACK_PEN:
            return systemObjects.Add({LOGPEN{PS_SOLID, {0, 0}, 0}});
        case SYSTEM_FONT:
            return StockFont(16, 7, FW_BOLD, TEXT("System"));
        case DEFAULT_GUI_FONT:
            return StockFont(-11, 0, FW_NORMAL, TEXT("MS Shell Dlg"));
        default:
            Unsupported("GetStockObject(%d)", index);
    }
}

}  // namespace

Object* FindObject(HGDIOBJ handle) {
    Object* object = objects.Find(handle);
    return object == nullptr ? systemObjects.Find(handle) : object;
}

template <typename Type>
Type* Find(HGDIOBJ handle) {
    Object* object = FindObject(handle);
    return object == nullptr ? nullptr : std::get_if<Type>(&object->data);
}
template Bitmap* Find<Bitmap>(HGDIOBJ);
template Brush* Find<Brush>(HGDIOBJ);
template LOGPEN* Find<LOGPEN>(HGDIOBJ);
template Font* Find<Font>(HGDIOBJ);

HGDIOBJ AddObject(Object object) {
    return FailsNow(Call::kDrawing) ? nullptr : objects.Add(std::move(object));
}

void RemoveObject(HGDIOBJ handle) {
    objects.Remove(handle);
}

HGDIOBJ DefaultBitmap() {
    static const HGDIOBJ handle = [] {
        Picture picture{1, 1, {0}};
        Bitmap bitmap = BitmapFromPicture(picture);
        bitmap.bitsPerPixel = 1;
        return systemObjects.Add({std::move(bitmap)});
    }();
    return handle;
}

const Brush* FindBrush(HBRUSH handle) {
    constexpr ULONG_PTR kColors = 31;
    const auto number = reinterpret_cast<ULONG_PTR>(handle);
    if (number >= 1 && number <= kColors) {
        handle = GetSysColorBrush(static_cast<int>(number - 1));
    }
    return Find<Brush>(handle);
}

Surface SurfaceOf(Bitmap& bitmap) {
    Surface surface;
    const auto rowSize = static_cast<std::ptrdiff_t>(bitmap.RowSize());
    surface.top = bitmap.rows.data();
    surface.stride = rowSize;
    if (!bitmap.topDown) {
        surface.top += rowSize * (bitmap.height - 1);
        surface.stride = -rowSize;
    }
    surface.width = bitmap.width;
    surface.height = bitmap.height;
    surface.bytes = bitmap.bitsPerPixel == 24 ? 3 : 4;
    surface.monochrome = bitmap.bitsPerPixel == 1;
    return surface;
}

namespace {

int Describe(Bitmap& bitmap, BITMAP* description) {
    const int bits = bitmap.width * bitmap.bitsPerPixel;
    description->bmWidth = bitmap.width;
    description->bmHeight = bitmap.height;
    // Rows end at 16 bits, those of a section at 32.
    description->bmWidthBytes = bitmap.section ? (bits + 31) / 32 * 4 : (bits + 15) / 16 * 2;
    description->bmPlanes = 1;
    description->bmBitsPixel = static_cast<WORD>(bitmap.bitsPerPixel);
    description->bmBits = bitmap.section ? bitmap.rows.data() : nullptr;
    return sizeof(*description);
}

}  // namespace

void ResetDrawing() {
    DropContexts();
    objects.Clear();
}

unsigned HeldDrawingObjects() {
    return objects.Count();
}

}  // namespace host

using host::Brush;
using host::Find;
using host::Font;

HGDIOBJ WINAPI GetStockObject(int index) {
    static std::map<int, HGDIOBJ> made;
    HGDIOBJ& object = made[index];
    if (object == nullptr) {
        object = host::NewStockObject(index);
    }
    return object;
}

HBRUSH WINAPI GetSysColorBrush(int index) {
    static std::map<int, HGDIOBJ> made;
    HGDIOBJ& object = made[index];
    if (object == nullptr) {
        object = host::StockBrush(GetSysColor(index));
    }
    return static_cast<HBRUSH>(object);
}

BOOL WINAPI DeleteObject(HGDIOBJ handle) {
    if (host::systemObjects.Find(handle) != nullptr) {
        return TRUE;  // and it stays
    }
    host::Object* object = host::objects.Find(handle);
    if (object == nullptr) {
        return host::IsContext(handle) ? DeleteDC(static_cast<HDC>(handle))
                                       : host::Fail(ERROR_INVALID_HANDLE);
    }
    if (!host::IsObjectSelected(handle)) {
        return host::objects.Remove(handle);
    }
    if (Find<host::Bitmap>(handle) != nullptr) {
        return FALSE;
    }
    object->deleted = true;
    return TRUE;
}

int WINAPI GetObjectW(HANDLE handle, int size, LPVOID description) {
    if (const Font* font = Find<Font>(handle)) {
        const int needed = sizeof(font->description);
        if (description == nullptr) {
            return needed;
        }
        const int given = std::min(size, needed);
        std::memcpy(description, &font->description, static_cast<size_t>(given));
        return given;
    }
    host::Bitmap* bitmap = Find<host::Bitmap>(handle);
    if (bitmap == nullptr && host::FindObject(handle) != nullptr) {
        host::Unsupported("GetObjectW of a brush or pen");
    }
    if (bitmap == nullptr) {
        return host::Fail(ERROR_INVALID_HANDLE);
    }
    if (description == nullptr) {
        return sizeof(BITMAP);
    }
    return size < static_cast<int>(sizeof(BITMAP))
               ? 0
               : host::Describe(*bitmap, static_cast<BITMAP*>(description));
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color) {
    return static_cast<HBRUSH>(host::AddObject({Brush{color}}));
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap) {
    const host::Bitmap* pattern = Find<host::Bitmap>(bitmap);
    if (pattern == nullptr) {
        return nullptr;
    }
    return static_cast<HBRUSH>(host::AddObject({Brush{0, *pattern}}));
}

HPEN WINAPI CreatePen(int style, int width, COLORREF color) {
    if (style != PS_SOLID) {
        host::Unsupported("CreatePen of style %d", style);
    }
    const LOGPEN pen = {static_cast<UINT>(style), {std::abs(width), 0}, color};
    return static_cast<HPEN>(host::AddObject({pen}));
}

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font) {
    if (font == nullptr) {
        return nullptr;
    }
    if (font->lfEscapement != 0 || font->lfOrientation != 0) {
        host::Unsupported("turned text");
    }
    return static_cast<HFONT>(host::AddObject({Font{*font}}));
}
