#include "controls/lookup_list.h"

#include <utility>

#include "controls/form.h"
#include "data/text.h"

namespace quillet {

LookupList::LookupList(Grid& grid, Shows shows) : grid_(grid), shows_(shows) {
  grid.setColumns({{.heading = "Name", .width = 40, .stretch = true}});
  grid.setVisible(false);
}

void LookupList::fill(NameList names) {
  names_ = std::move(names);
  showRows(names_.matching("").entries);
}

void LookupList::add(const std::string& name, long id) {
  names_.insert(name, id);
  showRows(names_.matching("").entries);
}

void LookupList::showRows(std::vector<const NameList::Entry*> rows) {
  rows_ = std::move(rows);
  grid_.setRows(static_cast<int>(rows_.size()),
                [this](int id) { return std::vector<std::string>{rows_[id - 1]->name}; });
}

void LookupList::follow(std::string_view text) {
  if (shows_ == Shows::allNames) {
    const NameList::Entry* first = names_.beginning(text);
    grid_.setCurrent(first ? static_cast<int>(first - names_.entries().data()) + 1 : 0);
    return;
  }
  NameList::Matches matches = names_.matching(text);
  // Only a name that begins with what was typed is proposed; the others wait to be chosen.
  const bool proposes = matches.beginning > 0 && !trimmed(text).empty();
  showRows(std::move(matches.entries));
  grid_.setCurrent(proposes ? 1 : 0);
  show();
}

void LookupList::attach(TextBox& box) {
  serve(box);
  grid_.DblClick = [this] { take(); };
  box.GotFocus = [this] { open(); };
  box.LostFocus = [this] { hide(); };
  box.Change = [this, &box] { follow(box.text()); };
  box.KeyDown = [this](Key& key) {
    if ((key == keys::Up || key == keys::Down) && moveBy(key)) take();
  };
  box.KeyPress = [&box](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    box.form().focusNext();
  };
}

void LookupList::open() {
  show();
  box().selectAll();
  box().Change();
}

bool LookupList::moveBy(Key& key) {
  if (!visible()) {
    const NameList::Entry* standing = names_.find(box().text());
    follow("");
    if (standing) grid_.setCurrent(static_cast<int>(standing - names_.entries().data()) + 1);
  }
  grid_.handleKey(key);
  key = keys::none;
  return grid_.current() > 0;
}

const NameList::Entry* LookupList::current() const {
  return grid_.current() == 0 ? nullptr : rows_[grid_.currentId() - 1];
}

void LookupList::take() {
  if (!current()) return;
  // A copy: the box's Change may make the rows anew.
  const std::string name = current()->name;
  box().setText(name);
  box().selectAll();
}

}  // namespace quillet
