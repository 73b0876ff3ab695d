// The list of the lines that are brought forward, with the totals below it.
#pragma once

#include <string>
#include <vector>

#include "books/account_groups.h"
#include "yearend/forward_review.h"

namespace quillet {

class frmbringfwd;

class ForwardRows {
 public:
  ForwardRows(frmbringfwd& form, ServiceObject& host, ForwardReview& review);

  // Of a review that was just opened.
  void begin();
  // Shows the rows anew; the current one stays where it is.
  void show();
  // To the next row that is offered and left; false when there is none.
  bool nextLeft();
  // Takes the selected rows, or the current one, or leaves them: the first decides.
  void turn();

 private:
  enum class Shown { all, taken, offered, left };
  bool isListed(const ForwardReview::Row& row) const;
  std::size_t placeOf(int row) const;
  std::vector<std::string> cellsOf(const ForwardReview::Row& row) const;
  void showTotals();

  frmbringfwd& form_;
  ServiceObject& host_;
  ForwardReview& review_;
  AccountGroups groups_;
  std::vector<std::size_t> listed_;  // positions among the review's rows; a row's id is one more
};

}  // namespace quillet
