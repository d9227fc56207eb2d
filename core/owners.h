// Owners of the platform's memory and handles: each releases on every path, once.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <utility>

/// A block of global memory beginning with a T, or none.
template <typename T>
class GlobalBlock {
  public:
    GlobalBlock() = default;
    GlobalBlock(GlobalBlock&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    GlobalBlock& operator=(GlobalBlock&& other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~GlobalBlock() {
        if (block_ != nullptr) {
            GlobalFree(block_);
        }
    }

    /// `size` bytes, their content unspecified unless `flags` has GMEM_ZEROINIT; none when memory
    /// is short.
    static GlobalBlock Allocate(SIZE_T size = sizeof(T), UINT flags = GMEM_FIXED) {
        GlobalBlock taken;
        taken.block_ = static_cast<T*>(GlobalAlloc(flags, size));
        return taken;
    }

    explicit operator bool() const { return block_ != nullptr; }
    T* get() const { return block_; }
    /// Leaves the block to the caller, to be freed with GlobalFree.
    T* Release() { return std::exchange(block_, nullptr); }
    T* operator->() const { return block_; }
    T& operator*() const { return *block_; }

  private:
    T* block_ = nullptr;
};

/// A printer handle of our own, closed at the end; none when the printer could not be opened, with
/// OpenPrinterW's last error. (To the spooler a null name means the print server; here it is a
/// printer that does not exist.)
class OpenedPrinter {
  public:
    /// `access` 0 asks for what the spooler gives by default.
    explicit OpenedPrinter(WCHAR* name, DWORD access = 0) {
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
        if (name == nullptr) {
            SetLastError(ERROR_INVALID_PRINTER_NAME);
        } else if (!OpenPrinterW(name, &handle_, access == 0 ? nullptr : &defaults)) {
            handle_ = nullptr;
        }
    }
    OpenedPrinter(const OpenedPrinter&) = delete;
    OpenedPrinter& operator=(const OpenedPrinter&) = delete;
    ~OpenedPrinter() {
        if (handle_ != nullptr) {
            ClosePrinter(handle_);
        }
    }

    explicit operator bool() const { return handle_ != nullptr; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_ = nullptr;
};
