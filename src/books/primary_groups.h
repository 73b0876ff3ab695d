// The primary groups that every practice has, by their numbers in Mast_Gunder.
#pragma once

namespace quillet {

enum class PrimaryGroup : int {
  capital = 1,
  reserves,
  securedLoans,
  unsecuredLoans,
  fixedAssets,
  investments,
  closingStock,
  debtors,
  cashAndBank,
  otherCurrentAssets,
  loansAndAdvances,
  currentLiabilities,
  provisions,
  miscellaneousExpenditure,
  sales,
  directExpenses,
  otherIncomes,
  openingStock,
  purchases,
  manufacturingExpenses,
  employeeCosts,
  administrativeExpenses,
  sellingExpenses,
  financeCosts,
  ratesAndTaxes,
  otherExpenses,
  otherAssets,
  otherLiabilities,
  appropriations  // with depreciation
};

}  // namespace quillet
