// The ledgers and groups that lines may stand on, with their names.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "books/merged_groups.h"
#include "suite/database.h"

namespace quillet::suite::check {

using Id = std::optional<long>;  // nothing for a null

class Masters {
 public:
  Masters(Database& database, ServiceObject& host);

  bool hasLedger(Id id) const { return id && ledgers_.contains(*id); }
  bool hasGroup(Id id) const { return id && groups_.contains(*id); }
  // The group into which that one was merged; nothing when it was not.
  std::optional<long> mergedInto(Id id) const;
  // Journals and closing stocks keep the groups under which they were written.
  bool hadGroup(Id id) const { return hasGroup(id) || mergedInto(id); }
  bool hasHead(Id id) const { return id && heads_.contains(*id); }

  // "Cash", or "ledger 7" for one without a name.
  std::string ledger(Id id) const { return nameIn(ledgers_, id, "ledger"); }
  std::string group(Id id) const { return nameIn(groups_, id, "group"); }

 private:
  using Names = std::map<long, std::string>;
  static std::string nameIn(const Names& names, Id id, const std::string& kind);

  Names ledgers_;
  Names groups_;
  Names heads_;
  MergedGroups merged_;
};

}  // namespace quillet::suite::check
