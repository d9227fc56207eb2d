// How the stand-in's services fail when ordered to, and how it stops at what it does not know.
#include "native_only.h"

#include <strsafe.h>

#include <functional>

namespace {

using host::Call;
using test::WideString;

WideString In(const WCHAR* name) {
    return test::TestFolder() + TEXT("\\") + name;
}

HANDLE Create(const WideString& path, DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
    return CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                       attributes, nullptr);
}

TEST_F(NativeOnly, EachFileServiceFailsAsThePlatformFails) {
    const WideString path = In(TEXT("file"));
    HANDLE file = Create(path);
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(In(TEXT("*")).c_str(), &found);
    char byte = 'x';
    DWORD count = 99;
    WCHAR text[MAX_PATH];
    const struct {
        const char* name;
        std::function<bool()> failed;
    } cases[] = {
        {"CreateFileW", [&] { return Create(In(TEXT("new"))) == INVALID_HANDLE_VALUE; }},
        {"ReadFile", [&] { return !ReadFile(file, &byte, 1, &count, nullptr) && count == 0; }},
        {"WriteFile", [&] { return !WriteFile(file, &byte, 1, &count, nullptr) && count == 0; }},
        {"GetFileSize", [&] { return GetFileSize(file, nullptr) == INVALID_FILE_SIZE; }},
        {"DeleteFileW", [&] { return !DeleteFileW(path.c_str()); }},
        {"CreateDirectoryW", [&] { return !CreateDirectoryW(In(TEXT("d")).c_str(), nullptr); }},
        {"GetFileAttributesW",
         [&] { return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES; }},
        {"FindFirstFileW",
         [&] { return FindFirstFileW(path.c_str(), &found) == INVALID_HANDLE_VALUE; }},
        {"FindNextFileW", [&] { return !FindNextFileW(search, &found); }},
        {"GetSystemDirectoryW", [&] { return GetSystemDirectoryW(text, MAX_PATH) == 0; }},
        {"GetWindowsDirectoryW", [&] { return GetWindowsDirectoryW(text, MAX_PATH) == 0; }},
    };
    for (const auto& c : cases) {
        const unsigned before = host::CallCount(Call::kFile);
        host::FailCall(Call::kFile, 1, 1117);
        EXPECT_TRUE(c.failed()) << c.name;
        EXPECT_EQ(GetLastError(), 1117u) << c.name;
        EXPECT_EQ(host::CallCount(Call::kFile), before + 1) << c.name;
    }
    EXPECT_EQ(host::CurrentHoldings().files, 1u);
    EXPECT_EQ(host::CurrentHoldings().searches, 1u);
    EXPECT_TRUE(FindNextFileW(search, &found)) << "once only";
    EXPECT_TRUE(FindClose(search));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(test::ReadBytes(path), "");
    EXPECT_FALSE(std::filesystem::exists(test::DiskPath(In(TEXT("new")))));
}

TEST_F(NativeOnly, AProfileThatCannotBeReadGivesTheDefault) {
    test::WriteBytes(In(TEXT("a.ini")), "[s]\nk=v\n");
    WCHAR text[8];
    for (const WCHAR* expected : {TEXT("d"), TEXT("v")}) {
        host::FailCall(Call::kProfile, *expected == 'd' ? 1 : 0);
        EXPECT_EQ(GetPrivateProfileStringW(TEXT("s"), TEXT("k"), TEXT("d"), text, 8,
                                           In(TEXT("a.ini")).c_str()),
                  1u);
        EXPECT_EQ(WideString(text), expected);
    }
}

TEST_F(NativeOnly, LocaleServicesFail) {
    WCHAR wide[8];
    char narrow[8];
    for (int which = 0; which < 3; ++which) {
        host::FailCall(Call::kLocale, 1, 1117);
        EXPECT_EQ(which == 0 ? GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, wide, 8)
                  : which == 1
                      ? MultiByteToWideChar(CP_ACP, 0, "a", 1, wide, 8)
                      : WideCharToMultiByte(CP_ACP, 0, TEXT("a"), 1, narrow, 8, nullptr, nullptr),
                  0);
        EXPECT_EQ(GetLastError(), 1117u);
    }
}

TEST_F(NativeOnly, RegistryServicesReturnTheErrorAndHoldNoKey) {
    HKEY key = nullptr;
    BYTE data[4] = {};
    DWORD size = 4;
    auto create = [&] {
        return RegCreateKeyExW(HKEY_CURRENT_USER, TEXT("k"), 0, nullptr, 0, KEY_WRITE, nullptr,
                               &key, nullptr);
    };
    const std::function<LSTATUS()> services[] = {
        create,
        [&] { return RegOpenKeyExW(HKEY_CURRENT_USER, TEXT("k"), 0, KEY_READ, &key); },
        [&] { return RegSetValueExW(HKEY_CURRENT_USER, TEXT("v"), 0, REG_DWORD, data, 4); },
        [&] {
            return RegQueryValueExW(HKEY_CURRENT_USER, TEXT("v"), nullptr, nullptr, data, &size);
        },
    };
    SetLastError(77);
    for (const auto& service : services) {
        host::FailCall(Call::kRegistry, 1, ERROR_ACCESS_DENIED);
        EXPECT_EQ(service(), ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(GetLastError(), 77u);
    EXPECT_EQ(host::CurrentHoldings().keys, 0u);
    EXPECT_EQ(services[1](), ERROR_FILE_NOT_FOUND) << "the failing creation left nothing";
    EXPECT_EQ(create(), ERROR_SUCCESS);
    EXPECT_EQ(host::CurrentHoldings().keys, 1u);
    RegCloseKey(key);
}

TEST_F(NativeOnly, ModuleServicesFailAndCountWhatIsHeld) {
    const WideString path = In(TEXT("s.dll"));
    std::filesystem::copy_file(std::filesystem::path(test::SampleCompanion()),
                               test::DiskPath(path));
    host::FailCall(Call::kModule, 1, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(LoadLibraryW(path.c_str()), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
    HMODULE library = LoadLibraryW(path.c_str());
    host::FailCall(Call::kModule, 1, ERROR_PROC_NOT_FOUND);
    EXPECT_EQ(GetProcAddress(library, "SampleAnswer"), nullptr);
    EXPECT_EQ(LoadLibraryW(path.c_str()), library);
    EXPECT_EQ(host::CurrentHoldings().modules, 2u);
    host::Reset();
    EXPECT_EQ(host::CurrentHoldings().modules, 0u);
    EXPECT_FALSE(FreeLibrary(library));
}

TEST_F(NativeOnly, AResetComputerIsFresh) {
    const std::filesystem::path before = host::DriveFolder();
    host::SetUiLanguage(0x0411);
    host::SetCountry(81);
    host::SetCodePage(932);
    host::SetEnvironment(TEXT("Name"), TEXT("value"));
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("NAME"), nullptr, 0), 6u);
    HANDLE file = Create(In(TEXT("file")));
    HKEY key;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, TEXT("a"), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr);

    host::Reset();
    EXPECT_EQ(host::CurrentHoldings(), host::Holdings{});
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_FALSE(std::filesystem::exists(before)) << "removed";
    EXPECT_EQ(GetUserDefaultUILanguage(), 0x0409);
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("NAME"), nullptr, 0), 0u);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, TEXT("a"), 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
    for (const WCHAR* folder : {TEXT("C:\\Windows\\inf"), TEXT("c:/windows/SYSTEM32/spool")}) {
        EXPECT_EQ(GetFileAttributesW(folder), DWORD{FILE_ATTRIBUTE_DIRECTORY});
    }
    EXPECT_EQ(host::SystemFolder(), host::DriveFolder() / "Windows" / "system32");
    EXPECT_EQ(host::DiskPath(TEXT("C:\\..\\..\\x")), host::DriveFolder() / "x") << "never outside";
}

// Wine runs as a user who may write everything.
TEST_F(NativeOnly, AReadOnlyFileIsNotWritten) {
    const WideString path = In(TEXT("locked"));
    test::WriteBytes(path, "old");
    std::filesystem::permissions(test::DiskPath(path), std::filesystem::perms::owner_read);
    for (DWORD disposition : {CREATE_ALWAYS, OPEN_EXISTING}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, disposition, 0, nullptr),
                  INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    }
    EXPECT_EQ(test::ReadBytes(path), "old");
}

// Wine folds only ASCII letters in profiles.
TEST_F(NativeOnly, ProfileKeysAreFoldedBeyondAscii) {
    test::WriteWideText(In(TEXT("a.ini")), TEXT("[\u00C4]\n\u0416=v"));
    WCHAR text[8];
    EXPECT_EQ(GetPrivateProfileStringW(TEXT("\u00E4"), TEXT("\u0436"), TEXT(""), text, 8,
                                       In(TEXT("a.ini")).c_str()),
              1u);
}

// A question mark that stands for nothing is the platform's rule, which Wine lacks.
TEST_F(NativeOnly, SearchesGiveNamesInOrderAndKnowThePlatformsWildcards) {
    for (const WCHAR* name : {TEXT("b_.txt"), TEXT("BA.txt"), TEXT("c"), TEXT("a.txt")}) {
        test::WriteBytes(In(name), "");
    }
    const struct {
        const WCHAR* pattern;
        WideString names;
    } cases[] = {
        {TEXT("*"), TEXT(". .. a.txt BA.txt b_.txt c ")},
        {TEXT("??.txt"), TEXT("a.txt BA.txt b_.txt ")},
        {TEXT("???"), TEXT("c ")},
        {TEXT("c.*"), TEXT("c ")},
    };
    for (const auto& c : cases) {
        WIN32_FIND_DATAW found;
        HANDLE search = FindFirstFileW(In(c.pattern).c_str(), &found);
        WideString names;
        do {
            names += found.cFileName + WideString(TEXT(" "));
        } while (FindNextFileW(search, &found));
        FindClose(search);
        EXPECT_EQ(names, c.names) << test::Narrow(c.pattern);
    }
}

TEST_F(NativeOnly, UndecodableBytesAndHalfPairsAreReplaced) {
    WCHAR wide[4];
    host::SetCodePage(1255);  // the C library holds back a letter that a point might follow
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\xE0\xE9", 2, wide, 4), 2);
    host::SetCodePage(932);
    ASSERT_EQ(MultiByteToWideChar(CP_ACP, 0, "\x93\xFA\x93", 3, wide, 4), 2);
    EXPECT_EQ(WideString(wide, 2), TEXT("\u65E5\uFFFD")) << "half a character at the end";
    const WCHAR half[] = {'a', 0xD83D, 'b'};
    char narrow[4];
    BOOL used = FALSE;
    ASSERT_EQ(WideCharToMultiByte(CP_ACP, 0, half, 3, narrow, 4, nullptr, &used), 3);
    EXPECT_EQ(std::string(narrow, 3), "a?b");
    EXPECT_TRUE(used);
}

using UnknownRequests = NativeOnly;

TEST_F(UnknownRequests, StopTheProgram) {
    HKEY key;
    WCHAR text[8];
    EXPECT_DEATH(Create(In(TEXT("f")), FILE_ATTRIBUTE_READONLY), "CreateFileW with .*attributes");
    EXPECT_DEATH(GetFileAttributesW(TEXT("D:\\file")), "none on drive C");
    EXPECT_DEATH(GetLocaleInfoW(LOCALE_USER_DEFAULT, 0x1003, text, 8), "type 0x1003");
    EXPECT_DEATH(MultiByteToWideChar(65001, 0, "a", 1, text, 8), "code page 65001");
    EXPECT_DEATH(RegOpenKeyExW(HKEY_CURRENT_USER, TEXT("k"), 0, 0x100, &key), "access 0x100");
    EXPECT_DEATH(GetPrivateProfileStringW(nullptr, nullptr, nullptr, text, 8, TEXT("a.ini")),
                 "without a section");
    EXPECT_DEATH(StringCchPrintfW(text, 8, TEXT("%g"), 1.0), "conversion %g");
}

}  // namespace
