#include "view/box_typing.h"

#include "controls/form.h"

namespace quillet::view {

void typeInto(TextBox& box, Key key, const std::function<void(Key)>& edit) {
  Form& form = box.form();
  const Key left = form.runKeyHandlers(key);
  const bool edits = left == keys::Backspace || left == keys::Delete || keys::typesText(left);
  if (left == keys::none) {
    // Discarded; a handler may still have hidden or disabled the box.
  } else if (form.active() == &box && !box.locked() && edits) {
    edit(left);
  } else {
    form.handleKey(left);
  }
  form.repairFocus();
}

}  // namespace quillet::view
