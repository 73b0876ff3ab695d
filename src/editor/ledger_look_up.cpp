#include "editor/ledger_look_up.h"

#include "books/usual_group.h"
#include "editor/frmcrtb.h"

namespace quillet {

void LedgerLookUp::lookUp(const std::string& name, bool proposing) {
  if (name == name_) return;
  know(name, 0);
  std::string group;
  form_.logErrors("LOOKLEDGERUP", [&] { group = findGroup(proposing); });
  if (!proposing || (!form_.txtgroup.text().empty() && !proposes())) return;
  proposed_ = group;
  form_.txtgroup.setText(group);
}

std::string LedgerLookUp::findGroup(bool proposing) {
  if (name_.empty()) return {};
  id_ = ledgerNamed(books_.host(), name_);
  isNew_ = id_ == 0;
  if (isNew_ || !proposing) return {};
  return books_.groups.name(usualGroup(books_.host(), books_.years, books_.groups, id_));
}

void LedgerLookUp::forget() {
  know({}, 0);
  proposed_.clear();
}

bool LedgerLookUp::proposes() const {
  return !proposed_.empty() && form_.txtgroup.text() == proposed_;
}

}  // namespace quillet
