// The line sets of the entry frame: made and removed as a voucher needs them, scrolled, added up.
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "books/amount.h"
#include "data/text.h"
#include "journal/form_parts.h"
#include "journal/frmjrnl.h"

namespace quillet {
namespace {

// What the columns Mast_Part.Particular and Mast_AllGrp.ALLGRP hold.
constexpr std::size_t nameLength = 100;
constexpr std::size_t amountLength = 20;

// Items of the side box.
enum Side { to = 1, by = 2 };

// Views redraw what was written, so what stays the same is left alone.
void put(TextBox& box, const std::string& text) {
  if (box.text() != text) box.setText(text);
}

}  // namespace

// --- making and removing ------------------------------------------------------------------------

void frmjrnl::LOADCONTROLS() {
  trap("LOADCONTROLS", [&] {
    cboside.load("");
    for (auto* boxes : {&txtledger, &txtgroup, &txtcurbal, &txtdramt, &txtcramt}) boxes->load("");
    ids_.emplace_back();
    attachLine(lastLine());
    if (filling_) return;
    const Totals sums = totals();
    setSide(lastLine(), sums.debit <= sums.credit);
    SETTOP();
  });
}

void frmjrnl::attachLine(int line) {
  ComboBox& side = cboside[line];
  side.addItem("To");
  side.addItem("By");
  side.Click = [this, line] { sideChosen(line); };
  side.GotFocus = [this, line] { arriveAt(line); };

  TextBox& ledger = txtledger[line];
  ledger.maxLength = nameLength;
  ledger.Overflow = [this] { hint("A ledger name holds at most 100 characters."); };
  ledger.GotFocus = [this, line] { openList(txtledger[line], VSF3); };
  ledger.Change = [this, line] { TXTLEDGER_CHANGE(line); };
  ledger.KeyDown = [this, line](Key& key) { moveList(txtledger[line], VSF3, ledgers_, key); };
  ledger.LostFocus = [this, line] { TXTLEDGER_LOSTFOCUS(line); };

  TextBox& group = txtgroup[line];
  group.maxLength = nameLength;
  group.Overflow = [this] { hint("A group name holds at most 100 characters."); };
  group.GotFocus = [this, line] { openList(txtgroup[line], VSF4); };
  group.Change = [this, line] { TXTGROUP_CHANGE(line); };
  group.KeyDown = [this, line](Key& key) { moveList(txtgroup[line], VSF4, groups_, key); };
  group.LostFocus = [this, line] { TXTGROUP_LOSTFOCUS(line); };

  TextBox& balance = txtcurbal[line];
  balance.rightAligned = true;
  balance.setLocked(true);
  balance.tabStop = false;

  for (TextBox* amount : {&txtdramt[line], &txtcramt[line]}) {
    amount->rightAligned = true;
    amount->maxLength = amountLength;
    amount->Overflow = [this] { hint("An amount holds at most 20 characters."); };
    amount->GotFocus = [this, line, amount] {
      arriveAt(line);
      amount->selectAll();
    };
    amount->Change = [this] { GETCURBALS(); };
    amount->Validate = [this, amount](bool& cancel) { validateAmount(*amount, cancel); };
    amount->LostFocus = [this, amount] { leaveAmount(*amount); };
  }
  // Lines out of view have no place in the arrangement and belong to the frame all the same.
  for (Control* control : std::initializer_list<Control*>{&side, &ledger, &group, &balance,
                                                          &txtdramt[line], &txtcramt[line]}) {
    control->placeIn(&picbase);
  }
  setSide(line, true);
}

void frmjrnl::unloadLast() {
  VSF3.dropOf = &txtledger[0];
  VSF4.dropOf = &txtgroup[0];
  cboside.unload();
  for (auto* boxes : {&txtledger, &txtgroup, &txtcurbal, &txtdramt, &txtcramt}) boxes->unload();
  ids_.pop_back();
}

void frmjrnl::clearLine(int line) {
  ids_[static_cast<std::size_t>(line)] = {};
  for (auto* boxes : {&txtledger, &txtgroup, &txtcurbal, &txtdramt, &txtcramt}) {
    (*boxes)[line].setText("");
  }
  setSide(line, true);
}

void frmjrnl::CLEARDATA() {
  trap("CLEARDATA", [&] {
    {
      const Filling filling(filling_);
      txtdt.clear();
      txtnarr.setText("");
      while (lastLine() > 0) unloadLast();
      clearLine(0);
    }
    vid_ = 0;
    stored_.clear();
    top_ = 0;
    lastFocus_ = 0;
    hint("");
    SETTOP();
    GETCURBALS();
  });
}

void frmjrnl::copyLine(int from, int into) {
  ids_[static_cast<std::size_t>(into)] = ids_[static_cast<std::size_t>(from)];
  setSide(into, isDebit(from));
  for (auto* boxes : {&txtledger, &txtgroup, &txtdramt, &txtcramt}) {
    putName((*boxes)[into], (*boxes)[from].text());
  }
}

void frmjrnl::CMDREMOVE_CLICK() {
  trap("CMDREMOVE_CLICK", [&] {
    {
      const Filling filling(filling_);
      const int removed = std::min(lastFocus_, lastLine());
      for (int line = removed; line < lastLine(); ++line) copyLine(line + 1, line);
      if (lastLine() > 0) {
        unloadLast();
      } else {
        clearLine(0);
      }
      SETTOP();
      moveToLine(std::min(removed, lastLine()));
    }
    GETCURBALS();
  });
}

int frmjrnl::GETROWS() {
  int rows = 0;
  trap("GETROWS", [&] {
    rows = cboside.size();
    lblrows.setCaption(std::to_string(rows) + (rows == 1 ? " line" : " lines"));
  });
  return rows;
}

// --- scrolling ----------------------------------------------------------------------------------

void frmjrnl::SETTOP() {
  trap("SETTOP", [&] {
    const int rows = GETROWS();
    top_ = std::clamp(top_, 0, std::max(0, rows - linesInView));
    lblmore.setVisible(top_ > 0);
    lbldots.setVisible(top_ + linesInView < rows);
    arrangementChanged();
  });
}

void frmjrnl::reveal(int line) {
  const int before = top_;
  top_ = std::clamp(top_, line - linesInView + 1, line);
  if (top_ != before) SETTOP();
}

void frmjrnl::arriveAt(int line) {
  reveal(line);
  lastFocus_ = line;
}

int frmjrnl::lineOf(const Control* control) const {
  return control && control->frame() == &picbase ? control->index() : -1;
}

// --- side and amount ----------------------------------------------------------------------------

bool frmjrnl::isDebit(int line) const { return cboside[line].chosen() == by; }

TextBox& frmjrnl::amountBox(int line) { return isDebit(line) ? txtdramt[line] : txtcramt[line]; }

void frmjrnl::setSide(int line, bool debit) {
  cboside[line].setChosen(debit ? by : to);
  txtdramt[line].setEnabled(debit);
  txtcramt[line].setEnabled(!debit);
}

void frmjrnl::sideChosen(int line) {
  {
    const Filling filling(filling_);
    const bool debit = isDebit(line);
    setSide(line, debit);
    // An amount that stands already goes over to the other side with the line.
    TextBox& from = debit ? txtcramt[line] : txtdramt[line];
    if (!from.text().empty()) amountBox(line).setText(from.text());
    from.setText("");
  }
  GETCURBALS();
}

double frmjrnl::amountIn(const TextBox& box) const {
  return typedAmount(box.text()).value_or(Money()).rupees();
}

double frmjrnl::signedAmount(int line) const {
  return isDebit(line) ? amountIn(txtdramt[line]) : -amountIn(txtcramt[line]);
}

bool frmjrnl::namesNothing(int line) const {
  const auto blank = [](const TextBox& box) { return trimmed(box.text()).empty(); };
  const TextBox& amount = isDebit(line) ? txtdramt[line] : txtcramt[line];
  const bool noAmount = blank(amount) || typedAmount(amount.text()) == Money();
  return blank(txtledger[line]) && blank(txtgroup[line]) && noAmount;
}

// --- balances and totals ------------------------------------------------------------------------

frmjrnl::Totals frmjrnl::totals() const {
  Totals sums;
  for (int line = 0; line < cboside.size(); ++line) {
    sums.debit += amountIn(txtdramt[line]);
    sums.credit += amountIn(txtcramt[line]);
  }
  return {rounded(sums.debit), rounded(sums.credit)};
}

void frmjrnl::CHECKTOTALS() {
  trap("CHECKTOTALS", [&] {
    const Totals sums = totals();
    if (vsf1.rows() == 0) vsf1.addRow({"Total"});
    vsf1.setCell(1, 1, shown(sums.debit));
    vsf1.setCell(1, 2, shown(sums.credit));
    const double difference = rounded(sums.debit - sums.credit);
    lbldiff.setCaption(difference == 0 ? ""
                                       : "Difference " + shown(std::fabs(difference)) +
                                             (difference > 0 ? " Dr" : " Cr"));
  });
}

void frmjrnl::GETCURBALS() {
  if (filling_) return;
  trap("GETCURBALS", [&] {
    PairAmounts typed;
    for (int line = 0; line < cboside.size(); ++line) {
      typed.add(ids_[static_cast<std::size_t>(line)].pair, signedAmount(line));
    }
    for (int line = 0; line < cboside.size(); ++line) {
      const LedgerGroup pair = ids_[static_cast<std::size_t>(line)].pair;
      const auto posted = balances_.find(pair);
      const double missing = posting_.missing(pair);
      // A voucher that is modified stands in the balance already: its lines on screen take the
      // place of those. What a failure left to be posted counts as posted.
      const double balance =
          rounded(posted.value_or(0) + missing - stored_.of(pair) + typed.of(pair));
      const bool none = (!posted && missing == 0) || balance == 0;
      put(txtcurbal[line], none ? "0.00" : shown(std::fabs(balance)) + (balance > 0 ? "Dr" : "Cr"));
    }
    CHECKTOTALS();
  });
}

}  // namespace quillet
