// The user's language, country and code page, and text conversion through the C library.
#include "host_state.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include <iconv.h>
#include <locale.h>
#include <wctype.h>

namespace {

using host::WideString;

struct UserLocale {
    LANGID language = MAKELANGID(LANG_ENGLISH, 1);
    int country = 1;
    UINT codePage = 1252;
};
UserLocale user;

constexpr char kWide[] = "UTF-16LE";
constexpr char kUtf8[] = "UTF-8";

// Converts bytes from one encoding to another. Where the C library knows no conversion, `replace`
// is given the unit of input there (its size in bytes is `unit`) and gives what stands for it.
std::string Convert(const std::string& to, const std::string& from, std::string_view in,
                    size_t unit, const std::function<std::string(std::string_view)>& replace) {
    iconv_t converter = iconv_open(to.c_str(), from.c_str());
    if (converter == iconv_t(-1)) {
        host::Unsupported("conversion from %s to %s", from.c_str(), to.c_str());
    }
    std::string out(in.size() * 4, '\0');  // no encoding in use needs more
    char* source = const_cast<char*>(in.data());
    char* target = out.data();
    size_t sourceLeft = in.size();
    size_t targetLeft = out.size();
    while (sourceLeft > 0 &&
           iconv(converter, &source, &sourceLeft, &target, &targetLeft) == size_t(-1)) {
        const size_t skipped = std::min(unit, sourceLeft);
        const std::string stand = replace({source, skipped});
        target = std::copy(stand.begin(), stand.end(), target);
        targetLeft -= stand.size();
        source += skipped;
        sourceLeft -= skipped;
    }
    iconv(converter, nullptr, nullptr, &target, &targetLeft);  // some hold a letter for its accent
    iconv_close(converter);
    out.resize(out.size() - targetLeft);
    return out;
}

std::string_view BytesOf(const WideString& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR)};
}

std::string BytesOf(WCHAR c) {
    return {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
}

WideString TextOf(const std::string& bytes) {
    WideString text(bytes.size() / sizeof(WCHAR), 0);
    bytes.copy(reinterpret_cast<char*>(text.data()), bytes.size());
    return text;
}

std::string NameOf(UINT codePage) {
    return "CP" + std::to_string(codePage);
}

bool IsSingleByte(UINT codePage) {
    return codePage == 874 || (codePage >= 1250 && codePage <= 1258);
}

// The bytes that these code pages leave free in this range mean control characters on the platform.
bool IsFreeControl(UINT codePage, unsigned c) {
    return IsSingleByte(codePage) && c >= 0x80 && c <= 0x9F;
}

// What both conversions of the platform share: its rules about lengths and buffers.
template <typename In, typename Out>
int ConvertFor(UINT codePage, DWORD flags, const In* text, int textLength, Out* out, int outLength,
               std::basic_string<Out> (*convert)(UINT, const std::basic_string<In>&, bool*),
               bool* replaced) {
    if (codePage != CP_ACP || flags != 0) {
        host::Unsupported("conversion with code page %u or flags %#x", codePage, flags);
    }
    if (host::FailsNow(host::Call::kLocale)) {
        return 0;
    }
    if (text == nullptr || textLength == 0 || outLength < 0 || (out == nullptr && outLength != 0)) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    std::basic_string<In> whole =
        textLength < 0 ? std::basic_string<In>(text) + In{0}
                       : std::basic_string<In>(text, static_cast<size_t>(textLength));
    const std::basic_string<Out> converted = convert(user.codePage, whole, replaced);
    const int needed = static_cast<int>(converted.size());
    if (outLength == 0) {
        return needed;
    }
    std::copy_n(converted.begin(), std::min(needed, outLength), out);
    return needed > outLength ? host::Fail(ERROR_INSUFFICIENT_BUFFER) : needed;
}

}  // namespace

LANGID WINAPI GetUserDefaultUILanguage(void) {
    return user.language;
}

UINT WINAPI GetACP(void) {
    return user.codePage;
}

int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR data, int length) {
    if (locale != LOCALE_USER_DEFAULT || type != LOCALE_ICOUNTRY) {
        host::Unsupported("GetLocaleInfoW of locale %#x, type %#x", locale, type);
    }
    if (host::FailsNow(host::Call::kLocale)) {
        return 0;
    }
    if (length < 0 || (data == nullptr && length != 0)) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    const std::string digits = std::to_string(user.country);
    const int needed = static_cast<int>(digits.size()) + 1;
    if (length == 0) {
        return needed;
    }
    if (length < needed) {
        return host::Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    std::copy_n(digits.c_str(), needed, data);
    return needed;
}

int WINAPI CompareStringOrdinal(LPCWSTR a, int aLength, LPCWSTR b, int bLength, BOOL ignoreCase) {
    if (aLength != -1 || bLength != -1 || !ignoreCase) {
        host::Unsupported("CompareStringOrdinal of texts with a length, or with their case");
    }
    if (a == nullptr || b == nullptr) {
        return host::Fail(ERROR_INVALID_PARAMETER);
    }
    const int order = host::FoldCase(a).compare(host::FoldCase(b));
    return order < 0 ? CSTR_LESS_THAN : order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}

int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int textLength, LPWSTR out,
                               int outLength) {
    return ConvertFor(codePage, flags, text, textLength, out, outLength, host::Decode, nullptr);
}

int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength, LPSTR out,
                               int outLength, LPCSTR defaultChar, LPBOOL usedDefaultChar) {
    if (defaultChar != nullptr) {
        host::Unsupported("WideCharToMultiByte with a default character");
    }
    bool replaced = false;
    const int length =
        ConvertFor(codePage, flags, text, textLength, out, outLength, host::Encode, &replaced);
    if (usedDefaultChar != nullptr) {
        *usedDefaultChar = replaced;
    }
    return length;
}

namespace host {

void SetUiLanguage(LANGID language) {
    user.language = language;
}

void SetCountry(int code) {
    user.country = code;
}

void SetCodePage(UINT codePage) {
    user.codePage = codePage;
}

void ResetLocale() {
    user = {};
}

WideString FoldCase(const WideString& text) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (unicode == nullptr) {
        Unsupported("the C library has no locale C.UTF-8");
    }
    WideString folded = text;
    for (WCHAR& c : folded) {
        const wint_t upper = towupper_l(c, unicode);
        // The platform keeps letters like the dotless i apart from the plain ones.
        if (c < 0x80 || (upper >= 0x80 && upper <= 0xFFFF)) {
            c = static_cast<WCHAR>(upper);
        }
    }
    return folded;
}

bool SameText(const WideString& a, const WideString& b) {
    return FoldCase(a) == FoldCase(b);
}

std::string ToUtf8(const WideString& text) {
    return Convert(kUtf8, kWide, BytesOf(text), sizeof(WCHAR),
                   [](std::string_view) { return std::string("\xEF\xBF\xBD"); });
}

WideString FromUtf8(const std::string& text) {
    return TextOf(
        Convert(kWide, kUtf8, text, 1, [](std::string_view) { return BytesOf(WCHAR{0xFFFD}); }));
}

WideString Decode(UINT codePage, const std::string& bytes, bool* replaced) {
    return TextOf(Convert(kWide, NameOf(codePage), bytes, 1, [&](std::string_view unit) {
        const BYTE byte = static_cast<BYTE>(unit[0]);
        if (IsFreeControl(codePage, byte)) {
            return BytesOf(WCHAR{byte});
        }
        if (replaced != nullptr) {
            *replaced = true;
        }
        return BytesOf(WCHAR{0xFFFD});
    }));
}

std::string Encode(UINT codePage, const WideString& text, bool* replaced) {
    return Convert(
        NameOf(codePage), kWide, BytesOf(text), sizeof(WCHAR), [&](std::string_view unit) {
            const unsigned c = static_cast<BYTE>(unit[0]) | static_cast<BYTE>(unit[1]) << 8;
            if (IsFreeControl(codePage, c)) {
                return std::string(1, unit[0]);
            }
            if (replaced != nullptr) {
                *replaced = true;
            }
            return std::string("?");
        });
}

}  // namespace host
