// The user's language, country and code page, and text conversion.
#include "platform_test.h"

namespace {

using test::WideString;

class LocaleTest : public test::PlatformTest {};

TEST_F(LocaleTest, TheUserCanBeOfAnotherCountry) {
    const struct {
        LANGID language;
        int country;
        UINT codePage;
    } users[] = {{0x0409, 1, 1252}, {0x0407, 49, 1252}, {0x0411, 81, 932}, {0x0416, 55, 1252}};
    bool anyUser = false;
    for (const auto& user : users) {
        if (test::SetUiLanguage(user.language) && test::SetCountry(user.country)) {
            anyUser = true;
            EXPECT_TRUE(test::SetCodePage(user.codePage));
            EXPECT_EQ(GetUserDefaultUILanguage(), user.language);
            EXPECT_EQ(GetACP(), user.codePage);
        }
    }
    EXPECT_TRUE(anyUser);
}

TEST_F(LocaleTest, TheCountryCodeNeedsItsRoom) {
    WCHAR code[6] = TEXT("#####");
    const int needed = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, nullptr, 0);
    ASSERT_GE(needed, 2);
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, code, 6), needed);
    EXPECT_EQ(WideString(code).size() + 1, static_cast<size_t>(needed));
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, code, needed - 1), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, nullptr, 6), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(LocaleTest, ConvertsBothWays) {
    const struct {
        UINT codePage;
        std::string bytes;
        WideString text;
    } cases[] = {
        {1252, "plain", TEXT("plain")},
        {1252, "\x80\xE4\xFF", TEXT("\u20AC\u00E4\u00FF")},
        {1252, "\x81", WideString(1, 0x81)},  // a byte without a letter
        {932, "\x93\xFA\x96\x7B\\~\xB1", TEXT("\u65E5\u672C\\~\uFF71")},
    };
    for (const auto& c : cases) {
        if (!test::SetCodePage(c.codePage)) {
            continue;
        }
        SCOPED_TRACE(c.bytes);
        WCHAR wide[16];
        int count = MultiByteToWideChar(CP_ACP, 0, c.bytes.data(), static_cast<int>(c.bytes.size()),
                                        wide, 16);
        EXPECT_EQ(WideString(wide, count), c.text);
        char narrow[16];
        BOOL used = 2;
        count = WideCharToMultiByte(CP_ACP, 0, c.text.data(), static_cast<int>(c.text.size()),
                                    narrow, 16, nullptr, &used);
        EXPECT_EQ(std::string(narrow, count), c.bytes);
        EXPECT_FALSE(used);
    }
}

TEST_F(LocaleTest, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    if (!test::SetCodePage(1252)) {
        GTEST_SKIP() << "another code page";
    }
    char out[8];
    BOOL used = FALSE;
    const WideString text = TEXT("a\u65E5\U0001F600b");
    ASSERT_EQ(WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, out, 8, nullptr, &used), 6);
    EXPECT_STREQ(out, "a???b") << "one for each half of a pair";
    EXPECT_TRUE(used);
}

TEST_F(LocaleTest, LengthsAndBuffers) {
    const struct {
        int length;
        int room;
        int result;
        DWORD error;
    } cases[] = {
        {-1, 0, 4, 0},
        {-1, 4, 4, 0},
        {3, 0, 3, 0},
        {3, 3, 3, 0},
        {2, 8, 2, 0},
        {-1, 3, 0, ERROR_INSUFFICIENT_BUFFER},
        {0, 8, 0, ERROR_INVALID_PARAMETER},
        {3, -1, 0, ERROR_INVALID_PARAMETER},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.length << " into " << c.room);
        WideString wide(8, '#');
        SetLastError(0);
        EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", c.length, wide.data(), c.room), c.result);
        EXPECT_EQ(GetLastError(), c.error);
        std::string narrow(8, '#');
        SetLastError(0);
        EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, TEXT("abc"), c.length, narrow.data(), c.room,
                                      nullptr, nullptr),
                  c.result);
        EXPECT_EQ(GetLastError(), c.error);
        const size_t written = c.room > 0 ? static_cast<size_t>(c.room) : 0;
        EXPECT_EQ(wide.substr(written), WideString(8 - written, '#'));
        EXPECT_EQ(narrow.substr(written), std::string(8 - written, '#'));
    }
}

}  // namespace
