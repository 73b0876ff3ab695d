// The rows of a grid that a person selected, to copy them or to choose something for all of them in
// a review. Every other command acts on the current row alone, which a selection leaves where it
// is. The selection lapses by itself as soon as the current row moves or the grid holds something
// else.
#pragma once

#include <vector>

namespace quillet {

class Grid;

class RowSelection {
 public:
  explicit RowSelection(Grid& grid) : grid_(grid) {}

  // From the current row to this one.
  void extendTo(int row);
  // By so many shown rows further, up when negative; returns where it ends.
  int extendBy(int steps);
  // Takes a row in or out; the current row is always selected.
  void toggle(int row);
  void selectAll();

  bool has(int row) const;
  // Whether a person has selected rows.
  bool any() const { return !chosen_.empty() && holds(); }
  // The selected rows that are not hidden, from the top; the current one when none was chosen.
  std::vector<int> rows() const;

 private:
  bool holds() const;
  void begin();
  void changed();

  Grid& grid_;
  std::vector<bool> chosen_;  // by row, from 0
  int end_ = 0;               // where the last extension ended
  int current_ = 0;           // of the grid when it was made
  unsigned content_ = 0;
};

}  // namespace quillet
