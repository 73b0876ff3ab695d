#include "home/printouts.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <vector>

#include "books/amount.h"
#include "books/lines.h"
#include "host/report_table.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* amountFormat = "###0.00";

// A group with its lines, by ledger.
struct GroupOfLines {
  std::string name;
  std::vector<Entry> lines;
};

// The two amount columns: what is printed in them, and what it adds up to.
class Amounts {
 public:
  explicit Amounts(const ServiceObject& host) : host_(host) {}

  std::string debitOf(const Line& line) const { return line.isCredit() ? "" : shown(line.amount); }
  std::string creditOf(const Line& line) const { return line.isCredit() ? shown(line.amount) : ""; }
  void add(Totals& totals, const Line& line) const {
    totals.debit += shownAmount(debitOf(line)).rupees();
    totals.credit += shownAmount(creditOf(line)).rupees();
  }
  std::string shown(double amount) const { return host_.formatgen(amount, amountFormat); }
  // A side without lines stays empty.
  std::string shownOrEmpty(double amount) const { return amount == 0 ? "" : shown(amount); }

 private:
  const ServiceObject& host_;
};

std::vector<Entry> readEntries(Context& context, const PrintedYear& year) {
  std::vector<Entry> entries;
  const auto rows =
      context.query("Select * From " + year.table + " where code_no='" + year.client + "'");
  for (const Line& line : readLines(*rows)) {
    Entry& entry = entries.emplace_back();
    entry.line[0] = line;
    entry.particular = context.host->GetPart_MastPartId(line.partId);
  }
  if (entries.empty()) return entries;
  std::unordered_map<long, std::string> groups;
  const auto names = context.query("select * from mast_allgrp order by allgrp");
  for (; !names->EOF_(); names->MoveNext()) {
    groups.emplace(names->integer("AllId"), names->text("ALLGRP"));
  }
  for (Entry& entry : entries) {
    const auto group = groups.find(entry.any().allId);
    if (group != groups.end()) entry.group = group->second;
  }
  return entries;
}

// Groups that have lines, in the order of their primary groups' names, by their own names within
// one. Lines of a group that the group master does not know come last, so that the totals are those
// of the whole year.
std::vector<GroupOfLines> groupLines(Context& context, std::vector<Entry> entries) {
  sortEntries(entries, SortOption::particular);
  std::map<long, GroupOfLines> waiting;
  for (Entry& entry : entries) {
    GroupOfLines& group = waiting[entry.any().allId];
    group.name = entry.group;
    group.lines.push_back(std::move(entry));
  }
  std::vector<GroupOfLines> groups;
  std::size_t samePrimary = 0;  // where the groups of the primary group begin
  std::string primary;
  const auto byName = [](const GroupOfLines& a, const GroupOfLines& b) { return a.name < b.name; };
  const auto settle = [&] {
    std::sort(groups.begin() + static_cast<std::ptrdiff_t>(samePrimary), groups.end(), byName);
    samePrimary = groups.size();
  };
  const auto order = context.query(
      "select mast_gunder.gunder,mast_allgrp.allid from mast_gunder,mast_allgrp where "
      "mast_allgrp.gid=mast_gunder.gid order by mast_gunder.gunder");
  for (; !order->EOF_(); order->MoveNext()) {
    if (order->text(0) != primary) settle();
    primary = order->text(0);
    const auto found = waiting.find(order->integer(1));
    if (found == waiting.end()) continue;
    groups.push_back(std::move(found->second));
    waiting.erase(found);
  }
  settle();
  for (auto& [id, group] : waiting) groups.push_back(std::move(group));
  return groups;
}

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

void printAlphabetical(Context& context, std::vector<Entry> entries) {
  const Amounts amounts(*context.host);
  sortEntries(entries, sortOption(context));
  ReportTable table(*context.reporter, {ReportTable::right, ReportTable::left, ReportTable::left,
                                        ReportTable::right, ReportTable::right});
  table.heading({"SR. NO.", "PARTICULAR", "GROUP", "AMOUNT (DR)", "AMOUNT (CR)"});
  Totals totals;
  int number = 0;
  for (const Entry& entry : entries) {
    const Line& line = entry.any();
    amounts.add(totals, line);
    table.unruledRow({std::to_string(++number), entry.particular, entry.group,
                      amounts.debitOf(line), amounts.creditOf(line)});
  }
  table.row(
      emphasised({"", "Total", "", amounts.shown(totals.debit), amounts.shown(totals.credit)}));
}

ReportTable groupTable(Context& context) {
  ReportTable table(*context.reporter,
                    {ReportTable::left, ReportTable::left, ReportTable::right, ReportTable::right});
  table.heading({"GROUP", "PARTICULAR", "AMOUNT(DR)", "AMOUNT(CR)"});
  return table;
}

void printSummarized(Context& context, const std::vector<GroupOfLines>& groups) {
  const Amounts amounts(*context.host);
  ReportTable table = groupTable(context);
  Totals all;
  for (const GroupOfLines& group : groups) {
    Totals totals;
    for (const Entry& entry : group.lines) amounts.add(totals, entry.any());
    all.debit += totals.debit;
    all.credit += totals.credit;
    table.unruledRow(
        {group.name, "", amounts.shownOrEmpty(totals.debit), amounts.shownOrEmpty(totals.credit)});
  }
  table.row(emphasised({"TOTAL", "", amounts.shown(all.debit), amounts.shown(all.credit)}));
}

void printDetailed(Context& context, const std::vector<GroupOfLines>& groups) {
  const Amounts amounts(*context.host);
  ReportTable table = groupTable(context);
  Totals all;
  for (const GroupOfLines& group : groups) {
    Totals totals;
    std::string name = group.name;  // stands at the group's first line only
    for (const Entry& entry : group.lines) {
      const Line& line = entry.any();
      amounts.add(totals, line);
      amounts.add(all, line);
      table.unruledRow({name, entry.particular, amounts.debitOf(line), amounts.creditOf(line)});
      name.clear();
    }
    table.row(emphasised({"", "Total", amounts.shown(totals.debit), amounts.shown(totals.credit)}));
  }
  table.row(emphasised({"GRAND TOTAL", "", amounts.shown(all.debit), amounts.shown(all.credit)}));
}

}  // namespace

void printYear(Context& context, const std::string& mode, const PrintedYear& year) {
  std::vector<Entry> entries = readEntries(context, year);
  if (entries.empty()) {
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
      printAlphabetical(context, std::move(entries));
    } else if (mode == "group_summarized") {
      printSummarized(context, groupLines(context, std::move(entries)));
    } else {
      printDetailed(context, groupLines(context, std::move(entries)));
    }
  }
  context.reporter->ShowReport();
}

}  // namespace quillet
