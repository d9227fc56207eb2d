// Bitmaps, icons and cursors from resources, and bitmaps from files.
#include "drawing/drawing.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace {

using host::ResourceBytes;

// An entry of an icon or cursor group; a cursor's width and height are 16-bit and its height counts
// twice.
#pragma pack(push, 2)
struct GroupEntry {
    BYTE width;
    BYTE height;
    BYTE colors;
    BYTE reserved;
    WORD planes;
    WORD bitsPerPixel;
    DWORD size;
    WORD id;
};
#pragma pack(pop)
static_assert(sizeof(GroupEntry) == 14);
constexpr size_t kGroupHeader = 6;

int WidthOf(BYTE width) {
    return width == 0 ? 256 : width;
}

// The picture nearest to the size asked for, of those the deepest.
const GroupEntry* Choose(const std::vector<GroupEntry>& entries, int width) {
    const auto distance = [&](const GroupEntry& entry) {
        return std::abs(WidthOf(entry.width) - width);
    };
    const auto nearer = [&](const GroupEntry& a, const GroupEntry& b) {
        return distance(a) != distance(b) ? distance(a) < distance(b)
                                          : a.bitsPerPixel > b.bitsPerPixel;
    };
    return &*std::min_element(entries.begin(), entries.end(), nearer);
}

std::vector<GroupEntry> EntriesOf(const ResourceBytes& group) {
    WORD count = 0;
    if (group.size >= kGroupHeader) {
        std::memcpy(&count, group.data + 4, sizeof(count));
    }
    if (count == 0 || kGroupHeader + count * sizeof(GroupEntry) > group.size) {
        return {};
    }
    std::vector<GroupEntry> entries(count);
    std::memcpy(entries.data(), group.data + kGroupHeader, count * sizeof(GroupEntry));
    return entries;
}

HICON LoadFromGroup(const ResourceBytes& group, bool isIcon) {
    const std::vector<GroupEntry> entries = EntriesOf(group);
    if (entries.empty()) {
        return nullptr;
    }
    const GroupEntry* entry =
        isIcon ? Choose(entries, GetSystemMetrics(SM_CXICON)) : entries.data();
    const ResourceBytes picture =
        host::FindResourceBytes(isIcon ? RT_ICON : RT_CURSOR, MAKEINTRESOURCEW(entry->id));
    const size_t hotSpot = isIcon ? 0 : 4;
    if (picture.data == nullptr || picture.size < hotSpot) {
        return nullptr;
    }
    return host::IconFromDib(picture.data + hotSpot, picture.size - hotSpot);
}

std::vector<BYTE> ReadFile(LPCWSTR path) {
    HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return {};
    }
    std::vector<BYTE> bytes(GetFileSize(file, nullptr));
    DWORD read = 0;
    ::ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    bytes.resize(read);
    return bytes;
}

HBITMAP LoadFromFile(LPCWSTR path) {
    constexpr size_t kHeader = sizeof(BITMAPFILEHEADER);
    const std::vector<BYTE> bytes = ReadFile(path);
    const bool isBitmap = bytes.size() > kHeader && bytes[0] == 'B' && bytes[1] == 'M';
    return isBitmap ? host::BitmapFromDib(bytes.data() + kHeader, bytes.size() - kHeader) : nullptr;
}

// The system's own pictures are shared and have no shape here.
bool IsSystemPicture(HINSTANCE module, LPCWSTR name) {
    constexpr ULONG_PTR kFirst = 32512;
    return module == nullptr && IS_INTRESOURCE(name) && reinterpret_cast<ULONG_PTR>(name) >= kFirst;
}

HICON SystemPicture(LPCWSTR name) {
    return reinterpret_cast<HICON>(0x10000 + reinterpret_cast<ULONG_PTR>(name));
}

// Loaded the first time and then the system's till the end of the program.
HICON LoadShared(HINSTANCE module, LPCWSTR name, bool isIcon) {
    static std::map<const BYTE*, HICON> all;  // by their groups
    if (IsSystemPicture(module, name)) {
        return SystemPicture(name);
    }
    const ResourceBytes group =
        host::FindResourceBytes(isIcon ? RT_GROUP_ICON : RT_GROUP_CURSOR, name);
    if (group.data == nullptr) {
        return nullptr;
    }
    HICON& icon = all[group.data];
    if (icon == nullptr) {
        icon = LoadFromGroup(group, isIcon);
    }
    return icon;
}

}  // namespace

HBITMAP WINAPI LoadBitmapW(HINSTANCE, LPCWSTR name) {
    const ResourceBytes bytes = host::FindResourceBytes(RT_BITMAP, name);
    return bytes.data == nullptr ? nullptr : host::BitmapFromDib(bytes.data, bytes.size);
}

HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name) {
    return LoadShared(module, name, true);
}

HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name) {
    return LoadShared(module, name, false);
}

HANDLE WINAPI LoadImageW(HINSTANCE, LPCWSTR name, UINT type, int width, int height, UINT flags) {
    const bool isFile = (flags & ~UINT{LR_CREATEDIBSECTION}) == LR_LOADFROMFILE;
    if (type != IMAGE_BITMAP || !isFile || width != 0 || height != 0) {
        host::Unsupported("LoadImageW of type %u with flags %#x and a size of %d by %d", type,
                          flags, width, height);
    }
    return host::FailsNow(host::Call::kResource) ? nullptr : LoadFromFile(name);
}

HCURSOR WINAPI SetCursor(HCURSOR cursor) {
    static HCURSOR shown = nullptr;
    return std::exchange(shown, cursor);
}
