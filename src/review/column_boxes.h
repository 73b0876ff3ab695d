// The boxes that say where a sheet's headings are and what its columns hold.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "import/mapping.h"

namespace quillet {

class SourceForm;
class ImportReview;

class ColumnBoxes {
 public:
  // A box for each role.
  ColumnBoxes(SourceForm& form, ImportReview& review, std::vector<ColumnRole> roles);

  void show();

 private:
  void headingChosen();
  void columnChosen(std::size_t box);
  void figuresChosen();
  void showHeadings();
  std::vector<std::string> columnNames() const;

  SourceForm& form_;
  ImportReview& review_;
  std::vector<ColumnRole> roles_;
  std::vector<std::pair<std::size_t, std::size_t>> headings_;  // row and rows, by item
};

}  // namespace quillet
