#include "statements/statement_output.h"

#include <utility>

#include "books/clients.h"
#include "data/paths.h"
#include "data/year.h"
#include "host/report_table.h"
#include "host/workbook_file.h"
#include "ports/busy.h"

namespace quillet {
namespace {

using enum TwoYears::Year;

constexpr const char* indent = "    ";  // of a level

std::string indented(const StatementRow& row) {
  std::string text;
  for (int level = 0; level < row.level; ++level) text += indent;
  return text + row.text;
}

// The heads of a return have no notes.
bool hasNotes(StatementKind kind) { return kind != StatementKind::incomeTax; }

class PrintedTable {
 public:
  PrintedTable(Context& context, const TwoYears& years, bool notes)
      : host_(*context.host), notes_(notes), table_(*context.reporter, alignments(notes)) {
    table_.heading(columns({"Particulars", "Note", amountHeading(years, current),
                            amountHeading(years, previous) + printer::emphasisOff}));
  }

  void rows(const std::vector<StatementRow>& rows) {
    for (const StatementRow& row : rows) {
      std::vector<std::string> cells = columns(statementCells(host_, row));
      for (std::string& cell : cells) {
        if (row.emphasised && !cell.empty()) cell = printer::emphasised(cell);
      }
      row.total ? table_.row(std::move(cells)) : table_.unruledRow(std::move(cells));
    }
  }
  void schedules(const std::vector<Schedule>& schedules) {
    for (const Schedule& schedule : schedules) {
      table_.unruledRow({});
      table_.unruledRow({printer::emphasised(schedule.title)});
      rows(schedule.rows);
    }
  }

 private:
  static std::vector<Align> alignments(bool notes) {
    std::vector<Align> all(notes ? 4 : 3, Align::right);
    all.front() = Align::left;
    return all;
  }
  std::vector<std::string> columns(std::vector<std::string> cells) const {
    if (!notes_) cells.erase(cells.begin() + 1);
    return cells;
  }

  const ServiceObject& host_;
  bool notes_;
  ReportTable table_;
};

// Fills a sheet from above.
class SheetWriter {
 public:
  SheetWriter(Workbook& workbook, int sheet, Progress& progress)
      : workbook_(workbook), sheet_(sheet), progress_(progress) {}

  // The template shows the first row as headings.
  void headings(const TwoYears& years) {
    workbook_.Cells(sheet_, at_, 1, "Particulars");
    workbook_.Cells(sheet_, at_, 2, "Note");
    for (const TwoYears::Year year : {current, previous}) {
      workbook_.Cells(sheet_, at_, firstAmount + year, amountHeading(years, year));
    }
    ++at_;
  }
  void title(const std::string& text) { workbook_.Cells(sheet_, at_++, 1, text); }
  void skip() { ++at_; }
  void rows(const std::vector<StatementRow>& rows) {
    for (const StatementRow& row : rows) {
      workbook_.Cells(sheet_, at_, 1, indented(row));
      if (row.note != 0) workbook_.Cells(sheet_, at_, 2, static_cast<double>(row.note));
      for (const TwoYears::Year year : {current, previous}) {
        if (row.hasAmounts) {
          workbook_.Cells(sheet_, at_, firstAmount + year, row.amounts[year].rupees());
        }
      }
      ++at_;
      progress_.update_pg();
    }
  }
  void schedules(const StatementPage& page) {
    for (const Schedule& schedule : page.schedules) {
      skip();
      title(schedule.title);
      rows(schedule.rows);
    }
  }

 private:
  static constexpr int firstAmount = 3;

  Workbook& workbook_;
  int sheet_;
  Progress& progress_;
  int at_ = 1;
};

long rowsOf(const StatementPage& page) {
  std::size_t rows = page.rows.size();
  for (const Schedule& schedule : page.schedules) rows += schedule.rows.size();
  return static_cast<long>(rows);
}

constexpr std::size_t ofIncomeTax = static_cast<std::size_t>(StatementKind::incomeTax);

void fill(Context& context, const TwoYears& years, const std::array<StatementPage, 3>& pages,
          Workbook& workbook, const std::vector<int>& sheets) {
  Progress& progress = context.host->objProgress();
  long steps = 0;
  for (const StatementPage& page : pages) steps += rowsOf(page);
  progress.Max(steps);
  const std::string subject = subjectOf(years.clientName(), years.client(),
                                        years.keys(current).first, years.keys(current).second);
  SheetWriter notes(workbook, sheets.back(), progress);
  notes.headings(years);
  notes.title(subject);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    SheetWriter sheet(workbook, sheets[i], progress);
    sheet.headings(years);
    sheet.title(subject);
    sheet.title(statementTitle(static_cast<StatementKind>(i), years));
    sheet.skip();
    sheet.rows(pages[i].rows);
    (i == ofIncomeTax ? sheet : notes).schedules(pages[i]);
  }
}

}  // namespace

std::string statementTitle(StatementKind kind, const TwoYears& years) {
  const std::string date = shownDate(years.keys(current).second);
  switch (kind) {
    case StatementKind::balanceSheet:
      return "Balance Sheet as at " + date;
    case StatementKind::profitAndLoss:
      return "Statement of Profit and Loss for the Year Ended " + date;
    case StatementKind::incomeTax:
      return "Heads of the Income-Tax Return for the Year Ended " + date;
  }
  return {};
}

std::string amountHeading(const TwoYears& years, TwoYears::Year year) {
  return shownDate(years.keys(year).second);
}

std::string statementAmount(const ServiceObject& host, Money amount) {
  return amount.isZero() ? "-" : host.formatgen(amount.rupees(), "#,##0.00;(#,##0.00)");
}

std::vector<std::string> statementCells(const ServiceObject& host, const StatementRow& row) {
  std::vector<std::string> cells{indented(row), row.note == 0 ? "" : std::to_string(row.note)};
  for (const Money amount : row.amounts) {
    cells.push_back(row.hasAmounts ? statementAmount(host, amount) : "");
  }
  return cells;
}

void printStatement(Context& context, StatementKind kind, const TwoYears& years,
                    const StatementPage& page) {
  Reporter& reporter = *context.reporter;
  const Busy busy(*context.host);
  reporter.WinModeReport(true);
  reporter.NewReport();
  reporter.printtext(printer::emphasised(statementTitle(kind, years)));
  reporter.printtext(printer::control);
  PrintedTable table(context, years, hasNotes(kind));
  table.rows(page.rows);
  table.schedules(page.schedules);
  reporter.ShowReport();
}

void exportStatements(Context& context, const TwoYears& years,
                      const std::array<StatementPage, 3>& pages) {
  const std::string name = asFileName(
      years.client() + " " + shortYearText(yearOf(years.keys(current).first)) + " Statements.xls");
  exportWorkbook(context, {.boxTitle = "Statements by Head",
                           .source = "\\Databases\\ORVO_FS.xls",
                           .proposed = name,
                           .ownName = name,
                           .sheets = {"Balance Sheet", "Profit and Loss", "Income Tax", "Notes"},
                           .sheetMissing = "The statements cannot be saved. Worksheet not found!",
                           .fill = [&](Workbook& workbook, const std::vector<int>& sheets) {
                             fill(context, years, pages, workbook, sheets);
                           }});
}

}  // namespace quillet
