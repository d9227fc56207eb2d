// Compiled resource files as the resource compiler writes them: entries with a header, each on a
// multiple of four bytes.
#include "drawing/drawing.h"

#include <cstdlib>
#include <cstring>
#include <deque>

namespace {

using host::ResourceBytes;
using host::WideString;

// A type or a resource is named by a number or by a text.
struct Name {
    WORD number = 0;
    WideString text;  // in one case
    bool operator==(const Name&) const = default;
};

struct Resource {
    Name type;
    Name name;
    ResourceBytes bytes;
};

// Of the whole program: static objects add to them before it begins. None ever moves, since
// handles point to them.
std::deque<Resource>& Resources() {
    static std::deque<Resource> resources;
    return resources;
}

class Reader {
  public:
    Reader(const BYTE* data, size_t size) : data_(data), size_(size) {}

    bool AtEnd() const { return at_ + 8 > size_; }
    DWORD Number() {
        DWORD number = 0;
        std::memcpy(&number, Take(4), 4);
        return number;
    }
    Name TakeName() {
        Name name;
        WORD unit = TakeUnit();
        if (unit == 0xFFFF) {
            name.number = TakeUnit();
            return name;
        }
        for (; unit != 0; unit = TakeUnit()) {
            name.text += static_cast<WCHAR>(unit);
        }
        name.text = host::FoldCase(name.text);
        return name;
    }
    const BYTE* Take(size_t count) {
        if (at_ + count > size_) {
            host::Unsupported("a compiled resource file that ends too early");
        }
        at_ += count;
        return data_ + at_ - count;
    }
    void Align() { at_ = (at_ + 3) & ~size_t{3}; }

  private:
    WORD TakeUnit() {
        WORD unit = 0;
        std::memcpy(&unit, Take(2), 2);
        return unit;
    }

    const BYTE* data_;
    size_t size_;
    size_t at_ = 0;
};

// "#123" is the number 123.
Name NameOf(LPCWSTR name) {
    if (IS_INTRESOURCE(name)) {
        return {static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)), {}};
    }
    if (name[0] == '#') {
        return {static_cast<WORD>(std::atoi(host::ToUtf8(name + 1).c_str())), {}};
    }
    return {0, host::FoldCase(name)};
}

// The resource of that type and name. Otherwise null with the last error set.
const Resource* Find(LPCWSTR type, LPCWSTR name) {
    const Name wantedType = NameOf(type);
    const Name wantedName = NameOf(name);
    bool hasType = false;
    for (const Resource& resource : Resources()) {
        hasType = hasType || resource.type == wantedType;
        if (resource.type == wantedType && resource.name == wantedName) {
            return &resource;
        }
    }
    SetLastError(hasType ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND);
    return nullptr;
}

const Resource* FindUnlessOrdered(LPCWSTR type, LPCWSTR name) {
    return host::FailsNow(host::Call::kResource) ? nullptr : Find(type, name);
}

}  // namespace

namespace host {

void AddResources(const void* bytes, size_t size) {
    Reader reader(static_cast<const BYTE*>(bytes), size);
    while (!reader.AtEnd()) {
        Resource resource;
        resource.bytes.size = reader.Number();
        reader.Number();  // of the header, which its parts tell too
        resource.type = reader.TakeName();
        resource.name = reader.TakeName();
        reader.Align();
        constexpr size_t kVersionLanguageAndFlags = 16;
        reader.Take(kVersionLanguageAndFlags);
        resource.bytes.data = reader.Take(resource.bytes.size);
        reader.Align();
        if (resource.bytes.size != 0) {  // the file begins with an empty one
            Resources().push_back(std::move(resource));
        }
    }
}

ResourceBytes FindResourceBytes(LPCWSTR type, LPCWSTR name) {
    const Resource* found = FindUnlessOrdered(type, name);
    return found == nullptr ? ResourceBytes() : found->bytes;
}

}  // namespace host

HRSRC WINAPI FindResourceW(HMODULE, LPCWSTR name, LPCWSTR type) {
    return reinterpret_cast<HRSRC>(const_cast<Resource*>(FindUnlessOrdered(type, name)));
}

HGLOBAL WINAPI LoadResource(HMODULE, HRSRC resource) {
    return resource == nullptr
               ? nullptr
               : const_cast<BYTE*>(reinterpret_cast<Resource*>(resource)->bytes.data);
}

LPVOID WINAPI LockResource(HGLOBAL resource) {
    return resource;
}

DWORD WINAPI SizeofResource(HMODULE, HRSRC resource) {
    return resource == nullptr
               ? 0
               : static_cast<DWORD>(reinterpret_cast<Resource*>(resource)->bytes.size);
}
