// Companion libraries of the driver package.
#include "core/driver_files.h"

#include "platform_test.h"

namespace test {
namespace {

using DriverFilesTest = PlatformTest;

TEST_F(DriverFilesTest, ALibraryIsLoadedFromTheDriverDirectoryAlone) {
    const WideString path = DriverFolder() + TEXT("\\Companion.dll");
    EXPECT_EQ(LoadDriverLibrary(TEXT("Companion.dll")), nullptr);
    std::filesystem::copy_file(std::filesystem::path(SampleCompanion()), DiskPath(path));
    HMODULE library = LoadDriverLibrary(TEXT("Companion.dll"));
    ASSERT_NE(library, nullptr);
    EXPECT_NE(GetProcAddress(library, "SampleAnswer"), nullptr);
    EXPECT_TRUE(FreeLibrary(library));
    std::filesystem::remove(DiskPath(path));
    EXPECT_EQ(LoadDriverLibrary(TEXT("compstui.dll")), nullptr) << "the platform's own";
}

}  // namespace
}  // namespace test
