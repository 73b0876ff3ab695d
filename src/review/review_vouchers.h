// The list of a review's vouchers, line by line: which are shown, what stands in their cells, the
// totals below them, and the way from question to question.
#pragma once

#include <string>
#include <vector>

#include "ports/ports.h"
#include "review/voucher_review.h"

namespace quillet {

class frmvchimport;

class ReviewVouchers {
 public:
  ReviewVouchers(frmvchimport& form, const ServiceObject& host, VoucherReview& review);

  // Shows the rows anew; the current one stays, or the one in its place.
  void show();
  // The first row of a source that was just opened: the first question, else the first one.
  void begin();
  // The current row, null when there is none.
  const VoucherRow* current() const;
  // The lines of the current one's ledger that are as known as that: what is said of one holds for
  // all.
  std::vector<int> ofSameLedger() const;
  // Besides the current one, the lines of its ledger that lack a group.
  std::vector<int> toGroup() const;
  // All that are listed and lack a group.
  std::vector<int> withoutGroup() const;
  // To the next row with a question, from the top again; false when there is none.
  bool nextQuestion();

 private:
  enum class Shown { all, entered, questions, leftOut };

  void tickChanged(int row);
  bool isListed(const VoucherRow& row) const;
  void list();
  void showTotals();
  const VoucherRow& rowAt(int row) const;
  std::vector<std::string> cellsOf(const VoucherRow& row) const;
  std::string shownAmount(Money amount) const;

  frmvchimport& form_;
  const ServiceObject& host_;
  VoucherReview& review_;
  std::vector<std::size_t> listed_;  // positions among the review's rows; a row's id is one more
};

}  // namespace quillet
