#include "controls/mask_box.h"

#include <algorithm>

namespace quillet {
namespace {

constexpr std::size_t length = 10;

bool separator(std::size_t place) { return place == 2 || place == 5; }
bool digit(char c) { return c >= '0' && c <= '9'; }

std::string emptyText(char prompt) {
  std::string text(length, prompt);
  text[2] = text[5] = '/';
  return text;
}

}  // namespace

MaskBox::MaskBox(Form& form, std::string name, std::string caption, int index, char prompt)
    : Control(form, std::move(name), std::move(caption), index),
      prompt_(prompt),
      text_(emptyText(prompt)) {}

void MaskBox::setText(const std::string& text) {
  std::string next = emptyText(prompt_);
  const auto fits = [&](std::size_t place) {
    return separator(place) ? text[place] == '/' : digit(text[place]) || text[place] == prompt_;
  };
  bool whole = text.size() == length;
  for (std::size_t place = 0; whole && place < length; ++place) whole = fits(place);
  if (whole) next = text;
  caret_ = std::min(next.find(prompt_), length);
  if (next == text_) return;
  text_ = next;
  touch();
  Change();
}

void MaskBox::clear() { setText(emptyText(prompt_)); }

bool MaskBox::complete() const { return text_.find(prompt_) == std::string::npos; }

void MaskBox::setCaret(std::size_t caret) {
  caret_ = std::min(caret, length);
  touch();
}

void MaskBox::put(std::size_t place, char c) {
  if (text_[place] == c) return;
  text_[place] = c;
  touch();
  Change();
}

void MaskBox::typeDigit(char c) {
  if (caret_ < length && separator(caret_)) ++caret_;
  if (caret_ >= length) return;
  const std::size_t place = caret_;
  setCaret(caret_ + 1);
  if (caret_ < length && separator(caret_)) setCaret(caret_ + 1);
  put(place, c);
}

bool MaskBox::handleKey(Key key) {
  switch (key) {
    case keys::Home:
      setCaret(0);
      return true;
    case keys::End:
      setCaret(std::min(text_.find(prompt_), length));
      return true;
    case keys::Left:
      if (caret_ > 0) setCaret(caret_ - (caret_ > 1 && separator(caret_ - 1) ? 2 : 1));
      return true;
    case keys::Right:
      setCaret(caret_ + (caret_ + 1 < length && separator(caret_ + 1) ? 2 : 1));
      return true;
    case keys::Backspace:
      if (caret_ == 0) return true;
      handleKey(keys::Left);
      put(caret_, prompt_);
      return true;
    case keys::Delete:
      if (caret_ < length && !separator(caret_)) put(caret_, prompt_);
      return true;
    case U'/':
    case U'-':
    case U'.':
      // Typing the separator by habit goes to the next part and is otherwise ignored.
      if (caret_ != 0 && caret_ != 3 && caret_ != 6)
        setCaret(caret_ < 3 ? 3 : caret_ < 6 ? 6 : caret_);
      return true;
    default:
      break;
  }
  if (key < U'0' || key > U'9') return keys::typesText(key);
  typeDigit(static_cast<char>(key));
  return true;
}

}  // namespace quillet
