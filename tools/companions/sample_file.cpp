// The files that samples keep their state in.
#include "sample_file.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

std::string ReadAll(HANDLE file) {
    std::string text;
    char part[4096];
    DWORD size = 0;
    while (ReadFile(file, part, sizeof(part), &size, nullptr) && size != 0) {
        text.append(part, size);
    }
    return text;
}

std::string_view Trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool IsOf(std::string_view name, std::string_view line) {
    const size_t sign = line.find('=');
    return sign != std::string_view::npos && Trimmed(line.substr(0, sign)) == name;
}

}  // namespace

std::basic_string<WCHAR> DriverFile(const WCHAR* name) {
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    return std::basic_string<WCHAR>(system) + TEXT("\\spool\\drivers\\x64\\3\\") + name;
}

// Processes take turns; each has the file for a moment.
HANDLE SampleFile::OpenAlone(DWORD access, DWORD disposition) const {
    for (int i = 0; i < tries_; ++i) {
        HANDLE file = CreateFileW(path_.c_str(), access, 0, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION) {
            return file;
        }
    }
    return INVALID_HANDLE_VALUE;
}

SampleFile::SampleFile(std::basic_string<WCHAR> path, int tries)
    : path_(std::move(path)), tries_(tries) {
    HANDLE file = OpenAlone(GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) {
        return;
    }
    there_ = true;
    const std::string text = ReadAll(file);
    CloseHandle(file);
    constexpr std::string_view kMark = "\xEF\xBB\xBF";  // as some editors begin a file
    for (size_t at = text.starts_with(kMark) ? kMark.size() : 0; at < text.size();) {
        const size_t end = std::min(text.find('\n', at), text.size());
        lines_.push_back(text.substr(at, end - at));
        at = end + 1;
    }
}

SampleFile::~SampleFile() {
    if (!changed_) {
        return;
    }
    std::string text;
    for (const std::string& line : lines_) {
        text += line + '\n';
    }
    HANDLE file = OpenAlone(GENERIC_WRITE, CREATE_ALWAYS);
    if (file != INVALID_HANDLE_VALUE) {
        DWORD written = 0;
        WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        CloseHandle(file);
    }
}

std::string SampleFile::Text(std::string_view name) const {
    const std::vector<std::string> texts = Texts(name);
    return texts.empty() ? "" : texts.front();
}

std::vector<std::string> SampleFile::Texts(std::string_view name) const {
    std::vector<std::string> texts;
    for (const std::string& line : lines_) {
        if (IsOf(name, line)) {
            texts.emplace_back(Trimmed(std::string_view(line).substr(line.find('=') + 1)));
        }
    }
    return texts;
}

std::vector<int> SampleFile::Numbers(std::string_view name, size_t count) const {
    const std::string text = Text(name);
    const char* at = text.c_str();
    std::vector<int> numbers(count);
    for (int& number : numbers) {
        char* end = nullptr;
        number = static_cast<int>(std::strtol(at, &end, 10));
        at = end;
    }
    return numbers;
}

void SampleFile::SetText(std::string_view name, std::string_view text) {
    changed_ = true;
    std::string line(name);
    line.append(" = ").append(text);
    for (std::string& each : lines_) {
        if (IsOf(name, each)) {
            each = line;
            return;
        }
    }
    lines_.push_back(line);
}

void SampleFile::SetNumbers(std::string_view name, const std::vector<int>& numbers) {
    std::string text;
    for (int number : numbers) {
        text += text.empty() ? "" : " ";
        text += std::to_string(number);
    }
    SetText(name, text);
}

void SampleFile::Remove(std::string_view name) {
    changed_ = true;
    std::erase_if(lines_, [&](const std::string& line) { return IsOf(name, line); });
}

void SampleFile::Add(std::string_view name, std::string_view text) {
    changed_ = true;
    lines_.push_back(std::string(name).append(" = ").append(text));
}
