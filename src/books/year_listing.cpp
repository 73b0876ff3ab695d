#include "books/year_listing.h"

#include <algorithm>
#include <map>
#include <utility>

#include "books/account_groups.h"
#include "books/trial_balance.h"

namespace quillet {
namespace {

struct GroupOrder {
  std::string primary;
  long id;
};

std::vector<GroupOrder> groupsByPrimary(ServiceObject& host) {
  std::vector<GroupOrder> order;
  const auto rows = host.query(
      "select mast_gunder.gunder,mast_allgrp.allid from mast_gunder,mast_allgrp where "
      "mast_allgrp.gid=mast_gunder.gid order by mast_gunder.gunder");
  for (; !rows->EOF_(); rows->MoveNext()) order.push_back({rows->text(0), rows->integer(1)});
  return order;
}

bool byName(const ListedGroup& a, const ListedGroup& b) { return a.name < b.name; }

}  // namespace

std::vector<Entry> listedLines(ServiceObject& host, const ClientTable& books) {
  std::vector<Entry> lines = pairLines(TrialBalance(host, books).lines(), {});
  if (lines.empty()) return lines;
  AccountGroups groups;
  groups.load(host);
  fillNames(lines, host, groups);
  return lines;
}

std::vector<ListedGroup> listedGroups(ServiceObject& host, std::vector<Entry> lines) {
  sortEntries(lines, SortOption::particular);
  std::map<long, ListedGroup> waiting;  // by id
  for (Entry& entry : lines) {
    ListedGroup& group = waiting[entry.any().allId];
    group.name = entry.group;
    group.lines.push_back(std::move(entry));
  }
  std::vector<ListedGroup> groups;
  auto samePrimary = groups.size();  // where the groups of the primary group begin
  std::string primary;
  const auto sortSamePrimary = [&] {
    std::sort(groups.begin() + static_cast<long>(samePrimary), groups.end(), byName);
    samePrimary = groups.size();
  };
  for (const GroupOrder& next : groupsByPrimary(host)) {
    if (next.primary != primary) sortSamePrimary();
    primary = next.primary;
    const auto found = waiting.find(next.id);
    if (found == waiting.end()) continue;
    groups.push_back(std::move(found->second));
    waiting.erase(found);
  }
  sortSamePrimary();
  for (auto& [id, group] : waiting) groups.push_back(std::move(group));
  return groups;
}

}  // namespace quillet
