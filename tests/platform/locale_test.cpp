// The user's language, country and code page, and text conversion.
#include "platform_test.h"

#include <tuple>

namespace {

using test::WideString;

using LocaleTest = test::PlatformTest;

TEST_F(LocaleTest, TheUserCanBeOfAnotherCountry) {
    const std::tuple<LANGID, int, UINT> users[] = {
        {0x0409, 1, 1252},  {0x0407, 49, 1252}, {0x0411, 81, 932},
        {0x0412, 82, 949},  {0x0804, 86, 936},  {0x0404, 886, 950},
        {0x0C04, 852, 950}, {0x0416, 55, 1252}, {0x0419, 7, 1251}};
    bool anyUser = false;
    for (const auto& [language, country, codePage] : users) {
        if (test::SetCountry(country)) {
            anyUser = true;
            EXPECT_TRUE(test::SetCodePage(codePage));
            const bool set = test::SetUiLanguage(language);
            EXPECT_EQ(GetUserDefaultUILanguage() == language, set);
            WCHAR code[6];
            const int size = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, code, 6);
            EXPECT_EQ(WideString(code, size - 1), test::Wide(std::to_string(country)));
            EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, code, size - 1), 0);
            EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
        }
    }
    EXPECT_TRUE(anyUser);
}

TEST_F(LocaleTest, ConvertsBothWays) {
    const std::tuple<UINT, WideString, std::string, WideString> cases[] = {
        {1252, TEXT("\u20AC\u00E4\u00FF"), "\x80\xE4\xFF", TEXT("\u20AC\u00E4\u00FF")},
        {932, TEXT("\u65E5\\~\uFF71"), "\x93\xFA\\~\xB1", TEXT("\u65E5\\~\uFF71")},
        {1252, TEXT("a\u65E5b"), "a?b", TEXT("a?b")},  // not in the code page
    };
    for (const auto& [codePage, text, bytes, back] : cases) {
        if (test::SetCodePage(codePage)) {
            char narrow[16];
            WCHAR wide[16];
            BOOL used = 2;
            int count = static_cast<int>(text.size());
            count = WideCharToMultiByte(CP_ACP, 0, text.data(), count, narrow, 16, nullptr, &used);
            EXPECT_EQ(std::string(narrow, count), bytes);
            EXPECT_EQ(used, back != text);
            count = MultiByteToWideChar(CP_ACP, 0, narrow, count, wide, 16);
            EXPECT_EQ(WideString(wide, count), back);
        }
    }
}

TEST_F(LocaleTest, LengthsAndBuffers) {
    const std::tuple<int, int, int, DWORD> cases[] = {{-1, 0, 4, 0},
                                                      {-1, 4, 4, 0},
                                                      {3, 3, 3, 0},
                                                      {-1, 3, 0, ERROR_INSUFFICIENT_BUFFER},
                                                      {0, 8, 0, ERROR_INVALID_PARAMETER}};
    for (const auto& [length, room, result, error] : cases) {
        SCOPED_TRACE(testing::Message() << length << " into " << room);
        WCHAR wide[8] = TEXT("abc");
        char bytes[8];
        SetLastError(0);
        int given = WideCharToMultiByte(CP_ACP, 0, wide, length, bytes, room, nullptr, nullptr);
        EXPECT_EQ(std::pair(given, GetLastError()), std::pair(result, error));
        SetLastError(0);
        given = MultiByteToWideChar(CP_ACP, 0, "abc", length, wide, room);
        EXPECT_EQ(std::pair(given, GetLastError()), std::pair(result, error));
    }
}

}  // namespace
