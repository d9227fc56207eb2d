// The built library as a file: what it exports, what it imports, where it begins, how large it is.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

namespace test {
namespace {

class LibraryTest : public ::testing::Test {
  protected:
    void SetUp() override {
        WCHAR program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        path_ = std::filesystem::path(program).parent_path() / "kpdui.dll";
        library_ = LoadLibraryW(path_.c_str());
        ASSERT_NE(library_, nullptr);
        base_ = reinterpret_cast<const BYTE*>(library_);
        header_ = At<IMAGE_NT_HEADERS>(
            static_cast<DWORD>(reinterpret_cast<const IMAGE_DOS_HEADER*>(base_)->e_lfanew));
    }
    void TearDown() override { FreeLibrary(library_); }

    template <typename T>
    const T* At(DWORD address) const {
        return reinterpret_cast<const T*>(base_ + address);
    }
    DWORD Directory(int index) const {
        return header_->OptionalHeader.DataDirectory[index].VirtualAddress;
    }

    std::filesystem::path path_;
    HMODULE library_ = nullptr;
    const BYTE* base_ = nullptr;
    const IMAGE_NT_HEADERS* header_ = nullptr;
};

TEST_F(LibraryTest, ExportsItsEntryPointsUndecorated) {
    const auto* exports = At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT));
    std::set<std::string> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        names.insert(At<char>(At<DWORD>(exports->AddressOfNames)[i]));
    }
    EXPECT_EQ(names, (std::set<std::string>{
                         "DevQueryPrintEx", "DrvAdvancedDocumentProperties", "DrvConvertDevMode",
                         "DrvDeviceCapabilities", "DrvDevicePropertySheets",
                         "DrvDocumentProperties", "DrvDocumentPropertySheets", "DrvPrinterEvent",
                         "DrvQueryColorProfile", "DrvUpgradePrinter", "PrinterProperties"}));
    EXPECT_EQ(exports->NumberOfFunctions, exports->NumberOfNames);
}

TEST_F(LibraryTest, ImportsSystemLibrariesOnly) {
    const std::set<std::string> system = {"kernel32.dll", "user32.dll",  "advapi32.dll",
                                          "comdlg32.dll", "gdi32.dll",   "shell32.dll",
                                          "msvcrt.dll",   "winspool.drv"};
    const auto* import = At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
    ASSERT_NE(import->Name, 0u);
    for (; import->Name != 0; ++import) {
        std::string name = At<char>(import->Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        EXPECT_TRUE(system.contains(name)) << name;
    }
}

TEST_F(LibraryTest, IsStrippedAndSmall) {
    EXPECT_LT(std::filesystem::file_size(path_), 512u * 1024);
    EXPECT_EQ(header_->FileHeader.NumberOfSymbols, 0u);
    EXPECT_NE(header_->OptionalHeader.AddressOfEntryPoint, 0u);
}

}  // namespace
}  // namespace test
