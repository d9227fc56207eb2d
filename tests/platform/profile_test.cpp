// Private profiles: the values in initialization files.
#include "platform_test.h"

#include <tuple>

namespace {

using test::WideString;

class ProfileTest : public test::PlatformTest {
  protected:
    static WideString File() { return test::TestFolder() + TEXT("\\test.ini"); }
    // The value of key "k" in section "s".
    static WideString Value(const WCHAR* fallback = TEXT("-")) {
        WideString value(80, '#');
        value.resize(GetPrivateProfileStringW(TEXT("s"), TEXT("k"), fallback, value.data(), 80,
                                              File().c_str()));
        return value;
    }
};

TEST_F(ProfileTest, FindsValuesInEitherEncoding) {
    const std::pair<const char*, const char*> cases[] = {
        {"[s]\r\nk=v\r\n", "v"},
        {"[S]\nK=no line end", "no line end"},
        {"; comment\r\n\r\n [s] \r\n  k \t=  in the middle \t\r\n", "in the middle"},
        {"[s]\nk=text ; not a comment", "text ; not a comment"},
        {"[s]\nk=\"  kept \"", "  kept "},
        {"[s]\nk='it's'", "it's"},
        {"[s]\nk=\"half", "\"half"},
        {"[s]\nk=", ""},
        {"[s]\nk=a=b", "a=b"},
        {"[s]\nk=first\nk=second", "first"},
        {"[o]\nk=other\n[s]\nkk=x\nk=v", "v"},
        {"[s]\n;k=x\nk", "-"},
        {"[s\nk=v", "-"},
        {"k=early\n[s]\n[o]\nk=other\n[s]\nk=late", "-"},
    };
    EXPECT_EQ(Value(TEXT("  no file  ")), TEXT("  no file")) << "loses trailing blanks";
    for (const auto& [content, value] : cases) {
        test::WriteBytes(File(), content);
        EXPECT_EQ(test::Narrow(Value()), value) << content;
        test::WriteWideText(File(), test::Wide(content));
        EXPECT_EQ(test::Narrow(Value()), value) << "wide " << content;
    }
}

TEST_F(ProfileTest, LettersBeyondAscii) {
    const std::tuple<UINT, const char*, WideString> cases[] = {
        {1252, "[s]\nk=\xE4\x80", TEXT("\u00E4\u20AC")},
        {932, "[s]\nk=\x93\xFA\x95\x5C", TEXT("\u65E5\u8868")},
    };
    for (const auto& [codePage, content, value] : cases) {
        test::WriteWideText(File(), TEXT("[s]\nk=") + value);
        EXPECT_EQ(Value(), value) << "whatever the code page";
        if (test::SetCodePage(codePage)) {
            test::WriteBytes(File(), content);
            EXPECT_EQ(Value(), value) << codePage;
        }
    }
    test::WriteBytes(File(), std::string("\xFF\xFE[\0s\0]\0\n\0k", 11));
    EXPECT_EQ(Value(), TEXT("-")) << "cut in half a letter";
}

TEST_F(ProfileTest, CutsWhatDoesNotFit) {
    test::WriteBytes(File(), "[s]\nk=abcdef\n");
    for (DWORD size = 1; size <= 8; ++size) {
        const WideString expected = WideString(TEXT("abcdef")).substr(0, size - 1);
        WideString buffer(10, '#');
        const DWORD length = GetPrivateProfileStringW(TEXT("s"), TEXT("k"), TEXT(""), buffer.data(),
                                                      size, File().c_str());
        EXPECT_EQ(length, expected.size());
        EXPECT_EQ(WideString(buffer.c_str()), expected);
        EXPECT_EQ(buffer.substr(size), WideString(10 - size, '#')) << "past the buffer";
    }
}

}  // namespace
