// The rows of a grid as a view counts them: from 0, hidden rows left out.
#pragma once

#include <vector>

namespace quillet {
class Grid;
}

namespace quillet::view {

class ShownRows {
 public:
  // Takes the rows as the grid has them now.
  void read(const Grid& grid);

  int count() const { return count_; }
  // The grid's number of a row on the screen, 0 for none.
  int gridRow(int shown) const;
  // Where a row of the grid stands on the screen, -1 for one that does not.
  int shownRow(int row) const;

 private:
  int count_ = 0;
  std::vector<int> rows_;  // empty while none is hidden: a list of many rows then costs nothing
};

}  // namespace quillet::view
