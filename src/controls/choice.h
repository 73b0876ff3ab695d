// Combo box and list box: one chosen text out of several, each with an optional number (item data,
// such as a record's id).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/letter_search.h"

namespace quillet {

class Choice : public Control {
 public:
  Choice(Form& form, std::string name, std::string caption = {}, int index = -1);

  bool takesFocus() const override { return true; }
  // The chosen item's text, "" when none is chosen.
  std::string text() const override;

  const std::vector<std::string>& items() const { return items_; }
  int size() const { return static_cast<int>(items_.size()); }
  void addItem(std::string text, long data = 0);
  void clearItems();
  long itemData(int position) const;

  // Position from 1, 0 for none. Setting it from a procedure runs no handler.
  int chosen() const { return chosen_; }
  void setChosen(int position);
  long chosenData() const { return chosen_ == 0 ? 0 : itemData(chosen_); }
  int find(std::string_view text) const;
  int findData(long data) const;
  // What a person does: chooses and runs Click when the choice changes.
  void choose(int position);

  // Where the letter leads from a position, after those typed before it; 0 for nowhere. For a view
  // whose list is open: nothing is chosen yet.
  int search(Key letter, int from);

  // Up, Down, Home, End, and letters, which search. Any other key and leaving the box end a search.
  bool handleKey(Key key) override;
  void checkLeft() override { search_.end(); }

 private:
  void take(int position);

  std::vector<std::string> items_;
  std::vector<long> data_;
  int chosen_ = 0;
  LetterSearch search_;
};

class ComboBox : public Choice {
 public:
  using Choice::Choice;
};

class ListBox : public Choice {
 public:
  using Choice::Choice;
};

}  // namespace quillet
