#include "editor/printouts.h"

#include <utility>

#include "books/amount.h"
#include "editor/frmcrtb.h"
#include "host/report_table.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* noYear = "-";

// An amount of both years, debit positive and credit negative.
struct Compared {
  Money now, before;

  void add(const Line* line, const Line* lineBefore) {
    if (line) now += Money::rounded(line->balance());
    if (lineBefore) before += Money::rounded(lineBefore->balance());
  }
};

// What the balance moved by, and how much of the previous year's that is: it is positive where the
// balance grew on its own side. Nothing can be said of a year that begins with nothing.
void addVariance(const ServiceObject& host, std::vector<std::string>& cells,
                 const Compared& compared) {
  const Money variance = compared.now - compared.before;
  const double part = variance.isZero() ? 0 : variance.rupees() / compared.before.rupees() * 100;
  cells.push_back(plainAmount(host, variance));
  cells.push_back(compared.before.isZero() ? "" : plainAmount(host, part));
}

}  // namespace

EditorPrintouts::EditorPrintouts(frmcrtb& form, OpenBooks& books, const LinesGrid& lines,
                                 SummaryPage& summary)
    : form_(form), books_(books), lines_(lines), summary_(summary) {
  frmcrtb::on(form.mnuPreview.Click, "mnuPreview_Click",
              [this] { showReport("PrintTrial", [this] { PrintTrial(); }); });
  frmcrtb::on(form.mnuprnvar.Click, "mnuprnvar_Click",
              [this] { showReport("PrintVariance", [this] { PrintVariance(); }); });
  frmcrtb::on(form.mnuprnsumm.Click, "CMDPRNSUMM_CLICK", [this] { CMDPRNSUMM_CLICK(); });
  form.cmdprnsumm.Click = [this] { CMDPRNSUMM_CLICK(); };
}

void EditorPrintouts::CMDPRNSUMM_CLICK() {
  form_.focusList();
  if (!form_.famSummary.visible() || form_.vsfr.rows() == 0) summary_.LOADFIGS();
  if (form_.vsfr.rows() > 0) showReport("REPORT_SUMM", [this] { REPORT_SUMM(); });
}

// The frame of both documents. What cannot be written is not shown.
void EditorPrintouts::showReport(const char* procedure, const std::function<void()>& write) {
  Reporter& reporter = *books_.context.reporter;
  reporter.WinModeReport(true);
  reporter.NewReport();
  bool written = false;
  form_.logErrors(procedure, [&] {
    write();
    written = true;
  });
  if (written) reporter.ShowReport();
}

void EditorPrintouts::printTitle(const std::string& title) {
  books_.context.reporter->printtext(printer::emphasised(title));
  books_.context.reporter->printtext(printer::control);
}

void EditorPrintouts::PrintTrial() {
  const Busy busy(books_.host());
  printTitle("Trial Balance");
  ReportTable table(*books_.context.reporter,
                    {Align::right, Align::left, Align::left, Align::right, Align::right});
  table.heading({"SN", "Ledger Name", "Group", "Amount (Dr)",
                 std::string("Amount (Cr)") + printer::emphasisOff});
  // The total is the sum of what is printed above it.
  Money debits;
  Money credits;
  for (int row = 1; row <= form_.vsfm.rows(); ++row) {
    const auto [particular, group, line] = lines_.row(row);
    std::string amounts[2];
    if (line) {
      (line->isCredit() ? credits : debits) += Money::rounded(line->amount);
      amounts[line->isCredit() ? 1 : 0] = plainAmount(books_.host(), line->amount);
    }
    table.row({std::to_string(row), particular, group, amounts[0], amounts[1]});
  }
  const auto total = [&](Money amount) {
    return printer::emphasised(plainAmount(books_.host(), amount));
  };
  table.row({"", "Total", "", total(debits), total(credits)});
}

void EditorPrintouts::PrintVariance() {
  const Busy busy(books_.host());
  printTitle("Trial Balance with Variance");
  ReportTable table(*books_.context.reporter,
                    {Align::right, Align::left, Align::left, Align::right, Align::center,
                     Align::right, Align::center, Align::right, Align::right});
  table.heading({"SN", "Ledger Name", "Group", "Amount (Curr)", "Dr/Cr", "Amount (Prev)", "Dr/Cr",
                 "Variance", std::string("%") + printer::emphasisOff});
  const ServiceObject& host = books_.host();
  Compared debits;
  Compared credits;
  for (int row = 1; row <= form_.vsfm.rows(); ++row) {
    const auto [particular, group, line] = lines_.row(row);
    const Line* before = lines_.lineBefore(row);
    std::vector<std::string> cells{std::to_string(row), particular, group};
    for (const Line* year : {line, before}) {
      cells.push_back(year ? plainAmount(host, year->amount) : noYear);
      cells.emplace_back(year ? year->side() : noYear);
    }
    Compared compared;
    compared.add(line, before);
    addVariance(host, cells, compared);
    table.row(std::move(cells));
    const auto onSide = [](const Line* year, bool ofCredit) {
      return year && year->isCredit() == ofCredit ? year : nullptr;
    };
    debits.add(onSide(line, false), onSide(before, false));
    credits.add(onSide(line, true), onSide(before, true));
  }
  const auto total = [&](const char* name, const char* side, const Compared& sum) {
    std::vector<std::string> cells{
        "",  name, "", plainAmount(host, abs(sum.now)), side, plainAmount(host, abs(sum.before)),
        side};
    addVariance(host, cells, sum);
    for (std::string& cell : cells) {
      if (!cell.empty()) cell = printer::emphasised(cell);
    }
    table.row(std::move(cells));
  };
  total("Total Debit", "DR", debits);
  total("Total Credit", "CR", credits);
}

void EditorPrintouts::REPORT_SUMM() {
  printTitle("Summarized Details");
  ReportTable table(*books_.context.reporter, {Align::left, Align::right, Align::right});
  const Grid& figures = form_.vsfr;
  std::vector<std::string> headings;
  for (const GridColumn& column : figures.columns()) headings.push_back(column.heading);
  headings.back() += printer::emphasisOff;
  table.heading(std::move(headings));
  for (int row = 1; row <= figures.rows(); ++row) {
    const bool result = figures.rowEmphasised(row);
    std::vector<std::string> cells;
    for (int column = 0; column < figures.cols(); ++column) {
      const std::string& text = figures.cell(row, column);
      cells.push_back(result ? printer::emphasised(text) : text);
    }
    if (result) {
      table.row(std::move(cells));
    } else {
      table.unruledRow(std::move(cells));
    }
  }
}

}  // namespace quillet
