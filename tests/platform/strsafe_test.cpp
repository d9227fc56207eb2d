// Bounded string operations.
#include "platform_test.h"
// The platform's header forbids the unbounded functions to what comes behind it.
#include <strsafe.h>

namespace {

using test::WideString;

using StrsafeTest = test::PlatformTest;

TEST_F(StrsafeTest, WhatDoesNotFitIsCut) {
    for (size_t size = 3; size <= 8; ++size) {
        const WideString expected = WideString(TEXT("ab-012")).substr(0, size - 1);
        const HRESULT status = size >= 7 ? S_OK : STRSAFE_E_INSUFFICIENT_BUFFER;
        WideString copied(10, '#');
        EXPECT_EQ(StringCchCopyW(copied.data(), size, TEXT("ab-012")), status);
        WideString printed(10, '#');
        EXPECT_EQ(StringCchPrintfW(printed.data(), size, TEXT("ab-%03d"), 12), status);
        for (const WideString& buffer : {copied, printed}) {
            EXPECT_EQ(WideString(buffer.c_str()), expected) << size;
            EXPECT_EQ(buffer.substr(size), WideString(10 - size, '#')) << "past the buffer";
        }
    }
}

template <typename... Arguments>
WideString Format(const WCHAR* format, Arguments... arguments) {
    WCHAR out[64];
    EXPECT_EQ(StringCchPrintfW(out, 64, format, arguments...), S_OK);
    return out;
}

TEST_F(StrsafeTest, PrintfFormats) {
    const WCHAR* text = TEXT("\u00E4\u65E5");
    EXPECT_EQ(Format(TEXT("%s|%4ls|%%"), text, text), TEXT("\u00E4\u65E5|  \u00E4\u65E5|%"));
    EXPECT_EQ(Format(TEXT("%S|%hs|%c"), "a", "bc", TEXT('d')), TEXT("a|bc|d"));
    EXPECT_EQ(Format(TEXT("%d|%i|%5d|%05d"), 0, -1, -12, -12), TEXT("0|-1|  -12|-0012"));
    EXPECT_EQ(Format(TEXT("%u|%x|%08X"), ~0u, 0xabcu, 0xabcu), TEXT("4294967295|abc|00000ABC"));
}

}  // namespace
