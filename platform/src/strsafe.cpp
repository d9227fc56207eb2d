// Bounded string operations.
#include <strsafe.h>

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <string>

#include "host_state.h"

namespace {

using host::WideString;

bool IsRoom(const void* out, size_t length) {
    return out != nullptr && length > 0 && length <= STRSAFE_MAX_CCH;
}

// Writes as much of the text as fits with its end.
HRESULT Place(LPWSTR out, size_t length, const WCHAR* text, size_t textLength) {
    const size_t count = std::min(textLength, length - 1);
    std::copy_n(text, count, out);
    out[count] = 0;
    return count == textLength ? S_OK : STRSAFE_E_INSUFFICIENT_BUFFER;
}

// The text of a conversion that takes a text, whose characters are of that type.
template <typename Character>
WideString TextArgument(const Character* text) {
    static const WideString kNull = TEXT("(null)");
    if (text == nullptr) {
        return kNull;
    }
    WideString wide;
    for (; *text != 0; ++text) {
        wide += static_cast<std::make_unsigned_t<Character>>(*text);
    }
    return wide;
}

WideString Digits(unsigned value, int base, bool capitals) {
    char digits[16];
    char* const end = std::to_chars(digits, digits + sizeof(digits), value, base).ptr;
    const WideString text(digits, end);
    return capitals ? host::FoldCase(text) : text;
}

WideString SignedDigits(int value) {
    const unsigned size = value < 0 ? 0u - static_cast<unsigned>(value) : value;
    return (value < 0 ? TEXT("-") : TEXT("")) + Digits(size, 10, false);
}

// One conversion of a format: [0][width]type.
struct Conversion {
    bool zeros = false;
    size_t width = 0;
    WideString type;
};

// Reads the conversion that follows a percent sign and leaves the format behind it.
Conversion TakeConversion(LPCWSTR& format) {
    Conversion conversion;
    for (; *format == '0'; ++format) {
        conversion.zeros = true;
    }
    for (; *format >= '0' && *format <= '9'; ++format) {
        conversion.width = conversion.width * 10 + (*format - '0');
    }
    if (*format == 'l' || *format == 'h') {
        conversion.type += *format++;
    }
    if (*format != 0) {
        conversion.type += *format++;
    }
    return conversion;
}

void Pad(WideString& text, const Conversion& conversion) {
    if (text.size() >= conversion.width) {
        return;
    }
    const size_t sign = conversion.zeros && text.starts_with(TEXT("-")) ? 1 : 0;
    text.insert(sign, conversion.width - text.size(), conversion.zeros ? '0' : ' ');
}

// The list comes wrapped, for its type may be an array, which cannot be handed down by reference.
struct Arguments {
    va_list list;
};

WideString Converted(const Conversion& conversion, Arguments& arguments) {
    const WideString& type = conversion.type;
    if (type == TEXT("s") || type == TEXT("ls")) {
        return TextArgument(va_arg(arguments.list, LPCWSTR));
    }
    if (type == TEXT("S") || type == TEXT("hs")) {
        return TextArgument(va_arg(arguments.list, LPCSTR));
    }
    if (type == TEXT("d") || type == TEXT("i")) {
        return SignedDigits(va_arg(arguments.list, int));
    }
    if (type == TEXT("u")) {
        return Digits(va_arg(arguments.list, unsigned), 10, false);
    }
    if (type == TEXT("x") || type == TEXT("X")) {
        return Digits(va_arg(arguments.list, unsigned), 16, type == TEXT("X"));
    }
    if (type == TEXT("c")) {
        return WideString(1, static_cast<WCHAR>(va_arg(arguments.list, int)));
    }
    if (type == TEXT("%")) {
        return type;
    }
    host::Unsupported("format conversion %%%s", host::ToUtf8(type).c_str());
}

}  // namespace

HRESULT StringCchCopyW(LPWSTR out, size_t length, LPCWSTR text) {
    if (!IsRoom(out, length)) {
        return STRSAFE_E_INVALID_PARAMETER;
    }
    return Place(out, length, text, std::char_traits<WCHAR>::length(text));
}

HRESULT StringCchPrintfW(LPWSTR out, size_t length, LPCWSTR format, ...) {
    if (!IsRoom(out, length)) {
        return STRSAFE_E_INVALID_PARAMETER;
    }
    WideString text;
    Arguments arguments;
    va_start(arguments.list, format);
    while (*format != 0) {
        if (*format != '%') {
            text += *format++;
            continue;
        }
        const Conversion conversion = TakeConversion(++format);
        WideString converted = Converted(conversion, arguments);
        Pad(converted, conversion);
        text += converted;
    }
    va_end(arguments.list);
    return Place(out, length, text.data(), text.size());
}
