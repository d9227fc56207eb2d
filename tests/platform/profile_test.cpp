// Private profiles: the values in initialization files.
#include "platform_test.h"

namespace {

using test::WideString;

class ProfileTest : public test::PlatformTest {
  protected:
    static WideString File() { return test::TestFolder() + TEXT("\\test.ini"); }
    static WideString Value(const WCHAR* section, const WCHAR* key,
                            const WCHAR* fallback = TEXT("-")) {
        WCHAR buffer[80];
        const DWORD length =
            GetPrivateProfileStringW(section, key, fallback, buffer, 80, File().c_str());
        EXPECT_EQ(length, WideString(buffer).size());
        return buffer;
    }
};

TEST_F(ProfileTest, FindsValues) {
    const WideString content = TEXT("; comment\r\n") TEXT("early=no section\r\n") TEXT("[Main]\r\n")
        TEXT("Plain=value\n") TEXT("  Blanks \t=  in the middle \t\r\n") TEXT(";Commented=x\r\n")
            TEXT("Tail=text ; not a comment\r\n") TEXT("Double=\"  kept \"\r\n")
                TEXT("Single='it's'\r\n") TEXT("Open=\"half\r\n") TEXT("Mixed=\"a'\r\n")
                    TEXT("Twice=first\r\n") TEXT("Twice=second\r\n") TEXT("NoValue\r\n")
                        TEXT("Empty=\r\n") TEXT("a:b.c %d=odd\r\n") TEXT("Equals=a=b\r\n")
                            TEXT("Umlaut=\u00E4\u65E5\r\n") TEXT("\u00C4\u0416=key\r\n")
                                TEXT("\r\n") TEXT(" [Other] \r\n") TEXT("Plain=other\r\n")
                                    TEXT("[main]\r\n") TEXT("Late=again\r\n") TEXT("[Last]\r\n")
                                        TEXT("End=no line end");
    test::WriteWideText(File(), content);
    const struct {
        const WCHAR* section;
        const WCHAR* key;
        WideString value;
    } cases[] = {
        {TEXT("Main"), TEXT("Plain"), TEXT("value")},
        {TEXT("MAIN"), TEXT("pLAIN"), TEXT("value")},
        {TEXT("Main"), TEXT(" Plain "), TEXT("value")},
        {TEXT("Main"), TEXT("Blanks"), TEXT("in the middle")},
        {TEXT("Main"), TEXT("Commented"), TEXT("-")},
        {TEXT("Main"), TEXT("Tail"), TEXT("text ; not a comment")},
        {TEXT("Main"), TEXT("Double"), TEXT("  kept ")},
        {TEXT("Main"), TEXT("Single"), TEXT("it's")},
        {TEXT("Main"), TEXT("Open"), TEXT("\"half")},
        {TEXT("Main"), TEXT("Mixed"), TEXT("\"a'")},
        {TEXT("Main"), TEXT("Twice"), TEXT("first")},
        {TEXT("Main"), TEXT("NoValue"), TEXT("-")},
        {TEXT("Main"), TEXT("Empty"), TEXT("")},
        {TEXT("Main"), TEXT("a:b.c %d"), TEXT("odd")},
        {TEXT("Main"), TEXT("Equals"), TEXT("a=b")},
        {TEXT("Main"), TEXT("Umlaut"), TEXT("\u00E4\u65E5")},
        {TEXT("Main"), TEXT("\u00C4\u0416"), TEXT("key")},  // Wine folds only ASCII
        {TEXT("Main"), TEXT("early"), TEXT("-")},
        {TEXT("Main"), TEXT("Late"), TEXT("-")},
        {TEXT("Other"), TEXT("Plain"), TEXT("other")},
        {TEXT("Last"), TEXT("End"), TEXT("no line end")},
        {TEXT("None"), TEXT("Plain"), TEXT("-")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Value(c.section, c.key), c.value) << test::Narrow(c.key);
    }
}

TEST_F(ProfileTest, DefaultsLoseTrailingBlanks) {
    test::WriteBytes(File(), "[s]\n");
    const struct {
        const WCHAR* fallback;
        WideString value;
    } cases[] = {
        {TEXT("  both  "), TEXT("  both")},
        {TEXT(""), TEXT("")},  // of nothing but blanks, Wine leaves one
        {nullptr, TEXT("")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Value(TEXT("s"), TEXT("k"), c.fallback), c.value);
    }
}

TEST_F(ProfileTest, CutsWhatDoesNotFit) {
    test::WriteBytes(File(), "[s]\nk=abcdef\n");
    const struct {
        DWORD size;
        DWORD length;
        WideString text;
    } cases[] = {
        {8, 6, TEXT("abcdef")}, {7, 6, TEXT("abcdef")}, {6, 5, TEXT("abcde")},
        {2, 1, TEXT("a")},      {1, 0, TEXT("")},
    };
    for (const auto& c : cases) {
        WideString buffer(10, '#');
        EXPECT_EQ(GetPrivateProfileStringW(TEXT("s"), TEXT("k"), TEXT(""), buffer.data(), c.size,
                                           File().c_str()),
                  c.length);
        EXPECT_EQ(WideString(buffer.c_str()), c.text);
        EXPECT_EQ(buffer.substr(c.size), WideString(10 - c.size, '#')) << "past the buffer";
    }
}

TEST_F(ProfileTest, OddFilesAreReadAsFarAsTheyGo) {
    const std::string wide("\xFF\xFE[\0s\0]\0\n\0k\0=\0v\0", 16);
    const struct {
        const char* what;
        std::string bytes;
        WideString value;
    } cases[] = {
        {"empty", "", TEXT("-")},
        {"only a mark", "\xFF\xFE", TEXT("-")},
        {"half a mark", "\xFF", TEXT("-")},
        {"even", wide, TEXT("v")},
        {"cut key", wide.substr(0, 11), TEXT("-")},
        {"ANSI", "[s]\r\nk=v", TEXT("v")},
        {"no bracket", "[s\nk=v", TEXT("-")},
        {"only brackets", "[]\n[s]\nk=v", TEXT("v")},
        {"value of quote", "[s]\nk=\"", TEXT("\"")},
        {"empty quotes", "[s]\nk=\"\"", TEXT("")},
    };
    for (const auto& c : cases) {
        test::WriteBytes(File(), c.bytes);
        EXPECT_EQ(Value(TEXT("s"), TEXT("k")), c.value) << c.what;
    }
}

TEST_F(ProfileTest, AnsiFilesAreInTheCodePage) {
    const struct {
        UINT codePage;
        std::string bytes;
        WideString value;
    } cases[] = {
        {1252, "[s]\nk=\xE4\x80", TEXT("\u00E4\u20AC")},
        {932, "[s]\nk=\x93\xFA\x95\x5C", TEXT("\u65E5\u8868")},
    };
    for (const auto& c : cases) {
        if (test::SetCodePage(c.codePage)) {
            test::WriteBytes(File(), c.bytes);
            EXPECT_EQ(Value(TEXT("s"), TEXT("k")), c.value) << c.codePage;
        }
    }
}

TEST_F(ProfileTest, APathWithoutFolderMeansTheWindowsFolder) {
    const WideString path = TEXT("C:\\Windows\\kpdtest.ini");
    test::WriteBytes(path, "[s]\nk=v\n");
    WCHAR buffer[8];
    EXPECT_EQ(
        GetPrivateProfileStringW(TEXT("s"), TEXT("k"), TEXT("-"), buffer, 8, TEXT("kpdtest.ini")),
        1u);
    EXPECT_EQ(WideString(buffer), TEXT("v"));
    DeleteFileW(path.c_str());
    EXPECT_EQ(Value(TEXT("s"), TEXT("k")), TEXT("-")) << "no such file";
}

}  // namespace
