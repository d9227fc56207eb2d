// Reading one field. All its bytes are taken by offset and width: a record in a file is aligned to
// nothing, and may not come from this driver.
#include "value.h"

#include "tools/kpdtool/wide_text.h"

#include <algorithm>

namespace kpdtool {
namespace {

std::string Hex(std::int64_t number, size_t bytes) {
    std::string text = "0x";
    for (size_t digit = 2 * bytes; digit-- > 0;) {
        text += "0123456789ABCDEF"[number >> (4 * digit) & 0xF];
    }
    return text;
}

DWORD Unsigned(const Field& field, Bytes bytes, size_t index) {
    DWORD number = 0;
    for (size_t i = 0; i < field.element; ++i) {
        number |= DWORD{bytes[index * field.element + i]} << (8 * i);
    }
    return number;
}

// Characters before the terminator, all of them when there is none.
size_t TextLength(const Field& field, Bytes bytes) {
    size_t length = 0;
    while (length < field.Count() && Unsigned(field, bytes, length) != 0) {
        ++length;
    }
    return length;
}

// A byte string's code page is nobody's knowledge, so of that only ASCII is shown as it is.
bool IsShown(const Field& field, DWORD character) {
    return character >= 0x20 && character != 0x7F &&
           (character < 0x7F || (field.kind == Kind::kWideText && character >= 0xA0));
}

std::string Text(const Field& field, Bytes bytes) {
    std::basic_string<WCHAR> text;
    const size_t length = TextLength(field, bytes);
    for (size_t i = 0; i < length; ++i) {
        const DWORD character = Unsigned(field, bytes, i);
        if (IsShown(field, character)) {
            text += static_cast<WCHAR>(character);
        } else {
            const std::string hex = Hex(character, 1).replace(0, 2, "\\x");
            text.append(hex.begin(), hex.end());
        }
    }
    return ToUtf8(text);
}

DWORD UnknownBits(const Field& field, Bytes bytes) {
    DWORD unknown = Unsigned(field, bytes, 0);
    for (const Name& name : field.names) {
        unknown &= ~name.value;
    }
    return unknown;
}

std::string LegalText(const Field& field) {
    if (field.legal == Legal::kRange) {
        const std::string low = std::to_string(field.low);
        return field.low == field.high ? "always " + low
                                       : low + " to " + std::to_string(field.high);
    }
    std::string text;
    for (const Name& name : field.names) {
        text += text.empty() ? "" : &name == &field.names.back() ? " or " : ", ";
        text += std::to_string(name.value);
    }
    return text;
}

bool IsLegalNumber(const Field& field, std::int64_t number) {
    switch (field.legal) {
        case Legal::kRange:
            return number >= field.low && number <= field.high;
        case Legal::kNamed:
            return std::any_of(field.names.begin(), field.names.end(),
                               [&](const Name& name) { return name.value == number; });
        default:
            return true;
    }
}

}  // namespace

std::int64_t Number(const Field& field, Bytes bytes, size_t index) {
    const DWORD number = Unsigned(field, bytes, index);
    const DWORD sign = DWORD{1} << (8 * field.element - 1);
    const bool negative = field.kind == Kind::kSigned && (number & sign) != 0;
    return std::int64_t{number} - (negative ? std::int64_t{sign} * 2 : 0);
}

std::string ValueText(const Field& field, Bytes bytes) {
    if (field.IsText()) {
        return '"' + Text(field, bytes) + '"';
    }
    if (field.IsArray()) {
        if (std::all_of(bytes.begin(), bytes.end(), [](BYTE b) { return b == 0; })) {
            return "all 0";
        }
        std::string text;
        for (size_t i = 0; i < field.Count(); ++i) {
            text += (i == 0 ? "" : " ") + std::to_string(Number(field, bytes, i));
        }
        return text;
    }
    const std::int64_t number = Number(field, bytes);
    const bool inHex = field.kind == Kind::kHex || field.kind == Kind::kBits;
    return inHex ? Hex(number, field.element) : std::to_string(number);
}

std::string NamesOf(const Field& field, Bytes bytes) {
    if (field.names.empty()) {
        return {};
    }
    const DWORD number = Unsigned(field, bytes, 0);
    const bool bits = field.kind == Kind::kBits;
    std::string text;
    for (const Name& name : field.names) {
        if (bits ? (number & name.value) != 0 : number == name.value) {
            text += (text.empty() ? "" : ", ") + std::string(name.text);
        }
    }
    return bits && number == 0 ? "none" : text;
}

std::string NamedValue(const Field& field, Bytes bytes) {
    const std::string names = NamesOf(field, bytes);
    return ValueText(field, bytes) + (names.empty() ? "" : " (" + names + ")");
}

std::string ProblemOf(const Field& field, Bytes bytes) {
    if (field.IsText()) {
        return TextLength(field, bytes) < field.Count() ? "" : "not terminated";
    }
    if (field.kind == Kind::kBits) {
        const DWORD unknown = UnknownBits(field, bytes);
        return unknown == 0 ? "" : "unknown bits " + Hex(unknown, field.element);
    }
    return IsLegalNumber(field, Number(field, bytes)) ? ""
                                                      : "out of range (" + LegalText(field) + ")";
}

Json ValueJson(const Field& field, Bytes bytes) {
    if (field.IsText()) {
        return Text(field, bytes);
    }
    if (!field.IsArray()) {
        return Number(field, bytes);
    }
    Json numbers = Json::array();
    for (size_t i = 0; i < field.Count(); ++i) {
        numbers.push_back(Number(field, bytes, i));
    }
    return numbers;
}

}  // namespace kpdtool
