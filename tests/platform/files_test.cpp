// Files, folders and searches.
#include <algorithm>
#include <vector>

#include "platform_test.h"

namespace {

using test::WideString;

class FilesTest : public test::PlatformTest {
  protected:
    static WideString In(const WCHAR* name) { return test::TestFolder() + TEXT("\\") + name; }
    static HANDLE Open(const WideString& path, DWORD access, DWORD disposition,
                       DWORD share = FILE_SHARE_READ) {
        return CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    }
};

TEST_F(FilesTest, WhatIsWrittenIsReadBackFromAnyCaseOfTheName) {
    DWORD count = 99;
    HANDLE file = Open(In(TEXT("Card.bin")), GENERIC_READ | GENERIC_WRITE, CREATE_NEW);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(WriteFile(file, "a\0bc", 4, &count, nullptr));
    EXPECT_EQ(count, 4u);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(test::ReadBytes(In(TEXT("Card.bin"))), std::string("a\0bc", 4));

    file = Open(In(TEXT("cARD.BIN")), GENERIC_READ, OPEN_EXISTING);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD high = 99;
    EXPECT_EQ(GetFileSize(file, &high), 4u);
    EXPECT_EQ(high, 0u);
    char buffer[8] = "zzzzzzz";
    EXPECT_TRUE(ReadFile(file, buffer, 3, &count, nullptr));
    EXPECT_EQ(std::string(buffer, 4), std::string("a\0bz", 4));
    EXPECT_TRUE(ReadFile(file, buffer, 8, &count, nullptr));
    EXPECT_EQ(count, 1u);
    EXPECT_TRUE(ReadFile(file, buffer, 8, &count, nullptr)) << "the end is no failure";
    EXPECT_EQ(count, 0u);
    SetLastError(0);
    EXPECT_FALSE(WriteFile(file, "x", 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_TRUE(CloseHandle(file));
}

TEST_F(FilesTest, OpeningSaysWhatStandsInTheWay) {
    test::WriteBytes(In(TEXT("there")), "old");
    test::WriteBytes(In(TEXT("locked")), "old");
    std::filesystem::create_directory(test::DiskPath(In(TEXT("folder"))));
    const auto locked = test::DiskPath(In(TEXT("locked")));
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
    const struct {
        const WCHAR* name;
        DWORD access;
        DWORD disposition;
        bool opens;
        DWORD error;
    } cases[] = {
        {TEXT("there"), GENERIC_READ, OPEN_EXISTING, true, ERROR_SUCCESS},
        {TEXT("new"), GENERIC_WRITE, CREATE_NEW, true, ERROR_SUCCESS},
        {TEXT("other"), GENERIC_WRITE, CREATE_ALWAYS, true, ERROR_SUCCESS},
        {TEXT("there"), GENERIC_WRITE, CREATE_ALWAYS, true, ERROR_ALREADY_EXISTS},
        {TEXT("THERE"), GENERIC_WRITE, CREATE_NEW, false, ERROR_FILE_EXISTS},
        {TEXT("missing"), GENERIC_READ, OPEN_EXISTING, false, ERROR_FILE_NOT_FOUND},
        {TEXT("missing\\new"), GENERIC_WRITE, CREATE_ALWAYS, false, ERROR_PATH_NOT_FOUND},
        {TEXT("there\\new"), GENERIC_WRITE, CREATE_NEW, false, ERROR_PATH_NOT_FOUND},
        {TEXT("folder"), GENERIC_READ, OPEN_EXISTING, false, ERROR_ACCESS_DENIED},
        {TEXT("locked"), GENERIC_READ, OPEN_EXISTING, true, ERROR_SUCCESS},
        {TEXT("wh*t?"), GENERIC_WRITE, CREATE_NEW, false, ERROR_INVALID_NAME},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(test::Narrow(c.name));
        SetLastError(77);
        HANDLE file = Open(In(c.name), c.access, c.disposition);
        EXPECT_EQ(GetLastError(), c.error);
        EXPECT_EQ(file != INVALID_HANDLE_VALUE, c.opens);
        if (file != INVALID_HANDLE_VALUE) {
            CloseHandle(file);
        }
    }
    EXPECT_EQ(test::ReadBytes(In(TEXT("there"))), "") << "created anew";
    EXPECT_FALSE(DeleteFileW(In(TEXT("locked")).c_str()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
    EXPECT_EQ(Open(TEXT(""), GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(FilesTest, AnOpenFileIsSharedForReadingAtMost) {
    constexpr DWORD kSharingViolation = ERROR_SHARING_VIOLATION;
    const WideString path = In(TEXT("busy"));
    HANDLE writer = Open(path, GENERIC_WRITE, CREATE_NEW);
    EXPECT_EQ(Open(path, GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), kSharingViolation);
    EXPECT_FALSE(DeleteFileW(path.c_str()));
    EXPECT_EQ(GetLastError(), kSharingViolation);
    CloseHandle(writer);

    HANDLE reader = Open(path, GENERIC_READ, OPEN_EXISTING);
    HANDLE another = Open(path, GENERIC_READ, OPEN_EXISTING);
    EXPECT_NE(another, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(path, GENERIC_READ, OPEN_EXISTING, 0), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), kSharingViolation);
    CloseHandle(reader);
    CloseHandle(another);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}

TEST_F(FilesTest, FoldersAndAttributes) {
    const WideString folder = In(TEXT("new"));
    EXPECT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    EXPECT_EQ(GetFileAttributesW(folder.c_str()), DWORD{FILE_ATTRIBUTE_DIRECTORY});
    EXPECT_EQ(GetFileAttributesW((folder + TEXT("\\..\\NEW\\")).c_str()),
              DWORD{FILE_ATTRIBUTE_DIRECTORY});
    const WideString file = folder + TEXT("/file");
    test::WriteBytes(file, "x");
    const DWORD attributes = GetFileAttributesW(file.c_str());
    EXPECT_EQ(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY), 0u);

    EXPECT_FALSE(CreateDirectoryW(folder.c_str(), nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ALREADY_EXISTS});
    EXPECT_FALSE(CreateDirectoryW(In(TEXT("no\\new")).c_str(), nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetFileAttributesW(In(TEXT("no\\file")).c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
    EXPECT_FALSE(DeleteFileW(folder.c_str()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_TRUE(DeleteFileW(file.c_str()));
    EXPECT_FALSE(DeleteFileW(file.c_str()));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

// What a search gives, sorted and joined, with folders marked; or the error that it ends with.
std::string Search(const WideString& pattern) {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return std::to_string(GetLastError());
    }
    std::vector<std::string> names;
    do {
        const bool folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        names.push_back(test::Narrow(found.cFileName) +
                        (folder ? "/" : ":" + std::to_string(found.nFileSizeLow)));
    } while (FindNextFileW(search, &found));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_FILES});
    EXPECT_TRUE(FindClose(search));
    std::sort(names.begin(), names.end());
    std::string joined;
    for (const std::string& name : names) {
        joined += (joined.empty() ? "" : " ") + name;
    }
    return joined;
}

TEST_F(FilesTest, SearchesFindWhatThePatternFits) {
    for (const WCHAR* name : {TEXT("kpd_en.ini"), TEXT("KPD_de.INI"), TEXT("kpd.ini"),
                              TEXT("readme"), TEXT("a.b.txt")}) {
        test::WriteBytes(In(name), "123");
    }
    std::filesystem::create_directory(test::DiskPath(In(TEXT("kpd_sub.ini"))));
    const struct {
        const WCHAR* pattern;
        const char* found;
    } cases[] = {
        {TEXT("*"), "../ ./ KPD_de.INI:3 a.b.txt:3 kpd.ini:3 kpd_en.ini:3 kpd_sub.ini/ readme:3"},
        {TEXT("*.*"), "../ ./ KPD_de.INI:3 a.b.txt:3 kpd.ini:3 kpd_en.ini:3 kpd_sub.ini/ readme:3"},
        {TEXT("kpd_*.ini"), "KPD_de.INI:3 kpd_en.ini:3 kpd_sub.ini/"},
        {TEXT("kpd_?n.ini"), "kpd_en.ini:3"},
        {TEXT("a*.t?t"), "a.b.txt:3"},
        {TEXT("README"), "readme:3"},
        {TEXT("nothing*"), "2"},
        {TEXT("nowhere\\*"), "3"},
        {TEXT(""), "2"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Search(In(c.pattern)), c.found) << test::Narrow(c.pattern);
    }
    WIN32_FIND_DATAW found;
    EXPECT_FALSE(FindNextFileW(nullptr, &found));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(FilesTest, ASearchSaysWhenAFileWasWritten) {
    test::WriteBytes(In(TEXT("old")), "");
    using namespace std::chrono;
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(test::DiskPath(In(TEXT("old"))), now - hours(24));
    test::WriteBytes(In(TEXT("recent")), "");
    auto written = [](const WideString& path) {
        WIN32_FIND_DATAW found;
        FindClose(FindFirstFileW(path.c_str(), &found));
        const FILETIME& time = found.ftLastWriteTime;
        return (DWORDLONG{time.dwHighDateTime} << 32 | time.dwLowDateTime) / 10'000'000;
    };
    const DWORDLONG apart = written(In(TEXT("recent"))) - written(In(TEXT("old")));
    EXPECT_NEAR(static_cast<double>(apart), 86400, 60);
    constexpr DWORDLONG kSecondsFrom1601To2020 = 13222310400;
    EXPECT_GT(written(In(TEXT("old"))), kSecondsFrom1601To2020);
}

TEST_F(FilesTest, DirectoriesGiveTheirLengthOrWhatTheyNeed) {
    const struct {
        UINT(WINAPI* get)(LPWSTR, UINT);
        WideString expected;
    } cases[] = {
        {GetSystemDirectoryW, TEXT("C:\\WINDOWS\\SYSTEM32")},
        {GetWindowsDirectoryW, TEXT("C:\\WINDOWS")},
    };
    for (const auto& c : cases) {
        const UINT length = static_cast<UINT>(c.expected.size());
        WCHAR buffer[MAX_PATH];
        EXPECT_EQ(c.get(nullptr, 0), length + 1);
        EXPECT_EQ(c.get(buffer, length), length + 1);
        ASSERT_EQ(c.get(buffer, length + 1), length);
        WideString given = buffer;
        for (WCHAR& letter : given) {
            letter -= letter >= 'a' && letter <= 'z' ? 'a' - 'A' : 0;
        }
        EXPECT_EQ(given, c.expected);
        EXPECT_TRUE(std::filesystem::is_directory(test::DiskPath(buffer)));
    }
}

TEST_F(FilesTest, HandlesThatAreNoneAreRefused) {
    char byte;
    DWORD count;
    EXPECT_FALSE(ReadFile(INVALID_HANDLE_VALUE, &byte, 1, &count, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(GetFileSize(nullptr, nullptr), INVALID_FILE_SIZE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    SetLastError(0);
    EXPECT_FALSE(CloseHandle(nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    SetLastError(0);
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

}  // namespace
