#include "books/merged_groups.h"

#include <sstream>

namespace quillet {
namespace {

// Kept as "5>3 7>3".
constexpr const char* mergedSection = "AllGrp";
constexpr const char* mergedKey = "Merged";

}  // namespace

MergedGroups::MergedGroups(ServiceObject& host) : host_(host) {
  std::istringstream kept(host.GetMiscOthInf(mergedSection, mergedKey, ""));
  IdList ids;
  long target = 0;
  char arrow = 0;
  for (long id = 0; kept >> id >> arrow >> target;) {
    into_[id] = target;
    ids.add(id);
  }
  if (ids.empty()) return;
  const auto living =
      host.query("Select AllId from Mast_AllGrp Where AllId in (" + ids.sql() + ")");
  for (; !living->EOF_(); living->MoveNext()) into_.erase(living->integer(0));
}

void MergedGroups::keep(const std::vector<long>& ids, long target) {
  for (const long id : ids) into_[id] = target;
  std::ostringstream text;
  for (const auto& [id, into] : into_) text << id << '>' << into << ' ';
  host_.SetMiscOthInf(mergedSection, mergedKey, text.str(), "", "");
}

long MergedGroups::successor(long id) const {
  // No longer way than there are merges: a value that somebody spoilt may lead round and round.
  for (std::size_t step = 0; step < into_.size(); ++step) {
    const auto next = into_.find(id);
    if (next == into_.end()) break;
    id = next->second;
  }
  return id;
}

std::vector<long> MergedGroups::merged() const {
  std::vector<long> ids;
  for (const auto& [id, into] : into_) ids.push_back(id);
  return ids;
}

std::vector<long> MergedGroups::predecessors(long id) const {
  std::vector<long> found;
  for (const auto& [merged, into] : into_) {
    if (merged != id && successor(merged) == id) found.push_back(merged);
  }
  return found;
}

}  // namespace quillet
