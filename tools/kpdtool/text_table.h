// Text in aligned columns.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kpdtool {

/// Rows of cells; the last cell of a row is wrapped under its own column. A row of one cell is a
/// heading: it is not indented and counts for no column.
class TextTable {
  public:
    void Heading(const std::string& text) { rows_.push_back({text}); }
    void Row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    void Print(std::ostream& out) const;

  private:
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace kpdtool
