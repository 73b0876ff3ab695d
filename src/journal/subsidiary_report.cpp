#include "journal/subsidiary_report.h"

#include <optional>
#include <utility>

#include "books/amount.h"
#include "journal/report.h"

namespace quillet {
namespace {

constexpr const char* absent = "-";

constexpr RowStyle blockHeading{"0111", "1111", "0001", "1111", true, Align::center};
constexpr RowStyle columnHeading{"1111111", "0", "0000001", "1111111", true};
constexpr RowStyle ledgerRow{"0", "0", "0000001", "1111111"};
constexpr RowStyle groupTotal{"0111111", "0111111", "0000001", "1111111"};
constexpr RowStyle grandTotal{"1111111", "1111111", "0000001", "1111111"};

}  // namespace

void printSubsidiary(ServiceObject& host, Reporter& reporter, const std::string& heading,
                     const std::vector<SubsidiaryRow>& rows) {
  const auto writeFigures = [&](const std::string& name, const SubsidiaryFigures& figures,
                                const std::string& zero, const RowStyle& style) {
    std::vector<std::string> cells{name};
    for (const Money figure : figures) {
      cells.push_back(figure.isZero() ? zero : groupedAmount(host, figure));
    }
    writeRow(reporter, std::move(cells), 1, style);
  };
  beginReport(reporter, heading, 7);
  writeRow(reporter, {"Particular", "Original", "Subsidiary", "Final"}, 1, blockHeading);
  writeRow(reporter,
           {"", "Amount (Dr.)", "Amount (Cr.)", "Amount (Dr.)", "Amount (Cr.)", "Amount (Dr.)",
            "Amount (Cr.)"},
           1, columnHeading);

  std::optional<std::string> group;
  SubsidiaryFigures ofGroup{};
  SubsidiaryFigures ofAll{};
  for (const SubsidiaryRow& row : rows) {
    if (group != row.group) {
      if (group) writeFigures("Total", ofGroup, absent, groupTotal);
      writeRow(reporter, {row.group, "", "", "", "", "", ""}, 1, ledgerRow);
      group = row.group;
      ofGroup = {};
    }
    const SubsidiaryFigures figures = figuresOf(row);
    addTo(ofGroup, figures);
    addTo(ofAll, figures);
    writeFigures(row.ledger, figures, absent, ledgerRow);
  }
  writeFigures("Total", ofGroup, absent, groupTotal);
  writeFigures("Grant Total", ofAll, groupedAmount(host, Money()), grandTotal);
  reporter.ShowReport();
}

}  // namespace quillet
