// Memory in pages.
#include "platform_test.h"

#include <algorithm>

namespace {

using AddressSpaceTest = test::PlatformTest;

TEST_F(AddressSpaceTest, PagesAreFreshWholeAndGoAsAWhole) {
    constexpr SIZE_T kPage = 4096;
    auto* block =
        static_cast<BYTE*>(VirtualAlloc(nullptr, 584, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::count(block, block + kPage, 0), static_cast<std::ptrdiff_t>(kPage));
    block[kPage - 1] = 1;
    MEMORY_BASIC_INFORMATION memory = {};
    EXPECT_EQ(VirtualQuery(block, &memory, sizeof(memory)), sizeof(memory));
    EXPECT_EQ(memory.State, DWORD{MEM_COMMIT});
    EXPECT_EQ(memory.Protect, DWORD{PAGE_READWRITE});
    EXPECT_FALSE(VirtualFree(block, kPage, MEM_RELEASE)) << "a part";
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_TRUE(VirtualFree(block, 0, MEM_RELEASE));
    EXPECT_EQ(VirtualAlloc(nullptr, 0, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

}  // namespace
