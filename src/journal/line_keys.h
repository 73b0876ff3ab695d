// Where the keys lead within the lines of a voucher, and from them to the narration.
#pragma once

#include "controls/key.h"
#include "journal/line_lookups.h"

namespace quillet {

class LineKeys {
 public:
  LineKeys(frmjrnl& form, VoucherLines& lines, LineLookups& lookups)
      : form_(form), lines_(lines), lookups_(lookups) {}

  void enter(int line);
  void tab(int line, Key& key);
  // The arrows in an amount, and the pages.
  void step(int line, Key& key);

 private:
  void enterInAmount(int line);
  // Goes on to the line below, made if there is none.
  void goBelow(int line);
  bool amountIsGood(int line);
  // Debit and credit agree, and below the line stands nothing more.
  bool endsVoucher(int line) const;

  frmjrnl& form_;
  VoucherLines& lines_;
  LineLookups& lookups_;
};

}  // namespace quillet
