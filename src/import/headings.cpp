#include "import/headings.h"

#include <algorithm>

#include "data/text.h"

namespace quillet {
namespace {

using Time = HeadingWords::Time;

constexpr std::size_t rowsLookedAt = 30;
constexpr std::size_t rowsAbove = 3;  // of titles between the headings of one table
constexpr int fewestWords = 2;

HeadingWords wordsOf(const SourceCell& cell) {
  return cell.kind == SourceCell::Kind::text ? headingWords(cell.text) : HeadingWords{};
}

int knownIn(const SourceRow& row) {
  return static_cast<int>(std::count_if(row.cells.begin(), row.cells.end(),
                                        [](const auto& cell) { return wordsOf(cell).known(); }));
}

bool hasFigures(const SourceRow& row) {
  return std::any_of(row.cells.begin(), row.cells.end(),
                     [](const SourceCell& cell) { return looksLikeFigure(cell); });
}

bool isSide(ColumnRole role) { return role == ColumnRole::debits || role == ColumnRole::credits; }

bool namesSides(const SourceRow& row) {
  return !hasFigures(row) && std::any_of(row.cells.begin(), row.cells.end(), [](const auto& cell) {
    return isSide(wordsOf(cell).role);
  });
}

bool namesParticulars(const SourceRow& row) {
  return std::any_of(row.cells.begin(), row.cells.end(), [](const auto& cell) {
    return wordsOf(cell).role == ColumnRole::particulars;
  });
}

// A band says which figures stand below it.
bool isBand(const SourceRow& row) {
  return std::any_of(row.cells.begin(), row.cells.end(), [](const auto& cell) {
    const HeadingWords words = wordsOf(cell);
    return words.time != Time::open || words.role == ColumnRole::amount;
  });
}

// Takes in the rows above that belong to the headings: a band, and the row that names the
// particulars when the others do not.
std::size_t firstOf(const SourceSheet& sheet, std::size_t best, std::size_t last) {
  std::size_t first = best;
  bool named = namesParticulars(sheet.rows[best]) || namesParticulars(sheet.rows[last]);
  for (std::size_t up = 1; up <= rowsAbove && up <= best; ++up) {
    const SourceRow& row = sheet.rows[best - up];
    if (hasFigures(row)) break;
    const bool names = !named && namesParticulars(row);
    const bool bands = up == 1 && isBand(row) && namesSides(sheet.rows[last]);
    if (names || bands) first = best - up;
    named = named || names;
  }
  return first;
}

// What a band says of the columns below it: its own merged ones, else those up to the next cell.
void spread(const SourceRow& band, std::vector<HeadingWords>& columns) {
  for (std::size_t i = 0; i < band.cells.size(); ++i) {
    const HeadingWords words = wordsOf(band.cells[i]);
    if (words.time == Time::open) continue;
    std::size_t end = i + 1;
    if (band.cells[i].columns > 1) {
      end = i + static_cast<std::size_t>(band.cells[i].columns);
    } else {
      while (end < columns.size() && trimmed(cellAt(band, end).text).empty()) ++end;
    }
    for (std::size_t column = i; column < std::min(end, columns.size()); ++column) {
      if (columns[column].time == Time::open) columns[column].time = words.time;
    }
  }
}

}  // namespace

const SourceCell& cellAt(const SourceRow& row, std::size_t column) {
  static const SourceCell none;
  return column < row.cells.size() ? row.cells[column] : none;
}

std::size_t columnsOf(const SourceSheet& sheet) {
  std::size_t columns = 0;
  for (const SourceRow& row : sheet.rows) columns = std::max(columns, row.cells.size());
  return columns;
}

Headings findHeadings(const SourceSheet& sheet) {
  Headings found;
  const std::size_t end = std::min(rowsLookedAt, sheet.rows.size());
  std::size_t best = 0;
  for (std::size_t i = 0; i < end; ++i) {
    const int known = knownIn(sheet.rows[i]);
    if (known > found.words && !hasFigures(sheet.rows[i])) {
      found.words = known;
      best = i;
    }
  }
  if (found.words < fewestWords) return {};
  std::size_t last = best;
  if (!namesSides(sheet.rows[best]) && best + 1 < sheet.rows.size() &&
      namesSides(sheet.rows[best + 1])) {
    ++last;
  }
  found.row = firstOf(sheet, best, last);
  found.rows = last + 1 - found.row;
  return found;
}

std::vector<HeadingWords> wordsOfColumns(const SourceSheet& sheet, const Headings& headings) {
  std::vector<HeadingWords> columns(columnsOf(sheet));
  const std::size_t end = std::min(headings.row + headings.rows, sheet.rows.size());
  for (std::size_t row = end; row-- > headings.row;) {
    for (std::size_t i = 0; i < sheet.rows[row].cells.size(); ++i) {
      const HeadingWords words = wordsOf(sheet.rows[row].cells[i]);
      // Debit and Credit below say more than "Balance" above.
      if (columns[i].role == ColumnRole::none) columns[i].role = words.role;
      if (columns[i].time == Time::open) columns[i].time = words.time;
    }
    if (row + 1 < end) spread(sheet.rows[row], columns);
  }
  return columns;
}

}  // namespace quillet
