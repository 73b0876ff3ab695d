#include "books/summary_figures.h"

#include <cmath>
#include <initializer_list>

#include "books/lines.h"
#include "data/sql.h"

namespace quillet {
namespace {

using enum PrimaryGroup;

constexpr auto currentAssetGroups = {closingStock, debtors, cashAndBank, otherCurrentAssets,
                                     loansAndAdvances};
constexpr auto currentLiabilityGroups = {currentLiabilities, provisions};

// Sums of amounts in binary may miss zero by a trifle; no balance is smaller than half a paisa.
bool isZero(double amount) { return std::fabs(amount) < 0.005; }

std::optional<double> ratio(double part, double whole, double scale) {
  if (isZero(whole)) return std::nullopt;
  return part / whole * scale;
}

}  // namespace

Balances readBalances(ServiceObject& host, const ClientTable& books) {
  const Sql table = sqlName(books.table);
  const Sql client = host.escaped(books.client);
  const auto balance = [&](int group, const Sql& only) {
    const auto rows = host.query("Select sum(amt),nid from " + table +
                                 ",mast_allgrp Where mast_allgrp.gid=" + sqlNumber(group) + only +
                                 " and " + table + ".allid=mast_allgrp.allid and " + table +
                                 ".Code_No='" + client + "' group by nid");
    double sum = 0;
    for (; !rows->EOF_(); rows->MoveNext()) {
      if (rows->integer(1) == debit) sum += rows->number(0);
      if (rows->integer(1) == credit) sum -= rows->number(0);
    }
    return sum;
  };
  Balances balances;
  for (int group = 1; group <= summaryGroups; ++group) balances.group[group] = balance(group, "");
  balances.appropriations = balance(splitGroup, " and mast_allgrp.allgrp<>'DEPRECIATION'");
  balances.depreciation = balance(splitGroup, " and mast_allgrp.allgrp='DEPRECIATION'");
  return balances;
}

std::array<SummaryRow, summaryRows> summaryOf(const Balances& balances) {
  const auto sum = [&](std::initializer_list<PrimaryGroup> groups) {
    double total = 0;
    for (const PrimaryGroup group : groups) total += balances.of(group);
    return total;
  };
  const double stock = balances.closingStock;
  const double turnover = balances.of(sales);
  const double costOfGoods =
      sum({openingStock, purchases, manufacturingExpenses, directExpenses}) - stock;
  const double expenses = sum({employeeCosts, administrativeExpenses, sellingExpenses, financeCosts,
                               ratesAndTaxes, otherExpenses}) +
                          balances.appropriations;
  // Profits are credits: negative until they are shown.
  const double gross = costOfGoods + turnover;
  const double net = gross + expenses + balances.of(otherIncomes);
  const double transferred = net + balances.depreciation;
  const double assets =
      sum({fixedAssets, investments, closingStock, debtors, cashAndBank, otherCurrentAssets,
           loansAndAdvances, miscellaneousExpenditure, otherAssets}) +
      stock;
  const double liabilities =
      -(transferred + sum({capital, reserves, securedLoans, unsecuredLoans, currentLiabilities,
                           provisions, otherLiabilities}));
  const double assetsInHand = sum(currentAssetGroups) + stock;
  const double owedSoon = -sum(currentLiabilityGroups);
  return {{{"Opening Stock", balances.of(openingStock)},
           {"Purchases", balances.of(purchases)},
           {"Direct Expenses", sum({manufacturingExpenses, directExpenses})},
           {"Less : Closing Stock", stock},
           {"Cost of Goods Sold", costOfGoods, true},
           {"Sales", -turnover},
           {"Gross Profit/(Loss)", -gross, true},
           {"Expenses", expenses},
           {"Incomes", -balances.of(otherIncomes)},
           {"Net Profit/(Loss)", -net, true},
           {"Profit Tr. to B/S", -transferred, true},
           {"Total Assets", assets, true},
           {"Total Liabilities", liabilities, true},
           {"Current Assets", assetsInHand},
           {"Current Liabilities", owedSoon},
           {"Working Capital", assetsInHand - owedSoon, true},
           {"GP Rate", ratio(-gross, -turnover, 100)},
           {"NP Rate", ratio(-transferred, -turnover, 100)},
           {"Current Ratio", ratio(assetsInHand, owedSoon, 1)}}};
}

}  // namespace quillet
