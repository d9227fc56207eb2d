// Shared by the stand-in's service files only: the fault switch, handle tables, and the stop for
// what the stand-in does not know.
#pragma once

#include "platform/host.h"

#include <memory>
#include <unordered_map>

namespace host {

/// Ends the program with the text: the driver asked for something the stand-in does not supply.
[[noreturn]] void Unsupported(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Counts a call of that kind; true, with the last error set, when it is ordered to fail.
bool FailsNow(Call kind);
/// The same for services that return their error; 0 when the call goes on.
DWORD ErrorNow(Call kind);

/// Sets the last error and gives FALSE, to end a failing service in one line.
BOOL Fail(DWORD error);

/// The open objects of one kind behind opaque handles. A handle is never used again within a run.
template <typename Object, typename Handle = HANDLE>
class HandleTable {
  public:
    explicit HandleTable(ULONG_PTR first) : next_(first) {}

    Handle Add(Object object) {
        next_ += 4;
        objects_.emplace(next_, std::move(object));
        return reinterpret_cast<Handle>(next_);
    }
    /// The object behind a handle, or null; valid until it is removed.
    Object* Find(Handle handle) {
        auto it = objects_.find(reinterpret_cast<ULONG_PTR>(handle));
        return it == objects_.end() ? nullptr : &it->second;
    }
    bool Remove(Handle handle) { return objects_.erase(reinterpret_cast<ULONG_PTR>(handle)) != 0; }
    unsigned Count() const { return static_cast<unsigned>(objects_.size()); }
    void Clear() { objects_.clear(); }

  private:
    ULONG_PTR next_;
    std::unordered_map<ULONG_PTR, Object> objects_;
};

/// Compares without regard to the case of Latin, Greek and Cyrillic letters, as file names,
/// registry names and profile keys do.
bool SameText(const WideString& a, const WideString& b);
WideString FoldCase(const WideString& text);

std::string ToUtf8(const WideString& text);
WideString FromUtf8(const std::string& text);

/// Converts between the code page and wide text. Characters that the code page lacks become '?'
/// (or U+FFFD on the way in) and `replaced` is set when given.
WideString Decode(UINT codePage, const std::string& bytes, bool* replaced = nullptr);
std::string Encode(UINT codePage, const WideString& text, bool* replaced = nullptr);

/// Runs a program that the shell has started, if one waits.
bool RunWaitingProgram();

// One each per service: forgets what Reset drops, and what is still held.
void ResetMemory();
void ResetAddressSpace();
void ResetModules();
void ResetFiles();
void ResetLocale();
void ResetEnvironment();
void ResetProfile();
void ResetRegistry();
void ResetSpooler();
void ResetMessageBoxes();
void ResetWindows();
void ResetMenus();
void ResetDrawing();
void ResetPrinting();
void ResetSheets();
void ResetFileDialogs();
void ResetShell();

unsigned HeldHeaps();
unsigned HeldGlobalBlocks();
unsigned HeldPageBlocks();
unsigned HeldModules();
unsigned HeldFiles();
unsigned HeldSearches();
unsigned HeldKeys();
unsigned HeldPrinters();
unsigned HeldWindows();
unsigned HeldMenus();
unsigned HeldContexts();
unsigned HeldDrawingObjects();
unsigned HeldSheetPages();

}  // namespace host
