// The figures of the subsidiary trial balance. The stored trial balance includes every adjustment,
// so it is the final one, and the original is what is left when the adjustments are taken out.
#pragma once

#include <array>
#include <functional>
#include <string>

namespace quillet {

// Of one ledger and group.
struct SubsidiaryRow {
  std::string ledger;
  std::string group;
  double amt = 0;    // stored balance, debit positive
  double amtDr = 0;  // sum of the journal's debits, positive
  double amtCr = 0;  // sum of the journal's credits, negative
};

// A debit and a credit amount for each of original, subsidiary and final; 0 where there is no
// figure.
using SubsidiaryFigures = std::array<double, 6>;
enum SubsidiaryColumn { originalDr, originalCr, subsidiaryDr, subsidiaryCr, finalDr, finalCr };

// An amount rounded to what is printed.
using Rounding = std::function<double(double)>;

SubsidiaryFigures figuresOf(const SubsidiaryRow& row, const Rounding& rounded);

// Adds the figures, so that a total is the sum of what was printed above it.
void addTo(SubsidiaryFigures& total, const SubsidiaryFigures& figures, const Rounding& rounded);

}  // namespace quillet
