// The built library as a file: what it exports, what it imports, where it begins, how large it is,
// its version, and what keeps faults in it from being used.
#include <windows.h>
#include <gtest/gtest.h>

#include "version.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <vector>

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

    std::span<const IMAGE_SECTION_HEADER> Sections() const {
        return {IMAGE_FIRST_SECTION(header_), header_->FileHeader.NumberOfSections};
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
    const DWORD pictures =
        header_->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_RESOURCE].Size;
    EXPECT_LT(std::filesystem::file_size(path_), pictures + 144u * 1024);
    EXPECT_EQ(header_->FileHeader.NumberOfSymbols, 0u);
    EXPECT_NE(header_->OptionalHeader.AddressOfEntryPoint, 0u);
}

TEST_F(LibraryTest, IsProtectedAsFarAsTheHeaderSays) {
    const IMAGE_OPTIONAL_HEADER& optional = header_->OptionalHeader;
    EXPECT_EQ(optional.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
    constexpr WORD kHighEntropy = 0x20;
    constexpr WORD kWanted =
        kHighEntropy | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(optional.DllCharacteristics & kWanted, kWanted);
    EXPECT_NE(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC), 0u);
    for (const IMAGE_SECTION_HEADER& section : Sections()) {
        constexpr DWORD kBoth = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        EXPECT_NE(section.Characteristics & kBoth, kBoth) << section.Name;
    }
}

// A function that finds its frame overwritten calls one that does nothing but end the process.
TEST_F(LibraryTest, WatchesItsStack) {
    const IMAGE_SECTION_HEADER& code = Sections().front();
    const BYTE* begin = base_ + code.VirtualAddress;
    const BYTE* end = begin + code.Misc.VirtualSize;
    constexpr BYTE kEnd[] = {0xB9, 2, 0, 0, 0, 0xCD, 0x29};  // mov ecx, 2; int 0x29
    const BYTE* target = std::search(begin, end, kEnd, std::end(kEnd));
    ASSERT_NE(target, end);
    int calls = 0;
    for (const BYTE* at = begin; at + 5 <= end; ++at) {
        INT32 distance;
        std::memcpy(&distance, at + 1, sizeof(distance));
        calls += *at == 0xE8 && at + 5 + distance == target;
    }
    EXPECT_GT(calls, 30);
}

TEST_F(LibraryTest, CarriesTheVersion) {
    std::vector<BYTE> info(GetFileVersionInfoSizeW(path_.c_str(), nullptr));
    ASSERT_TRUE(
        GetFileVersionInfoW(path_.c_str(), 0, static_cast<DWORD>(info.size()), info.data()));
    VS_FIXEDFILEINFO* numbers = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(info.data(), TEXT("\\"), reinterpret_cast<void**>(&numbers), &size));
    constexpr WORD kVersion[] = {KPD_VERSION_NUMBERS};
    EXPECT_EQ(numbers->dwFileVersionMS, DWORD{kVersion[0]} << 16 | kVersion[1]);
    EXPECT_EQ(numbers->dwFileVersionLS, DWORD{kVersion[2]} << 16 | kVersion[3]);
    EXPECT_EQ(numbers->dwFileType, static_cast<DWORD>(VFT_DRV));
    const WCHAR* text = nullptr;
    ASSERT_TRUE(VerQueryValueW(info.data(), TEXT("\\StringFileInfo\\040904B0\\ProductVersion"),
                               reinterpret_cast<void**>(const_cast<WCHAR**>(&text)), &size));
    EXPECT_EQ(std::filesystem::path(text).string(), KPD_VERSION);
}

}  // namespace
}  // namespace test
