#include "import/row_reading.h"

#include <algorithm>

#include "data/names.h"
#include "data/text.h"
#include "import/headings.h"

namespace quillet {
namespace {

constexpr std::size_t longestName = 100;

// Blanks before a text, of any kind, and the steps of the cell's format.
int indentOf(const SourceCell& cell) {
  constexpr int step = 100;  // a step of the format is more than any blank
  int blanks = 0;
  for (std::size_t at = 0; at < cell.text.size(); ++blanks) {
    if (!trimmed(cleanedName(std::string_view(cell.text).substr(0, at))).empty()) break;
    const std::size_t before = at;
    nextCharacter(cell.text, at);
    if (!cleanedName(std::string_view(cell.text).substr(before, at - before)).empty()) break;
  }
  return cell.indent * step + blanks;
}

std::string firstProblem(const std::string& first, const std::string& second) {
  return first.empty() ? second : first;
}

}  // namespace

RowReader::RowReader(const SourceSheet& sheet, const Mapping& mapping) : mapping_(mapping) {
  for (std::size_t i = mapping.headingRow; i < std::min(mapping.firstRow(), sheet.rows.size());
       ++i) {
    columns_ = std::max(columns_, sheet.rows[i].cells.size());
  }
  for (std::size_t i = mapping.firstRow(); i < sheet.rows.size(); ++i) look(sheet.rows[i]);
  signedSides_ = signedSides_ && credits_;
  negativeCredits_ = negativeCredits_ && creditFigures_ > 1;
}

const SourceCell& RowReader::cell(const SourceRow& row, ColumnRole role) const {
  static const SourceCell none;
  const auto at = column(role);
  return at ? cellAt(row, *at) : none;
}

void RowReader::look(const SourceRow& row) {
  const Figure credited = readFigure(cell(row, ColumnRole::credits), mapping_.figures);
  if (credited.isAmount() && !credited.amount.isZero()) {
    ++creditFigures_;
    negativeCredits_ = negativeCredits_ && credited.amount < Money();
  }
  const Figure amount = readFigure(cell(row, ColumnRole::amount), mapping_.figures);
  if (!amount.isAmount() || amount.amount.isZero()) return;
  const char beside = sideNamed(cell(row, ColumnRole::side).text);
  const char side = amount.side != 0 ? amount.side : beside;
  debits_ = debits_ || side == 'D';
  credits_ = credits_ || side == 'C';
  if (side != 0) signedSides_ = signedSides_ && (side == 'C') == (amount.amount < Money());
}

ReadRow RowReader::read(const SourceRow& source, ImportRow& row) const {
  ReadRow read;
  for (const SourceCell& each : source.cells) {
    if (!cleanedName(each.text).empty()) read.empty = false;
  }
  const SourceCell& name = cell(source, ColumnRole::particulars);
  row.name = cleanedName(name.text);
  row.group = cleanedName(cell(source, ColumnRole::group).text);
  row.code = cleanedName(cell(source, ColumnRole::code).text);
  read.bold = name.bold;
  read.indent = indentOf(name);
  if (name.kind == SourceCell::Kind::error) {
    read.problem = "The name \"" + row.name + "\" is an error of the workbook";
  } else if (name.kind == SourceCell::Kind::date) {
    read.problem = "The name \"" + row.name + "\" is a date: the workbook may have changed it";
  } else if (lengthOf(row.name) > longestName) {
    read.problem = "The name has more than 100 characters";
  }
  if (column(ColumnRole::amount)) {
    readAmount(source, row, read);
  } else {
    readSides(source, row, read);
  }
  read.hasAmount = !row.debit.isZero() || !row.credit.isZero();
  if (read.hasAmount && hasMoreFields(source)) {
    read.problem = firstProblem(
        read.problem, "There are more fields than headings: is an amount cut by a comma?");
  }
  return read;
}

// Of a text file: in a workbook a cell may stand beside the table.
bool RowReader::hasMoreFields(const SourceRow& row) const {
  for (std::size_t i = columns_; columns_ > 0 && i < row.cells.size(); ++i) {
    if (row.cells[i].kind == SourceCell::Kind::text && looksLikeFigure(row.cells[i])) return true;
  }
  return false;
}

void RowReader::readSides(const SourceRow& source, ImportRow& row, ReadRow& read) const {
  const SourceCell& debitCell = cell(source, ColumnRole::debits);
  const SourceCell& creditCell = cell(source, ColumnRole::credits);
  const Figure debited = readFigure(debitCell, mapping_.figures);
  const Figure credited = readFigure(creditCell, mapping_.figures);
  read.problem = firstProblem(read.problem, firstProblem(debited.problem, credited.problem));
  if (debited.side == 'C' || credited.side == 'D') {
    read.problem = firstProblem(read.problem, "The amount names the other side than its column");
  }
  read.hasFigure = !trimmed(debitCell.text).empty() || !trimmed(creditCell.text).empty();
  row.debit = debited.amount;
  row.credit = negativeCredits_ ? -credited.amount : credited.amount;
  row.bothSides = !row.debit.isZero() && !row.credit.isZero();
}

void RowReader::readAmount(const SourceRow& source, ImportRow& row, ReadRow& read) const {
  const SourceCell& amountCell = cell(source, ColumnRole::amount);
  const Figure figure = readFigure(amountCell, mapping_.figures);
  read.problem = firstProblem(read.problem, figure.problem);
  read.hasFigure = !trimmed(amountCell.text).empty();
  if (!figure.isAmount() || figure.amount.isZero()) return;
  const std::string besideText = cleanedName(cell(source, ColumnRole::side).text);
  const char beside = sideNamed(besideText);
  if (!besideText.empty() && beside == 0) {
    read.problem = firstProblem(read.problem, '"' + besideText + "\" is neither Dr nor Cr");
  }
  if (figure.side != 0 && beside != 0 && figure.side != beside) {
    read.problem = firstProblem(read.problem, "The amount names two sides");
  }
  const char side = figure.side != 0 ? figure.side : beside;
  Money balance = figure.amount;
  if (side != 0 && figure.amount < Money() && !signedSides_) {
    read.problem = firstProblem(read.problem, "The amount has a sign and a side");
  }
  if (side == 'C') balance = -abs(balance);
  // Where only credits are marked, the others are debits.
  read.sideless = side == 0 && debits_;
  (balance < Money() ? row.credit : row.debit) = abs(balance);
}

}  // namespace quillet
