// The bar under a grid in which a text is looked for in the grid's rows: in names, and in amounts
// however they are divided. It is hidden until it is opened; what it finds becomes the current row.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/basic_controls.h"
#include "controls/grid.h"
#include "controls/layout.h"
#include "controls/text_box.h"
#include "data/word_search.h"

namespace quillet {

class FindBar {
 public:
  FindBar(Form& form, Grid& grid);

  // Takes the focus; the text looked for last is there to be typed over.
  void open();
  void close();
  // From the current row on, round the end; what was looked for last when the bar is closed.
  void next() { lookFurther(1); }
  void previous() { lookFurther(-1); }
  // Ctrl+F, F3 and Shift+F3, used up; other keys pass.
  void key(Key& key);
  bool isOpen() const { return famfind.visible(); }
  // Forgets what was looked for, for a grid of other books.
  void reset();

  // Whether something goes on where the focus is, so that closing leads back there; otherwise it
  // leads to the row that was found.
  std::function<bool()> isSideStep;
  // Before a row that is hidden becomes the current one.
  std::function<void(int row)> reveal;

  LayoutItem arrangement();

  Frame famfind;
  TextBox txtfind;
  Button cmdfindnext;
  Button cmdfindprevious;
  Label lblfound;

 private:
  void boxKey(Key& key);
  void clicked(int step);
  void lookFurther(int step);
  // Looks from that row on, itself included; a step of -1 goes backwards.
  void look(int from, int step);
  std::vector<int> rowsWith(const WordSearch& search) const;
  void readRows();
  std::string keyOf(int row) const;

  Grid& grid_;
  Control* back_ = nullptr;        // where closing leads to; null for the grid
  std::vector<std::string> keys_;  // what is looked through, by row
  unsigned content_ = 0;           // of the grid when they were read
};

}  // namespace quillet
