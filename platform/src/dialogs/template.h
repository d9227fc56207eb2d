// A dialog's template, in its first or its extended form, read into one shape.
#pragma once

#include "host_state.h"

#include <vector>

namespace host {

/// A class or a text: a number or a string.
struct TemplateText {
    WORD number = 0;
    WideString text;

    bool IsNumber() const { return number != 0; }
    /// As the platform's calls take it.
    LPCWSTR Get() const { return IsNumber() ? MAKEINTRESOURCEW(number) : text.c_str(); }
};

struct TemplateItem {
    DWORD style;
    DWORD extendedStyle;
    RECT place;  ///< dialog units: left, top, width, height
    DWORD id;
    TemplateText className;
    TemplateText title;
};

struct DialogTemplate {
    DWORD style;
    DWORD extendedStyle;
    RECT place;  ///< dialog units: left, top, width, height
    TemplateText className;
    WideString title;
    bool hasFont;
    WORD pointSize;
    LONG weight;
    BYTE italic;
    WideString face;
    std::vector<TemplateItem> items;
};

DialogTemplate ReadTemplate(const void* bytes);

}  // namespace host
