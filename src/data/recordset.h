// The rows of a select, read forward: by column name as the design's procedures do, or by position
// where many rows are read. Texts stay in the client library's memory and are not copied.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual bool EOF_() const = 0;
  virtual void MoveNext() = 0;
  virtual long RecordCount() const = 0;
  virtual int fieldCount() const = 0;
  virtual std::string_view fieldName(int column) const = 0;
  // The field of the current row; nothing when it is null. Valid until the recordset is destroyed.
  virtual std::optional<std::string_view> field(int column) const = 0;
  // Whether the column holds numbers.
  virtual bool numeric(int) const { return false; }

  // Before the first row there is none: an empty recordset is at both ends.
  bool BOF_() const { return RecordCount() == 0; }

  // The column of that name, compared without regard to case; throws when there is none.
  int column(std::string_view name) const;

  // Of the current row; a null is "" or 0.
  std::string text(int column) const;
  double number(int column) const;
  long integer(int column) const;
  std::string text(std::string_view name) const { return text(column(name)); }
  double number(std::string_view name) const { return number(column(name)); }
  long integer(std::string_view name) const { return integer(column(name)); }
};

using RecordsetPtr = std::unique_ptr<Recordset>;

}  // namespace quillet
