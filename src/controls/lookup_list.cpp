#include "controls/lookup_list.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"
#include "controls/scoped_flag.h"
#include "data/text.h"

namespace quillet {

LookupList::LookupList(Grid& grid) : grid_(grid) {
  grid.setColumns({{.heading = "Name", .width = 40, .stretch = true}});
  grid.setVisible(false);
}

void LookupList::fill(NameList names) {
  names_ = std::move(names);
  if (!visible()) return showRows(names_.matching("").entries);
  // Somebody is choosing from it.
  narrow(std::string(followed_));
  const auto chosen = std::ranges::find(rows_, names_.find(box().text()));
  if (chosen != rows_.end()) grid_.setCurrent(static_cast<int>(chosen - rows_.begin()) + 1);
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
  narrow(text);
  show();
}

void LookupList::narrow(std::string_view text) {
  followed_ = text;
  if (text.empty() && rows_.size() == names_.entries().size()) {
    grid_.setCurrent(0);
    return;
  }
  NameList::Matches matches = names_.matching(text);
  // Only a name that begins with what was typed is proposed; the others wait to be chosen.
  const bool proposes = matches.beginning > 0 && !trimmed(text).empty();
  showRows(std::move(matches.entries));
  grid_.setCurrent(proposes ? 1 : 0);
}

void LookupList::attach(TextBox& box) {
  serve(box);
  grid_.DblClick = [this] { takeCurrent(); };
  box.GotFocus = [this] { open(); };
  box.LostFocus = [this] { hide(); };
  box.Change = [this] { typed(); };
  box.KeyDown = [this](Key& key) { keyDown(key); };
  box.KeyPress = [&box](Key& key) {
    if (key != keys::Enter) return;
    key = keys::none;
    box.form().focusNext();
  };
}

// The text is selected, and what goes with it is told by the box's Change; the list stays closed.
void LookupList::open() {
  box().selectAll();
  box().Change();
  hide();
}

void LookupList::typed() {
  if (taking_) return;
  const std::string text = box().text();
  narrow(text);
  const bool wanted = box().form().active() == &box() && !text.empty() && !rows_.empty();
  grid_.setVisible(wanted);
}

void LookupList::keyDown(Key& key) {
  if (key == keys::Up || key == keys::Down) {
    if (moveBy(key)) takeCurrent();
    return;
  }
  const bool atEnd = box().selLength() == 0 && box().selStart() == lengthOf(box().text());
  const NameList::Entry* name = key == keys::Right && atEnd ? offered() : nullptr;
  if (!name) return;
  key = keys::none;
  take(name->name);
  hide();
}

const NameList::Entry* LookupList::offered() const {
  const std::string text = box().text();
  if (trimmed(text).empty()) return nullptr;
  const NameList::Entry* name = names_.find(text);
  if (!name) {
    const NameList::Matches matches = names_.matching(text);
    if (!matches.entries.empty()) name = matches.entries.front();
  }
  return name && name->name != text ? name : nullptr;
}

bool LookupList::moveBy(Key& key) {
  if (!visible()) {
    const std::string text = box().text();
    const NameList::Entry* standing = names_.find(text);
    const bool unfinished = !standing && !names_.matching(text).entries.empty();
    follow(unfinished ? text : "");
    grid_.setCurrent(standing ? static_cast<int>(standing - names_.entries().data()) + 1 : 0);
  }
  grid_.handleKey(key);
  key = keys::none;
  return grid_.current() > 0;
}

const NameList::Entry* LookupList::current() const {
  return grid_.current() == 0 ? nullptr : rows_[grid_.currentId() - 1];
}

void LookupList::take(std::string name) {
  // The list goes on showing what was typed, so that the arrows walk through it.
  const ScopedFlag taking(taking_);
  box().setText(std::move(name));
}

void LookupList::takeCurrent() {
  if (!current()) return;
  take(current()->name);
  box().selectAll();
}

}  // namespace quillet
