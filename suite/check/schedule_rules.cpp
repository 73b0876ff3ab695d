#include "suite/check/schedule_rules.h"

#include <algorithm>
#include <climits>
#include <set>

#include "suite/check/amounts.h"
#include "suite/schema_tables.h"

namespace quillet::suite::check {

void examineStock(const Masters& masters, const Place& place, const std::vector<StockRow>& rows,
                  Examined& examined) {
  for (const StockRow& row : rows) {
    const std::string line = "The closing stock has a line of " + masters.ledger(row.partid) +
                             " under " + masters.group(row.allid);
    if (!masters.hasLedger(row.partid) || !masters.hadGroup(row.allid)) {
      examined.add(place, "stock", line + ", which is not there.",
                   "Alter the line in the stock form.");
    }
    if (!row.amount || !wholePaise(*row.amount)) {
      examined.add(place, "stock amount", line + " whose amount is not in whole paise.",
                   "Enter its amount anew in the stock form.");
    }
  }
}

void examineBinding(const Masters& masters, const Place& place, std::vector<BindingRow> rows,
                    Examined& examined) {
  std::ranges::sort(rows, {}, [](const BindingRow& row) {
    return std::pair(row.number.value_or(LONG_MAX), row.rowId);
  });
  long highest = 0;
  for (const BindingRow& row : rows) highest = std::max(highest, row.number.value_or(0));
  std::set<long> taken;
  for (const BindingRow& row : rows) {
    const std::string item =
        "Item " + std::to_string(row.number.value_or(0)) + " of the raw-material binding";
    if (!masters.hasHead(row.head)) {
      examined.add(place, "binding head", item + " has a heading that is not there.",
                   "Modify it and choose another.");
    }
    for (const Id group : row.groups) {
      if (group.value_or(0) == 0 || masters.hadGroup(group)) continue;
      examined.add(place, "binding group",
                   item + " is bound to " + masters.group(group) + ", which is not there.",
                   "Modify it and choose another.");
    }
    if (row.number && taken.insert(*row.number).second) continue;
    examined.addMendable(place, "binding number", item + " has no number of its own.",
                         "Mending gives it the number " + std::to_string(highest + 1) + '.');
    examined.changes.push_back("update " + sqlName(place.table).text() +
                               " set SrNo=" + std::to_string(++highest) + " where " + rowIdColumn +
                               '=' + std::to_string(row.rowId));
  }
}

}  // namespace quillet::suite::check
