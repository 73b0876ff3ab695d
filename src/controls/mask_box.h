// A date box with the mask "##/##/####": digits fill its places, the separators stand by
// themselves, and a place without a digit shows the prompt character.
#pragma once

#include <string>

#include "controls/control.h"

namespace quillet {

class MaskBox : public Control {
 public:
  MaskBox(Form& form, std::string name, std::string caption = {}, int index = -1,
          char prompt = '_');

  // All ten characters, prompts included: "01/04/####".
  std::string text() const override { return text_; }
  // Takes a text of the mask's shape, digits or prompts; anything else empties the box.
  void setText(const std::string& text);
  void clear();
  // No place is empty.
  bool complete() const;

  bool takesFocus() const override { return true; }
  bool handleKey(Key key) override;
  // The place the next digit goes to, 0 to 10.
  std::size_t caret() const { return caret_; }
  void setCaret(std::size_t caret);

 private:
  void put(std::size_t place, char c);
  void typeDigit(char digit);

  char prompt_;
  std::string text_;
  std::size_t caret_ = 0;
};

}  // namespace quillet
