// Conversions by the platform.
#include "narrow_text.h"

std::string ToNarrow(const std::basic_string<WCHAR>& text) {
    std::string narrow(4 * text.size() + 1, '\0');
    const int size = WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, narrow.data(),
                                         static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(size > 0 ? static_cast<size_t>(size) - 1 : 0);
    return narrow;
}

std::basic_string<WCHAR> FromNarrow(const std::string& text) {
    std::basic_string<WCHAR> wide(text.size() + 1, 0);
    const int size = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(),
                                         static_cast<int>(wide.size()));
    wide.resize(size > 0 ? static_cast<size_t>(size) - 1 : 0);
    return wide;
}
