// The journal's printouts: the list of vouchers as it stands, and the subsidiary trial balance.
#include "journal/frmjrnl.h"
#include "journal/messages.h"
#include "journal/report.h"
#include "journal/subsidiary_report.h"
#include "ports/busy.h"

namespace quillet {
namespace {

constexpr RowStyle headingRow{"1111", "1111", "0001", "1111", true};
constexpr RowStyle firstRow{"1111", "0", "0001", "1111"};
constexpr RowStyle otherRow{"0", "0", "0001", "1111"};

}  // namespace

std::string frmjrnl::headingOfPeriod(const std::string& what, const std::string& from,
                                     const std::string& to) const {
  return what + " of " + context_.host->COMPANY_NAME() + " for the Period from " + from + " to " +
         to;
}

void frmjrnl::CMDPRN_CLICK() {
  if (vsf.rows() == 0) {
    tell(context_, noRecords);
    return;
  }
  const auto write = [&](auto cellOf, const RowStyle& style) {
    std::vector<std::string> cells;
    for (int column = 0; column < vsf.cols(); ++column) cells.push_back(cellOf(column));
    writeRow(*context_.reporter, std::move(cells), 2, style);
  };
  beginReport(*context_.reporter, headingOfPeriod("Adjustment Entries Passed", from_, to_),
              vsf.cols());
  write([&](int column) { return vsf.columns()[column].heading; }, headingRow);
  for (int row = 1; row <= vsf.rows(); ++row) {
    write([&](int column) { return vsf.cell(row, column); },
          vsf.rowEmphasised(row) ? firstRow : otherRow);
  }
  context_.reporter->ShowReport();
}

void frmjrnl::CMDTB_CLICK() {
  if (lock.gone() && lock.refuses()) return;
  // What the line at the foot says of the last failure holds no more.
  const bool toldOfFailure = !complete() || lblstatus.caption() == notPrinted;
  bool done = false;
  logErrors("CMDTB_CLICK", [&] {
    const Busy busy(*context_.host);
    // What stands in the journal and not in the trial balance would count as original.
    book().posting().postMissing();
    SubsidiaryTrialBalance balance(*context_.host, book().books());
    const std::vector<SubsidiaryRow> rows = balance.read();
    if (rows.empty()) {
      tell(context_, noRecords);
    } else {
      printSubsidiary(*context_.host, *context_.reporter,
                      headingOfPeriod("Subsidiary Trial Balance", year_.from(), year_.to()), rows);
    }
    done = true;
    balance.close();
  });
  if (toldOfFailure) LOADGRID();
  if (!done) lblstatus.setCaption(notPrinted);
}

}  // namespace quillet
