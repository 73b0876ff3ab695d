#include "controls/text_box.h"

#include <algorithm>

#include "data/text.h"

namespace quillet {

TextBox::TextBox(Form& form, std::string name, std::string caption, int index)
    : Control(form, std::move(name), std::move(caption), index) {}

void TextBox::setText(std::string text) {
  const std::size_t end = lengthOf(text);
  assign(std::move(text), end);
}

void TextBox::makeFigure() {
  setRightAligned(true);
  tabStop = false;
  setLocked(true);
}

void TextBox::assign(std::string text, std::size_t caret) {
  const bool differs = text != text_;
  text_ = std::move(text);
  selStart_ = caret;
  selLength_ = 0;
  touch();
  if (differs) Change();
}

void TextBox::select(std::size_t start, std::size_t length) {
  const std::size_t end = lengthOf(text_);
  selStart_ = std::min(start, end);
  selLength_ = std::min(length, end - selStart_);
  touch();
}

void TextBox::selectAll() { select(0, lengthOf(text_)); }

void TextBox::replaceSelection(const std::string& text) {
  const std::size_t begin = offsetOf(text_, selStart_);
  const std::size_t end = offsetOf(text_, selStart_ + selLength_);
  std::string put = text;
  bool full = false;
  if (maxLength_ > 0) {
    const std::size_t kept = lengthOf(text_) - selLength_;
    const std::size_t room = maxLength_ > kept ? maxLength_ - kept : 0;
    full = lengthOf(put) > room;
    put.resize(offsetOf(put, room));
  }
  const std::size_t caret = selStart_ + lengthOf(put);
  if (!put.empty() || selLength_ > 0) {
    assign(text_.substr(0, begin) + put + text_.substr(end), caret);
  }
  if (full) Overflow();
}

// What was put in stands before the caret; of that is left out what the box has no room for. A text
// that was too long before may stay as long.
void TextBox::edited(const std::string& text, std::size_t caret) {
  const std::size_t length = lengthOf(text);
  const std::size_t limit = maxLength_ == 0 ? length : std::max(maxLength_, lengthOf(text_));
  const std::size_t excess = length > limit ? length - limit : 0;
  const std::size_t kept = caret > excess ? caret - excess : 0;
  assign(text.substr(0, offsetOf(text, kept)) + text.substr(offsetOf(text, kept + excess)), kept);
  if (excess > 0) Overflow();
}

void TextBox::erase(bool forward) {
  if (selLength_ == 0) {
    if (forward ? selStart_ == lengthOf(text_) : selStart_ == 0) return;
    select(forward ? selStart_ : selStart_ - 1, 1);
  }
  replaceSelection({});
}

bool TextBox::handleKey(Key key) {
  switch (key) {
    case keys::Home:
      select(0, 0);
      return true;
    case keys::End:
      select(lengthOf(text_), 0);
      return true;
    case keys::Left:
      select(selLength_ > 0 || selStart_ == 0 ? selStart_ : selStart_ - 1, 0);
      return true;
    case keys::Right:
      select(selStart_ + (selLength_ > 0 ? selLength_ : 1), 0);
      return true;
    default:
      break;
  }
  if (locked_) return false;
  if (key == keys::Backspace || key == keys::Delete) {
    erase(key == keys::Delete);
    return true;
  }
  if (!keys::typesText(key)) return false;
  std::string typed;
  appendCharacter(typed, key);
  replaceSelection(typed);
  return true;
}

}  // namespace quillet
