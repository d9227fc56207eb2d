// Memory in pages, and what is where in the process's memory, as its own system gives and tells it.
#include "host_state.h"

#include <sys/mman.h>

#include <cstdio>
#include <cstring>

namespace {

constexpr ULONG_PTR kPageSize = 4096;
constexpr ULONG_PTR kUserSpaceEnd = 0x7FFFFFFF0000;

struct Mapping {
    ULONG_PTR begin;
    ULONG_PTR end;
    bool readable;
    bool writable;
};

std::unordered_map<void*, size_t> blocks;  // of VirtualAlloc, with their sizes

bool ReadMapping(std::FILE* maps, Mapping& mapping) {
    unsigned long begin = 0;
    unsigned long end = 0;
    char rights[8] = {};
    if (std::fscanf(maps, "%lx-%lx %7s%*[^\n]", &begin, &end, rights) != 3) {
        return false;
    }
    mapping = {begin, end, rights[0] == 'r', rights[1] == 'w'};
    return true;
}

}  // namespace

LPVOID WINAPI VirtualAlloc(LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
    if (address != nullptr || type != (MEM_RESERVE | MEM_COMMIT) || protection != PAGE_READWRITE) {
        host::Unsupported("VirtualAlloc of type %#x with protection %#x", type, protection);
    }
    if (size == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (host::FailsNow(host::Call::kPages)) {
        return nullptr;
    }
    void* block = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    blocks.emplace(block, size);
    return block;
}

BOOL WINAPI VirtualFree(LPVOID address, SIZE_T size, DWORD type) {
    if (type != MEM_RELEASE) {
        host::Unsupported("VirtualFree of type %#x", type);
    }
    const auto block = blocks.find(address);
    if (size != 0 || block == blocks.end()) {
        return host::Fail(size != 0 ? ERROR_INVALID_PARAMETER : ERROR_INVALID_ADDRESS);
    }
    munmap(block->first, block->second);
    blocks.erase(block);
    return TRUE;
}

SIZE_T WINAPI VirtualQuery(LPCVOID address, MEMORY_BASIC_INFORMATION* memory, SIZE_T size) {
    if (size < sizeof(*memory)) {
        host::Unsupported("VirtualQuery into %zu bytes", size);
    }
    const ULONG_PTR at = reinterpret_cast<ULONG_PTR>(address);
    if (at >= kUserSpaceEnd) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const ULONG_PTR page = at / kPageSize * kPageSize;
    *memory = {};
    memory->BaseAddress = reinterpret_cast<PVOID>(page);
    memory->State = MEM_FREE;
    memory->Protect = PAGE_NOACCESS;
    memory->RegionSize = kUserSpaceEnd - page;
    std::FILE* maps = std::fopen("/proc/self/maps", "r");
    if (maps == nullptr) {
        host::Unsupported("VirtualQuery without /proc/self/maps");
    }
    for (Mapping mapping; ReadMapping(maps, mapping);) {
        if (at >= mapping.begin && at < mapping.end) {
            memory->State = MEM_COMMIT;
            memory->Protect = !mapping.readable  ? PAGE_NOACCESS
                              : mapping.writable ? PAGE_READWRITE
                                                 : PAGE_READONLY;
            memory->RegionSize = mapping.end - page;
        } else if (memory->State == MEM_FREE && mapping.begin > at) {
            memory->RegionSize = std::min<SIZE_T>(memory->RegionSize, mapping.begin - page);
        }
    }
    std::fclose(maps);
    return sizeof(*memory);
}

namespace host {

void ResetAddressSpace() {
    for (const auto& [block, size] : blocks) {
        munmap(block, size);
    }
    blocks.clear();
}

unsigned HeldPageBlocks() {
    return static_cast<unsigned>(blocks.size());
}

}  // namespace host
