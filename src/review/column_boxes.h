// The boxes that say where a sheet's headings are and what its columns hold.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "import/mapping.h"

namespace quillet {

class frmimport;
class ImportReview;

class ColumnBoxes {
 public:
  // Those that a person chooses columns for.
  static constexpr std::array<ColumnRole, 6> roles{ColumnRole::particulars, ColumnRole::group,
                                                   ColumnRole::debits,      ColumnRole::credits,
                                                   ColumnRole::amount,      ColumnRole::side};

  ColumnBoxes(frmimport& form, ImportReview& review);

  void show();

 private:
  void headingChosen();
  void columnChosen(std::size_t box);
  void figuresChosen();
  void showHeadings();
  std::vector<std::string> columnNames() const;

  frmimport& form_;
  ImportReview& review_;
  std::vector<std::pair<std::size_t, std::size_t>> headings_;  // row and rows, by item
};

}  // namespace quillet
