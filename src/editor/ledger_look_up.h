// What the books know of the ledger in the entry fields: whether there is one of that name, and the
// group that is proposed for it.
#pragma once

#include <string>

#include "editor/open_books.h"

namespace quillet {

class frmcrtb;

class LedgerLookUp {
 public:
  LedgerLookUp(frmcrtb& form, OpenBooks& books) : form_(form), books_(books) {}

  // Looks a name up, once as long as it stays the same. Where `proposing`, its group goes into the
  // group field, in place of one that was proposed before; one that a person chose stays. A failure
  // proposes nothing.
  void lookUp(const std::string& name, bool proposing);
  // Takes the name for one that the master has.
  void know(const std::string& name, long id) { name_ = name, id_ = id, isNew_ = false; }
  void forget();

  // The ledger that was looked up by that name, 0 when none was found.
  long found(const std::string& name) const { return name == name_ ? id_ : 0; }
  // Whether that is the name looked up last, and the master has no such ledger.
  bool isNew(const std::string& name) const { return isNew_ && name == name_; }
  // The group field holds what was proposed.
  bool proposes() const;

 private:
  std::string findGroup(bool proposing);

  frmcrtb& form_;
  OpenBooks& books_;
  std::string name_;
  long id_ = 0;
  bool isNew_ = false;
  std::string proposed_;
};

}  // namespace quillet
