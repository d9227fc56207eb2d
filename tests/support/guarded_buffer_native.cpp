// The guarded buffer, by the system's page protection.
#include "guarded_buffer.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace test {

GuardedBuffer::GuardedBuffer(size_t size, const std::string& bytes) {
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    const size_t usable = (size + page - 1) / page * page;
    pagesSize_ = usable + page;
    pages_ = mmap(nullptr, pagesSize_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    mprotect(static_cast<BYTE*>(pages_) + usable, page, PROT_NONE);
    data_ = static_cast<BYTE*>(pages_) + usable - size;
    std::memset(data_, 0xA5, size);
    std::memcpy(data_, bytes.data(), std::min(size, bytes.size()));
}

GuardedBuffer::~GuardedBuffer() {
    munmap(pages_, pagesSize_);
}

}  // namespace test
