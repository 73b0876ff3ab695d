// The cells of made books: texts, numbers, and amounts as people write them.
#pragma once

#include <string>

#include "ports/source_book.h"

namespace quillet::support {

inline SourceCell text(const std::string& content) {
  SourceCell cell;
  cell.kind = content.empty() ? SourceCell::Kind::empty : SourceCell::Kind::text;
  cell.text = content;
  return cell;
}

inline SourceCell number(std::int64_t paise) {
  SourceCell cell;
  cell.kind = SourceCell::Kind::number;
  const std::int64_t size = paise < 0 ? -paise : paise;
  cell.text = (paise < 0 ? "-" : "") + std::to_string(size / 100);
  const std::string cents = std::to_string(size % 100);
  if (size % 100 != 0) cell.text += (cents.size() < 2 ? ".0" : ".") + cents;
  return cell;
}

// 12345678 as "1,23,456.78"; with a mark of thousands and one of decimals.
inline std::string grouped(std::int64_t paise, const char* thousands, const char* decimals,
                           bool indian) {
  std::string whole = std::to_string(paise / 100);
  for (std::size_t at = whole.size(), step = 3; at > step; step = indian ? 2 : 3) {
    at -= step;
    whole.insert(at, thousands);
  }
  const std::string cents = std::to_string(paise % 100);
  return whole + decimals + (cents.size() < 2 ? "0" : "") + cents;
}
inline std::string indian(std::int64_t paise) { return grouped(paise, ",", ".", true); }

}  // namespace quillet::support
