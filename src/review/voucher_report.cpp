#include "review/voucher_report.h"

#include "books/amount.h"
#include "host/report_table.h"

namespace quillet {
namespace {

std::string whatBecame(const ReviewedVoucher& voucher) {
  if (!voucher.voucher.reason.empty()) return "Left out. " + voucher.voucher.reason;
  if (voucher.taken) return "Entered";
  return voucher.stands ? "Already there" : "Left out";
}

std::vector<std::string> cellsOf(const ServiceObject& host, const VoucherRow& row) {
  const ImportedVoucher& voucher = row.voucher->voucher;
  std::vector<std::string> cells{std::to_string(row.number()), voucher.number,
                                 row.isFirst() ? voucher.date : ""};
  if (row.line) {
    const VoucherLine& line = row.line->line;
    const std::string amount = line.amount.isZero() ? "" : plainAmount(host, line.amount);
    cells.insert(cells.end(), {row.line->ledger, row.line->group, line.debit ? amount : "",
                               line.debit ? "" : amount});
  } else {
    cells.insert(cells.end(), 4, "");
  }
  cells.push_back(row.isFirst() ? whatBecame(*row.voucher) : "");
  return cells;
}

}  // namespace

void reportVouchers(ServiceObject& host, Reporter& reporter, const VoucherReview& review,
                    const std::string& source) {
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(printer::emphasised("Import of vouchers of " + source));
  reporter.printtext(printer::control);
  reporter.printtext(importedText(review));
  ReportTable table(reporter, {Align::right, Align::left, Align::left, Align::left, Align::left,
                               Align::right, Align::right, Align::left});
  table.heading({"Row", "Voucher", "Date", "Ledger", "Group", "Debit", "Credit",
                 std::string("What was done") + printer::emphasisOff});
  for (const VoucherRow& row : review.rows()) table.row(cellsOf(host, row));
  reporter.ShowReport();
}

std::string importedText(const VoucherReview& review) {
  int entered = 0;
  int standing = 0;
  int leftOut = 0;
  for (const ReviewedVoucher& each : review.vouchers()) {
    ++(each.taken ? entered : each.stands ? standing : leftOut);
  }
  return "Vouchers entered: " + std::to_string(entered) +
         ", already there: " + std::to_string(standing) + ", left out: " + std::to_string(leftOut) +
         '.';
}

}  // namespace quillet
