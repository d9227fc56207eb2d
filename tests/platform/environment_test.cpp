// Environment variables.
#include "platform_test.h"

namespace {

constexpr WCHAR kName[] = TEXT("KPD_Test");

using EnvironmentTest = test::PlatformTest;

TEST_F(EnvironmentTest, AValueIsGivenWhenItFits) {
    WCHAR buffer[8];
    EXPECT_EQ(GetEnvironmentVariableW(kName, buffer, 8), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ENVVAR_NOT_FOUND});

    ASSERT_TRUE(SetEnvironmentVariableW(kName, TEXT("C:\\data")));
    EXPECT_EQ(GetEnvironmentVariableW(kName, nullptr, 0), 8u);
    EXPECT_EQ(GetEnvironmentVariableW(kName, buffer, 7), 8u) << "no room for the end";
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("kpd_tEST"), buffer, 8), 7u);
    EXPECT_EQ(test::WideString(buffer), TEXT("C:\\data"));

    EXPECT_TRUE(SetEnvironmentVariableW(kName, nullptr));
    EXPECT_EQ(GetEnvironmentVariableW(kName, buffer, 8), 0u) << "removed";
}

}  // namespace
