#include "import/made_book.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "import/chance.h"
#include "import/made_cells.h"
#include "import/made_sections.h"
#include "import/odd_book.h"

namespace quillet::support {
namespace {

using Kind = SourceCell::Kind;
using Ledger = MadeLedger;
using Section = MadeSection;
using Cells = std::vector<SourceCell>;

constexpr std::array<const char*, shapes> shapeNames{
    "plain",          "titles and a band", "three bands",    "signed closing",
    "Dr in the text", "Dr in the format",  "Dr in a column", "codes and signs",
    "odd amounts",    "indented sums",     "bold sums",      "headings and totals",
    "group column",   "no headings",       "several sheets", "unmarked sums"};

class Maker {
 public:
  Maker(int shape, std::uint32_t seed, int rows) : shape_(shape), chance_(seed), rows_(rows) {}

  MadeBook make() {
    inTexts_ = below(2) == 0;
    withTotal_ = below(5) > 0;
    const auto style = static_cast<AmountStyle>(below(3));
    sections_ = madeSections(chance_, style, rows_);
    made_.book.sheets.emplace_back().name = "TB";
    for (const Section& section : sections_) made_.groups.push_back(section.group);
    write();
    if (shape_ == 14) addSheets();
    return std::move(made_);
  }

 private:
  int below(int limit) { return support::below(chance_, limit); }

  // --- rows

  SourceSheet& sheet() { return made_.book.sheets.front(); }

  int row(Cells cells) {
    SourceRow& added = sheet().rows.emplace_back();
    added.number = static_cast<int>(sheet().rows.size());
    added.cells = std::move(cells);
    while (!added.cells.empty() && added.cells.back().kind == Kind::empty) added.cells.pop_back();
    return added.number;
  }
  void texts(const std::vector<std::string>& contents) {
    Cells cells;
    for (const std::string& content : contents) cells.push_back(text(content));
    row(std::move(cells));
  }
  SourceCell money(std::int64_t paise) {
    if (paise == 0) return text("");
    return inTexts_ ? text(paise < 0 ? '-' + indian(-paise) : indian(paise)) : number(paise);
  }
  void sides(Cells& cells, std::int64_t debit, std::int64_t credit) {
    cells.push_back(money(debit));
    cells.push_back(money(credit));
  }

  // The cells after the name, of a balance or of a total of both sides.
  void amounts(Cells& cells, std::int64_t debit, std::int64_t credit) {
    const std::int64_t balance = debit - credit;
    const std::int64_t size = balance < 0 ? -balance : balance;
    const char side = balance < 0 ? 'C' : 'D';
    const bool total = debit != 0 && credit != 0;
    switch (shape_) {
      case 2: {
        const std::int64_t opening = below(1000) * 100;
        sides(cells, opening, 0);
        sides(cells, below(1000) * 100, below(1000) * 100);
        return sides(cells, debit, credit);
      }
      case 3:
        cells.push_back(money(below(1000) * 100));
        sides(cells, below(1000) * 100, below(1000) * 100);
        return cells.push_back(balance == 0 ? number(0) : money(balance));
      case 4:
        return cells.push_back(total ? text("")
                                     : text(indian(size) + (side == 'D' ? " Dr" : " Cr.")));
      case 5:
        cells.push_back(total ? text("") : number(size));
        cells.back().side = total ? '\0' : side;
        return;
      case 6:
        cells.push_back(total ? money(debit) : money(size));
        return cells.push_back(text(total ? "" : side == 'D' ? "Dr" : "CR"));
      case 7:
        return cells.push_back(number(balance));
      case 8:
        return cells.push_back(oddly(balance));
      default:
        return sides(cells, debit, credit);
    }
  }

  SourceCell oddly(std::int64_t balance) {
    const std::int64_t size = balance < 0 ? -balance : balance;
    if (balance == 0) return text("-");
    if (odd_ == 0) return text(balance < 0 ? '(' + indian(size) + ')' : indian(size));
    if (odd_ == 1) return text(indian(size) + (balance < 0 ? "-" : ""));
    return text((balance < 0 ? "-" : "") + grouped(size, ".", ",", false));
  }

  void ledger(const Ledger& ledger, const std::string& group, int indent) {
    Cells cells;
    if (shape_ == 7) cells.push_back(number((100 + serial_++) * 100));
    if (shape_ == 13) cells.push_back(number(++serial_ * 100));
    const bool is2008 = shape_ == 13 && serial_ == 7;
    cells.push_back(is2008 ? number(200'800) : text(ledger.name));
    cells.back().indent = indent;
    if (shape_ == 12) cells.push_back(text(group));
    const std::int64_t debit = std::max<std::int64_t>(ledger.balance, 0);
    amounts(cells, debit, debit - ledger.balance);
    const int at = row(std::move(cells));
    made_.ledgers[at] = {is2008 ? "2008" : ledger.name, shape_ == 12 ? group : "",
                         Money::ofPaise(ledger.balance)};
    if (shape_ == 14 && below(10) == 0) row({});
    if (shape_ == 14 && below(12) == 0) sheet().rows.back().hidden = true;
  }

  void sum(const std::string& name, std::int64_t debit, std::int64_t credit, bool bold) {
    Cells cells;
    if (shape_ == 7 || shape_ == 13) cells.push_back(text(""));
    cells.push_back(text(name));
    cells.back().bold = bold;
    if (shape_ == 12) cells.push_back(text(""));
    amounts(cells, debit, credit);
    row(std::move(cells));
  }

  void headings() {
    switch (shape_) {
      case 1:
        texts({"Chandra & Sons"});
        texts({"Trial Balance"});
        texts({"1-Apr-2025 to 31-Mar-2026"});
        texts({"Particulars", "Closing Balance"});
        return texts({"", "Debit", "Credit"});
      case 2:
        texts({"Particulars", "Opening Balance", "", "Transactions", "", "Closing Balance"});
        return texts({"", "Debit", "Credit", "Debit", "Credit", "Debit", "Credit"});
      case 3:
        return texts({"Account", "Opening", "Debit", "Credit", "Closing"});
      case 4:
      case 5:
        return texts({"Particulars", "Closing Balance"});
      case 6:
        return texts({"Ledger", "Amount", "Dr/Cr"});
      case 8:
        return texts({"Name of Account", "Balance (Rs.)"});
      case 12:
        return texts({"Ledger", "Group", "Debit", "Credit"});
      case 7:
      case 13:
        return;
      default:
        return texts({"Particulars", "Debit (Rs.)", "Credit (Rs.)"});
    }
  }

  struct Sides {
    std::int64_t debit = 0;
    std::int64_t credit = 0;
    void add(const Sides& other) {
      debit += other.debit;
      credit += other.credit;
    }
  };
  // As a sum shows them: some programs show the net amount only.
  Sides shown(const Sides& sides) const {
    const std::int64_t net = sides.debit - sides.credit;
    return net_ ? Sides{std::max<std::int64_t>(net, 0), std::max<std::int64_t>(-net, 0)} : sides;
  }
  static Sides sidesOf(const Section& section) {
    Sides sides;
    for (const Ledger& each : section.ledgers) {
      (each.balance < 0 ? sides.credit : sides.debit) += std::abs(each.balance);
    }
    return sides;
  }
  void parent(const std::string& name, const Sides& sides, int indent) {
    sum(name, shown(sides).debit, shown(sides).credit, shape_ == 10);
    if (shape_ == 9) sheet().rows.back().cells.front().indent = indent;
  }

  void write() {
    odd_ = below(3);
    net_ = below(2) == 0;
    nested_ = below(2) == 0;
    headings();
    const bool parents = shape_ == 9 || shape_ == 10 || shape_ == 15;
    Sides all;
    Sides tops;
    for (std::size_t i = 0; i < sections_.size(); ++i) {
      constexpr std::size_t inOne = 4;
      const Section& section = sections_[i];
      const Sides sides = sidesOf(section);
      if (parents && nested_ && i % inOne == 0) {
        Sides above;
        for (std::size_t n = i; n < std::min(i + inOne, sections_.size()); ++n) {
          above.add(sidesOf(sections_[n]));
        }
        made_.groups.push_back("MAIN " + std::to_string(i));
        parent(made_.groups.back(), above, 0);
        tops.add(shown(above));
      }
      if (parents) parent(section.group, sides, nested_ ? 1 : 0);
      if (shape_ == 11) texts({section.group});
      for (const Ledger& each : section.ledgers) {
        ledger(each, section.group, shape_ == 9 ? nested_ ? 2 : 1 : 0);
      }
      if (shape_ == 11) sum("Total " + section.group, sides.debit, sides.credit, false);
      if (!parents || !nested_) tops.add(parents ? shown(sides) : sides);
      all.add(sides);
    }
    if (shape_ == 12) twice();
    if (shape_ == 14) bothSides(all.debit, all.credit);
    // A program adds up what it shows, or what stands beneath.
    if (parents && below(2) == 0) all = tops;
    if (withTotal_) sum(below(2) == 0 ? "Grand Total" : "Total", all.debit, all.credit, true);
    if (below(8) == 0) spoil();
  }

  // One ledger's last amount, so that nobody can read it.
  void spoil() {
    made_.spoilt = true;
    const auto ledger =
        std::next(made_.ledgers.begin(), below(static_cast<int>(made_.ledgers.size())));
    SourceRow& row = sheet().rows[static_cast<std::size_t>(ledger->first - 1)];
    constexpr std::array<const char*, 6> spoilt{"12.34.5",    "see note", "1.234",
                                                "01/04/2025", "5 %",      "#REF!"};
    SourceCell& cell = row.cells.back();
    cell = text(spoilt[static_cast<std::size_t>(below(6))]);
    if (cell.text == "#REF!") cell.kind = Kind::error;
  }

  // The first ledger under another group too, without changing the sums.
  void twice() {
    const std::string name = sections_.front().ledgers.front().name;
    for (const auto& [group, amount] : {std::pair(sections_.back().group, 100L)}) {
      ledger({name, amount}, group, 0);
      ledger({"Rounding", -amount}, group, 0);
    }
    withTotal_ = false;
  }

  void bothSides(std::int64_t& debits, std::int64_t& credits) {
    constexpr std::int64_t each = 12'300;
    const int at = row({text("Both sides"), money(each), money(each + 100)});
    made_.ledgers[at] = {"Both sides", "", Money::ofPaise(-100)};
    ledger({"Other side", 100}, "", 0);
    debits += each + 100;
    credits += each + 100;
  }

  void addSheets() {
    SourceSheet notes;
    notes.name = "Notes";
    notes.rows.push_back({1, false, {text("As per our report of even date")}});
    SourceSheet old = made_.book.sheets.front();
    old.name = "Old";
    old.hidden = true;
    made_.book.sheets.insert(made_.book.sheets.begin(), notes);
    made_.book.sheets.push_back(old);
  }

  int shape_;
  Chance chance_;
  int rows_;
  int odd_ = 0;
  bool net_ = false;
  bool nested_ = false;
  int serial_ = 0;
  bool inTexts_ = false;
  bool withTotal_ = false;
  std::vector<Section> sections_;
  MadeBook made_;
};

}  // namespace

std::string nameOfShape(int shape) {
  return shape < shapes ? shapeNames[static_cast<std::size_t>(shape)]
                        : nameOfOddity(shape - shapes);
}

MadeBook madeBook(int shape, std::uint32_t seed, int rows) {
  if (shape >= shapes) {
    constexpr std::uint32_t another = 10'000;
    MadeBook made = madeBook(shapeBefore(shape - shapes), seed, rows);
    for (auto other = seed + another; made.spoilt; other += another) {
      made = madeBook(shapeBefore(shape - shapes), other, rows);
    }
    Chance chance(seed);
    makeOdd(shape - shapes, made, chance);
    return made;
  }
  return Maker(shape, seed * 31 + static_cast<std::uint32_t>(shape), rows).make();
}

}  // namespace quillet::support
