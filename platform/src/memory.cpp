// Private heaps, global memory and the last error.
#include "host_state.h"

#include <cstdlib>
#include <cstring>
#include <unordered_set>

namespace {

struct Heap {
    std::unordered_set<void*> blocks;
};

std::unordered_map<Heap*, std::unique_ptr<Heap>> heaps;
std::unordered_set<void*> globalBlocks;
thread_local DWORD lastError = ERROR_SUCCESS;

// Fresh memory on the platform holds whatever was there: a pattern shows who relies on zeros.
// Zeroed memory costs nothing until it is touched.
void* NewBlock(SIZE_T size, bool zeroed) {
    const SIZE_T taken = size == 0 ? 1 : size;
    void* block = zeroed ? std::calloc(1, taken) : std::malloc(taken);
    if (block != nullptr && !zeroed) {
        std::memset(block, 0xCD, size);
    }
    return block;
}

}  // namespace

DWORD WINAPI GetLastError(void) {
    return lastError;
}

void WINAPI SetLastError(DWORD error) {
    lastError = error;
}

HANDLE WINAPI HeapCreate(DWORD options, SIZE_T, SIZE_T maximumSize) {
    if (options != 0 || maximumSize != 0) {
        host::Unsupported("HeapCreate with options %#x or a maximum size", options);
    }
    if (host::FailsNow(host::Call::kHeap)) {
        return nullptr;
    }
    auto heap = std::make_unique<Heap>();
    Heap* handle = heap.get();
    heaps.emplace(handle, std::move(heap));
    return handle;
}

BOOL WINAPI HeapDestroy(HANDLE heap) {
    auto it = heaps.find(static_cast<Heap*>(heap));
    if (it == heaps.end()) {
        return host::Fail(ERROR_INVALID_HANDLE);
    }
    for (void* block : it->second->blocks) {
        std::free(block);
    }
    heaps.erase(it);
    return TRUE;
}

LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size) {
    auto it = heaps.find(static_cast<Heap*>(heap));
    if (it == heaps.end() || (flags & ~DWORD{HEAP_ZERO_MEMORY}) != 0) {
        host::Unsupported("HeapAlloc on an unknown heap or with flags %#x", flags);
    }
    if (host::FailsNow(host::Call::kHeap)) {
        return nullptr;
    }
    void* block = NewBlock(size, (flags & HEAP_ZERO_MEMORY) != 0);
    if (block != nullptr) {
        it->second->blocks.insert(block);
    }
    return block;
}

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size) {
    if ((flags & ~UINT{GPTR}) != 0) {
        host::Unsupported("GlobalAlloc with flags %#x", flags);
    }
    if (host::FailsNow(host::Call::kGlobal)) {
        return nullptr;
    }
    void* block = NewBlock(size, (flags & GMEM_ZEROINIT) != 0);
    if (block == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    } else {
        globalBlocks.insert(block);
    }
    return block;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL block) {
    if (block != nullptr && globalBlocks.erase(block) == 0) {
        host::Unsupported("GlobalFree of a block that is not global memory");
    }
    std::free(block);
    return nullptr;
}

namespace host {

void ResetMemory() {
    for (auto& [handle, heap] : heaps) {
        for (void* block : heap->blocks) {
            std::free(block);
        }
    }
    heaps.clear();
    for (void* block : globalBlocks) {
        std::free(block);
    }
    globalBlocks.clear();
}

unsigned HeldHeaps() {
    return static_cast<unsigned>(heaps.size());
}

unsigned HeldGlobalBlocks() {
    return static_cast<unsigned>(globalBlocks.size());
}

}  // namespace host
