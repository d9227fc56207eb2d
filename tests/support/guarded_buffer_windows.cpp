// The guarded buffer, by the platform's page protection.
#include "guarded_buffer.h"

#include <algorithm>
#include <cstring>

namespace test {

GuardedBuffer::GuardedBuffer(size_t size, const std::string& bytes) {
    constexpr size_t kPage = 4096;
    const size_t usable = (size + kPage - 1) / kPage * kPage;
    pagesSize_ = usable + kPage;
    pages_ = VirtualAlloc(nullptr, pagesSize_, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    DWORD before = 0;
    VirtualProtect(static_cast<BYTE*>(pages_) + usable, kPage, PAGE_NOACCESS, &before);
    data_ = static_cast<BYTE*>(pages_) + usable - size;
    std::memset(data_, 0xA5, size);
    std::memcpy(data_, bytes.data(), std::min(size, bytes.size()));
}

GuardedBuffer::~GuardedBuffer() {
    VirtualFree(pages_, 0, MEM_RELEASE);
}

}  // namespace test
