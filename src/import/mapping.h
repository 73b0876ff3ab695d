// What a person, or the recognition, says about a sheet: where its headings are and what each
// column holds. It is kept for the client and found again by the headings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/figures.h"

namespace quillet {

enum class ColumnRole : std::uint8_t {
  none,
  particulars,
  group,
  debits,
  credits,
  amount,  // signed, or with Dr or Cr inside or beside
  side,
  code,      // also a serial number: a row that has one is no sum
  opening,   // not read
  movement,  // not read
  date,
  narration,
  voucher
};
inline constexpr std::size_t columnRoles = 13;

// As it stands above a column: "Particulars", "Debit", "Dr/Cr"; "" for none.
std::string_view nameOf(ColumnRole role);
// Nothing for a text that names no role.
std::optional<ColumnRole> roleNamed(std::string_view name);

struct Mapping {
  std::string sheet;
  std::size_t headingRow = 0;   // index of the first one among the sheet's rows
  std::size_t headingRows = 0;  // 0: the sheet has no headings
  std::vector<ColumnRole> roles;
  FigureRules figures;

  ColumnRole role(std::size_t column) const {
    return column < roles.size() ? roles[column] : ColumnRole::none;
  }
  // The first column of that role.
  std::optional<std::size_t> column(ColumnRole role) const;
  // Gives a column its role; another column loses it, except for columns that are not read.
  void setRole(std::size_t column, ColumnRole role);
  std::size_t firstRow() const { return headingRow + headingRows; }
  // Whether it is a sheet of adjustment entries.
  bool hasVouchers() const;
};

// What is lacking or contradicts itself, for a person; "" when the sheet can be read by it.
std::string problemOf(const Mapping& mapping);

// The index of the sheet of that name; nothing when there is none.
std::optional<std::size_t> sheetOf(const SourceBook& book, const Mapping& mapping);

// --- remembered for the client

// One line of text, and back. Nothing for a text that is none.
std::string textOf(const Mapping& mapping);
std::optional<Mapping> mappingOf(std::string_view text);

}  // namespace quillet
