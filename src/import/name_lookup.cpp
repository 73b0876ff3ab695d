#include "import/name_lookup.h"

#include <algorithm>

namespace quillet {

using Distance = NearestNames::Distance;

FoundLedger findLedger(const KnownBooks& books, const std::string& name,
                       std::optional<bool> usesNearest) {
  if (name.empty()) return {LedgerState::unnamed, {}, 0, {}};
  const NearestNames::Found found = books.ledgers.find(name);
  const FoundLedger known{LedgerState::known, found.name.name, found.name.id, {}};
  if (found.distance == Distance::same) return known;
  if (found.distance != Distance::none && usesNearest == true) return known;
  const bool open = found.distance == Distance::alike && !usesNearest;
  return {open ? LedgerState::nearKnown : LedgerState::isNew, name, 0, found.name};
}

GroupLookup::GroupLookup(const KnownBooks& books)
    : books_(books), current_(groupsIn(books.current)), previous_(groupsIn(books.previous)) {}

GroupLookup::Groups GroupLookup::groupsIn(const std::vector<Line>& lines) {
  Groups groups;
  for (const Line& line : lines) {
    std::vector<long>& of = groups[line.partId];
    if (std::find(of.begin(), of.end(), line.allId) == of.end()) of.push_back(line.allId);
  }
  return groups;
}

FoundGroup GroupLookup::standing(const Groups& groups, long partId, GroupState state) const {
  const auto found = groups.find(partId);
  if (partId == 0 || found == groups.end()) return {};
  if (found->second.size() > 1) return {GroupState::missing, 0, true};
  const long group = found->second.front();
  return books_.groupNames.contains(group) ? FoundGroup{state, group, false} : FoundGroup{};
}

FoundGroup GroupLookup::find(const FoundLedger& ledger, const std::string& sourceGroup,
                             const std::string& section, std::optional<long> chosen) const {
  if (chosen && books_.groupNames.contains(*chosen)) return {GroupState::chosen, *chosen, false};
  const NearestNames::Found named = books_.groups.find(sourceGroup);
  if (named.distance == Distance::same) return {GroupState::fromSource, named.name.id, false};
  for (const auto& [groups, state] : {std::pair(&current_, GroupState::fromYear),
                                      std::pair(&previous_, GroupState::fromLastYear)}) {
    const FoundGroup found = standing(*groups, ledger.partId, state);
    if (found.allId != 0 || found.several) return found;
  }
  const auto remembered = books_.rememberedGroups.find(nameKey(ledger.name));
  if (remembered != books_.rememberedGroups.end() &&
      books_.groupNames.contains(remembered->second)) {
    return {GroupState::remembered, remembered->second, false};
  }
  if (named.distance == Distance::alike) return {GroupState::proposed, named.name.id, false};
  // A group that the source names and nobody knows is asked about, not replaced.
  if (!sourceGroup.empty()) return {};
  const NearestNames::Found heading = books_.groups.find(section);
  if (heading.distance == Distance::same) return {GroupState::fromHeading, heading.name.id, false};
  const auto usual = books_.usualGroups.find(ledger.partId);
  if (usual != books_.usualGroups.end() && books_.groupNames.contains(usual->second)) {
    return {GroupState::proposed, usual->second, false};
  }
  if (heading.distance == Distance::alike) return {GroupState::proposed, heading.name.id, false};
  return {};
}

}  // namespace quillet
