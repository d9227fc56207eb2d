// The sample printer's file.
#include "printer_file.h"

#include <strsafe.h>

#include <algorithm>
#include <cstdlib>

namespace {

// A query's process and the pages' calls take turns; each has the file for a moment.
HANDLE OpenAlone(DWORD access, DWORD disposition) {
    constexpr int kTries = 100000;
    WCHAR system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    WCHAR path[2 * MAX_PATH];
    StringCchPrintfW(path, 2 * MAX_PATH, TEXT("%s\\spool\\drivers\\x64\\3\\SamplePrinter.txt"),
                     system);
    for (int i = 0; i < kTries; ++i) {
        HANDLE file =
            CreateFileW(path, access, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION) {
            return file;
        }
    }
    return INVALID_HANDLE_VALUE;
}

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

PrinterFile::PrinterFile() {
    HANDLE file = OpenAlone(GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) {
        return;
    }
    connected_ = true;
    const std::string text = ReadAll(file);
    CloseHandle(file);
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find('\n', at), text.size());
        lines_.push_back(text.substr(at, end - at));
        at = end + 1;
    }
}

PrinterFile::~PrinterFile() {
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

std::string PrinterFile::Text(std::string_view name) const {
    for (const std::string& line : lines_) {
        if (IsOf(name, line)) {
            return std::string(Trimmed(std::string_view(line).substr(line.find('=') + 1)));
        }
    }
    return {};
}

std::vector<int> PrinterFile::Numbers(std::string_view name, size_t count) const {
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

void PrinterFile::SetText(std::string_view name, std::string_view text) {
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

void PrinterFile::SetNumbers(std::string_view name, const std::vector<int>& numbers) {
    std::string text;
    for (int number : numbers) {
        text += text.empty() ? "" : " ";
        text += std::to_string(number);
    }
    SetText(name, text);
}

void PrinterFile::Complain(const std::string& complaint) {
    changed_ = true;
    lines_.push_back("complaint = " + complaint);
}
