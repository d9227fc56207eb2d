// Files, folders and searches.
#include "platform_test.h"

#include <set>
#include <tuple>

namespace {

using test::WideString;

using FilesTest = test::PlatformTest;

WideString In(const WCHAR* name) {
    return test::TestFolder() + TEXT("\\") + name;
}

HANDLE Open(const WCHAR* name, DWORD disposition, DWORD access = GENERIC_READ | GENERIC_WRITE) {
    return CreateFileW(In(name).c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Whether a call failed for that reason; the next one starts without an error.
testing::AssertionResult Fails(bool failed, DWORD error) {
    const DWORD last = GetLastError();
    SetLastError(ERROR_SUCCESS);
    return testing::AssertionResult(failed && last == error) << "last error " << last;
}

TEST_F(FilesTest, WhatIsWrittenIsReadBackFromAnyCaseOfTheName) {
    DWORD count = 99;
    HANDLE file = Open(TEXT("Card.bin"), CREATE_NEW);
    EXPECT_TRUE(WriteFile(file, "a\0bc", 4, &count, nullptr));
    HANDLE second = Open(TEXT("Card.bin"), OPEN_EXISTING, GENERIC_READ);
    EXPECT_TRUE(Fails(second == INVALID_HANDLE_VALUE, ERROR_SHARING_VIOLATION));
    EXPECT_TRUE(CloseHandle(file));

    file = Open(TEXT("cARD.BIN"), OPEN_EXISTING, GENERIC_READ);
    EXPECT_EQ(GetFileSize(file, nullptr), 4u);
    char buffer[] = "zzzzz";
    for (DWORD expected : {4u, 0u}) {
        EXPECT_TRUE(ReadFile(file, buffer, 5, &count, nullptr)) << "the end is no failure";
        EXPECT_EQ(count, expected);
    }
    EXPECT_EQ(std::string(buffer, 5), std::string("a\0bcz", 5));
    EXPECT_TRUE(Fails(!WriteFile(file, "x", 1, &count, nullptr), ERROR_ACCESS_DENIED));
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(FilesTest, EachServiceSaysWhatStandsInItsWay) {
    const WideString there = In(TEXT("there"));
    const WideString folder = In(TEXT("folder"));
    test::WriteBytes(there, "old");
    std::filesystem::create_directory(test::DiskPath(folder));
    const std::tuple<const WCHAR*, DWORD, DWORD> cases[] = {
        {TEXT("THERE"), CREATE_NEW, ERROR_FILE_EXISTS},
        {TEXT("missing"), OPEN_EXISTING, ERROR_FILE_NOT_FOUND},
        {TEXT("missing\\new"), CREATE_ALWAYS, ERROR_PATH_NOT_FOUND},
        {TEXT("folder"), OPEN_EXISTING, ERROR_ACCESS_DENIED},
    };
    for (const auto& [name, disposition, error] : cases) {
        HANDLE file = Open(name, disposition);
        EXPECT_TRUE(Fails(file == INVALID_HANDLE_VALUE, error)) << test::Narrow(name);
    }
    EXPECT_EQ(GetFileAttributesW(folder.c_str()), DWORD{FILE_ATTRIBUTE_DIRECTORY});

    EXPECT_TRUE(CloseHandle(Open(TEXT("there"), CREATE_ALWAYS)));
    EXPECT_EQ(test::ReadBytes(there), "") << "created anew";
    EXPECT_EQ(GetFileAttributesW(there.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    const DWORD attributes = GetFileAttributesW(In(TEXT("missing")).c_str());
    EXPECT_TRUE(Fails(attributes == INVALID_FILE_ATTRIBUTES, ERROR_FILE_NOT_FOUND));
}

// The names that a search gives, with folders marked, and the error that it ends with.
std::set<std::string> Search(const WCHAR* pattern) {
    std::set<std::string> names;
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(In(pattern).c_str(), &found);
    for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found)) {
        const bool folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        names.insert(test::Narrow(found.cFileName) + (folder ? "/" : ""));
    }
    names.insert(std::to_string(GetLastError()));
    EXPECT_TRUE(search == INVALID_HANDLE_VALUE || FindClose(search));
    return names;
}

TEST_F(FilesTest, SearchesFindWhatThePatternFits) {
    for (const WCHAR* name : {TEXT("kpd_en.ini"), TEXT("KPD_de.INI"), TEXT("kpd.ini")}) {
        test::WriteBytes(In(name), "");
    }
    std::filesystem::create_directory(test::DiskPath(In(TEXT("kpd_sub.ini"))));
    const std::pair<const WCHAR*, std::set<std::string>> cases[] = {
        {TEXT("*.*"), {"./", "../", "KPD_de.INI", "kpd.ini", "kpd_en.ini", "kpd_sub.ini/", "18"}},
        {TEXT("kpd_*.ini"), {"KPD_de.INI", "kpd_en.ini", "kpd_sub.ini/", "18"}},
        {TEXT("KPD_?n.ini"), {"kpd_en.ini", "18"}},
        {TEXT("nothing*"), {"2"}},
    };
    for (const auto& [pattern, found] : cases) {
        EXPECT_EQ(Search(pattern), found) << test::Narrow(pattern);
    }
}

TEST_F(FilesTest, DirectoriesGiveTheirLengthOrWhatTheyNeed) {
    for (const auto get : {GetSystemDirectoryW, GetWindowsDirectoryW}) {
        WCHAR buffer[MAX_PATH];
        const UINT needed = get(nullptr, 0);
        EXPECT_EQ(get(buffer, needed - 1), needed);
        ASSERT_EQ(get(buffer, needed), needed - 1);
        EXPECT_TRUE(std::filesystem::is_directory(test::DiskPath(buffer)));
    }
}

}  // namespace
