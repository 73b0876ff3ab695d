#include "controls/find_bar.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "controls/form.h"
#include "controls/row_text.h"
#include "data/names.h"
#include "data/word_search.h"

namespace quillet {
FindBar::FindBar(Form& form, Grid& grid)
    : famfind(form, "famfind"),
      txtfind(form, "txtfind"),
      cmdfindnext(form, "cmdfindnext", "Next (F3)"),
      cmdfindprevious(form, "cmdfindprevious", "Previous (Shift+F3)"),
      lblfound(form, "lblfound"),
      grid_(grid) {
  famfind.setVisible(false);
  lblfound.setQuiet(true);
  txtfind.GotFocus = [this] { txtfind.selectAll(); };
  txtfind.Change = [this] { look(std::max(1, grid_.current()), 1); };
  txtfind.KeyDown = [this](Key& key) { boxKey(key); };
  cmdfindnext.Click = [this] { clicked(1); };
  cmdfindprevious.Click = [this] { clicked(-1); };
  // A side-step: an entry that is being made is not checked for it.
  for (Control* control :
       std::initializer_list<Control*>{&txtfind, &cmdfindnext, &cmdfindprevious}) {
    control->causesValidation = false;
  }
  for (Button* button : {&cmdfindnext, &cmdfindprevious}) button->tabStop = false;
}

void FindBar::open() {
  if (!grid_.shown()) return;
  if (!isOpen()) back_ = isSideStep && isSideStep() ? txtfind.form().active() : nullptr;
  famfind.setVisible(true);
  txtfind.form().focus(txtfind);
  txtfind.selectAll();
}

void FindBar::close() {
  const bool hadFocus = txtfind.form().active() == &txtfind;
  famfind.setVisible(false);
  // The rows may be others when it opens again.
  lblfound.setCaption("");
  keys_.clear();
  content_ = 0;
  Control* back = std::exchange(back_, nullptr);
  if (hadFocus) txtfind.form().focus(back && back->focusable() ? *back : grid_);
}

void FindBar::reset() {
  close();
  txtfind.setText("");
  lblfound.setCaption("");
}

void FindBar::clicked(int step) {
  lookFurther(step);
  txtfind.form().focus(txtfind);
}

void FindBar::lookFurther(int step) {
  if (txtfind.text().empty()) {
    open();
  } else if (grid_.shown()) {
    look(grid_.current() + step, step);
  }
}

void FindBar::key(Key& key) {
  if (key == keys::Find) {
    open();
  } else if (key == keys::FindNext) {
    next();
  } else if (key == keys::FindPrevious) {
    previous();
  } else {
    return;
  }
  key = keys::none;
}

void FindBar::boxKey(Key& key) {
  switch (key) {
    case keys::Enter:
    case keys::Down:
      next();
      break;
    case keys::Up:
      previous();
      break;
    case keys::Escape:
      close();
      break;
    default:
      return;
  }
  key = keys::none;
}

// --- looking ------------------------------------------------------------------------------------

void FindBar::look(int from, int step) {
  const WordSearch search(undivided(txtfind.text()));
  if (search.empty()) {
    lblfound.setCaption("");
    return;
  }
  readRows();
  const std::vector<int> rows = rowsWith(search);
  if (rows.empty()) {
    lblfound.setCaption("Not found");
    return;
  }
  auto found = std::lower_bound(rows.begin(), rows.end(), from);
  if (step > 0 && found == rows.end()) found = rows.begin();
  if (step < 0 && (found == rows.end() || *found != from)) {
    found = found == rows.begin() ? rows.end() - 1 : found - 1;
  }
  lblfound.setCaption(std::to_string(found - rows.begin() + 1) + " of " +
                      std::to_string(rows.size()));
  if (grid_.rowHidden(*found)) reveal(*found);
  grid_.setCurrent(*found);
}

std::vector<int> FindBar::rowsWith(const WordSearch& search) const {
  std::vector<int> rows;
  for (int row = 1; row <= grid_.rows(); ++row) {
    if (grid_.rowHidden(row) && !reveal) continue;
    if (search.findsIn(keys_[static_cast<std::size_t>(row - 1)])) rows.push_back(row);
  }
  return rows;
}

void FindBar::readRows() {
  if (content_ == grid_.contentVersion()) return;
  content_ = grid_.contentVersion();
  keys_.clear();
  keys_.reserve(static_cast<std::size_t>(grid_.rows()));
  for (int row = 1; row <= grid_.rows(); ++row) keys_.push_back(keyOf(row));
}

// Names and figures; the marks in the middle of a column ("DR") are in every other row.
std::string FindBar::keyOf(int row) const {
  std::string text;
  for (int at = 0; at < grid_.cols(); ++at) {
    const GridColumn& column = grid_.columns()[static_cast<std::size_t>(at)];
    if (!column.hidden && column.align != Align::center) text += grid_.cell(row, at) + ' ';
  }
  return nameKey(undivided(text));
}

LayoutItem FindBar::arrangement() {
  return framed(famfind, {row({field("Find", txtfind, 40), item(cmdfindnext), item(cmdfindprevious),
                               item(lblfound, 1)})});
}

}  // namespace quillet
