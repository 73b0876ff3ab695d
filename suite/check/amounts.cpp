#include "suite/check/amounts.h"

#include <cmath>

#include "data/sql.h"
#include "suite/format.h"

namespace quillet::suite::check {
namespace {

constexpr const char* shown = "#,##0.00";
constexpr double largest = 1e15;
constexpr double noise = 1e-6;

}  // namespace

std::optional<Money> wholePaise(double rupees) {
  if (!(std::fabs(rupees) <= largest)) return std::nullopt;
  const Money money = Money::rounded(rupees);
  const bool whole = std::fabs(money.rupees() - rupees) <= noise;
  return whole ? std::optional(money) : std::nullopt;
}

std::string shownAmount(double rupees) {
  return wholePaise(rupees) ? formatNumber(rupees, shown) : sqlNumber(rupees).text();
}

std::string shownBalance(Money balance) {
  return formatNumber(abs(balance).rupees(), shown) + (balance < Money() ? " Cr" : " Dr");
}

std::optional<long> idIn(const Recordset& rows, int column) {
  return rows.field(column) ? std::optional(rows.integer(column)) : std::nullopt;
}

std::optional<double> amountIn(const Recordset& rows, int column) {
  return rows.field(column) ? std::optional(rows.number(column)) : std::nullopt;
}

}  // namespace quillet::suite::check
