#include "journal/voucher_lines.h"

#include <algorithm>

#include "books/amount.h"
#include "data/text.h"
#include "journal/frmjrnl.h"
#include "journal/messages.h"

namespace quillet {
namespace {

// What the columns Mast_Part.Particular and Mast_AllGrp.ALLGRP hold.
constexpr int nameLength = 100;
constexpr int amountLength = 20;

// Items of the side box.
enum Side { to = 1, by = 2 };

template <auto boxes>
Control& boxOf(frmjrnl& form, int line) {
  return (form.*boxes)[line];
}

// The columns of the voucher on the entry frame, from left to right.
struct LineColumn {
  const char* heading;
  int width;  // in characters
  int stretch;
  Control& (*box)(frmjrnl& form, int line);
};
constexpr LineColumn columns[] = {
    {"By/To", 6, 0, boxOf<&frmjrnl::cboside>},
    {"&Ledger", 26, 3, boxOf<&frmjrnl::txtledger>},
    {"&Group", 20, 2, boxOf<&frmjrnl::txtgroup>},
    {"Current Balance", frmjrnl::amountWidth, 0, boxOf<&frmjrnl::txtcurbal>},
    {"Debit Amount", frmjrnl::amountWidth, 0, boxOf<&frmjrnl::txtdramt>},
    {"Credit Amount", frmjrnl::amountWidth, 0, boxOf<&frmjrnl::txtcramt>},
};

// All but the side.
constexpr ControlArray<TextBox> frmjrnl::*textBoxes[] = {&frmjrnl::txtledger, &frmjrnl::txtgroup,
                                                         &frmjrnl::txtcurbal, &frmjrnl::txtdramt,
                                                         &frmjrnl::txtcramt};

bool blank(const TextBox& box) { return trimmed(box.text()).empty(); }

}  // namespace

// --- making and removing ------------------------------------------------------------------------

void VoucherLines::add() {
  const int line = count();
  // The first set is made with the form.
  if (line > 0) {
    form_.cboside.load("");
    for (const auto boxes : textBoxes) (form_.*boxes).load("");
  }
  names_.emplace_back();
  attachSide(line);
  for (auto* names : {&form_.txtledger[line], &form_.txtgroup[line]})
    names->setMaxLength(nameLength);
  TextBox& balance = form_.txtcurbal[line];
  balance.setRightAligned(true);
  balance.setLocked(true);
  balance.tabStop = false;
  attachAmount(line, form_.txtdramt[line]);
  attachAmount(line, form_.txtcramt[line]);
  // Lines out of view have no place in the arrangement and belong to the frame all the same.
  for (const LineColumn& column : columns) column.box(form_, line).placeIn(&form_.picbase);
  setSide(line, true);
}

void VoucherLines::attachSide(int line) {
  ComboBox& side = form_.cboside[line];
  side.addItem("To");
  side.addItem("By");
  side.Click = [this, line] { sideChosen(line); };
  side.GotFocus = [this, line] { arriveAt(line); };
}

void VoucherLines::attachAmount(int line, TextBox& box) {
  box.setRightAligned(true);
  box.setMaxLength(amountLength);
  box.Overflow = [this] { form_.lblhint.setCaption("An amount holds at most 20 characters."); };
  box.GotFocus = [this, line, &box] {
    arriveAt(line);
    proposeAmount(line, box);
    box.selectAll();
  };
  box.Change = [this] { form_.GETCURBALS(); };
  box.Validate = [this, &box](bool& cancel) {
    cancel = box.shown() && !box.locked() && amountIn(box) < Money();
    if (cancel) tell(form_.context(), negativeAmount);
  };
  box.LostFocus = [this, &box] { leaveAmount(box); };
}

void VoucherLines::removeLast() {
  form_.VSF3.setDropOf(form_.txtledger[0]);
  form_.VSF4.setDropOf(form_.txtgroup[0]);
  form_.cboside.unload();
  for (const auto boxes : textBoxes) (form_.*boxes).unload();
  names_.pop_back();
}

void VoucherLines::empty(int line) {
  names(line) = {};
  for (const auto boxes : textBoxes) (form_.*boxes)[line].setText("");
  setSide(line, true);
}

void VoucherLines::clear() {
  const ScopedFlag ignoring = ignoreChanges();
  while (last() > 0) removeLast();
  empty(0);
  top_ = lastFocused_ = 0;
}

void VoucherLines::copy(int from, int into) {
  names(into) = names(from);
  setSide(into, isDebit(from));
  for (const auto boxes : textBoxes) {
    putName((form_.*boxes)[into], (form_.*boxes)[from].text());
  }
}

void VoucherLines::remove(int line) {
  const ScopedFlag ignoring = ignoreChanges();
  for (; line < last(); ++line) copy(line + 1, line);
  if (last() > 0) {
    removeLast();
  } else {
    empty(0);
  }
}

// --- what stands in a line ----------------------------------------------------------------------

void VoucherLines::show(int line, const VoucherLine& stored, const std::string& ledger,
                        const std::string& group) {
  names(line) = {stored.pair, stored.pair.partId};
  putName(form_.txtledger[line], ledger);
  putName(form_.txtgroup[line], group);
  setSide(line, stored.debit);
  amountBox(line).setText(groupedAmount(*form_.context().host, stored.amount));
}

// 0 where no amount stands.
Money VoucherLines::amountIn(const TextBox& box) const {
  return typedAmount(box.text()).value_or(Money());
}

VoucherLine VoucherLines::read(int line) const {
  return {names_[line].pair, isDebit(line), amountIn(amountBox(line))};
}

std::vector<VoucherLine> VoucherLines::lines() const {
  std::vector<VoucherLine> all;
  all.reserve(names_.size());
  for (int line = 0; line < count(); ++line) all.push_back(read(line));
  return all;
}

std::vector<VoucherLine> VoucherLines::toSave() const {
  std::vector<VoucherLine> all = lines();
  if (last() > 0 && isBlank(last())) all.pop_back();
  for (int line = 0; line < std::ssize(all); ++line) {
    if (blank(form_.txtledger[line])) all[line].pair.partId = 0;
    if (blank(form_.txtgroup[line])) all[line].pair.allId = 0;
  }
  return all;
}

std::vector<std::string> VoucherLines::texts() const {
  std::vector<std::string> texts;
  for (int line = 0; line < count(); ++line) {
    texts.push_back(form_.cboside[line].text());
    for (const auto boxes : textBoxes) {
      if (boxes != &frmjrnl::txtcurbal) texts.push_back((form_.*boxes)[line].text());
    }
  }
  return texts;
}

bool VoucherLines::isBlank(int line) const {
  const TextBox& amount = amountBox(line);
  const bool noAmount = blank(amount) || typedAmount(amount.text()) == Money();
  return blank(form_.txtledger[line]) && blank(form_.txtgroup[line]) && noAmount;
}

// What the voucher lacks on the line's side, for typing to replace.
void VoucherLines::proposeAmount(int line, TextBox& box) {
  if (box.locked() || !blank(box) || blank(form_.txtledger[line])) return;
  const VoucherTotals totals = totalsOf(lines());
  const Money lacking = isDebit(line) ? totals.credit - totals.debit : totals.debit - totals.credit;
  if (lacking > Money()) box.setText(groupedAmount(*form_.context().host, lacking));
}

void VoucherLines::leaveAmount(TextBox& box) {
  form_.lblhint.setCaption("");
  const std::string typed(trimmed(box.text()));
  if (typed.empty()) return;
  if (const auto amount = typedAmount(typed)) {
    box.setText(groupedAmount(*form_.context().host, *amount));
  } else {
    form_.lblhint.setCaption(notAnAmount(typed));
  }
}

bool VoucherLines::isDebit(int line) const { return form_.cboside[line].chosen() == by; }

TextBox& VoucherLines::amountBox(int line) const {
  return isDebit(line) ? form_.txtdramt[line] : form_.txtcramt[line];
}

void VoucherLines::setSide(int line, bool toDebit) {
  form_.cboside[line].setChosen(toDebit ? by : to);
  form_.txtdramt[line].setEnabled(toDebit);
  form_.txtcramt[line].setEnabled(!toDebit);
}

void VoucherLines::setLocked(bool locked) {
  for (int line = 0; line < count(); ++line) {
    form_.cboside[line].setEnabled(!locked);
    for (const auto boxes : textBoxes) {
      if (boxes != &frmjrnl::txtcurbal) (form_.*boxes)[line].setLocked(locked);
    }
  }
}

void VoucherLines::exchangeSides() {
  const ScopedFlag ignoring = ignoreChanges();
  for (int line = 0; line < count(); ++line) {
    form_.cboside[line].setChosen(isDebit(line) ? to : by);
    sideChosen(line);
  }
}

void VoucherLines::sideChosen(int line) {
  {
    const ScopedFlag ignoring = ignoreChanges();
    setSide(line, isDebit(line));
    // An amount that stands already goes over to the other side with the line.
    TextBox& from = isDebit(line) ? form_.txtcramt[line] : form_.txtdramt[line];
    if (!from.text().empty()) amountBox(line).setText(from.text());
    from.setText("");
  }
  form_.GETCURBALS();
}

// --- scrolling ----------------------------------------------------------------------------------

std::vector<LayoutItem> VoucherLines::layout() {
  std::vector<LayoutItem> rows{item(form_.lblmore)};
  for (int line = top_; line < std::min(top_ + inView, count()); ++line) {
    std::vector<LayoutItem> boxes;
    for (const auto& [heading, width, stretch, box] : columns) {
      // The headings stand once, above the first line in view.
      const std::string name = heading + (", line " + std::to_string(line + 1));
      boxes.push_back(named(name, line == top_ ? field(heading, box(form_, line), width, stretch)
                                               : item(box(form_, line), stretch, width)));
    }
    rows.push_back(row(std::move(boxes)));
  }
  rows.push_back(item(form_.lbldots));
  return rows;
}

void VoucherLines::placeView() {
  top_ = std::clamp(top_, 0, std::max(0, count() - inView));
  form_.lblmore.setVisible(top_ > 0);
  form_.lbldots.setVisible(top_ + inView < count());
  form_.arrangementChanged();
}

void VoucherLines::reveal(int line) {
  const int before = top_;
  top_ = std::clamp(top_, line - inView + 1, line);
  if (top_ != before) form_.SETTOP();
}

void VoucherLines::arriveAt(int line) {
  reveal(line);
  lastFocused_ = line;
}

int VoucherLines::lineOf(const Control* control) const {
  return control && control->frame() == &form_.picbase ? control->index() : -1;
}

void VoucherLines::moveTo(int line) {
  const Control* const active = form_.active();
  const int from = lineOf(active);
  Control* to = &form_.cboside[line];
  if (from >= 0 && active == &form_.txtledger[from]) to = &form_.txtledger[line];
  if (from >= 0 && active == &form_.txtgroup[from]) to = &form_.txtgroup[line];
  if (from >= 0 && active == &amountBox(from)) to = &amountBox(line);
  reveal(line);
  form_.focus(*to);
}

}  // namespace quillet
