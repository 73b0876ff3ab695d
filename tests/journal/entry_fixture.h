// A new voucher on the entry frame.
#pragma once

#include "journal_fixture.h"

namespace quillet::support {

class JournalEntry : public JournalTest {
 protected:
  JournalEntry() {
    addYear("C1", 2008, {{"Cash", "BANKS", 500}, {"Rent Payable", "RENT", -40}});
    for (const char* name : {"Axis Bank", "Bank Charges", "Banking Fee", "Petty Cash"}) {
      ledger(name);
    }
    clock.set({2008, 6, 15});
    open("C1", 2008).click(journal().cmdadd);
  }
  std::string active() {
    const Control* control = journal().active();
    if (!control) return "nothing";
    return control->name() + (control->index() < 0 ? "" : std::to_string(control->index()));
  }
  // Into the first line, and on.
  void enterLedger(const std::string& name, const Key& key = keys::Tab) {
    type(journal().txtledger[0], name);
    journal().press(key);
  }
};

}  // namespace quillet::support
