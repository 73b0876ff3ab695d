// The vouchers of a source under review: what its rows and a person's choices make of them. Nothing
// is written from here.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "books/voucher_import.h"
#include "import/voucher_rows.h"
#include "review/import_review.h"

namespace quillet {

struct ReviewedVoucher {
  ImportedVoucher voucher;
  bool stands = false;  // the journal holds one that says the same
  bool taken = false;
};

// "New", "Already there", "Stays out", "Left out".
std::string nameOf(const ReviewedVoucher& voucher);

// One row of the list: a line of a voucher, or a voucher without any.
struct VoucherRow {
  const ReviewedVoucher* voucher = nullptr;
  const ImportedVoucherLine* line = nullptr;  // null when it has none

  int number() const { return line ? line->row : voucher->voucher.row; }
  bool isFirst() const { return !line || line == &voucher->voucher.lines.front(); }
  std::string question;  // why the voucher stays out, at the row that it lies in; "" elsewhere
};

class VoucherReview {
 public:
  explicit VoucherReview(ImportReview& source) : source_(source) {}

  // What stands in the year's journal by now.
  void setJournal(VoucherContents standing, YearDates year);
  const VoucherContents& standing() const { return standing_; }

  // The source, how it is read or a choice changed.
  void review();
  void take(const ReviewedVoucher& voucher, bool taken);

  const std::vector<ReviewedVoucher>& vouchers() const { return vouchers_; }
  const std::vector<VoucherRow>& rows() const { return rows_; }
  // What is lacking before any voucher can be read; "" when nothing is.
  std::string problem() const;

  std::vector<VoucherToEnter> toEnter() const;
  ImportMemory::Additions additions(const std::string& note) const;

 private:
  void read();
  bool askUsualGroups();
  void compare();
  void list();
  std::optional<bool> chosen(const ImportedVoucher& voucher) const;

  ImportReview& source_;
  VoucherContents standing_;
  YearDates year_;
  std::vector<ReviewedVoucher> vouchers_;
  std::vector<VoucherRow> rows_;
};

}  // namespace quillet
