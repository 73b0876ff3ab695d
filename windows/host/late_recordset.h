// The rows of a host's recordset, read whole and closed: what is read later causes no error and
// keeps nothing open, and how many rows there are is known whatever the host's cursor can count.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/recordset.h"
#include "windows/com/late.h"

namespace quillet::windows {

class LateRecordset : public Recordset {
 public:
  explicit LateRecordset(const Late& recordset);

  bool EOF_() const override { return row_ == rows_; }
  void MoveNext() override;
  long RecordCount() const override { return static_cast<long>(rows_); }
  int fieldCount() const override { return static_cast<int>(names_.size()); }
  std::string_view fieldName(int column) const override {
    return names_[static_cast<std::size_t>(column)];
  }
  std::optional<std::string_view> field(int column) const override;

 private:
  // Where a cell's text stands in all texts.
  struct Cell {
    enum class Kind : char { text, null, unreadable };
    std::size_t begin = 0;
    std::size_t size = 0;
    Kind kind = Kind::text;
  };

  void read(const Late& recordset);
  bool readAtOnce(const Late& recordset);
  void readCells(const Late& recordset, const std::vector<Late>& fields);
  void addRows(const VARIANT& rows);
  void add(const VARIANT& value);

  std::vector<std::string> names_;
  std::vector<Cell> cells_;  // row by row
  std::string texts_;
  std::size_t rows_ = 0;
  std::size_t row_ = 0;
};

}  // namespace quillet::windows
