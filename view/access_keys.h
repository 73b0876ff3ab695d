// Access keys: the marked letter of a caption, pressed with Alt. Captions of a form's labels are
// texts and carry none.
#pragma once

#include "controls/caption_marks.h"
#include "controls/form.h"

namespace quillet::view {

using quillet::accessKey;
using quillet::withoutMarks;

// What Alt and a character mean on a form.
//
// A key of one control alone does what that control is there for: a heading opens its menu, a
// command is clicked, the label of a field sends the focus to it. When several can be reached by
// the same key, nothing is clicked: the key goes from one to the next, first the headings of the
// menu, then the controls in the order of the arrangement, and starts anew after any other key.
// Controls that are hidden or disabled do not count.
class AccessKeys {
 public:
  enum class Deed { none, openMenu, click, focus };
  struct Meaning {
    Deed deed = Deed::none;
    Control* control = nullptr;
  };
  Meaning press(const Form& form, char32_t character);
  // Another key came between.
  void forget() { key_ = 0; }

 private:
  char32_t key_ = 0;
  unsigned last_ = 0;  // id of the control that the key led to
};

}  // namespace quillet::view
