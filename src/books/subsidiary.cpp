#include "books/subsidiary.h"

#include <cmath>
#include <cstddef>

namespace quillet {
namespace {

// A balance stands on the side of its sign.
void place(SubsidiaryFigures& figures, SubsidiaryColumn debit, double balance) {
  figures[balance > 0 ? debit : debit + 1] = std::fabs(balance);
}

}  // namespace

SubsidiaryFigures figuresOf(const SubsidiaryRow& row, const Rounding& rounded) {
  SubsidiaryFigures figures{};
  place(figures, originalDr, rounded(row.amt - row.amtDr - row.amtCr));
  figures[subsidiaryDr] = rounded(row.amtDr);
  figures[subsidiaryCr] = std::fabs(rounded(row.amtCr));
  place(figures, finalDr, rounded(row.amt));
  return figures;
}

void addTo(SubsidiaryFigures& total, const SubsidiaryFigures& figures, const Rounding& rounded) {
  for (std::size_t i = 0; i < total.size(); ++i) total[i] = rounded(total[i] + figures[i]);
}

}  // namespace quillet
