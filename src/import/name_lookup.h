// The ledger and the group that a row of a source means.
#pragma once

#include <string>

#include "import/proposals.h"

namespace quillet {

struct FoundLedger {
  LedgerState state = LedgerState::isNew;
  std::string name;  // the master's own for a known one
  long partId = 0;
  NamedId nearest;
};
// `usesNearest` is a person's answer; without one a name that is alike stays open.
FoundLedger findLedger(const KnownBooks& books, const std::string& name,
                       std::optional<bool> usesNearest);

struct FoundGroup {
  GroupState state = GroupState::missing;
  long allId = 0;
  bool several = false;  // missing, since the ledger stands under several
};

// Groups by what is known of the ledgers, made once for all rows.
class GroupLookup {
 public:
  explicit GroupLookup(const KnownBooks& books);

  FoundGroup find(const FoundLedger& ledger, const std::string& sourceGroup,
                  const std::string& section, std::optional<long> chosen) const;

 private:
  using Groups = std::unordered_map<long, std::vector<long>>;
  static Groups groupsIn(const std::vector<Line>& lines);
  FoundGroup standing(const Groups& groups, long partId, GroupState state) const;

  const KnownBooks& books_;
  Groups current_;
  Groups previous_;
};

}  // namespace quillet
