// The editor's two documents: the trial balance as the grid shows it, and the summary figures.
#include "books/amount.h"
#include "editor/frmcrtb.h"
#include "host/report_table.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr const char* amountFormat = "###0.00";

}  // namespace

void frmcrtb::attachPrinting() {
  mnuPreview.Click = [this] { MNUPREVIEW_CLICK(); };
  mnuprnsumm.Click = [this] { CMDPRNSUMM_CLICK(); };
  cmdprnsumm.Click = [this] { CMDPRNSUMM_CLICK(); };
}

void frmcrtb::MNUPREVIEW_CLICK() {
  trap("mnuPreview_Click", [&] { showReport([this] { PrintTrial(); }); });
}

void frmcrtb::CMDPRNSUMM_CLICK() {
  trap("CMDPRNSUMM_CLICK", [&] {
    if (!famSummary.visible() || vsfr.rows() == 0) LOADFIGS();
    if (vsfr.rows() > 0) showReport([this] { REPORT_SUMM(); });
  });
}

// The frame of both documents. What cannot be written is not shown.
void frmcrtb::showReport(const std::function<void()>& write) {
  Reporter& reporter = *context_.reporter;
  reporter.WinModeReport(true);
  reporter.NewReport();
  written_ = false;
  write();
  if (written_) reporter.ShowReport();
}

void frmcrtb::printTitle(const std::string& title) {
  context_.reporter->printtext(printer::emphasised(title));
  context_.reporter->printtext(printer::control);
}

void frmcrtb::PrintTrial() {
  trap("PrintTrial", [&] {
    const Busy busy(*context_.host);
    printTitle("Trial Balance");
    ReportTable table(*context_.reporter, {ReportTable::right, ReportTable::left, ReportTable::left,
                                           ReportTable::right, ReportTable::right});
    table.heading({"SN", "Ledger Name", "Group", "Amount (Dr)",
                   std::string("Amount (Cr)") + printer::emphasisOff});
    Totals totals;
    for (int row = 1; row <= vsfm.rows(); ++row) {
      const ShownLine line = shownLine(row);
      const std::string debits = line.side == "DR" ? line.amount : "";
      const std::string credits = line.side == "CR" ? line.amount : "";
      totals.debit += shownAmount(debits).rupees();
      totals.credit += shownAmount(credits).rupees();
      table.row({std::to_string(row), line.particular, line.group, debits, credits});
    }
    const auto total = [&](double amount) {
      return printer::emphasised(context_.host->formatgen(amount, amountFormat));
    };
    table.row({"", "Total", "", total(totals.debit), total(totals.credit)});
    written_ = true;
  });
}

void frmcrtb::REPORT_SUMM() {
  trap("REPORT_SUMM", [&] {
    printTitle("Summarized Details");
    ReportTable table(*context_.reporter,
                      {ReportTable::left, ReportTable::right, ReportTable::right});
    std::vector<std::string> headings;
    for (const GridColumn& column : vsfr.columns()) headings.push_back(column.heading);
    headings.back() += printer::emphasisOff;
    table.heading(std::move(headings));
    for (int row = 1; row <= vsfr.rows(); ++row) {
      const bool result = vsfr.rowEmphasised(row);
      std::vector<std::string> cells;
      for (int column = 0; column < vsfr.cols(); ++column) {
        const std::string& text = vsfr.cell(row, column);
        cells.push_back(result ? printer::emphasised(text) : text);
      }
      if (result) {
        table.row(std::move(cells));
      } else {
        table.unruledRow(std::move(cells));
      }
    }
    written_ = true;
  });
}

}  // namespace quillet
