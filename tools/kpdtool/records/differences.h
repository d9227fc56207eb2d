// What two records differ in, field by field.
#pragma once

#include "stored_record.h"
#include "tools/kpdtool/text_table.h"

namespace kpdtool {

/// The rows of the answer, as a table for people and as JSON for programs.
class Differences {
  public:
    Differences(const StoredRecord& first, const StoredRecord& second);
    const Json& Rows() const { return rows_; }
    const TextTable& Table() const { return table_; }

  private:
    void Add(const Field& field, const std::optional<Bytes>& a, const std::optional<Bytes>& b);

    TextTable table_;
    Json rows_ = Json::array();
};

}  // namespace kpdtool
