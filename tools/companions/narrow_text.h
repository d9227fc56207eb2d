// Text as the driver hands it over and takes it: narrow, in the user's code page.
#pragma once

#include <windows.h>

#include <string>

std::string ToNarrow(const std::basic_string<WCHAR>& text);
std::basic_string<WCHAR> FromNarrow(const std::string& text);
