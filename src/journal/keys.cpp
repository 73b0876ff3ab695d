// The journal's keys: what Enter, Tab and Escape do on both frames, and the checks made when a date
// or an amount is left.
#include "data/dates.h"
#include "journal/frmjrnl.h"
#include "journal/messages.h"

namespace quillet {
namespace {

// Buttons, lists and grids make use of Enter themselves.
bool isField(const Control* control) {
  return dynamic_cast<const TextBox*>(control) || dynamic_cast<const MaskBox*>(control) ||
         dynamic_cast<const ComboBox*>(control) || dynamic_cast<const CheckBox*>(control);
}

// A whole date that is refused is typed anew, one with gaps where it ends.
void typeOver(MaskBox& date) {
  if (date.complete()) date.setCaret(0);
}

}  // namespace

void frmjrnl::FORM_KEYPRESS(Key& key) {
  const int line = lines_.lineOf(active());
  if (key == U'\'') {
    key = keys::none;
  } else if (key == U'\n') {
    key = keys::Space;  // a narration pasted with line breaks stays one line
  } else if (key == keys::Escape) {
    key = keys::none;
    escape();
  } else if (key == keys::Tab && line >= 0 && !isOnlyRead()) {
    lineKeys_.tab(line, key);
  } else if (key == keys::Enter && isField(active())) {
    key = keys::none;
    if (line >= 0 && !isOnlyRead()) {
      lineKeys_.enter(line);
    } else {
      focusNext();
    }
  }
}

void frmjrnl::FORM_KEYDOWN(Key& key) {
  // The order goes round to "Cancel", which would be reached without the date's check.
  if (key == keys::BackTab && active() == &txtdt) {
    bool cancel = false;
    txtdt.Validate(cancel);
    if (cancel) key = keys::none;
  }
  findBar.key(key);
  const int line = lines_.lineOf(active());
  if (line >= 0) lineKeys_.step(line, key);
}

void frmjrnl::escape() {
  if (Frame2.visible()) {
    cancelEntry();
  } else if (findBar.isOpen()) {
    findBar.close();
  } else {
    close();
  }
}

void frmjrnl::VSF_KEYDOWN(Key& key) {
  const Key pressed = key;
  const bool fold = pressed == keys::Left || pressed == U'-';
  const bool unfold = pressed == keys::Right || pressed == U'+';
  if (pressed == keys::Enter || pressed == keys::Delete || fold || unfold) key = keys::none;
  if (pressed == keys::Enter) {
    vsf.DblClick();
  } else if (pressed == keys::Delete) {
    Command1.Click();
  } else if ((fold || unfold) && vsf.current() > 0) {
    list_.fold(list_.headingOf(vsf.current()), fold);
  }
}

// --- dates --------------------------------------------------------------------------------------

void frmjrnl::txtdt_VALIDATE(bool& cancel) {
  if (!txtdt.shown() || !txtdt.enabled()) return;
  cancel = !dateIsGood("Please Specify a Valid Date.");
  if (cancel) typeOver(txtdt);
}

bool frmjrnl::dateIsGood(const char* refusal) {
  const std::string date = txtdt.text();
  if (!isDate(date)) {
    tell(context_, refusal);
  } else if (!year_.holds(date)) {
    tell(context_,
         "Please Specify a Valid Date between " + year_.from() + " and " + year_.to() + ".");
  } else {
    return true;
  }
  return false;
}

void frmjrnl::TXTDT1_VALIDATE(int index, bool& cancel) {
  cancel = txtdt1[index].shown() && !isDate(txtdt1[index].text());
  if (!cancel) return;
  tell(context_, "Please Specify a Valid Date.");
  typeOver(txtdt1[index]);
}

}  // namespace quillet
