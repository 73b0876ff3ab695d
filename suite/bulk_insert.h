// Inserts many rows with few statements: rows are collected and sent together.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "suite/database.h"

namespace quillet::suite {

class BulkInsert {
 public:
  // `target` is the table, with its columns where not all are given:
  // "Mast_Part(PartId,Particular)".
  BulkInsert(Database& database, std::string_view target);

  // Adds a row. Texts are escaped and quoted; the caller formats decimal numbers, as a Number.
  template <class... Values>
  void row(const Values&... values) {
    sql_ += rows_++ == 0 ? head_ + "(" : ",(";
    std::string_view separator;
    ((sql_ += separator, add(values), separator = ","), ...);
    sql_ += ')';
    if (sql_.size() > enough) send();
  }

  // Sends the remaining rows. No destructor does it, because it can fail.
  void send();

  struct Number {
    std::string text;
  };

 private:
  // Well below the smallest packet size that a server is set up with.
  static constexpr std::size_t enough = 262'144;

  void add(std::integral auto value) { sql_ += std::to_string(value); }
  void add(const Number& number) { sql_ += number.text; }
  void add(std::string_view text);

  Database& database_;
  std::string head_;
  std::string sql_;
  int rows_ = 0;
};

}  // namespace quillet::suite
