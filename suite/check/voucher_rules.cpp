#include "suite/check/voucher_rules.h"

#include <algorithm>
#include <climits>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "data/year.h"
#include "suite/check/amounts.h"
#include "suite/check/free_numbers.h"
#include "suite/check/registered_years.h"
#include "suite/format.h"
#include "suite/schema_tables.h"

namespace quillet::suite::check {
namespace {

using VoucherLines = std::span<const VoucherRow>;

std::string change(const std::string& table, const std::string& column, long value,
                   const VoucherRow& row) {
  return "update " + sqlName(table).text() + " set " + column + '=' + std::to_string(value) +
         " where " + rowIdColumn + '=' + std::to_string(row.rowId);
}

// "Voucher 3 of 02/06/2008"
std::string said(const VoucherRow& row) {
  const std::string date = normalisedDate(row.date);
  return (row.vid ? "Voucher " + std::to_string(*row.vid) : std::string("A voucher")) +
         (date.empty() ? "" : " of " + date);
}

class Vouchers {
 public:
  Vouchers(const Masters& masters, const Place& place, Examined& examined)
      : masters_(masters), place_(place), examined_(examined) {}

  void examine(VoucherLines lines) {
    for (const VoucherRow& row : lines) checkRow(row);
    checkSides(lines);
    checkDate(lines);
    checkLineNumbers(lines);
  }

 private:
  void checkRow(const VoucherRow& row) {
    if (!masters_.hasLedger(row.partid)) {
      report("ledger", row,
             "has a line on " + masters_.ledger(row.partid) + ", which is not there.",
             "Modify the voucher and give the line a ledger.");
    }
    if (!masters_.hadGroup(row.allid)) {
      report("group", row,
             "has a line under " + masters_.group(row.allid) + ", which is not there.",
             "Modify the voucher and give the line a group.");
    }
    if (!row.amount || !wholePaise(*row.amount)) {
      report(
          "paise", row,
          "has a line of " + masters_.ledger(row.partid) + " whose amount is not in whole paise.",
          "Modify the voucher and enter the amount anew.");
    }
  }

  void checkSides(VoucherLines lines) {
    Money debits;
    Money credits;
    for (const VoucherRow& row : lines) {
      const auto amount = wholePaise(row.amount.value_or(0));
      if (!amount) return;  // said already
      (*amount < Money() ? credits : debits) += *amount;
    }
    if ((debits + credits).isZero()) return;
    report("sides", lines.front(),
           "does not agree: " + shownBalance(debits) + ", " +
               (credits.isZero() ? "0.00 Cr" : shownBalance(credits)) + '.',
           "Complete or delete it in the journal.");
  }

  void checkDate(VoucherLines lines) {
    const VoucherRow& first = lines.front();
    const auto same = [&](const VoucherRow& row) {
      return row.date == first.date && row.narration == first.narration;
    };
    if (!std::ranges::all_of(lines, same)) {
      report("parts", first, "has lines with different dates or narrations.",
             "Modify it and save it anew.");
    }
    if (!areKeys(place_.year)) return;  // said already
    const std::string begin = std::to_string(yearOf(place_.year.first)) + "-04-01";
    const std::string end = std::to_string(yearOf(place_.year.second)) + "-03-31";
    if (first.date < begin || end < first.date) {
      report("date", first, "is not dated within the year.",
             "Widen the period in the journal and give it another date.");
    }
  }

  void checkLineNumbers(VoucherLines lines) {
    std::set<long> numbers;
    for (const VoucherRow& row : lines) numbers.insert(row.lineNumber.value_or(0));
    if (numbers.size() == lines.size() && *numbers.begin() > 0) return;
    examined_.addMendable(place_, "lines", said(lines.front()) + " has lines of the same number.",
                          "Mending numbers its lines anew.");
    long number = 0;
    for (const VoucherRow& row : lines) {
      if (row.lineNumber != ++number) {
        examined_.changes.push_back(change(place_.table, "LSrNo", number, row));
      }
    }
  }

  void report(const char* rule, const VoucherRow& row, const std::string& what,
              const std::string& remedy) {
    examined_.add(place_, rule, said(row) + ' ' + what, remedy);
  }

  const Masters& masters_;
  const Place& place_;
  Examined& examined_;
};

void sortByNumber(std::vector<VoucherRow>& rows) {
  std::ranges::sort(rows, {}, [](const VoucherRow& row) {
    return std::tuple(row.vid.value_or(LONG_MAX), row.lineNumber.value_or(LONG_MAX), row.rowId);
  });
}

}  // namespace

void examineVouchers(const Masters& masters, const Place& place, std::vector<VoucherRow> rows,
                     Examined& examined) {
  sortByNumber(rows);
  Vouchers vouchers(masters, place, examined);
  for (auto from = rows.begin(); from != rows.end();) {
    const auto to =
        std::find_if(from, rows.end(), [&](const VoucherRow& row) { return row.vid != from->vid; });
    if (from->vid) {
      vouchers.examine(VoucherLines(from, to));
    } else {
      examined.add(place, "number", "The journal holds lines without a voucher number.",
                   "A backup from before may tell what they were.");
    }
    from = to;
  }
}

void examineVoucherNumbers(const std::vector<ClientVouchers>& journals, Examined& examined) {
  std::map<long, const ClientVouchers*> owners;
  FreeNumbers free;
  const auto takeAll = [&](bool registered) {
    for (const ClientVouchers& journal : journals) {
      for (const VoucherRow& row : journal.rows) {
        if (!row.vid || journal.registered != registered) continue;
        owners.try_emplace(*row.vid, &journal);
        free.take(*row.vid);
      }
    }
  };
  takeAll(false);
  takeAll(true);
  for (const ClientVouchers& journal : journals) {
    std::map<long, long> given;  // number to new number
    for (const VoucherRow& row : journal.rows) {
      if (!row.vid || !journal.registered || owners.at(*row.vid) == &journal) continue;
      const auto [at, isNew] = given.try_emplace(*row.vid, 0);
      if (isNew) {
        at->second = free.next();
        examined.addMendable(journal.place, "shared voucher",
                             said(row) + " has the number of another client's voucher.",
                             "Mending gives it the number " + std::to_string(at->second) + '.');
      }
      examined.changes.push_back(change(journal.place.table, "VID", at->second, row));
    }
  }
}

}  // namespace quillet::suite::check
