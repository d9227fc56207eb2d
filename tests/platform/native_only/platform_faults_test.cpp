// How the stand-in's services fail when ordered to, and how it stops at what it does not know.
#include "native_only.h"

#include <functional>

namespace {

using host::Call;

TEST_F(NativeOnly, EachKindOfCallFailsAsThePlatformFailsAndHoldsNothing) {
    constexpr LSTATUS kError = 1117;
    constexpr LSTATUS kUntouched = 77;
    const WCHAR* file = TEXT("C:\\kpdtest\\a.ini");
    test::WriteBytes(file, "[P]\nP=value\n");
    host::AddPrinter({.name = TEXT("P"), .model = TEXT("M"), .defaultRecord = {}});
    WCHAR name[] = TEXT("P");
    WCHAR text[8];
    WIN32_FIND_DATAW found;
    HANDLE printer;
    HKEY key;
    const std::pair<Call, std::function<bool()>> cases[] = {
        {Call::kHeap, [] { return HeapCreate(0, 0, 0) == nullptr; }},
        {Call::kGlobal, [] { return GlobalAlloc(GPTR, 8) == nullptr; }},
        {Call::kPages,
         [] {
             return VirtualAlloc(nullptr, 8, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE) == nullptr;
         }},
        {Call::kModule, [&] { return LoadLibraryW(file) == nullptr; }},
        {Call::kFile, [&] { return FindFirstFileW(file, &found) == INVALID_HANDLE_VALUE; }},
        {Call::kProfile,
         [&] { return GetPrivateProfileStringW(name, name, TEXT("d"), text, 8, file) == 1; }},
        {Call::kLocale, [&] { return MultiByteToWideChar(CP_ACP, 0, "a", 1, text, 8) == 0; }},
        {Call::kRegistry,
         [&] { return RegOpenKeyExW(HKEY_CURRENT_USER, name, 0, KEY_READ, &key) == kError; }},
        {Call::kSpooler, [&] { return !OpenPrinterW(name, &printer, nullptr); }},
    };
    for (const auto& [kind, failed] : cases) {
        SetLastError(kUntouched);
        host::FailCall(kind, 1, kError);
        EXPECT_TRUE(failed()) << static_cast<int>(kind);
        // The registry only returns its errors.
        const DWORD expected = kind == Call::kRegistry ? kUntouched : kError;
        EXPECT_EQ(GetLastError(), expected) << static_cast<int>(kind);
        EXPECT_EQ(host::CurrentHoldings(), host::Holdings{}) << static_cast<int>(kind);
    }
}

TEST_F(NativeOnly, UnknownRequestsStopTheProgram) {
    EXPECT_DEATH(GetFileAttributesW(TEXT("D:\\file")), "none on drive C");
    EXPECT_DEATH(GlobalAlloc(0x1000, 8), "GlobalAlloc with flags");
}

}  // namespace
