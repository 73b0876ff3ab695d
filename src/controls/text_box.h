// A box of one line of text, with the caret and selection that keys act on. Positions count
// characters (code points), from 0.
#pragma once

#include <cstddef>
#include <string>

#include "controls/control.h"

namespace quillet {

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, std::string caption = {}, int index = -1);

  std::string text() const override { return text_; }
  // Sets the text from a procedure, caret at its end; runs Change when it differs.
  void setText(std::string text);

  // The most characters it takes; 0 means any number.
  std::size_t maxLength() const { return maxLength_; }
  void setMaxLength(std::size_t characters) { set(maxLength_, characters); }
  bool rightAligned() const { return rightAligned_; }
  void setRightAligned(bool right) { set(rightAligned_, right); }
  // Can be read and copied but not edited.
  bool locked() const { return locked_; }
  void setLocked(bool locked) { set(locked_, locked); }
  // A password: what is typed is not shown.
  bool secret() const { return secret_; }
  void setSecret(bool secret) { set(secret_, secret); }
  // For a figure that procedures work out: right-aligned, locked, left out of the tab order.
  void makeFigure();

  bool takesFocus() const override { return true; }
  bool handleKey(Key key) override;

  std::size_t selStart() const { return selStart_; }
  std::size_t selLength() const { return selLength_; }
  void select(std::size_t start, std::size_t length);
  void selectAll();
  // Replaces the selection as typing or pasting does; what exceeds maxLength is left out and
  // reported through Overflow. Runs Change.
  void replaceSelection(const std::string& text);
  // What a view hands over after a person edited the text there.
  void edited(const std::string& text, std::size_t caret);

  // Characters were refused because the box is full.
  Event<> Overflow{form(), name(), "OVERFLOW"};

 private:
  void assign(std::string text, std::size_t caret);
  void erase(bool forward);

  std::string text_;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
  std::size_t maxLength_ = 0;
  bool rightAligned_ = false;
  bool locked_ = false;
  bool secret_ = false;
};

}  // namespace quillet
