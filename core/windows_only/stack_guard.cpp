// What the compiler's stack protector asks for. The compiler's own library would load a
// cryptographic provider for its value, which an image entry must not.
#include <windows.h>

#include <cstdint>

extern "C" {

// Its zero byte comes first, which no text that runs over a buffer can write.
std::uintptr_t __stack_chk_guard = 0x2B992DDFA23200;

[[noreturn]] void __stack_chk_fail() {
    asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}
}

namespace {

// Runs with the start-up code, before anything that is protected; this file is not.
__attribute__((constructor)) void ChooseGuard() {
    FILETIME now;
    LARGE_INTEGER counter;
    GetSystemTimeAsFileTime(&now);
    QueryPerformanceCounter(&counter);
    std::uint64_t value = std::uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime;
    value ^= static_cast<std::uint64_t>(counter.QuadPart) << 16;
    value ^= std::uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId();
    value ^= reinterpret_cast<std::uintptr_t>(&now);
    value *= 0x9E3779B97F4A7C15;  // spreads what differs over all bits
    __stack_chk_guard ^= value & ~std::uint64_t{0xFF};
}

}  // namespace
