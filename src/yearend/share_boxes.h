// What is chosen for the whole of a year that is brought forward: whether ledgers stay without an
// amount, where the stock goes, and whose capital takes the profit.
#pragma once

#include <string>
#include <vector>

#include "books/account_groups.h"
#include "controls/lookup_list.h"
#include "host/context.h"
#include "yearend/forward_review.h"

namespace quillet {

class frmbringfwd;

class ShareBoxes {
 public:
  ShareBoxes(frmbringfwd& form, Context& context, ForwardReview& review);

  // Of a review that was just opened: what there is to choose from.
  void begin();
  void show();
  // To where what the opening asks for is chosen.
  void focusAsked();
  // What is being typed is given up.
  void restore();

 private:
  void offerCapital();
  void showShares();
  void showStockLedger();
  void takeStock();
  bool takePercent();
  void percentTyped();
  std::string percentInList() const;
  void addLedger();
  long ledgerNamed(const std::string& name);
  std::vector<std::string> cellsOf(const ProfitShare& share) const;

  frmbringfwd& form_;
  Context& context_;
  ForwardReview& review_;
  LookupList stockLedgers_;
  LookupList capitalLedgers_;
  AccountGroups groups_;
  std::vector<ProfitShare> capital_;  // who can be chosen; a row's id is the position from 1
};

}  // namespace quillet
