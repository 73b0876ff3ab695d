#include "import/odd_book.h"

#include <array>
#include <functional>

#include "import/delimited_text.h"
#include "import/made_cells.h"

namespace quillet::support {
namespace {

std::vector<SourceRow>& rowsOf(MadeBook& made) { return made.book.sheets.front().rows; }
SourceRow& rowOf(MadeBook& made, int number) {
  return rowsOf(made)[static_cast<std::size_t>(number - 1)];
}
void name(MadeBook& made, const std::vector<std::string>& headings) {
  auto& cells = rowsOf(made).front().cells;
  cells.clear();
  for (const std::string& heading : headings) cells.push_back(text(heading));
}

std::int64_t paiseOf(const SourceCell& cell) {
  std::string digits;
  for (const char c : cell.text) {
    if (c != ',') digits += c;
  }
  return digits.empty() ? 0 : std::llround(std::stod(digits) * 100);
}

// Writes each amount, 0 for a side without one, otherwise.
void rewrite(SourceSheet& sheet, const std::function<SourceCell(std::int64_t paise)>& written) {
  for (std::size_t i = 1; i < sheet.rows.size(); ++i) {
    auto& cells = sheet.rows[i].cells;
    cells.resize(std::max<std::size_t>(cells.size(), 3));
    for (std::size_t at = 1; at < 3; ++at) cells[at] = written(paiseOf(cells[at]));
  }
}

void insertAmounts(MadeBook& made, Chance& chance, int columns) {
  auto& rows = rowsOf(made);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    for (int n = 0; n < columns; ++n) {
      const bool any = n == 0 || below(chance, 4) == 0;
      rows[i].cells.insert(rows[i].cells.begin() + 1,
                           any ? number((below(chance, 5000) + 1) * 100L) : text(""));
    }
  }
}

// --- the oddities

void otherMarkBefore(MadeBook& made, Chance&) {
  made.before = made.book;
  made.remembered = "1|0|1|comma|exact|Particulars,Debit,Credit,|TB";
  rewrite(made.book.sheets.front(), [](std::int64_t paise) {
    std::string amount = grouped(paise, ",", ".", false);
    if (paise % 100 == 0) amount.resize(amount.size() - 3);
    return text(paise == 0 ? "" : amount);
  });
}

// The one before had credit before debit.
void memoryWithoutHeadings(MadeBook& made, Chance&) {
  name(made, {});
  made.before = made.book;
  made.remembered = "1|0|0|open|exact|Particulars,Credit,Debit,|TB";
}

void unquotedCommas(MadeBook& made, Chance&) {
  std::string bytes;
  rewrite(made.book.sheets.front(),
          [](std::int64_t paise) { return text(paise == 0 ? "" : indian(paise)); });
  for (const SourceRow& row : rowsOf(made)) {
    for (const SourceCell& cell : row.cells)
      bytes += (&cell == row.cells.data() ? "" : ",") + cell.text;
    bytes += '\n';
  }
  made.book = delimitedBook(bytes, {}, [](int) { return true; });
}

void unknownGroup(MadeBook& made, Chance& chance) {
  for (auto& [number, line] : made.ledgers) {
    if (below(chance, 20) > 0) continue;
    rowOf(made, number).cells[1] = text("UNHEARD OF");
    line.group.clear();
  }
}

void wrongSubtotal(MadeBook& made, Chance& chance) {
  std::vector<SourceRow*> totals;
  for (SourceRow& row : rowsOf(made)) {
    const bool ledger = made.ledgers.contains(row.number);
    if (!ledger && row.cells.size() > 1 && row.cells.front().text.starts_with("Total ")) {
      totals.push_back(&row);
    }
  }
  auto& cells =
      totals[static_cast<std::size_t>(below(chance, static_cast<int>(totals.size())))]->cells;
  SourceCell& amount = cells.back();
  amount = number(paiseOf(amount) + (below(chance, 900) + 1) * 100L);
  made.spoilt = true;
}

void threeColumns(MadeBook& made, Chance& chance) {
  insertAmounts(made, chance, 1);
  name(made, {});
}

void sidesTwice(MadeBook& made, Chance& chance) {
  insertAmounts(made, chance, 2);
  name(made, {"Particulars", "Debit", "Credit", "Debit", "Credit"});
}

void nothingNamed(MadeBook& made, Chance& chance) {
  constexpr std::array<const char*, 4> nothings{"Nil", "0.00", "-", "NIL"};
  const SourceCell nothing = text(nothings[static_cast<std::size_t>(below(chance, 4))]);
  rewrite(made.book.sheets.front(),
          [&](std::int64_t paise) { return paise == 0 ? nothing : number(paise); });
  for (int i = 0; i < 3; ++i) {
    SourceRow& row = rowsOf(made).emplace_back();
    row.number = static_cast<int>(rowsOf(made).size());
    row.cells = {text("Nothing in it " + std::to_string(i)), nothing, nothing};
  }
}

void shares(MadeBook& made, Chance& chance) {
  for (SourceRow& row : rowsOf(made)) {
    row.cells.resize(3);
    row.cells.push_back(text(std::to_string(below(chance, 100)) + ".5%"));
  }
  rowsOf(made).front().cells.back() = text("%");
  if (below(chance, 2) == 0) name(made, {});
}

void amountOfPercent(MadeBook& made, Chance& chance) {
  const auto line =
      std::next(made.ledgers.begin(), below(chance, static_cast<int>(made.ledgers.size())));
  rowOf(made, line->first).cells.back() = text("50%");
  made.spoilt = true;
}

// The second ledger's amount lies under that of the first.
void mergedAmount(MadeBook& made, Chance& chance) {
  const int last = static_cast<int>(made.ledgers.size()) - 1;
  const auto first = std::next(made.ledgers.begin(), below(chance, last));
  rowOf(made, first->first).cells.back().rows = 2;
  rowOf(made, std::next(first)->first).cells.resize(1);
  made.spoilt = true;
}

struct Oddity {
  const char* name;
  int shape;
  void (*make)(MadeBook& made, Chance& chance);
};
constexpr int plainShape = 0;
constexpr int totalsShape = 11;
constexpr int groupsShape = 12;
constexpr std::array<Oddity, oddities> all{
    {{"another decimal mark before", plainShape, otherMarkBefore},
     {"memory without headings", plainShape, memoryWithoutHeadings},
     {"unquoted commas", plainShape, unquotedCommas},
     {"unknown group", groupsShape, unknownGroup},
     {"wrong subtotal", totalsShape, wrongSubtotal},
     {"three columns of figures", plainShape, threeColumns},
     {"both sides twice", plainShape, sidesTwice},
     {"nil", plainShape, nothingNamed},
     {"shares", plainShape, shares},
     {"an amount of percent", plainShape, amountOfPercent},
     {"merged amounts", plainShape, mergedAmount}}};

const Oddity& at(int oddity) { return all[static_cast<std::size_t>(oddity)]; }

}  // namespace

const char* nameOfOddity(int oddity) { return at(oddity).name; }
int shapeBefore(int oddity) { return at(oddity).shape; }
void makeOdd(int oddity, MadeBook& made, Chance& chance) { at(oddity).make(made, chance); }

}  // namespace quillet::support
