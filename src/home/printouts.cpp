#include "home/printouts.h"

#include <utility>
#include <vector>

#include "books/amount.h"
#include "books/year_listing.h"
#include "host/report_table.h"
#include "ports/busy.h"

namespace quillet {
namespace {

// The two amount columns: what is printed in them, and what it adds up to.
class AmountColumns {
 public:
  explicit AmountColumns(const ServiceObject& host) : host_(host) {}

  void add(const Line& line) {
    (line.isCredit() ? credit_ : debit_) += Money::rounded(line.amount);
  }
  void add(const std::vector<Entry>& lines) {
    for (const Entry& entry : lines) add(entry.any());
  }
  std::string debit() const { return plainAmount(host_, debit_); }
  std::string credit() const { return plainAmount(host_, credit_); }
  // A side without lines stays empty.
  std::string debitIfAny() const { return debit_.isZero() ? "" : debit(); }
  std::string creditIfAny() const { return credit_.isZero() ? "" : credit(); }

  std::string debitOf(const Line& line) const { return line.isCredit() ? "" : shown(line); }
  std::string creditOf(const Line& line) const { return line.isCredit() ? shown(line) : ""; }

 private:
  std::string shown(const Line& line) const { return plainAmount(host_, line.amount); }

  const ServiceObject& host_;
  Money debit_;
  Money credit_;
};

std::vector<std::string> emphasised(std::vector<std::string> cells) {
  for (std::string& cell : cells) {
    if (!cell.empty()) cell = printer::emphasised(cell);
  }
  return cells;
}

// The list is called alphabetical: without a sort of the person's own choosing it goes by ledger.
SortOption sortOption(Context& context) {
  const std::string stored = context.host->GetSettingINI("Settings", "TBSort", "1");
  if (stored == "3") return SortOption::group;
  if (stored == "4") return SortOption::amount;
  return SortOption::particular;
}

void printAlphabetical(Context& context, std::vector<Entry> lines) {
  AmountColumns amounts(*context.host);
  sortEntries(lines, sortOption(context));
  ReportTable table(*context.reporter,
                    {Align::right, Align::left, Align::left, Align::right, Align::right});
  table.heading({"SR. NO.", "PARTICULAR", "GROUP", "AMOUNT (DR)", "AMOUNT (CR)"});
  int number = 0;
  for (const Entry& entry : lines) {
    const Line& line = entry.any();
    table.unruledRow({std::to_string(++number), entry.particular, entry.group,
                      amounts.debitOf(line), amounts.creditOf(line)});
  }
  amounts.add(lines);
  table.row(emphasised({"", "Total", "", amounts.debit(), amounts.credit()}));
}

ReportTable groupTable(Context& context) {
  ReportTable table(*context.reporter, {Align::left, Align::left, Align::right, Align::right});
  table.heading({"GROUP", "PARTICULAR", "AMOUNT(DR)", "AMOUNT(CR)"});
  return table;
}

void printSummarized(Context& context, const std::vector<ListedGroup>& groups) {
  ReportTable table = groupTable(context);
  AmountColumns all(*context.host);
  for (const ListedGroup& group : groups) {
    AmountColumns amounts(*context.host);
    amounts.add(group.lines);
    all.add(group.lines);
    table.unruledRow({group.name, "", amounts.debitIfAny(), amounts.creditIfAny()});
  }
  table.row(emphasised({"TOTAL", "", all.debit(), all.credit()}));
}

void printDetailed(Context& context, const std::vector<ListedGroup>& groups) {
  ReportTable table = groupTable(context);
  AmountColumns all(*context.host);
  for (const ListedGroup& group : groups) {
    AmountColumns amounts(*context.host);
    std::string name = group.name;  // stands at the group's first line only
    for (const Entry& entry : group.lines) {
      const Line& line = entry.any();
      table.unruledRow({name, entry.particular, amounts.debitOf(line), amounts.creditOf(line)});
      name.clear();
    }
    amounts.add(group.lines);
    all.add(group.lines);
    table.row(emphasised({"", "Total", amounts.debit(), amounts.credit()}));
  }
  table.row(emphasised({"GRAND TOTAL", "", all.debit(), all.credit()}));
}

}  // namespace

void printYear(Context& context, const std::string& mode, const PrintedYear& year) {
  std::vector<Entry> lines = listedLines(*context.host, year.books);
  if (lines.empty()) {
    context.MsgBox("No records available.", Buttons::OK, Icon::information);
    return;
  }
  {
    const Busy busy(*context.host);
    Reporter& reporter = *context.reporter;
    reporter.WinModeReport(true);
    reporter.NewReport();
    reporter.printtext(printer::emphasised("Trial Balance For the Period From " + year.firstDate +
                                           " To " + year.secondDate));
    reporter.printtext(year.clientName);
    if (mode == "alphabetical") {
      printAlphabetical(context, std::move(lines));
    } else if (mode == "group_summarized") {
      printSummarized(context, listedGroups(*context.host, std::move(lines)));
    } else {
      printDetailed(context, listedGroups(*context.host, std::move(lines)));
    }
  }
  context.reporter->ShowReport();
}

}  // namespace quillet
