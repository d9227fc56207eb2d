// Environment variables.
#include "platform_test.h"

namespace {

using test::WideString;

constexpr WCHAR kName[] = TEXT("KPD_Test");

class EnvironmentTest : public test::PlatformTest {
  protected:
    void TearDown() override {
        SetEnvironmentVariableW(kName, nullptr);
        PlatformTest::TearDown();
    }
};

TEST_F(EnvironmentTest, AValueIsGivenWhenItFits) {
    ASSERT_TRUE(SetEnvironmentVariableW(kName, TEXT("C:\\data")));
    const struct {
        const WCHAR* name;
        DWORD room;
        DWORD result;
    } cases[] = {
        {kName, 8, 7}, {TEXT("kpd_tEST"), 20, 7}, {kName, 7, 8}, {kName, 1, 8}, {kName, 0, 8},
    };
    for (const auto& c : cases) {
        WCHAR buffer[20] = {};
        EXPECT_EQ(GetEnvironmentVariableW(c.name, c.room == 0 ? nullptr : buffer, c.room),
                  c.result);
        EXPECT_EQ(WideString(buffer), c.room >= 8 ? TEXT("C:\\data") : TEXT(""));
    }
    ASSERT_TRUE(SetEnvironmentVariableW(TEXT("KPD_TEST"), TEXT("new")));
    EXPECT_EQ(GetEnvironmentVariableW(kName, nullptr, 0), 4u) << "replaced";
}

TEST_F(EnvironmentTest, MissingAndEmptyAreToldApart) {
    WCHAR buffer[4];
    EXPECT_EQ(GetEnvironmentVariableW(kName, buffer, 4), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ENVVAR_NOT_FOUND});

    ASSERT_TRUE(SetEnvironmentVariableW(kName, TEXT("")));
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetEnvironmentVariableW(kName, buffer, 4), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(buffer[0], 0);

    EXPECT_TRUE(SetEnvironmentVariableW(kName, nullptr));
    EXPECT_EQ(GetEnvironmentVariableW(kName, buffer, 4), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ENVVAR_NOT_FOUND});
}

TEST_F(EnvironmentTest, NamesWithAnEqualsSignAreRefused) {
    for (const WCHAR* name : {TEXT("KPD=x"), TEXT("")}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(SetEnvironmentVariableW(name, TEXT("v"))) << test::Narrow(name);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    }
}

}  // namespace
