// Reads a table of the program's own data, such as the starter groups. The files lie in suite/data
// and are compiled in. Each line is a row with its fields parted by tabs; the first row names the
// columns, and a line that begins with "#" is a comment.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet::suite {

// Whatever is wrong with the file throws std::runtime_error with a message that names file and
// line. The reader goes on with the next line then.
class DataReader {
 public:
  // A file below suite/data.
  explicit DataReader(std::string_view file);
  // Any text of that form, named by its file. It has to outlive the reader.
  DataReader(std::string_view file, std::string_view text);

  // Goes to the next row, at first to the first one; false when there is none.
  bool next();

  // The fields of the row, by their column.
  std::string text(std::string_view column) const { return std::string(field(column)); }
  long number(std::string_view column) const;
  template <class Value, std::size_t n>
  Value choice(std::string_view column,
               const std::pair<std::string_view, Value> (&values)[n]) const {
    for (const auto& [name, value] : values) {
      if (field(column) == name) return value;
    }
    refuse(column);
  }
  bool has(std::string_view column) const;
  // Refuses the row.
  [[noreturn]] void fail(const std::string& message) const;
  // For a field that names something that is not there.
  [[noreturn]] void refuse(std::string_view column) const;

 private:
  // The fields of the next line that is no comment; none at the end.
  std::vector<std::string_view> nextFields();
  std::string_view field(std::string_view column) const;

  std::string file_;
  std::string_view rest_;
  int line_ = 0;
  std::vector<std::string_view> columns_;
  std::vector<std::string_view> fields_;
};

}  // namespace quillet::suite
