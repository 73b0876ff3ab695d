#include "import/columns.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

#include "data/names.h"
#include "data/text.h"
#include "import/headings.h"

namespace quillet {
namespace {

using Time = HeadingWords::Time;

bool isHidden(const SourceSheet& sheet, std::size_t column) {
  return std::binary_search(sheet.hiddenColumns.begin(), sheet.hiddenColumns.end(),
                            static_cast<int>(column));
}

// --- what the cells of a column are

struct Contents {
  std::size_t texts = 0;  // that are no figures
  std::set<std::string> different;
  std::size_t figures = 0;
  std::size_t sides = 0;
  std::size_t dates = 0;
  bool counts = true;  // whole numbers, each larger than the one before
  long last = -1;
};

void count(Contents& contents, const SourceCell& cell) {
  const std::string_view text = trimmed(cell.text);
  if (cell.kind == SourceCell::Kind::empty || text.empty()) return;
  if (cell.kind == SourceCell::Kind::date) ++contents.dates;
  if (sideNamed(text) != 0) ++contents.sides;
  if (!looksLikeFigure(cell)) {
    if (cell.kind != SourceCell::Kind::text) return;
    ++contents.texts;
    contents.different.insert(nameKey(text));
    return;
  }
  ++contents.figures;
  constexpr std::size_t longest = 9;
  const bool whole =
      text.size() <= longest && text.find_first_not_of("0123456789") == std::string_view::npos;
  const long number = whole ? std::stol(std::string(text)) : -1;
  contents.counts = contents.counts && number > contents.last;
  contents.last = number;
}

std::vector<Contents> contentsOf(const SourceSheet& sheet, std::size_t firstRow) {
  std::vector<Contents> columns(columnsOf(sheet));
  for (std::size_t row = firstRow; row < sheet.rows.size(); ++row) {
    const auto& cells = sheet.rows[row].cells;
    for (std::size_t i = 0; i < cells.size(); ++i) count(columns[i], cells[i]);
  }
  return columns;
}

// --- roles from headings

bool isFigures(ColumnRole role) {
  return role == ColumnRole::debits || role == ColumnRole::credits || role == ColumnRole::amount;
}

// Which figures are read: those said to be closing ones, else those of which nothing is said.
// Beside an amount that is closing, plain debit and credit are what moved.
Time timeRead(const std::vector<HeadingWords>& columns) {
  const bool closing = std::any_of(columns.begin(), columns.end(), [](const HeadingWords& words) {
    return words.time == Time::closing && words.role != ColumnRole::none;
  });
  return closing ? Time::closing : Time::open;
}

ColumnRole unreadRole(Time time) {
  return time == Time::opening ? ColumnRole::opening : ColumnRole::movement;
}

// A time alone stands above one column of signed figures.
void nameBareTimes(std::vector<HeadingWords>& columns) {
  for (HeadingWords& words : columns) {
    if (words.role == ColumnRole::none && words.time != Time::open) words.role = ColumnRole::amount;
  }
}

bool hasRole(const std::vector<HeadingWords>& columns, Time time, ColumnRole role) {
  return std::any_of(columns.begin(), columns.end(), [&](const HeadingWords& words) {
    return words.time == time && words.role == role;
  });
}

void rolesByHeadings(const SourceSheet& sheet, std::vector<HeadingWords> columns, Mapping& mapping,
                     std::vector<std::string>& doubts) {
  nameBareTimes(columns);
  const Time read = timeRead(columns);
  const bool bySides =
      hasRole(columns, read, ColumnRole::debits) && hasRole(columns, read, ColumnRole::credits);
  mapping.roles.assign(columns.size(), ColumnRole::none);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto [role, time] = columns[i];
    if (isHidden(sheet, i)) {
      if (role != ColumnRole::none) doubts.emplace_back("A hidden column is not read.");
    } else if (isFigures(role) && time != read) {
      mapping.roles[i] = unreadRole(time);
    } else if (isFigures(role) && bySides == (role == ColumnRole::amount)) {
      // "Balance" beside Debit and Credit is their difference.
    } else if (role == ColumnRole::side && bySides) {
      // "Type" beside them is no side.
    } else if (role != ColumnRole::none && mapping.column(role)) {
      doubts.push_back("More than one column could be \"" + std::string(nameOf(role)) +
                       "\"; the first one is read.");
    } else {
      mapping.roles[i] = role;
    }
  }
}

// --- roles from contents

// The column with most texts that are not all the same few.
std::optional<std::size_t> nameColumn(const SourceSheet& sheet,
                                      const std::vector<Contents>& columns) {
  std::optional<std::size_t> best;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (isHidden(sheet, i) || columns[i].sides * 2 > columns[i].texts) continue;
    if (columns[i].texts == 0) continue;
    const std::size_t bestTexts = best ? columns[*best].different.size() : 0;
    if (columns[i].different.size() > bestTexts) best = i;
  }
  return best;
}

bool mostlySides(const Contents& column) {
  constexpr std::size_t tenth = 10;
  return column.sides > 0 && (column.texts + column.figures - column.sides) * tenth <= column.sides;
}

void roleByContents(const Contents& column, bool rightOfName, std::size_t rows, ColumnRole& role) {
  if (mostlySides(column)) {
    role = ColumnRole::side;
  } else if (!rightOfName && column.figures > 0 && column.texts == 0) {
    role = ColumnRole::code;
  } else if (column.texts * 2 > rows && column.different.size() * 2 < column.texts) {
    role = ColumnRole::group;
  }
}

// Of two columns of figures, no more than one of each row may say something for them to be sides.
bool areSides(const SourceSheet& sheet, std::size_t a, std::size_t b) {
  const auto says = [](const SourceCell& cell) {
    return looksLikeFigure(cell) && cell.text.find_first_of("123456789") != std::string::npos;
  };
  std::size_t both = 0;
  std::size_t one = 0;
  for (const SourceRow& row : sheet.rows) {
    const bool left = says(cellAt(row, a));
    const bool right = says(cellAt(row, b));
    both += left && right ? 1 : 0;
    one += left != right ? 1 : 0;
  }
  return one > both;
}

void amountsByContents(const SourceSheet& sheet, const std::vector<std::size_t>& figures,
                       Mapping& mapping, std::vector<std::string>& doubts) {
  if (figures.empty()) return;
  const std::size_t last = figures.back();
  const bool named = mapping.column(ColumnRole::side).has_value();
  if (!named && figures.size() > 1 && areSides(sheet, figures[figures.size() - 2], last)) {
    mapping.roles[figures[figures.size() - 2]] = ColumnRole::debits;
    mapping.roles[last] = ColumnRole::credits;
    if (figures.size() > 2) {
      doubts.emplace_back(
          "Several columns hold amounts; the last two are read as debit and credit.");
    }
  } else {
    mapping.roles[last] = ColumnRole::amount;
    if (figures.size() > 1) {
      doubts.emplace_back("Several columns hold amounts; the last one is read.");
    }
  }
}

void rolesByContents(const SourceSheet& sheet, Mapping& mapping, std::vector<std::string>& doubts) {
  const std::vector<Contents> columns = contentsOf(sheet, mapping.firstRow());
  mapping.roles.assign(columns.size(), ColumnRole::none);
  const auto name = nameColumn(sheet, columns);
  if (!name) return;
  mapping.roles[*name] = ColumnRole::particulars;
  std::vector<std::size_t> figures;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i == *name || isHidden(sheet, i)) continue;
    ColumnRole role = ColumnRole::none;
    roleByContents(columns[i], i > *name, columns[*name].texts, role);
    if (role != ColumnRole::none && !mapping.column(role)) mapping.roles[i] = role;
    const bool serial = columns[i].counts && columns[i].figures > 2;
    if (role == ColumnRole::none && columns[i].figures > 0 && i > *name && !serial) {
      figures.push_back(i);
    }
  }
  amountsByContents(sheet, figures, mapping, doubts);
}

// --- together

// What headings left open but contents tell: a column of sides without one, a plain number that
// is a voucher's.
void complete(const SourceSheet& sheet, Mapping& mapping) {
  const std::vector<Contents> columns = contentsOf(sheet, mapping.firstRow());
  const auto side = mapping.column(ColumnRole::side);
  if (side && !mostlySides(columns[*side])) mapping.roles[*side] = ColumnRole::none;
  const auto amount = mapping.column(ColumnRole::amount);
  for (std::size_t i = 0; amount && i < columns.size(); ++i) {
    if (mapping.role(i) == ColumnRole::none && mostlySides(columns[i]) &&
        !mapping.column(ColumnRole::side) && (i == *amount + 1 || i + 1 == *amount)) {
      mapping.roles[i] = ColumnRole::side;
    }
  }
  const auto code = mapping.column(ColumnRole::code);
  if (mapping.column(ColumnRole::date) && code && !mapping.column(ColumnRole::voucher)) {
    mapping.roles[*code] = ColumnRole::voucher;
  }
  // A date without vouchers says nothing of a balance.
  const auto date = mapping.column(ColumnRole::date);
  if (date && !mapping.column(ColumnRole::voucher)) mapping.roles[*date] = ColumnRole::none;
}

void findDecimals(const SourceSheet& sheet, Mapping& mapping) {
  std::vector<const SourceCell*> cells;
  for (std::size_t row = mapping.firstRow(); row < sheet.rows.size(); ++row) {
    for (std::size_t i = 0; i < sheet.rows[row].cells.size(); ++i) {
      if (isFigures(mapping.role(i))) cells.push_back(&sheet.rows[row].cells[i]);
    }
  }
  mapping.figures.decimals = decimalMarkOf(cells);
}

// Amounts that are written in thousands or lakhs would be entered as rupees.
void doubtUnit(const SourceSheet& sheet, FoundColumns& found) {
  const std::size_t end = found.mapping.headingRows > 0 ? found.mapping.firstRow() : 10;
  for (std::size_t row = 0; row < std::min(end, sheet.rows.size()); ++row) {
    for (const SourceCell& cell : sheet.rows[row].cells) {
      const std::string words = ' ' + plainWords(cell.text) + ' ';
      constexpr std::array units{" thousand", " lakh",    " lac ", " lacs ",
                                 " crore",    " million", " 000 ", " 000s "};
      if (std::ranges::none_of(
              units, [&](const char* unit) { return words.find(unit) != std::string::npos; })) {
        continue;
      }
      found.doubts.push_back("\"" + std::string(trimmed(cell.text)) +
                             "\": amounts are read as rupees, as they are written.");
      return;
    }
  }
}

FoundColumns columnsOfSheet(const SourceSheet& sheet, const Headings& headings) {
  FoundColumns found;
  found.mapping.sheet = sheet.name;
  found.mapping.headingRow = headings.row;
  found.mapping.headingRows = headings.rows;
  if (headings.rows > 0) {
    rolesByHeadings(sheet, wordsOfColumns(sheet, headings), found.mapping, found.doubts);
    complete(sheet, found.mapping);
  } else {
    rolesByContents(sheet, found.mapping, found.doubts);
  }
  findDecimals(sheet, found.mapping);
  doubtUnit(sheet, found);
  return found;
}

std::string fingerprintOf(const SourceSheet& sheet, const Headings& headings) {
  constexpr std::uint64_t basis = 0xCBF29CE484222325U;
  constexpr std::uint64_t prime = 0x100000001B3U;
  std::uint64_t hash = basis;
  const auto add = [&](std::string_view text) {
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * prime;
    hash = (hash ^ 0xFFU) * prime;
  };
  for (std::size_t i = headings.row; i < headings.row + headings.rows; ++i) {
    for (const SourceCell& cell : sheet.rows[i].cells) add(plainWords(cell.text));
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%zu-%016llx", columnsOf(sheet),
                static_cast<unsigned long long>(hash));
  return text.data();
}

}  // namespace

std::string headingFingerprint(const SourceSheet& sheet) {
  return fingerprintOf(sheet, findHeadings(sheet));
}

FoundColumns columnsBelow(const SourceSheet& sheet, std::size_t headingRow,
                          std::size_t headingRows) {
  const std::size_t row = std::min(headingRow, sheet.rows.size());
  return columnsOfSheet(sheet, {row, std::min(headingRows, sheet.rows.size() - row), 0});
}

FoundColumns findColumns(const SourceSheet& sheet,
                         const std::function<std::string(const std::string&)>& recalled) {
  const Headings headings = findHeadings(sheet);
  // Without headings nothing tells that it is the same kind of sheet.
  if (headings.rows == 0) return columnsOfSheet(sheet, headings);
  const auto stored = mappingOf(recalled(fingerprintOf(sheet, headings)));
  if (!stored) return columnsOfSheet(sheet, headings);
  FoundColumns found{*stored, {}};
  found.mapping.sheet = sheet.name;
  // The titles above may have grown; other headings than those found are a person's.
  if (stored->headingRows == headings.rows) found.mapping.headingRow = headings.row;
  if (found.mapping.firstRow() > sheet.rows.size()) return columnsOfSheet(sheet, headings);
  // How the amounts are written is this sheet's own affair.
  found.mapping.figures = {};
  findDecimals(sheet, found.mapping);
  doubtUnit(sheet, found);
  return found;
}

FoundColumns findColumns(const SourceBook& book,
                         const std::function<std::string(const std::string&)>& recalled) {
  const SourceSheet* best = nullptr;
  int bestWords = -1;
  int alike = 0;
  for (const SourceSheet& sheet : book.sheets) {
    if (sheet.rows.empty()) continue;
    const int words = findHeadings(sheet).words;
    const bool better =
        best == nullptr || (best->hidden && !sheet.hidden) ||
        (best->hidden == sheet.hidden &&
         (words > bestWords || (words == bestWords && sheet.rows.size() > best->rows.size())));
    if (!sheet.hidden && words > 1) ++alike;
    if (!better || (best != nullptr && sheet.hidden && !best->hidden)) continue;
    best = &sheet;
    bestWords = words;
  }
  if (best == nullptr) return {};
  FoundColumns found = findColumns(*best, recalled);
  if (alike > 1) {
    found.doubts.push_back("Several sheets look like trial balances; \"" + best->name +
                           "\" is read.");
  }
  return found;
}

}  // namespace quillet
