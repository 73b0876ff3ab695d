// A drop-down list of names under text boxes: while a name is typed the list follows, and the
// arrows take a name from it. One list may serve several boxes, one at a time.
//
// It does what the boxes have in common. The form attaches the handlers that differ, and decides
// when a name that was typed stands for one of the list.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "controls/grid.h"
#include "controls/text_box.h"
#include "data/name_list.h"

namespace quillet {

class LookupList {
 public:
  // What the list shows while a person types.
  enum class Shows {
    allNames,  // with the first one that begins with the text as the current row
    matches    // those that begin with the text, the first of them current, then those in which a
               // word does
  };

  LookupList(Grid& grid, Shows shows);
  LookupList(const LookupList&) = delete;
  LookupList& operator=(const LookupList&) = delete;

  // The names, ordered.
  void fill(NameList names);
  void clear() { fill({}); }
  void add(const std::string& name, long id);
  const NameList& names() const { return names_; }

  // For the list of one box: attaches every handler that goes by itself. The list is open while the
  // box has the focus, Up and Down take a name, and Enter goes on to the next control.
  void attach(TextBox& box);
  // The list belongs to that box from now on; shown is another matter.
  void serve(TextBox& box) { grid_.setDropOf(box); }
  TextBox& box() const { return static_cast<TextBox&>(*grid_.dropOf()); }
  // The box gets the focus: its text is selected, and the list shows what goes with it, by way of
  // the box's Change.
  void open();
  void show() { grid_.setVisible(true); }
  void hide() { grid_.setVisible(false); }
  bool visible() const { return grid_.visible(); }

  // Shows what goes with the text.
  void follow(std::string_view text);
  // What Up, Down, Page Up and Page Down do to the list, which opens at the box's name when it was
  // closed; the key is used up. True when a name is current then.
  bool moveBy(Key& key);
  // The current row's name; null when there is none.
  const NameList::Entry* current() const;
  // Writes it into the box, selected.
  void take();

 private:
  void showRows(std::vector<const NameList::Entry*> rows);

  Grid& grid_;
  Shows shows_;
  NameList names_;
  std::vector<const NameList::Entry*> rows_;  // what the grid shows, by row
};

}  // namespace quillet
