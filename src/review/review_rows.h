// The list of an import's rows: which are shown, what stands in their cells, the totals below them,
// and the way from question to question.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "review/import_review.h"

namespace quillet {

class frmimport;

class ReviewRows {
 public:
  ReviewRows(frmimport& form, const ServiceObject& host, ImportReview& review);

  // Shows the rows anew; the current one stays, or the one in its place.
  void show();
  // The first row of a list that was just opened: the first question, else the first ledger.
  void begin();
  // The current row changed: it is found again when the rows are listed anew.
  void arrived();
  // The current row, null when there is none.
  const ReviewRow* current() const;
  // Those that a person means, the selected ones or the current one: the numbers of the source's
  // rows.
  std::vector<int> chosen() const;
  // The same rows; until the next choice.
  std::vector<const ReviewRow*> chosenRows() const;
  // All that are listed and lack a group.
  std::vector<int> withoutGroup() const;
  // To the next row with a question, from the top again; false when there is none.
  bool nextQuestion();
  // To the row of that number, listed or not.
  void goTo(int number);

 private:
  enum class Shown { all, entered, questions, leftOut };

  void tickChanged(int row);
  bool isListed(const ReviewRow& row) const;
  bool isCurrent(const ReviewRow& row) const;
  void list();
  void restore(int place);
  void showTotals();
  std::vector<std::string> cellsOf(const ReviewRow& row) const;
  std::string stateOf(const ReviewRow& row) const;
  std::string remarkOf(const ReviewRow& row) const;
  std::string shownAmount(Money amount) const;
  const ReviewRow& rowAt(int row) const;

  frmimport& form_;
  const ServiceObject& host_;
  ImportReview& review_;
  std::vector<std::size_t> listed_;  // positions among the review's rows; a row's id is one more
  // The current row, so that it is found again.
  int number_ = 0;
  std::optional<LedgerGroup> gone_;
  bool listing_ = false;
};

}  // namespace quillet
