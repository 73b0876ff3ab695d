// The ledger and the group of a voucher's line, found while their names are typed. Ledgers that are
// not there yet are created on the way, groups are not.
#pragma once

#include <optional>
#include <string>

#include "controls/lookup_list.h"
#include "data/name_list.h"
#include "journal/voucher_lines.h"

namespace quillet {

class LineLookups {
 public:
  LineLookups(frmjrnl& form, VoucherLines& lines);

  void fill(NameList ledgers, NameList groups);
  void clear() { fill({}, {}); }
  void attach(int line);
  void hide();
  bool listOpen() const { return ledgers_.visible() || groups_.visible(); }
  // "" for a group that the master does not have.
  std::string groupName(long allId) const;

  // Takes what the open list proposes, else what is typed. False when the name stands for no ledger
  // in the end.
  bool enterLedger(int line);
  bool takeLedger(int line);
  void enterGroup(int line);
  // Names that were never looked up, because the focus left them for "Cancel".
  void lookUpNames(int line);
  // Names whose ledger or group is not in the lists stand for nothing again.
  void forgetUnknown();

  void TXTLEDGER_CHANGE(int line);
  void TXTLEDGER_LOSTFOCUS(int line);
  void TXTGROUP_CHANGE(int line);
  void TXTGROUP_LOSTFOCUS(int line);
  void VSF3_DBLCLICK();
  void VSF4_DBLCLICK();
  // The id of the ledger of that name, found or created; 0 when there is none in the end, nothing
  // when the name has to be changed.
  std::optional<long> CHECKLEDGER(const std::string& name);

 private:
  void attachBox(TextBox& box, LookupList& list);
  void open(TextBox& box, LookupList& list);
  void follow(TextBox& box, LookupList& list);
  void move(LookupList& list, Key& key);
  void takeHighlighted(LookupList& list);
  void takeCurrent(LookupList& list);
  void ledgerTaken(int line, long id);
  void groupTaken(int line, long id);
  void takeGroup(int line);
  long newLedger(const std::string& name);
  void hint(const std::string& text);

  frmjrnl& form_;
  VoucherLines& lines_;
  LookupList ledgers_;
  LookupList groups_;
};

}  // namespace quillet
