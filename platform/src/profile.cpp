// Private profiles: the values in initialization files.
#include "host_state.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>

namespace {

std::vector<host::ProfileLookup> lookups;

using host::WideString;
using View = std::basic_string_view<WCHAR>;

View Trimmed(View text) {
    constexpr View kBlanks = TEXT(" \t\r\v\f\x1A");
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == View::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

View Unquoted(View text) {
    const bool quoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
                        text.front() == text.back();
    return quoted ? text.substr(1, text.size() - 2) : text;
}

bool Same(View a, View b) {
    return a.size() == b.size() && host::SameText(WideString(a), WideString(b));
}

// Takes the first line off the text. A zero ends what is seen of a line.
View TakeLine(View& text) {
    const size_t end = text.find('\n');
    const View line = text.substr(0, end);
    text.remove_prefix(end == View::npos ? text.size() : end + 1);
    return line.substr(0, line.find(WCHAR{0}));
}

// The file's text. A path without a folder means the Windows folder, and a file that is not there
// reads as an empty one.
WideString Load(const WideString& path) {
    const bool bare = path.find_first_of(TEXT("\\/:")) == WideString::npos;
    const WideString full = bare ? TEXT("C:\\Windows\\") + path : path;
    const std::filesystem::path onDisk = host::DiskPath(full.c_str());
    if (!std::filesystem::is_regular_file(onDisk)) {
        return {};
    }
    std::ifstream file(onDisk, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (!bytes.starts_with("\xFF\xFE")) {
        return host::Decode(GetACP(), bytes);
    }
    WideString text;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
        text +=
            static_cast<WCHAR>(static_cast<BYTE>(bytes[i]) | static_cast<BYTE>(bytes[i + 1]) << 8);
    }
    return text;
}

// The section's name if the line is a section's head.
std::optional<View> SectionName(View line) {
    const size_t end = line.rfind(']');
    if (line.front() != '[' || end == View::npos) {
        return {};
    }
    return Trimmed(line.substr(1, end - 1));
}

// The key's value in the first section of that name.
std::optional<View> FindValue(View text, View section, View key) {
    bool inSection = false;
    while (!text.empty()) {
        const View line = Trimmed(TakeLine(text));
        if (line.empty() || line.front() == ';') {
            continue;
        }
        if (const std::optional<View> name = SectionName(line)) {
            if (inSection) {
                return {};
            }
            inSection = Same(*name, section);
            continue;
        }
        const size_t equals = line.find('=');
        if (inSection && equals != View::npos && Same(Trimmed(line.substr(0, equals)), key)) {
            return Unquoted(Trimmed(line.substr(equals + 1)));
        }
    }
    return {};
}

// As much of the text as fits with its end.
DWORD GiveText(View text, LPWSTR buffer, DWORD length) {
    if (buffer == nullptr || length == 0) {
        return 0;
    }
    const size_t count = text.copy(buffer, length - 1);
    buffer[count] = 0;
    return static_cast<DWORD>(count);
}

}  // namespace

DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue,
                                      LPWSTR buffer, DWORD length, LPCWSTR path) {
    if (section == nullptr || key == nullptr || path == nullptr) {
        host::Unsupported("GetPrivateProfileStringW without a section, a key or a file");
    }
    lookups.push_back({path, section, key});
    if (!host::FailsNow(host::Call::kProfile)) {
        const WideString text = Load(path);
        if (const auto value = FindValue(text, Trimmed(section), Trimmed(key))) {
            return GiveText(*value, buffer, length);
        }
        SetLastError(ERROR_FILE_NOT_FOUND);
    }
    const View fallback = defaultValue == nullptr ? View() : View(defaultValue);
    return GiveText(fallback.substr(0, fallback.find_last_not_of(' ') + 1), buffer, length);
}

namespace host {

const std::vector<ProfileLookup>& ProfileLookups() {
    return lookups;
}

void ResetProfile() {
    lookups.clear();
}

}  // namespace host
