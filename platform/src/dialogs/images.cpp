// Bitmaps, icons and cursors from resources and files.
#include "drawing/drawing.h"

#include <algorithm>
#include <cstring>
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
// The same in an icon file, where the picture follows by its place.
struct FileEntry {
    BYTE width;
    BYTE height;
    BYTE colors;
    BYTE reserved;
    WORD planes;
    WORD bitsPerPixel;
    DWORD size;
    DWORD offset;
};
#pragma pack(pop)
static_assert(sizeof(GroupEntry) == 14 && sizeof(FileEntry) == 16);
constexpr size_t kGroupHeader = 6;

int WidthOf(BYTE width) {
    return width == 0 ? 256 : width;
}

// The picture nearest to the size asked for, of those the deepest; without a size the first.
template <typename Entry>
const Entry* Choose(const std::vector<Entry>& entries, int width) {
    if (entries.empty() || width == 0) {
        return entries.empty() ? nullptr : entries.data();
    }
    const auto distance = [&](const Entry& entry) {
        return std::abs(WidthOf(entry.width) - width);
    };
    return &*std::min_element(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        return distance(a) != distance(b) ? distance(a) < distance(b)
                                          : a.bitsPerPixel > b.bitsPerPixel;
    });
}

template <typename Entry>
std::vector<Entry> EntriesOf(const BYTE* bytes, size_t size) {
    WORD count = 0;
    if (size >= kGroupHeader) {
        std::memcpy(&count, bytes + 4, sizeof(count));
    }
    if (count == 0 || kGroupHeader + count * sizeof(Entry) > size) {
        return {};
    }
    std::vector<Entry> entries(count);
    std::memcpy(entries.data(), bytes + kGroupHeader, count * sizeof(Entry));
    return entries;
}

HICON LoadFromGroup(const ResourceBytes& group, UINT type, int width) {
    const bool isIcon = type == IMAGE_ICON;
    const auto entries = EntriesOf<GroupEntry>(group.data, group.size);
    const GroupEntry* entry = isIcon ? Choose(entries, width) : entries.data();
    if (entry == nullptr || entries.empty()) {
        return nullptr;
    }
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

HANDLE LoadFromFile(LPCWSTR path, UINT type, int width) {
    const std::vector<BYTE> bytes = ReadFile(path);
    if (type == IMAGE_BITMAP) {
        constexpr size_t kHeader = sizeof(BITMAPFILEHEADER);
        const bool isBitmap = bytes.size() > kHeader && bytes[0] == 'B' && bytes[1] == 'M';
        return isBitmap ? host::BitmapFromDib(bytes.data() + kHeader, bytes.size() - kHeader)
                        : nullptr;
    }
    const auto entries = EntriesOf<FileEntry>(bytes.data(), bytes.size());
    const FileEntry* entry = Choose(entries, width);
    if (entry == nullptr || size_t{entry->offset} + entry->size > bytes.size()) {
        return nullptr;
    }
    return host::IconFromDib(bytes.data() + entry->offset, entry->size);
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
HICON LoadShared(LPCWSTR name, UINT type, int width) {
    struct Shared {
        const BYTE* group;
        int width;
        HICON icon;
    };
    static std::vector<Shared> all;
    const ResourceBytes group =
        host::FindResourceBytes(type == IMAGE_ICON ? RT_GROUP_ICON : RT_GROUP_CURSOR, name);
    if (group.data == nullptr) {
        return nullptr;
    }
    for (const Shared& shared : all) {
        if (shared.group == group.data && shared.width == width) {
            return shared.icon;
        }
    }
    const HICON icon = LoadFromGroup(group, type, width);
    if (icon != nullptr) {
        host::ShareIcon(icon);
        all.push_back({group.data, width, icon});
    }
    return icon;
}

HICON LoadPicture(HINSTANCE module, LPCWSTR name, UINT type, int width, UINT flags) {
    if (IsSystemPicture(module, name)) {
        return SystemPicture(name);
    }
    if ((flags & LR_SHARED) != 0) {
        return LoadShared(name, type, width);
    }
    return LoadFromGroup(
        host::FindResourceBytes(type == IMAGE_ICON ? RT_GROUP_ICON : RT_GROUP_CURSOR, name), type,
        width);
}

// The width that an icon or cursor is asked for in; 0 for the one it has.
int WidthWanted(UINT type, int width, UINT flags) {
    if (width != 0 || (flags & LR_DEFAULTSIZE) == 0) {
        return width;
    }
    return GetSystemMetrics(type == IMAGE_ICON ? SM_CXICON : SM_CXCURSOR);
}

}  // namespace

HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name) {
    return static_cast<HBITMAP>(LoadImageW(module, name, IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR));
}

HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name) {
    return static_cast<HICON>(
        LoadImageW(module, name, IMAGE_ICON, 0, 0, LR_DEFAULTSIZE | LR_SHARED));
}

HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name) {
    return static_cast<HCURSOR>(
        LoadImageW(module, name, IMAGE_CURSOR, 0, 0, LR_DEFAULTSIZE | LR_SHARED));
}

HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height,
                         UINT flags) {
    constexpr UINT kKnown = LR_LOADFROMFILE | LR_DEFAULTSIZE | LR_CREATEDIBSECTION | LR_SHARED;
    if ((flags & ~kKnown) != 0 || type > IMAGE_CURSOR) {
        host::Unsupported("LoadImageW of type %u with flags %#x", type, flags);
    }
    if (type == IMAGE_BITMAP && (width != 0 || height != 0)) {
        host::Unsupported("LoadImageW of a bitmap in another size");
    }
    const int wanted = WidthWanted(type, width, flags);
    if ((flags & LR_LOADFROMFILE) != 0) {
        return host::FailsNow(host::Call::kResource) ? nullptr : LoadFromFile(name, type, wanted);
    }
    if (type != IMAGE_BITMAP) {
        return LoadPicture(module, name, type, wanted, flags);
    }
    const ResourceBytes bytes = host::FindResourceBytes(RT_BITMAP, name);
    return bytes.data == nullptr ? nullptr : host::BitmapFromDib(bytes.data, bytes.size);
}

HCURSOR WINAPI SetCursor(HCURSOR cursor) {
    static HCURSOR shown = nullptr;
    return std::exchange(shown, cursor);
}
