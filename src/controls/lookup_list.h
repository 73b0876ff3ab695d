// A drop-down list of names under text boxes: while a name is typed the list shows what matches,
// and a key takes a name from it. One list may serve several boxes, one at a time.
//
// It does what the boxes have in common. The form attaches the handlers that differ, and decides
// when a name that was typed stands for one of the list.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid.h"
#include "controls/text_box.h"
#include "data/name_list.h"

namespace quillet {

class LookupList {
 public:
  explicit LookupList(Grid& grid);
  LookupList(const LookupList&) = delete;
  LookupList& operator=(const LookupList&) = delete;

  // The names, ordered. A list that is open goes on showing what matches what was typed.
  void fill(NameList names);
  void clear() { fill({}); }
  void add(const std::string& name, long id);
  const NameList& names() const { return names_; }

  // For the list of one box: attaches every handler that goes by itself. The list opens with the
  // first character or an arrow and closes with the last one, Up and Down take a name, Right at the
  // end of the text takes what is offered for it, and Enter goes on to the next control.
  void attach(TextBox& box);
  // The list belongs to that box from now on; shown is another matter.
  void serve(TextBox& box) { grid_.setDropOf(box); }
  TextBox& box() const { return static_cast<TextBox&>(*grid_.dropOf()); }
  // The attached box's text changed.
  void typed();
  // The name that Right takes for the text; null when there is none, or it stands there just so.
  const NameList::Entry* offered() const;
  void show() { grid_.setVisible(true); }
  void hide() { grid_.setVisible(false); }
  bool visible() const { return grid_.visible(); }

  // Shows what matches the text; what begins with it comes first and is current.
  void follow(std::string_view text);
  // What Up, Down, Page Up and Page Down do to the list; the key is used up. A list that was closed
  // opens at the box's name. True when a name is current then.
  bool moveBy(Key& key);
  // The current row's name; null when there is none.
  const NameList::Entry* current() const;

 private:
  void narrow(std::string_view text);
  void showRows(std::vector<const NameList::Entry*> rows);
  void keyDown(Key& key);
  void open();
  void take(std::string name);
  void takeCurrent();

  Grid& grid_;
  NameList names_;
  std::vector<const NameList::Entry*> rows_;  // what the grid shows, by row
  std::string followed_;
  bool taking_ = false;
};

}  // namespace quillet
