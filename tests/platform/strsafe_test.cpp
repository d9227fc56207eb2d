// Bounded string operations.
#include "platform_test.h"
// The platform's header forbids the unbounded functions to what comes behind it.
#include <strsafe.h>

namespace {

using test::WideString;

class StrsafeTest : public test::PlatformTest {
  protected:
    // The buffer must be written no further than its size says.
    static WideString Within(const WideString& buffer, size_t size) {
        EXPECT_EQ(buffer.substr(size), WideString(buffer.size() - size, '#'));
        return buffer.c_str();
    }
};

TEST_F(StrsafeTest, CopyAndCatCutWhatDoesNotFit) {
    const struct {
        const WCHAR* before;
        const WCHAR* text;
        size_t size;
        WideString result;
        HRESULT status;
    } cases[] = {
        {nullptr, TEXT("abc"), 4, TEXT("abc"), S_OK},
        {nullptr, TEXT("abc"), 3, TEXT("ab"), STRSAFE_E_INSUFFICIENT_BUFFER},
        {nullptr, TEXT("abc"), 1, TEXT(""), STRSAFE_E_INSUFFICIENT_BUFFER},
        {nullptr, TEXT(""), 1, TEXT(""), S_OK},
        {TEXT("ab"), TEXT("cd"), 5, TEXT("abcd"), S_OK},
        {TEXT("ab"), TEXT("cd"), 4, TEXT("abc"), STRSAFE_E_INSUFFICIENT_BUFFER},
        {TEXT("ab"), TEXT(""), 3, TEXT("ab"), S_OK},
        {TEXT("ab"), TEXT("c"), 3, TEXT("ab"), STRSAFE_E_INSUFFICIENT_BUFFER},
        {TEXT("ab"), TEXT("c"), 2, TEXT("ab"), STRSAFE_E_INVALID_PARAMETER},  // no end in sight
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(test::Narrow(c.text) + " into " + std::to_string(c.size));
        WideString buffer(10, '#');
        if (c.before == nullptr) {
            EXPECT_EQ(StringCchCopyW(buffer.data(), c.size, c.text), c.status);
            EXPECT_EQ(Within(buffer, c.size), c.result);
        } else {
            WideString(c.before).copy(buffer.data(), 8);
            buffer[WideString(c.before).size()] = 0;
            EXPECT_EQ(StringCchCatW(buffer.data(), c.size, c.text), c.status);
            EXPECT_EQ(WideString(buffer.c_str()), c.result);
        }
    }
    WCHAR one = '#';
    EXPECT_EQ(StringCchCopyW(&one, 0, TEXT("a")), STRSAFE_E_INVALID_PARAMETER);
    EXPECT_EQ(StringCchCatW(&one, 0, TEXT("a")), STRSAFE_E_INVALID_PARAMETER);
    EXPECT_EQ(StringCchPrintfW(&one, 0, TEXT("a")), STRSAFE_E_INVALID_PARAMETER);
    EXPECT_EQ(one, '#');
}

TEST_F(StrsafeTest, LengthStopsAtTheMaximum) {
    const struct {
        const WCHAR* text;
        size_t maximum;
        HRESULT status;
        size_t length;
    } cases[] = {
        {TEXT("abc"), 4, S_OK, 3},
        {TEXT("abc"), 3, STRSAFE_E_INVALID_PARAMETER, 0},
        {TEXT(""), 1, S_OK, 0},
        {TEXT(""), 0, STRSAFE_E_INVALID_PARAMETER, 0},
        {nullptr, 4, STRSAFE_E_INVALID_PARAMETER, 0},
        {TEXT("abc"), size_t{STRSAFE_MAX_CCH} + 1, STRSAFE_E_INVALID_PARAMETER, 0},
    };
    for (const auto& c : cases) {
        size_t length = 99;
        EXPECT_EQ(StringCchLengthW(c.text, c.maximum, &length), c.status);
        EXPECT_EQ(length, c.length);
        EXPECT_EQ(StringCchLengthW(c.text, c.maximum, nullptr), c.status);
    }
}

template <typename... Arguments>
WideString Format(const WCHAR* format, Arguments... arguments) {
    WCHAR out[64];
    EXPECT_EQ(StringCchPrintfW(out, 64, format, arguments...), S_OK);
    return out;
}

TEST_F(StrsafeTest, PrintfFormats) {
    const WCHAR* text = TEXT("t\u00E4\u65E5");
    EXPECT_EQ(Format(TEXT("%s|%ls|%5s|%%"), text, text, text),
              TEXT("t\u00E4\u65E5|t\u00E4\u65E5|  t\u00E4\u65E5|%"));
    EXPECT_EQ(Format(TEXT("%S|%hs|%4S"), "a", "bc", "d"), TEXT("a|bc|   d"));
    EXPECT_EQ(Format(TEXT("%d|%i|%5d|%05d|%05d"), 0, -1, -12, -12, 7),
              TEXT("0|-1|  -12|-0012|00007"));
    EXPECT_EQ(Format(TEXT("%d|%u|%u"), -2147483647 - 1, 4294967295u, 0u),
              TEXT("-2147483648|4294967295|0"));
    EXPECT_EQ(Format(TEXT("%x|%X|%08X|%4x|%2X"), 0xabcu, 0xabcu, 0xabcu, 0xfu, 0x123u),
              TEXT("abc|ABC|00000ABC|   f|123"));
    EXPECT_EQ(Format(TEXT("[%c%c]"), TEXT('x'), TEXT('\u00E4')), TEXT("[x\u00E4]"));
    EXPECT_EQ(Format(TEXT("%s"), static_cast<const WCHAR*>(nullptr)), TEXT("(null)"));
    EXPECT_EQ(Format(TEXT("")), TEXT(""));
}

TEST_F(StrsafeTest, PrintfCutsWhatDoesNotFit) {
    for (size_t size = 1; size <= 7; ++size) {
        WideString buffer(10, '#');
        EXPECT_EQ(StringCchPrintfW(buffer.data(), size, TEXT("a%04db"), 12),
                  size == 7 ? S_OK : STRSAFE_E_INSUFFICIENT_BUFFER);
        EXPECT_EQ(Within(buffer, size), WideString(TEXT("a0012b")).substr(0, size - 1));
    }
}

}  // namespace
