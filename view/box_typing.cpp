#include "view/box_typing.h"

#include "controls/form.h"
#include "data/text.h"

namespace quillet::view {
namespace {

bool isFull(const TextBox& box) {
  return box.maxLength() > 0 && lengthOf(box.text()) - box.selLength() >= box.maxLength();
}

}  // namespace

bool typeInto(TextBox& box, Key key, const std::function<void(Key)>& edit) {
  Form& form = box.form();
  const bool wasFull = isFull(box);
  const std::string before = box.text();
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
  return form.active() != &box || !wasFull || box.text() != before;
}

}  // namespace quillet::view
