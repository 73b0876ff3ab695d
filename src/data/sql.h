// SQL text has a type of its own. It is joined from literals of the program, numbers, names of
// tables and texts that the service object has escaped; a std::string, which may be what a person
// typed, does not get in.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet {

class ServiceObject;
class SqlPattern;

class Sql {
 public:
  Sql() = default;
  // A literal of the program.
  template <std::size_t n>
  Sql(const char (&literal)[n]) : text_(literal) {}
  // What is filled while the program runs is no literal.
  template <std::size_t n>
  Sql(char (&buffer)[n]) = delete;

  const std::string& text() const { return text_; }
  bool empty() const { return text_.empty(); }

  Sql& operator+=(const Sql& more) {
    text_ += more.text_;
    return *this;
  }
  friend Sql operator+(Sql left, const Sql& right) {
    left += right;
    return left;
  }

 private:
  explicit Sql(std::string text) : text_(std::move(text)) {}
  friend class ServiceObject;
  friend Sql sqlNumber(double number);
  friend Sql sqlNumber(long number);
  friend Sql sqlName(std::string_view name);
  friend Sql filled(const SqlPattern& pattern, std::span<const std::pair<char, Sql>> values);

  std::string text_;
};

// The shortest text that reads back as the same number: a point, no exponent, whatever the locale.
Sql sqlNumber(double number);
Sql sqlNumber(long number);
inline Sql sqlNumber(int number) { return sqlNumber(static_cast<long>(number)); }

// The name of a table or a column. Throws RunTimeError when it holds anything but letters, digits,
// "_" and "$".
Sql sqlName(std::string_view name);

// A literal with marks: "{c}" stands for the value of the letter c.
class SqlPattern {
 public:
  consteval SqlPattern(const char* literal) : text_(literal) {}
  std::string_view text() const { return text_; }

 private:
  std::string_view text_;
};

// A mark without a value is an error of the program and throws.
Sql filled(const SqlPattern& pattern, std::span<const std::pair<char, Sql>> values);

// Ids joined for an SQL list: "3,1,7".
class IdList {
 public:
  IdList() = default;
  explicit IdList(const std::vector<long>& ids) {
    for (const long id : ids) add(id);
  }
  void add(long id);
  bool empty() const { return sql_.empty(); }
  const Sql& sql() const { return sql_; }

 private:
  Sql sql_;
};

// Sent after every statement that changes data.
inline constexpr char flushTables[] = "flush tables";

}  // namespace quillet
