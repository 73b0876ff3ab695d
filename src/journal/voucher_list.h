// The list of vouchers as an outline: each voucher's first row heads its other lines and its
// narration, and is emphasised. A row's id is its voucher's number.
#pragma once

#include <string>
#include <unordered_map>

#include "books/journal.h"
#include "controls/grid.h"

namespace quillet {

class VoucherList {
 public:
  VoucherList(Grid& grid, ServiceObject& host);

  // Lists the vouchers from one day to another. Returns the date of the first one whose debit and
  // credit differ, "" when there is none.
  std::string show(const Journal& journal, const std::string& from, const std::string& to);

  // `heading` is the voucher's first row.
  void fold(int heading, bool folded);
  void foldAll(bool folded);
  int headingOf(int row) const;
  void select(long vid);
  // The date of the voucher that was passed last, as the list shows it; "" when it lists none.
  std::string lastDate() const;

 private:
  void addLine(const Journal::Row& row, bool first);
  void addNarration(const std::string& narration, long vid);
  const std::string& nameOf(long partId);

  Grid& grid_;
  ServiceObject& host_;
  std::unordered_map<long, std::string> names_;  // of the ledgers, while the list is filled
};

}  // namespace quillet
