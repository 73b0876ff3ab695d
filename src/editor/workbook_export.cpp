#include "editor/workbook_export.h"

#include "data/paths.h"
#include "data/year.h"
#include "editor/frmcrtb.h"
#include "host/workbook_file.h"

namespace quillet {
namespace {

constexpr int firstRow = 2;  // below the template's headings
constexpr int debitColumn = 4;
constexpr int creditColumn = 5;

}  // namespace

WorkbookExport::WorkbookExport(frmcrtb& form, OpenBooks& books, const LinesGrid& lines)
    : form_(form), books_(books), lines_(lines) {
  frmcrtb::on(form.mnuexport.Click, "CMDEXPORT_CLICK", [this] { CMDEXPORT_CLICK(); });
  form.cmdexport.Click = [this] { CMDEXPORT_CLICK(); };
}

void WorkbookExport::CMDEXPORT_CLICK() {
  form_.focusList();
  const TwoYears& years = books_.years;
  const int firstYear = yearOf(years.keys(years.yearInView()).first);
  exportWorkbook(books_.context,
                 {.boxTitle = "Trial Balance",
                  .source = "\\Databases\\ORVO_TB.xls",
                  .proposed = {},
                  .ownName = asFileName(years.client() + " " + shortYearText(firstYear) + ".xls"),
                  .sheets = {"TB"},
                  .sheetMissing = "Trial Balance cannot be saved. Worksheet not found!",
                  .fill = [this](Workbook& workbook, const std::vector<int>& sheets) {
                    writeRows(workbook, sheets.front());
                  }});
}

void WorkbookExport::writeRows(Workbook& workbook, int sheet) {
  Progress& progress = books_.host().objProgress();
  const int rows = form_.vsfm.rows();
  progress.Max(rows);
  for (int row = 1; row <= rows; ++row) {
    const auto [particular, group, line] = lines_.row(row);
    const int at = firstRow + row - 1;
    workbook.Cells(sheet, at, 1, static_cast<double>(row));
    workbook.Cells(sheet, at, 2, particular);
    workbook.Cells(sheet, at, 3, group);
    if (line) {
      const int column = line->isCredit() ? creditColumn : debitColumn;
      workbook.Cells(sheet, at, column, Money::rounded(line->amount).rupees());
    }
    progress.update_pg();
  }
}

}  // namespace quillet
