// Reading wide strings. The language's library has these for its own wide type only, whose size
// differs between the compilers.
#pragma once

#include <windows.h>

#include <string_view>

using WideView = std::basic_string_view<WCHAR>;

/// Equal as whole strings, case included.
inline bool TextEquals(const WCHAR* a, const WCHAR* b) {
    return WideView(a) == WideView(b);
}

/// `part` stands somewhere in `text`, case included.
inline bool TextContains(const WCHAR* text, const WCHAR* part) {
    return WideView(text).find(part) != WideView::npos;
}

inline bool TextStartsWith(const WCHAR* text, const WCHAR* start) {
    return WideView(text).starts_with(start);
}

/// Equal letter by letter, in whatever case; no language's own rules.
inline bool TextEqualsInAnyCase(const WCHAR* a, const WCHAR* b) {
    return CompareStringOrdinal(a, -1, b, -1, TRUE) == CSTR_EQUAL;
}
