#include "editor/printouts.h"

#include <utility>

#include "books/amount.h"
#include "editor/frmcrtb.h"
#include "host/report_table.h"
#include "ports/busy.h"

namespace quillet {

EditorPrintouts::EditorPrintouts(frmcrtb& form, OpenBooks& books, const LinesGrid& lines,
                                 SummaryPage& summary)
    : form_(form), books_(books), lines_(lines), summary_(summary) {
  frmcrtb::on(form.mnuPreview.Click, "mnuPreview_Click",
              [this] { showReport("PrintTrial", [this] { PrintTrial(); }); });
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
