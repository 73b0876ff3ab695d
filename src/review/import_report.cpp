#include "review/import_report.h"

#include "books/amount.h"
#include "host/report_table.h"

namespace quillet {
namespace {

using Kind = Difference::Kind;

std::string balanceText(const ServiceObject& host, Money balance) {
  if (balance.isZero()) return {};
  return plainAmount(host, abs(balance)) + (balance < Money() ? " CR" : " DR");
}

std::string leftOut(const ImportRow& row) {
  if (!row.reason.empty()) return "Left out: " + row.reason;
  return row.kind == RowKind::ledger ? "Left out" : "Left out: " + std::string(nameOf(row.kind));
}

std::string whatBecame(const ReviewRow& row, bool taken) {
  if (row.isGone()) return taken ? "Taken out" : "Left in the year";
  if (!row.line || !row.line->taken || row.line->unread) return leftOut(*row.row);
  if (row.line->doubleOf != 0) return "Added to row " + std::to_string(row.line->doubleOf);
  if (!row.difference) return "Nothing to enter";
  if (row.difference->kind == Kind::same) return "The same";
  return row.difference->kind == Kind::isNew ? "Entered" : "Changed";
}

std::vector<std::string> cellsOf(const ServiceObject& host, const ReviewRow& row, bool taken) {
  const bool compared = row.difference && !(row.line && row.line->doubleOf != 0);
  const std::string before = compared ? balanceText(host, row.difference->before) : "";
  const std::string what = whatBecame(row, taken);
  if (row.isGone()) {
    return {"", row.difference->ledger, row.difference->group, before, "", what};
  }
  const std::string number = std::to_string(row.row->number);
  if (!row.line)
    return {number, row.row->name, "", "", balanceText(host, row.row->balance()), what};
  const std::string& name = row.line->unread ? row.row->name : row.line->ledger;
  return {number, name, row.line->group, before, balanceText(host, row.line->balance), what};
}

}  // namespace

void reportImport(ServiceObject& host, Reporter& reporter, const ImportReview& review,
                  const std::string& source) {
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(printer::emphasised("Import of " + source));
  reporter.printtext(printer::control);
  ReportTable table(
      reporter, {Align::right, Align::left, Align::left, Align::right, Align::right, Align::left});
  table.heading({"Row", "Ledger", "Group", "Before", "Source",
                 std::string("What was done") + printer::emphasisOff});
  for (const ReviewRow& row : review.rows()) {
    const bool blank = !row.isGone() && row.row->kind == RowKind::blank;
    if (!blank) table.row(cellsOf(host, row, review.takes(row)));
  }
  table.row({"", importedText(review)});
  reporter.ShowReport();
}

std::string importedText(const ImportReview& review) {
  int entered = 0;
  int changed = 0;
  int same = 0;
  int takenOut = 0;
  int leftOut = 0;
  for (const ReviewRow& row : review.rows()) {
    if (row.isGone()) {
      takenOut += review.takes(row) ? 1 : 0;
    } else if (row.row->kind == RowKind::blank) {
      continue;
    } else if (!row.difference) {
      ++leftOut;
    } else if (row.line->doubleOf == 0) {
      ++(row.difference->kind == Kind::isNew     ? entered
         : row.difference->kind == Kind::changed ? changed
                                                 : same);
    }
  }
  return "Lines entered: " + std::to_string(entered) + ", changed: " + std::to_string(changed) +
         ", the same: " + std::to_string(same) + ", taken out: " + std::to_string(takenOut) +
         ". Rows left out: " + std::to_string(leftOut) + '.';
}

}  // namespace quillet
