// UTF-8 and back, by hand: the language's conversions are for other character types, and the
// platform's are not asked, so that both builds give the same bytes.
#include "wide_text.h"

namespace kpdtool {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c < 0xE000;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kLead[following] | (c >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) {
        out += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
    }
}

// Takes one character off the front of well-formed text; off any other a byte, as U+FFFD.
char32_t TakeUtf8(std::string_view& text) {
    const unsigned char lead = static_cast<unsigned char>(text.front());
    const size_t length = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    constexpr unsigned kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    char32_t c = lead & kLeadBits[length];
    bool good = length != 0 && length <= text.size();
    for (size_t i = 1; good && i < length; ++i) {
        good = (text[i] & 0xC0) == 0x80;
        c = c << 6 | (text[i] & 0x3F);
    }
    good = good && c >= kSmallest[length] && c < 0x110000 && !IsSurrogate(c);
    text.remove_prefix(good ? length : 1);
    return good ? c : kReplacement;
}

}  // namespace

std::string ToUtf8(std::basic_string_view<WCHAR> text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        const bool pair =
            c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (pair) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (text[++i] & 0x3FF);
        }
        AppendUtf8(out, IsSurrogate(c) ? kReplacement : c);
    }
    return out;
}

std::basic_string<WCHAR> FromUtf8(std::string_view text) {
    std::basic_string<WCHAR> out;
    while (!text.empty()) {
        const char32_t c = TakeUtf8(text);
        if (c < 0x10000) {
            out += static_cast<WCHAR>(c);
        } else {
            out += static_cast<WCHAR>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<WCHAR>(0xDC00 + (c & 0x3FF));
        }
    }
    return out;
}

std::filesystem::path PathFrom(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

}  // namespace kpdtool
