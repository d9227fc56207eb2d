// The file is read by the platform's rules for profile files: blanks around names and texts do not
// count, nor does the case of a name, and the first of two sections or texts is the one that is
// found.
#include "language_file.h"

#include "tools/kpdtool/wide_text.h"
#include "ui/common/language.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <string_view>

namespace kpdtool {
namespace {

using WideString = std::basic_string<WCHAR>;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// ---- Encodings ----------------------------------------------------------------------------------

WideString WideFrom(std::string_view bytes, bool bigEndian) {
    WideString text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<WCHAR>(bigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

// Whether it can be nothing but text of two bytes a character: half of ASCII are zeros.
bool LooksWide(std::string_view bytes, size_t zeroAt) {
    return bytes.size() >= 2 && bytes[zeroAt] == 0 && bytes[1 - zeroAt] != 0;
}

struct Decoded {
    std::string text;
    std::string wrong;
};

Decoded Decode(std::string_view bytes) {
    const bool odd = bytes.size() % 2 != 0;
    if (bytes.starts_with("\xFF\xFE")) {
        return {ToUtf8(WideFrom(bytes.substr(2), false)), odd ? "half a character at its end" : ""};
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return {ToUtf8(WideFrom(bytes.substr(2), true)), "UTF-16BE"};
    }
    if (LooksWide(bytes, 1)) {
        return {ToUtf8(WideFrom(bytes, false)), "UTF-16LE without a byte-order mark"};
    }
    if (LooksWide(bytes, 0)) {
        return {ToUtf8(WideFrom(bytes, true)), "UTF-16BE without a byte-order mark"};
    }
    const bool marked = bytes.starts_with(kUtf8Mark);
    const std::string text(bytes.substr(marked ? kUtf8Mark.size() : 0));
    if (ToUtf8(FromUtf8(text)) != text) {
        return {"", "an ANSI code page"};
    }
    const bool ascii = std::ranges::all_of(text, [](char c) { return (c & 0x80) == 0; });
    return {text, marked ? "UTF-8" : ascii ? "ASCII" : "UTF-8 without a byte-order mark"};
}

// ---- Texts --------------------------------------------------------------------------------------

std::string Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? ""
               : std::string(text.substr(first, text.find_last_not_of(kBlanks) + 1 - first));
}

// As the platform compares names; those of the driver are ASCII.
std::string Folded(std::string_view name) {
    std::string folded = Trimmed(name);
    for (char& c : folded) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return folded;
}

Key Folded(const Key& key) {
    return {Folded(key.first), Folded(key.second)};
}

// The conversions of a text in their order, as "%d %s ".
std::string Conversions(const std::string& text) {
    std::string found;
    for (size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 2)) {
        const size_t end = text.find_first_not_of("0123456789.-", at + 1);
        found += text.substr(at, end == std::string::npos ? end : end - at + 1) + " ";
    }
    return found;
}

// Of the text for a key alone.
void CheckText(const Translation& translation, std::vector<Fault>& faults) {
    const Key& key = translation.key;
    const std::string& text = translation.text;
    const auto add = [&](const char* kind, const std::string& detail) {
        faults.push_back({kind, translation.line, key, detail});
    };
    const std::string asked = Conversions(key.second);
    if (const std::string given = Conversions(text); given != asked) {
        add("changed", "conversions " + (given.empty() ? "none" : Trimmed(given)) + ", not " +
                           (asked.empty() ? "none" : Trimmed(asked)));
    }
    const auto asMany = std::ranges::count(key.second, '&');
    if (const auto given = std::ranges::count(text, '&'); given != asMany) {
        add("changed", std::to_string(given) + " \"&\", not " + std::to_string(asMany));
    }
    if (text.empty()) {
        add("empty", "");
    }
    if (const size_t length = FromUtf8(text).size(); length >= kTextLength) {
        add("long", std::to_string(length) + " characters; " + std::to_string(kTextLength - 1) +
                        " are shown");
    }
}

constexpr const char* kKinds[] = {"encoding", "line",    "missing", "unused",
                                  "twice",    "changed", "empty",   "long"};

}  // namespace

LanguageFile::LanguageFile(const std::string& bytes) {
    auto [text, wrong] = Decode(bytes);
    text_ = std::move(text);
    wrongEncoding_ = std::move(wrong);
    ReadLines();
}

std::string LanguageFile::AsUtf16() const {
    std::string bytes = "\xFF\xFE";
    for (const WCHAR c : FromUtf8(text_)) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

void LanguageFile::ReadLines() {
    std::istringstream lines(text_);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ReadLine(Trimmed(line), ++number);
    }
}

void LanguageFile::ReadLine(const std::string& line, int number) {
    if (line.empty() || line.front() == ';') {
        return;
    }
    const size_t end = line.rfind(']');
    const size_t equals = line.find('=');
    if (line.front() == '[' && end != std::string::npos) {
        section_ = Trimmed(std::string_view(line).substr(1, end - 1));
        if (!sections_.insert(Folded(section_)).second) {
            lineFaults_.push_back({"twice", number, {section_, ""}, "the section"});
        }
    } else if (equals == std::string::npos) {
        lineFaults_.push_back({"line", number, {}, line});
    } else if (section_.empty()) {
        lineFaults_.push_back({"line", number, {}, "before the first section: " + line});
    } else {
        const std::string_view view = line;
        translations_.push_back({{section_, Trimmed(view.substr(0, equals))},
                                 Trimmed(view.substr(equals + 1)),
                                 number});
    }
}

std::vector<Fault> LanguageFile::Check(const std::set<Key>& keys) const {
    std::vector<Fault> faults = lineFaults_;
    if (!wrongEncoding_.empty()) {
        faults.push_back({"encoding", 0, {}, wrongEncoding_});
    }
    std::map<Key, Key> wanted;  // by what is compared
    for (const Key& key : keys) {
        wanted.emplace(Folded(key), key);
    }
    std::map<Key, int> found;  // and its line
    for (const Translation& translation : translations_) {
        const Key key = Folded(translation.key);
        const auto asked = wanted.find(key);
        if (const auto [first, isNew] = found.emplace(key, translation.line); !isNew) {
            faults.push_back({"twice", translation.line, translation.key,
                              "the text of line " + std::to_string(first->second) + " is shown"});
        } else if (asked == wanted.end()) {
            faults.push_back({"unused", translation.line, translation.key, ""});
        } else {
            CheckText(translation, faults);
        }
    }
    for (const auto& [folded, key] : wanted) {
        const std::string other = OtherSectionOf(keys, key);
        const auto inOther = found.find({Folded(other), folded.second});
        if (const auto here = found.find(folded); here == found.end()) {
            if (inOther == found.end() && (other.empty() || key.first < other)) {
                faults.push_back({"missing", 0, key, other.empty() ? "" : "or [" + other + "]"});
            }
        } else if (inOther != found.end() && here->second > inOther->second) {
            faults.push_back({"twice", here->second, key, "[" + other + "] has it already"});
        }
    }
    std::ranges::stable_sort(faults, {}, [](const Fault& fault) {
        return std::ranges::find(kKinds, std::string_view(fault.kind)) - kKinds;
    });
    return faults;
}

}  // namespace kpdtool
