#include "import/voucher_rows.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <unordered_map>

#include "data/dates.h"
#include "import/headings.h"
#include "import/name_lookup.h"
#include "import/row_reading.h"

namespace quillet {
namespace {

// "31/03/2026"; nothing when the cell is no date. A plain number is none.
std::optional<std::string> dateOf(const SourceCell& cell) {
  const bool dated = cell.kind == SourceCell::Kind::date || cell.kind == SourceCell::Kind::text;
  const std::optional<Date> date = dated ? readDate(cleanedName(cell.text)) : std::nullopt;
  if (!date) return std::nullopt;
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d", date->day, date->month, date->year);
  return text.data();
}

std::string inRow(int row, const std::string& problem) {
  const char* const end = problem.ends_with('?') ? "" : ".";
  return "Row " + std::to_string(row) + ": " + problem + end;
}

// Of "04/30/2008" the first two numbers; nothing for a date that begins otherwise.
std::optional<std::pair<int, int>> firstNumbers(const SourceCell& cell) {
  if (cell.kind != SourceCell::Kind::text) return std::nullopt;
  const std::string text = cleanedName(cell.text);
  const auto firstEnd = text.find_first_not_of("0123456789");
  if (firstEnd == std::string::npos || firstEnd < 1 || firstEnd > 2) return std::nullopt;
  const std::string rest = text.substr(firstEnd + 1);
  const auto secondEnd = std::min(rest.find_first_not_of("0123456789"), rest.size());
  if (secondEnd < 1 || secondEnd > 2) return std::nullopt;
  return std::pair(std::stoi(text), std::stoi(rest));
}

class VoucherReading {
 public:
  VoucherReading(const SourceSheet& sheet, const Mapping& mapping, const KnownBooks& books,
                 const YearDates& year, const RowChoices& choices)
      : sheet_(sheet),
        mapping_(mapping),
        books_(books),
        year_(year),
        choices_(choices),
        reader_(sheet, mapping),
        groups_(books) {}

  std::vector<ImportedVoucher> run() {
    for (const SourceRow& row : sheet_.rows) {
      const auto numbers = firstNumbers(cell(row, ColumnRole::date));
      monthFirst_ = monthFirst_ || (numbers && numbers->first <= 12 && numbers->second > 12);
    }
    for (std::size_t i = mapping_.firstRow(); i < sheet_.rows.size(); ++i) readRow(sheet_.rows[i]);
    for (ImportedVoucher& voucher : vouchers_) judge(voucher);
    return std::move(vouchers_);
  }

 private:
  const SourceCell& cell(const SourceRow& row, ColumnRole role) const {
    static const SourceCell none;
    const auto column = mapping_.column(role);
    return column ? cellAt(row, *column) : none;
  }

  void readRow(const SourceRow& source) {
    ImportRow row;
    row.number = source.number;
    const ReadRow read = reader_.read(source, row);
    if (read.empty || kindOf(row.number) == RowKind::skipped || isTotal(source, row)) return;
    ImportedVoucher& voucher = voucherOf(source);
    readDateOf(source, voucher);
    readNarration(source, voucher);
    if (choiceOf(row.number).taken == false) voucher.taken = false;
    if (row.name.empty() && !read.hasFigure && read.problem.empty()) return;
    addLine(row, read, voucher);
  }

  // Debit and credit of all rows above, below the last of them.
  bool isTotal(const SourceRow& source, const ImportRow& row) {
    const SideTotals amount{row.debit, row.credit};
    const bool numbered = !cleanedName(cell(source, ColumnRole::voucher).text).empty();
    if (!numbered && !amount.isZero() && amount == above_) return true;
    above_ += amount;
    return false;
  }

  // That of the row's number; a row without one goes on with the voucher above.
  ImportedVoucher& voucherOf(const SourceRow& source) {
    const std::string number = cleanedName(cell(source, ColumnRole::voucher).text);
    if (number.empty() && current_) return vouchers_[*current_];
    const auto [found, isNew] = byNumber_.emplace(nameKey(number), vouchers_.size());
    if (isNew) {
      ImportedVoucher voucher;
      voucher.number = number;
      voucher.row = source.number;
      if (number.empty()) fault(voucher, source.number, "the voucher has no number");
      vouchers_.push_back(std::move(voucher));
    }
    current_ = found->second;
    return vouchers_[*current_];
  }

  static void fault(ImportedVoucher& voucher, int row, const std::string& problem) {
    if (voucher.reason.empty()) voucher.reason = inRow(row, problem);
  }

  void readDateOf(const SourceRow& source, ImportedVoucher& voucher) const {
    const SourceCell& dateCell = cell(source, ColumnRole::date);
    if (cleanedName(dateCell.text).empty()) return;
    const auto date = dateOf(dateCell);
    if (monthFirst_ && firstNumbers(dateCell)) {
      fault(voucher, source.number,
            "dates of this column have the month first: write them as day/month/year");
    } else if (!date) {
      fault(voucher, source.number, '"' + cleanedName(dateCell.text) + "\" is not a date");
    } else if (voucher.date.empty()) {
      voucher.date = *date;
    } else if (voucher.date != *date) {
      fault(voucher, source.number, "the voucher has another date above");
    }
  }

  void readNarration(const SourceRow& source, ImportedVoucher& voucher) const {
    const std::string text = cleanedName(cell(source, ColumnRole::narration).text);
    // Many programs repeat it in every row.
    if (text.empty() || voucher.narration.find(text) != std::string::npos) return;
    if (!voucher.narration.empty()) voucher.narration += ' ';
    voucher.narration += text;
  }

  void addLine(const ImportRow& row, const ReadRow& read, ImportedVoucher& voucher) const {
    const RowChoice choice = choiceOf(row.number);
    const FoundLedger ledger = findLedger(books_, row.name, choice.usesNearest);
    const FoundGroup group = groups_.find(ledger, row.group, {}, choice.group);
    ImportedVoucherLine line;
    line.row = row.number;
    line.ledger = ledger.name;
    line.ledgerState = ledger.state;
    line.nearest = ledger.nearest;
    line.groupState = group.state;
    if (group.allId != 0) line.group = books_.groupNames.at(group.allId);
    const Money balance = row.balance();
    line.line = {{ledger.partId, group.allId}, balance >= Money(), abs(balance)};
    const std::string problem = problemOf(row, read, line);
    if (!problem.empty()) fault(voucher, row.number, problem);
    voucher.lines.push_back(std::move(line));
  }

  static std::string problemOf(const ImportRow& row, const ReadRow& read,
                               const ImportedVoucherLine& line) {
    if (!read.problem.empty()) return read.problem;
    if (row.name.empty()) return "there is an amount without a ledger";
    if (read.sideless) return "the amount says neither Dr nor Cr";
    if (row.bothSides) return "debit and credit are both filled";
    if (row.debit < Money() || row.credit < Money()) return "the amount is below zero";
    if (!read.hasAmount) return '"' + row.name + "\" has no amount";
    if (line.ledgerState == LedgerState::nearKnown) {
      return "is \"" + row.name + "\" the ledger \"" + line.nearest.name + "\", or a new one?";
    }
    return line.line.pair.allId == 0 ? "choose the group of \"" + row.name + '"' : std::string();
  }

  // What concerns the voucher as a whole.
  void judge(ImportedVoucher& voucher) const {
    if (!voucher.reason.empty()) return;
    const VoucherTotals totals = voucher.totals();
    if (voucher.date.empty()) {
      fault(voucher, voucher.row, "the voucher has no date");
    } else if (compareDates(voucher.date, year_.first) < 0 ||
               compareDates(voucher.date, year_.last) > 0) {
      fault(voucher, voucher.row, voucher.date + " lies outside of the year");
    } else if (voucher.lines.size() < 2) {
      fault(voucher, voucher.row, "the voucher has fewer than two lines");
    } else if (totals.debit != totals.credit) {
      fault(voucher, voucher.row, "debit and credit of the voucher differ");
    }
  }

  RowChoice choiceOf(int row) const {
    const auto found = choices_.find(row);
    return found == choices_.end() ? RowChoice{} : found->second;
  }
  std::optional<RowKind> kindOf(int row) const { return choiceOf(row).kind; }

  const SourceSheet& sheet_;
  const Mapping& mapping_;
  const KnownBooks& books_;
  const YearDates& year_;
  bool monthFirst_ = false;  // some date of the column can be read so only
  const RowChoices& choices_;
  RowReader reader_;
  GroupLookup groups_;
  std::vector<ImportedVoucher> vouchers_;
  std::unordered_map<std::string, std::size_t> byNumber_;
  std::optional<std::size_t> current_;
  SideTotals above_;
};

}  // namespace

VoucherTotals ImportedVoucher::totals() const {
  VoucherTotals totals;
  for (const ImportedVoucherLine& line : lines) {
    (line.line.debit ? totals.debit : totals.credit) += line.line.amount;
  }
  return totals;
}

std::vector<ImportedVoucher> readVouchers(const SourceSheet& sheet, const Mapping& mapping,
                                          const KnownBooks& books, const YearDates& year,
                                          const RowChoices& choices) {
  return VoucherReading(sheet, mapping, books, year, choices).run();
}

}  // namespace quillet
