#include "suite/check/line_rules.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <map>
#include <set>
#include <utility>

#include "books/lines.h"
#include "data/sql.h"
#include "suite/check/amounts.h"
#include "suite/check/free_numbers.h"
#include "suite/schema_tables.h"

namespace quillet::suite::check {
namespace {

// Each rule reports and changes the rows in memory; the difference to what stood there is what
// mends.
class LineExaminer {
 public:
  LineExaminer(const Masters& masters, const Place& place, std::vector<LineRow> rows,
               Examined& examined)
      : masters_(masters), place_(place), rows_(std::move(rows)), examined_(examined) {
    std::ranges::sort(rows_, {}, [](const LineRow& row) {
      return std::pair(row.srno.value_or(LONG_MAX), row.rowId);
    });
    stored_ = rows_;
  }

  void examine() {
    for (LineRow& row : rows_) {
      checkIds(row);
      checkAmount(row);
      checkSide(row);
    }
    checkPairs();
    checkNumbers();
    collectChanges();
  }

 private:
  void checkIds(LineRow& row) {
    if (!masters_.hasLedger(row.partid)) {
      examined_.add(place_, "ledger", said(row) + " stands on a ledger that is not there.",
                    "Alter the line in the editor and give it a ledger.");
    }
    if (masters_.hasGroup(row.allid)) return;
    const auto merged = masters_.mergedInto(row.allid);
    if (!merged) {
      examined_.add(place_, "group", said(row) + " stands under a group that is not there.",
                    "Alter the line in the editor and give it a group.");
      return;
    }
    examined_.addMendable(
        place_, "merged group",
        said(row) + " stands under a group that was merged into " + masters_.group(merged) + '.',
        "Mending moves it there.");
    row.allid = merged;
  }

  void checkAmount(LineRow& row) {
    if (!row.amount) {
      examined_.addMendable(place_, "amount", said(row) + " has no amount.",
                            "Mending writes 0.00, as it is shown.");
      row.amount = 0;
    } else if (!wholePaise(*row.amount)) {
      examined_.add(place_, "paise", said(row) + " has an amount that is not in whole paise.",
                    "Alter the line in the editor and enter its amount anew.");
    }
  }

  void checkSide(LineRow& row) {
    if (row.nid != debit && row.nid != credit) {
      examined_.addMendable(place_, "side", said(row) + " is marked as neither debit nor credit.",
                            "Mending marks it as debit, as it is shown.");
      row.nid = debit;
    }
    if (*row.amount >= 0) return;
    examined_.addMendable(
        place_, "negative", said(row) + " has a negative amount.",
        std::string("Mending writes it as ") + (row.nid == debit ? "credit." : "debit."));
    row.amount = -*row.amount;
    row.nid = row.nid == debit ? credit : debit;
  }

  void checkPairs() {
    std::map<std::pair<Id, Id>, std::vector<std::size_t>> pairs;
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      const LineRow& row = rows_[at];
      // Which ledger or group was meant is not known; each may have been another one.
      if (!masters_.hasLedger(row.partid) || !masters_.hasGroup(row.allid)) continue;
      pairs[{row.partid, row.allid}].push_back(at);
    }
    for (const auto& [pair, lines] : pairs) {
      if (lines.size() > 1) checkPair(lines);
    }
  }

  // The first line gets the sum; the others go.
  void checkPair(const std::vector<std::size_t>& lines) {
    LineRow& first = rows_[lines.front()];
    const std::string what =
        pairOf(first) + " stands in " + std::to_string(lines.size()) + " lines.";
    const auto sum = balanceOf(lines);
    if (!sum) {
      examined_.add(place_, "pair", what, "Enter their amounts in whole paise first.");
      return;
    }
    examined_.addMendable(place_, "pair", what,
                          "Mending makes one line of " + shownBalance(*sum) + " of them.");
    first.amount = abs(*sum).rupees();
    first.nid = *sum < Money() ? credit : debit;
    for (std::size_t at = 1; at < lines.size(); ++at) gone_.insert(rows_[lines[at]].rowId);
  }

  std::optional<Money> balanceOf(const std::vector<std::size_t>& lines) const {
    Money sum;
    for (const std::size_t at : lines) {
      const auto amount = wholePaise(*rows_[at].amount);
      if (!amount) return std::nullopt;
      sum += rows_[at].nid == credit ? -*amount : *amount;
    }
    return sum;
  }

  void checkNumbers() {
    FreeNumbers free;
    for (const LineRow& row : rows_) free.take(row.srno.value_or(0));
    std::set<long> taken;
    for (LineRow& row : rows_) {
      if (gone_.contains(row.rowId)) continue;
      if (row.srno && *row.srno > 0 && taken.insert(*row.srno).second) continue;
      const long number = free.next();
      examined_.addMendable(
          place_, "number",
          said(row) + (row.srno.value_or(0) > 0 ? " has a number that another line has as well."
                                                : " has no valid number."),
          "Mending gives it the number " + std::to_string(number) + '.');
      row.srno = number;
    }
  }

  void collectChanges() {
    const std::string table = sqlName(place_.table).text();
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      const LineRow& row = rows_[at];
      const std::string which =
          std::string(" where ") + rowIdColumn + '=' + std::to_string(row.rowId);
      if (gone_.contains(row.rowId)) {
        examined_.changes.push_back("delete from " + table + which);
      } else if (row != stored_[at]) {
        examined_.changes.push_back("update " + table + " set srno=" + std::to_string(*row.srno) +
                                    ",allid=" + (row.allid ? std::to_string(*row.allid) : "null") +
                                    ",amt=" + sqlNumber(*row.amount).text() +
                                    ",nid=" + std::to_string(*row.nid) + which);
      }
    }
  }

  std::string pairOf(const LineRow& row) const {
    return masters_.ledger(row.partid) + " under " + masters_.group(row.allid);
  }
  // "Line 3 (Cash under BANKS, 100.00 Dr)"
  std::string said(const LineRow& row) const {
    return (row.srno ? "Line " + std::to_string(*row.srno) : std::string("A line")) + " (" +
           pairOf(row) + ", " + shownAmount(row.amount.value_or(0)) +
           (row.nid == credit ? " Cr)" : " Dr)");
  }

  const Masters& masters_;
  const Place& place_;
  std::vector<LineRow> rows_;
  std::vector<LineRow> stored_;
  std::set<long> gone_;  // row ids
  Examined& examined_;
};

}  // namespace

void examineLines(const Masters& masters, const Place& place, std::vector<LineRow> rows,
                  Examined& examined) {
  LineExaminer(masters, place, std::move(rows), examined).examine();
}

}  // namespace quillet::suite::check
