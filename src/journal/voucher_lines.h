// The lines of the voucher on the entry frame: a set of six controls for each. They are made and
// removed as the voucher needs them, and only those in view have a place in the form's arrangement,
// so that a voucher of 200 lines is as quick to draw as one of ten.
#pragma once

#include <string>
#include <vector>

#include "books/voucher.h"
#include "controls/layout.h"
#include "controls/scoped_flag.h"
#include "controls/text_box.h"

namespace quillet {

class frmjrnl;

class VoucherLines {
 public:
  static constexpr int inView = 10;

  explicit VoucherLines(frmjrnl& form) : form_(form) {}

  int count() const { return static_cast<int>(names_.size()); }
  int last() const { return count() - 1; }
  // Adds an empty debit line at the end.
  void add();
  // Removes a line; the only one there is emptied.
  void remove(int line);
  // Removes all lines but the first and empties that.
  void clear();

  // While a procedure writes into the boxes, and not a person, their handlers leave them alone.
  ScopedFlag ignoreChanges() { return ScopedFlag(ignoring_); }
  bool ignoringChanges() const { return ignoring_; }

  // --- what stands in a line

  // What its names stand for.
  struct Names {
    LedgerGroup pair;          // 0 while a name stands for nothing
    long proposedFor = 0;      // the ledger whose group was proposed
    bool groupChosen = false;  // by a person, who did not take the proposal
  };
  Names& names(int line) { return names_[line]; }
  void show(int line, const VoucherLine& stored, const std::string& ledger,
            const std::string& group);
  std::vector<VoucherLine> lines() const;
  // The lines that make up the voucher. A last line that names nothing is there to be filled and is
  // no part of it, and a blank box names nothing.
  std::vector<VoucherLine> toSave() const;
  // The lines can be read and copied, not altered.
  void setLocked(bool locked);
  // What stands in all of them, as it is typed.
  std::vector<std::string> texts() const;
  // Neither names nor an amount.
  bool isBlank(int line) const;

  bool isDebit(int line) const;
  void setSide(int line, bool toDebit);
  // Debits become credits and credits debits.
  void exchangeSides();
  // The box that takes the line's amount.
  TextBox& amountBox(int line) const;

  // --- scrolling

  std::vector<LayoutItem> layout();
  // Keeps the view within the lines and shows the marks of those above and below it.
  void placeView();
  void reveal(int line);
  // The line that had the focus last.
  int lastFocused() const { return lastFocused_; }
  void arriveAt(int line);
  // The line that the control belongs to, -1 for any other control.
  int lineOf(const Control* control) const;
  // Goes to the same box of another line.
  void moveTo(int line);

 private:
  void attachSide(int line);
  void attachAmount(int line, TextBox& box);
  void removeLast();
  void empty(int line);
  void copy(int from, int into);
  void sideChosen(int line);
  void proposeAmount(int line, TextBox& box);
  void leaveAmount(TextBox& box);
  Money amountIn(const TextBox& box) const;
  VoucherLine read(int line) const;

  frmjrnl& form_;
  std::vector<Names> names_;
  int top_ = 0;  // the first line in view
  int lastFocused_ = 0;
  bool ignoring_ = false;
};

// Writes a name so that its beginning is in view, however narrow the box.
inline void putName(TextBox& box, const std::string& name) {
  box.setText(name);
  box.select(0, 0);
}

}  // namespace quillet
