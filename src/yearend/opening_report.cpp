#include "yearend/opening_report.h"

#include "books/amount.h"
#include "books/opening_check.h"
#include "books/posting.h"
#include "host/report_table.h"
#include "ports/busy.h"

namespace quillet {
namespace {

using Basis = OpeningCheck::Basis;

constexpr const char* stockAlone =
    "The year was not begun by bringing forward: only its opening stock can be compared with the "
    "closing stock.";

std::string changedSince(const OpeningCheck& check, const YearKeys& year) {
  if (check.changedSince == 0) return {};
  return "Lines that were changed in " + year.text() +
         " since they were brought forward, by no voucher: " + std::to_string(check.changedSince) +
         '.';
}

std::string agreement(const OpeningCheck& check, const YearKeys& year) {
  if (check.basis == Basis::noYearBefore) {
    return "There is no year before " + year.text() + " to compare its opening with.";
  }
  const std::string years =
      year.text() + " agrees with the closing of " + year.before().text() + '.';
  if (check.basis == Basis::broughtForward) {
    const std::string changed = changedSince(check, year);
    return "The opening of " + years + (changed.empty() ? "" : "\r\n" + changed);
  }
  return "The opening stock of " + years + "\r\n" + stockAlone;
}

void report(Context& context, const OpeningCheck& check, const YearKeys& year) {
  const ServiceObject& host = *context.host;
  Reporter& reporter = *context.reporter;
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(
      printer::emphasised("Opening of " + year.text() + " and Closing of " + year.before().text()));
  reporter.printtext(printer::control);
  ReportTable table(reporter, {Align::left, Align::left, Align::right, Align::right, Align::right});
  table.heading({"Ledger", "Group", "Last Closing", "This Opening",
                 std::string("Difference") + printer::emphasisOff});
  Money sum;
  for (const OpeningDifference& each : check.differences) {
    const Money difference = each.opening - each.closing;
    sum += difference;
    table.row({each.ledger, each.group, groupedBalance(host, each.closing),
               groupedBalance(host, each.opening), groupedBalance(host, difference)});
  }
  table.row({"Total", "", "", "", groupedBalance(host, sum)});
  table.row(
      {check.basis == Basis::stockAlone ? stockAlone : "Brought forward on " + check.when + '.'});
  if (check.changedSince != 0) table.row({changedSince(check, year)});
  reporter.ShowReport();
}

}  // namespace

void reportOpening(Context& context, const std::string& client, const YearKeys& year) {
  OpeningCheck check;
  {
    const Busy busy(*context.host, "Comparing with the year before ....");
    postAllMissing(*context.host, context.unposted);
    check = checkOpening(*context.host, client, year);
  }
  if (check.differences.empty()) {
    context.MsgBox(agreement(check, year), Buttons::OK, Icon::information);
  } else {
    report(context, check, year);
  }
}

}  // namespace quillet
