// What holds for a client's closing stock and raw-material binding: they name ledgers, groups and
// heads that are there, and each item of the binding has a number of its own.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "suite/check/finding.h"
#include "suite/check/masters.h"

namespace quillet::suite::check {

struct StockRow {
  std::optional<long> partid, allid;
  std::optional<double> amount;
};
void examineStock(const Masters& masters, const Place& place, const std::vector<StockRow>& rows,
                  Examined& examined);

struct BindingRow {
  long rowId = 0;
  std::optional<long> number, head;
  std::array<std::optional<long>, 4> groups;  // opening stock, purchases, sales, closing stock
};
void examineBinding(const Masters& masters, const Place& place, std::vector<BindingRow> rows,
                    Examined& examined);

}  // namespace quillet::suite::check
