// Libraries loaded while running.
#include "platform_test.h"

namespace {

using test::WideString;

using ModulesTest = test::PlatformTest;

TEST_F(ModulesTest, ALoadedLibraryAnswersByName) {
    const WideString path = test::TestFolder() + TEXT("\\Sample.dll");
    std::filesystem::copy_file(std::filesystem::path(test::SampleCompanion()),
                               test::DiskPath(path));
    HMODULE library = LoadLibraryW(path.c_str());
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(LoadLibraryW(path.c_str()), library);
    EXPECT_TRUE(FreeLibrary(library));
    FARPROC function = GetProcAddress(library, "SampleAnswer");
    ASSERT_NE(function, nullptr) << "held as often as loaded";
    EXPECT_EQ(reinterpret_cast<int (*)()>(reinterpret_cast<void*>(function))(), 42);
    // What the library itself is built on is not the library's.
    for (const char* name : {"sampleanswer", "malloc"}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetProcAddress(library, name), nullptr) << name;
        EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND}) << name;
    }
    EXPECT_TRUE(FreeLibrary(library));
}

TEST_F(ModulesTest, ALibraryOfThePlatformsOwnIsFoundByItsBareName) {
    HMODULE library = LoadLibraryA("CompStUI.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(LoadLibraryW(TEXT("compstui")), library);
    EXPECT_NE(GetProcAddress(library, "CommonPropertySheetUIW"), nullptr);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetProcAddress(library, "commonpropertysheetuiw"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_PROC_NOT_FOUND});
    EXPECT_TRUE(FreeLibrary(library));
    EXPECT_TRUE(FreeLibrary(library));
}

TEST_F(ModulesTest, WhatIsNoLibraryIsNotLoaded) {
    const WideString text = test::TestFolder() + TEXT("\\text.dll");
    test::WriteBytes(text, "no library, only text");
    for (const WideString& path : {text, text + TEXT("x.dll"), WideString(TEXT("kpd-none.dll"))}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadLibraryW(path.c_str()), nullptr) << test::Narrow(path);
        const DWORD error = path == text ? ERROR_BAD_EXE_FORMAT : ERROR_MOD_NOT_FOUND;
        EXPECT_EQ(GetLastError(), error) << test::Narrow(path);
    }
}

}  // namespace
