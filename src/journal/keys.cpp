// The journal's keys: what Enter, Tab and Escape do on both frames, and the checks made when a date
// or an amount is left.
#include <algorithm>

#include "books/amount.h"
#include "data/dates.h"
#include "data/text.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"

namespace quillet {
namespace {

// Buttons, lists and grids make use of Enter themselves.
bool isField(const Control* control) {
  return dynamic_cast<const TextBox*>(control) || dynamic_cast<const MaskBox*>(control) ||
         dynamic_cast<const ComboBox*>(control) || dynamic_cast<const CheckBox*>(control);
}

}  // namespace

void frmjrnl::FORM_KEYPRESS(Key& key) {
  trap("FORM_KEYPRESS", [&] {
    const int line = lineOf(active());
    if (key == U'\'') {
      key = keys::none;
    } else if (key == U'\n') {
      key = keys::Space;  // a narration pasted with line breaks stays one line
    } else if (key == keys::Escape) {
      key = keys::none;
      escape();
    } else if (key == keys::Tab && line >= 0) {
      tabInLine(line, key);
    } else if (key == keys::Enter && isField(active())) {
      key = keys::none;
      if (line >= 0) {
        enterInLine(line);
      } else {
        focusNext();
      }
    }
  });
}

void frmjrnl::FORM_KEYDOWN(Key& key) {
  trap("FORM_KEYDOWN", [&] {
    const int line = lineOf(active());
    const bool amount = line >= 0 && active() == &amountBox(line);
    const bool listOpen = VSF3.visible() || VSF4.visible();
    int step = 0;
    if (amount && key == keys::Up) step = -1;
    if (amount && key == keys::Down) step = 1;
    if (line >= 0 && !listOpen && key == keys::PageUp) step = -linesInView;
    if (line >= 0 && !listOpen && key == keys::PageDown) step = linesInView;
    // The order goes round to "Cancel", which would be reached without the date's check.
    if (key == keys::BackTab && active() == &txtdt) {
      bool cancel = false;
      txtdt.Validate(cancel);
      if (cancel) key = keys::none;
    }
    if (step == 0) return;
    key = keys::none;
    moveToLine(std::clamp(line + step, 0, lastLine()));
  });
}

// Goes to the same box of another line.
void frmjrnl::moveToLine(int line) {
  const int from = lineOf(active());
  reveal(line);
  if (from >= 0 && active() == &txtledger[from]) {
    focus(txtledger[line]);
  } else if (from >= 0 && active() == &txtgroup[from]) {
    focus(txtgroup[line]);
  } else if (from >= 0 && active() == &amountBox(from)) {
    focus(amountBox(line));
  } else {
    focus(cboside[line]);
  }
}

void frmjrnl::enterInLine(int line) {
  if (active() == &cboside[line]) {
    focus(txtledger[line]);
  } else if (active() == &txtledger[line]) {
    takeHighlighted(txtledger[line], VSF3);
    if (takeLedger(line)) focus(txtgroup[line]);
  } else if (active() == &txtgroup[line]) {
    takeHighlighted(txtgroup[line], VSF4);
    focus(amountBox(line));
  } else {
    enterInAmount(line);
  }
}

void frmjrnl::enterInAmount(int line) {
  if (line == lastLine() && namesNothing(line)) {
    focus(txtnarr);
    return;
  }
  bool cancel = false;
  active()->Validate(cancel);
  if (cancel) return;
  if (line == lastLine()) LOADCONTROLS();
  focus(cboside[line + 1]);
}

void frmjrnl::tabInLine(int line, Key& key) {
  const bool leavesLast = line > 0 && line == lastLine() && namesNothing(line);
  if (leavesLast || (line == lastLine() && active() == &amountBox(line))) {
    key = keys::none;
    focus(txtnarr);
  } else if (active() == &txtledger[line] && !takeLedger(line)) {
    key = keys::none;
  }
}

void frmjrnl::escape() {
  if (Frame2.visible()) {
    cancelEntry();
  } else {
    close();
  }
}

void frmjrnl::VSF_KEYDOWN(Key& key) {
  trap("VSF_KEYDOWN", [&] {
    const Key pressed = key;
    const bool fold = pressed == keys::Left || pressed == U'-';
    const bool unfold = pressed == keys::Right || pressed == U'+';
    if (pressed == keys::Enter || pressed == keys::Delete || fold || unfold) key = keys::none;
    if (pressed == keys::Enter) {
      VSF_DBLCLICK();
    } else if (pressed == keys::Delete) {
      COMMAND1_CLICK();
    } else if ((fold || unfold) && vsf.current() > 0) {
      foldVoucher(headingOf(vsf.current()), fold);
    }
  });
}

// --- dates --------------------------------------------------------------------------------------

void frmjrnl::txtdt_VALIDATE(bool& cancel) {
  trap("txtdt_VALIDATE", [&] {
    if (!txtdt.shown()) return;
    cancel = !dateIsGood("Please Specify a Valid Date.");
  });
}

bool frmjrnl::dateIsGood(const char* refusal) {
  const std::string date = txtdt.text();
  if (!isDate(date)) {
    tell(refusal);
  } else if (!inYear(date)) {
    tell("Please Specify a Valid Date between " + yearFrom() + " and " + yearTo() + ".");
  } else {
    return true;
  }
  return false;
}

bool frmjrnl::inYear(const std::string& date) const {
  return compareDates(date, yearFrom()) >= 0 && compareDates(date, yearTo()) <= 0;
}

void frmjrnl::TXTDT1_VALIDATE(int index, bool& cancel) {
  trap("TXTDT1_VALIDATE", [&] {
    cancel = txtdt1[index].shown() && !isDate(txtdt1[index].text());
    if (cancel) tell("Please Specify a Valid Date.");
  });
}

// --- amounts ------------------------------------------------------------------------------------

void frmjrnl::validateAmount(TextBox& box, bool& cancel) {
  cancel = box.shown() && amountIn(box) < 0;
  if (cancel) tell(negativeAmount);
}

void frmjrnl::leaveAmount(TextBox& box) {
  const std::string typed(trimmed(box.text()));
  if (typed.empty()) return;
  if (const auto amount = typedAmount(typed)) {
    box.setText(groupedAmount(*context_.host, *amount));
  } else {
    hint(notAnAmount(typed));
  }
}

}  // namespace quillet
