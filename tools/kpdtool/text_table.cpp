// Columns by the number of characters, which in UTF-8 is that of bytes that begin one.
#include "text_table.h"

#include <algorithm>
#include <string_view>

namespace kpdtool {
namespace {

constexpr size_t kIndent = 2;
constexpr size_t kGap = 2;
constexpr size_t kLineWidth = 110;
constexpr size_t kWidestCell = 40;     // wider ones do not push their column apart
constexpr size_t kNarrowestText = 40;  // whatever stands before it

size_t WidthOf(std::string_view text) {
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

// The most whole words of the text that fit the width, at least one; they leave the text.
std::string_view TakeLine(std::string_view& text, size_t width) {
    size_t end = text.find(' ');
    while (end != std::string_view::npos) {
        const size_t next = text.find(' ', end + 1);
        if (WidthOf(text.substr(0, next)) > width) {
            break;
        }
        end = next;
    }
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

// Blanks from the end of the line to a column, on a line of its own when a wide cell is in the way.
void MoveTo(std::ostream& out, std::string& line, size_t column) {
    if (WidthOf(line) + (line.empty() ? 0 : kGap) > column) {
        out << line << '\n';
        line.clear();
    }
    line.append(column - WidthOf(line), ' ');
}

void PrintRow(std::ostream& out, const std::vector<std::string>& cells,
              const std::vector<size_t>& widths) {
    std::string line;
    size_t column = kIndent;
    for (size_t i = 0; i + 1 < cells.size(); ++i) {
        MoveTo(out, line, column);
        line += cells[i];
        column += widths[i] + kGap;
    }
    const size_t room = std::max(kNarrowestText, kLineWidth - std::min(column, kLineWidth));
    for (std::string_view last = cells.back(); !last.empty();) {
        MoveTo(out, line, column);
        line += TakeLine(last, room);
        if (!last.empty()) {
            out << line << '\n';
            line.clear();
        }
    }
    out << line << '\n';
}

}  // namespace

void TextTable::Print(std::ostream& out) const {
    std::vector<size_t> widths;
    for (const auto& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i + 1 < row.size(); ++i) {
            const size_t width = WidthOf(row[i]);
            if (width <= kWidestCell) {
                widths[i] = std::max(widths[i], width);
            }
        }
    }
    for (const auto& row : rows_) {
        if (row.size() == 1) {
            out << row[0] << '\n';
        } else {
            PrintRow(out, row, widths);
        }
    }
}

}  // namespace kpdtool
