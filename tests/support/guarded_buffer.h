// Memory whose end is guarded, to show that nothing behind a caller's buffer is touched.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace test {

/// A buffer of exactly `size` bytes, filled with 0xA5 behind the bytes given, whose end is the end
/// of readable memory: an access behind it ends the program.
class GuardedBuffer {
  public:
    explicit GuardedBuffer(size_t size, const std::string& bytes = {});
    ~GuardedBuffer();
    GuardedBuffer(const GuardedBuffer&) = delete;
    GuardedBuffer& operator=(const GuardedBuffer&) = delete;

    BYTE* data() const { return data_; }
    DEVMODEW* record() const { return reinterpret_cast<DEVMODEW*>(data_); }

  private:
    void* pages_;
    size_t pagesSize_;
    BYTE* data_;
};

}  // namespace test
