// Libraries loaded while running.
#include "platform_test.h"

namespace {

using test::WideString;

class ModulesTest : public test::PlatformTest {
  protected:
    static WideString Copied(const WCHAR* name) {
        const WideString path = test::TestFolder() + TEXT("\\") + name;
        std::filesystem::copy_file(std::filesystem::path(test::SampleCompanion()),
                                   test::DiskPath(path));
        return path;
    }
};

TEST_F(ModulesTest, ALoadedLibraryAnswersByName) {
    const WideString path = Copied(TEXT("Sample.dll"));
    HMODULE library = LoadLibraryW(path.c_str());
    ASSERT_NE(library, nullptr);
    FARPROC function = GetProcAddress(library, "SampleAnswer");
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(reinterpret_cast<int (*)()>(reinterpret_cast<void*>(function))(), 42);
    // What the library itself is built on is not the library's.
    for (const char* name : {"NoSuchName", "sampleanswer", "malloc", ""}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetProcAddress(library, name), nullptr) << name;
        EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND}) << name;
    }
    EXPECT_TRUE(FreeLibrary(library));
}

TEST_F(ModulesTest, ALibraryIsHeldAsOftenAsItIsLoaded) {
    const WideString path = Copied(TEXT("Twice.dll"));
    HMODULE first = LoadLibraryW(path.c_str());
    ASSERT_NE(first, nullptr);
    const WideString bare = path.substr(0, path.size() - 4);
    HMODULE second = LoadLibraryA(test::Narrow(bare).c_str());
    EXPECT_EQ(second, first) << "the suffix is added";
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_NE(GetProcAddress(second, "SampleAnswer"), nullptr);
    EXPECT_TRUE(FreeLibrary(second));
    EXPECT_FALSE(FreeLibrary(second));
}

TEST_F(ModulesTest, WhatIsNoLibraryIsNotLoaded) {
    test::WriteBytes(test::TestFolder() + TEXT("\\text.dll"), "no library, only text");
    test::WriteBytes(test::TestFolder() + TEXT("\\empty.dll"), "");
    const struct {
        WideString path;
        DWORD error;
    } cases[] = {
        {test::TestFolder() + TEXT("\\text.dll"), ERROR_BAD_EXE_FORMAT},
        {test::TestFolder() + TEXT("\\missing.dll"), ERROR_MOD_NOT_FOUND},
        {test::TestFolder() + TEXT("\\missing\\sample.dll"), ERROR_MOD_NOT_FOUND},
        {TEXT("kpd-not-installed.dll"), ERROR_MOD_NOT_FOUND},
    };
    for (const auto& c : cases) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadLibraryW(c.path.c_str()), nullptr) << test::Narrow(c.path);
        EXPECT_EQ(GetLastError(), c.error) << test::Narrow(c.path);
    }
    EXPECT_FALSE(FreeLibrary(nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

}  // namespace
