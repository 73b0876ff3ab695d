// The ledger master, the table Mast_Part: the particulars of every client and year. Old data holds
// ids with several names; such an id has a row for each.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/names.h"
#include "ports/ports.h"

namespace quillet {

class LedgerMaster {
 public:
  explicit LedgerMaster(ServiceObject& host) : host_(host) {}

  // Every row, or those of one id.
  std::vector<NamedId> ledgers(long id = 0) const;
  bool has(long id) const;
  // What stands in the way of the name. `except` is the id of the ledger that is being renamed, 0
  // for none; `alike` are those that were listed under the same name.
  std::optional<NamedId> taken(const std::string& name, long except,
                               const std::vector<long>& alike) const;

  // The flush after a change is the caller's.
  //
  // The new ledger's id, 0 when there is none.
  long insert(const std::string& name);
  void rename(long id, const std::string& name);
  // One that nothing uses, and one whose lines another ledger has taken over, are deleted in
  // different spellings.
  void deleteUnused(long id);
  void deleteReplaced(long id);
  void deleteAll(const std::vector<long>& ids);

 private:
  ServiceObject& host_;
};

}  // namespace quillet
