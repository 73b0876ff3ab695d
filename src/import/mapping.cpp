#include "import/mapping.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "data/text.h"

namespace quillet {
namespace {

constexpr std::array<std::string_view, columnRoles> roleNames{
    "",     "Particulars", "Group",    "Debit", "Credit",    "Amount", "Dr/Cr",
    "Code", "Opening",     "Movement", "Date",  "Narration", "Voucher"};
constexpr std::array<std::string_view, 3> markNames{"open", "point", "comma"};

// What many columns may have.
bool repeats(ColumnRole role) {
  return role == ColumnRole::none || role == ColumnRole::opening || role == ColumnRole::movement;
}

// What stands in the text up to the next separator, which goes too.
std::string_view taken(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

template <std::size_t count>
std::optional<std::size_t> indexIn(const std::array<std::string_view, count>& names,
                                   std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<std::size_t>(found - names.begin());
}

std::optional<std::size_t> numberIn(std::string_view text) {
  constexpr std::size_t mostRows = 2'000'000;
  std::size_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
  return whole && number <= mostRows ? std::optional(number) : std::nullopt;
}

bool readRoles(std::string_view text, Mapping& mapping) {
  constexpr std::size_t mostColumns = 1'000;
  while (!text.empty()) {
    const auto role = indexIn(roleNames, taken(text, ','));
    if (!role || mapping.roles.size() == mostColumns) return false;
    const auto found = static_cast<ColumnRole>(*role);
    if (!repeats(found) && mapping.column(found)) return false;
    mapping.roles.push_back(found);
  }
  return true;
}

}  // namespace

std::string_view nameOf(ColumnRole role) { return roleNames[static_cast<std::size_t>(role)]; }

std::optional<ColumnRole> roleNamed(std::string_view name) {
  const std::string_view wanted = trimmed(name);
  for (std::size_t i = 0; i < columnRoles; ++i) {
    if (equalIgnoringCase(roleNames[i], wanted)) return static_cast<ColumnRole>(i);
  }
  return std::nullopt;
}

std::optional<std::size_t> Mapping::column(ColumnRole role) const {
  const auto found = std::find(roles.begin(), roles.end(), role);
  if (found == roles.end()) return std::nullopt;
  return static_cast<std::size_t>(found - roles.begin());
}

void Mapping::setRole(std::size_t column, ColumnRole role) {
  if (!repeats(role)) std::replace(roles.begin(), roles.end(), role, ColumnRole::none);
  if (roles.size() <= column) roles.resize(column + 1);
  roles[column] = role;
}

bool Mapping::hasVouchers() const {
  return column(ColumnRole::date) && column(ColumnRole::voucher);
}

std::string problemOf(const Mapping& mapping) {
  const bool debitSide = mapping.column(ColumnRole::debits).has_value();
  const bool creditSide = mapping.column(ColumnRole::credits).has_value();
  const bool amount = mapping.column(ColumnRole::amount).has_value();
  if (!mapping.column(ColumnRole::particulars)) {
    return "Say which column holds the particulars.";
  }
  if (amount && (debitSide || creditSide)) {
    return "Choose either a column of amounts or columns of debit and credit.";
  }
  if (debitSide != creditSide) {
    return debitSide ? "Say which column holds the credit amounts."
                     : "Say which column holds the debit amounts.";
  }
  if (!amount && !debitSide) return "Say which columns hold debit and credit, or which the amount.";
  if (!amount && mapping.column(ColumnRole::side)) {
    return "A column of Dr or Cr belongs to a column of amounts.";
  }
  if (mapping.column(ColumnRole::date).has_value() !=
      mapping.column(ColumnRole::voucher).has_value()) {
    return "Vouchers need both a column of dates and one of voucher numbers.";
  }
  return {};
}

std::optional<std::size_t> sheetOf(const SourceBook& book, const Mapping& mapping) {
  for (std::size_t i = 0; i < book.sheets.size(); ++i) {
    if (book.sheets[i].name == mapping.sheet) return i;
  }
  return std::nullopt;
}

std::string textOf(const Mapping& mapping) {
  std::string text =
      "1|" + std::to_string(mapping.headingRow) + '|' + std::to_string(mapping.headingRows) + '|';
  text += markNames[static_cast<std::size_t>(mapping.figures.decimals)];
  text += mapping.figures.rounds ? "|round|" : "|exact|";
  for (const ColumnRole role : mapping.roles) (text += nameOf(role)) += ',';
  return text + '|' + mapping.sheet;
}

std::optional<Mapping> mappingOf(std::string_view text) {
  Mapping mapping;
  if (taken(text, '|') != "1") return std::nullopt;
  const auto row = numberIn(taken(text, '|'));
  const auto rows = numberIn(taken(text, '|'));
  const auto mark = indexIn(markNames, taken(text, '|'));
  const std::string_view rounding = taken(text, '|');
  if (!row || !rows || !mark || (rounding != "round" && rounding != "exact")) return std::nullopt;
  if (!readRoles(taken(text, '|'), mapping)) return std::nullopt;
  mapping.headingRow = *row;
  mapping.headingRows = *rows;
  mapping.figures = {static_cast<DecimalMark>(*mark), rounding == "round"};
  mapping.sheet = text;
  return mapping;
}

}  // namespace quillet
