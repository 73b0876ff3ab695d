// What a person decides about the rows of an import: their kind, the ledger and group that they
// become.
#pragma once

#include "review/group_box.h"
#include "review/import_review.h"

namespace quillet {

class frmimport;
class ReviewRows;

class RowBoxes {
 public:
  RowBoxes(frmimport& form, Context& context, ImportReview& review, ReviewRows& rows);

  // The groups that the box offers: those of the books under review.
  void offerGroups();
  // Shows what holds for the current row.
  void show();

 private:
  // Whether it has a nearest known name, used or not.
  bool isNear(const ReviewRow& row) const;
  void kindChosen();
  void nextKind();
  void turnNearest();
  void confirm();
  void setGroup(const std::vector<int>& rows);
  void setKind(RowKind kind);

  frmimport& form_;
  ImportReview& review_;
  ReviewRows& rows_;
  GroupBox group_;
};

}  // namespace quillet
