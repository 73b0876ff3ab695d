#include "controls/choice.h"

#include <algorithm>

#include "controls/form.h"
#include "controls/open_forms.h"
#include "data/text.h"

namespace quillet {

Choice::Choice(Form& form, std::string name, std::string caption, int index)
    : Control(form, std::move(name), std::move(caption), index) {}

std::string Choice::text() const {
  return chosen_ == 0 ? std::string() : items_[static_cast<std::size_t>(chosen_ - 1)];
}

void Choice::addItem(std::string text, long data) {
  items_.push_back(std::move(text));
  data_.push_back(data);
  touch();
}

void Choice::clearItems() {
  items_.clear();
  data_.clear();
  chosen_ = 0;
  touch();
}

long Choice::itemData(int position) const {
  return data_.at(static_cast<std::size_t>(position - 1));
}

void Choice::setChosen(int position) {
  const int next = position >= 1 && position <= size() ? position : 0;
  if (next == chosen_) return;
  chosen_ = next;
  touch();
}

int Choice::find(std::string_view text) const {
  const auto same = [&](const std::string& entry) { return equalIgnoringCase(entry, text); };
  const auto found = std::find_if(items_.begin(), items_.end(), same);
  return found == items_.end() ? 0 : static_cast<int>(found - items_.begin()) + 1;
}

int Choice::findData(long data) const {
  const auto found = std::find(data_.begin(), data_.end(), data);
  return found == data_.end() ? 0 : static_cast<int>(found - data_.begin()) + 1;
}

void Choice::choose(int position) {
  search_.end();
  take(position);
}

void Choice::take(int position) {
  const int before = chosen_;
  setChosen(position);
  if (chosen_ != before) Click();
}

int Choice::search(Key letter, int from) {
  const auto text = [this](int position) -> std::string_view { return items_[position - 1]; };
  return search_.next(letter, {size(), text}, from, form().openForms().typingClock());
}

bool Choice::handleKey(Key key) {
  switch (key) {
    case keys::Up:
      choose(std::max(chosen_ - 1, std::min(1, size())));
      return true;
    case keys::Down:
      choose(std::min(chosen_ + 1, size()));
      return true;
    case keys::Home:
      choose(std::min(1, size()));
      return true;
    case keys::End:
      choose(size());
      return true;
    default:
      break;
  }
  if (!keys::typesText(key)) {
    search_.end();
    return false;
  }
  if (const int found = search(key, chosen_)) {
    take(found);
    search_.goOn(form().openForms().typingClock());
  }
  return true;
}

}  // namespace quillet
